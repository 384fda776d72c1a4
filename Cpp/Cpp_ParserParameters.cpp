// Parameter lists, of functions and of templates.
#include "Cpp_JoinedText.h"
#include "Cpp_Parser.h"

namespace Cpp {

namespace Kind = Trn::Kind;
using Trn::isEnd;

struct Parser::ParameterScan {
    TokenKind open;
    TokenKind close;
    int depth = 1;
    int angleDepth = 0;  // brackets that are counted and are not part of the text
    JoinedText text{};
    Position first{};
    Position last{};
    bool seenToken = false;

    void startEntryAt(Position position) {
        text.clear();
        first = position;
        last = {};
        seenToken = false;
    }
    void join(const Token& token) {
        text.join(token.text());
        last = token.last();
    }
};

std::unique_ptr<ParameterListNode> Parser::parseParameterList(Stream& stream, bool isTemplate) {
    ParameterScan scan =
        isTemplate ? ParameterScan{Kind::Less, Kind::Greater} : ParameterScan{Kind::OpenParen, Kind::CloseParen};
    dropTrivia(stream);
    auto list = make<ParameterListNode>();
    list->setFirstPosition(stream.get().first());
    dropTrivia(stream);
    if (stream.peek().kind() == scan.close) {
        list->setLastPosition(stream.get().last());
        return list;
    }
    scan.startEntryAt(stream.peek().first());
    Step step = Step::GoOn;
    while (step == Step::GoOn) step = scanParameterToken(stream, *list, scan);
    if (step == Step::Fail) return nullptr;
    return list;
}

Parser::Step Parser::scanParameterToken(Stream& stream, ParameterListNode& list, ParameterScan& scan) {
    const Token token = stream.get();
    const TokenKind kind = token.kind();
    if (isEnd(kind)) {
        reportUnexpectedEnd(stream);
        return Step::Fail;
    }
    if (Trn::isTrivia(kind)) {
        scan.last = token.last();
        stream.stepBack();
        passTrivia(stream);
    } else if (kind == Kind::Comma) {
        if (scan.depth > 1 || scan.angleDepth != 0) {
            scan.join(token);
        } else {
            list.addChild(make<ParameterNode>(scan.text, scan.first, scan.last));
            scan.startEntryAt(stream.peek().first());
        }
    } else if (kind == scan.open) {
        ++scan.depth;
        scan.join(token);
    } else if (kind == scan.close) {
        if (--scan.depth > 0) {
            scan.join(token);
            return Step::GoOn;
        }
        if (scan.angleDepth != 0) report(token.first(), "Expected '>'. Got: " + std::string(token.text()));
        if (scan.seenToken) list.addChild(make<ParameterNode>(scan.text, scan.first, scan.last));
        list.setLastPosition(token.last());
        return Step::Stop;
    } else if (kind == Kind::Less) {
        ++scan.angleDepth;
    } else if (kind == Kind::Greater) {
        --scan.angleDepth;
    } else {
        if (!scan.seenToken) scan.first = token.first();
        scan.seenToken = true;
        scan.join(token);
    }
    return Step::GoOn;
}

}  // namespace Cpp
