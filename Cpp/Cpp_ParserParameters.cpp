// The lists of functions: parameters, which templates share, a constructor's initializers and their arguments; and
// template heads.
#include "Cpp_JoinedText.h"
#include "Cpp_Parser.h"

namespace Cpp {

namespace Kind = Trn::Kind;
using Trn::isEnd;

// ---- Parameters

struct Parser::ParameterScan {
    TokenKind open;
    TokenKind close;
    int depth = 1;
    int angleDepth = 0;  // brackets that are counted and are not part of the text
    std::string text{};
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
        joinTo(text, token.text());
        last = token.last();
    }
    void addEntryTo(ParameterListNode& list) {
        list.addChild(std::make_unique<ParameterNode>(std::move(text), first, last));
    }
};

std::unique_ptr<ParameterListNode> Parser::parseParameterList(Stream& stream, bool isTemplate) {
    ParameterScan scan =
        isTemplate ? ParameterScan{Kind::Less, Kind::Greater} : ParameterScan{Kind::OpenParen, Kind::CloseParen};
    dropTrivia(stream);
    auto list = std::make_unique<ParameterListNode>();
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
            scan.addEntryTo(list);
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
        if (scan.seenToken) scan.addEntryTo(list);
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

// ---- A constructor's initializers

std::unique_ptr<InitializerListNode> Parser::parseCtorInitializerList(Stream& stream) {
    auto list = std::make_unique<InitializerListNode>();
    for (;;) {
        const TokenKind next = stream.peek().kind();
        if (isEnd(next)) {
            report(stream.get().first(), ParseCode::UnexpectedEnd);
            return nullptr;
        }
        if (next == Kind::OpenBrace) break;
        if (next == Kind::Comma) {
            stream.get();
        } else if (Trn::isTrivia(next)) {
            list->addChild(parseTrivia(stream));
        } else {
            list->addChild(parseCtorInitializer(stream));
        }
    }
    if (list->childCount() == 0) return nullptr;
    return list;
}

std::unique_ptr<InitializerNode> Parser::parseCtorInitializer(Stream& stream) {
    auto name = parseCtorInitializerName(stream);
    if (!name) return nullptr;
    auto initializer = std::make_unique<InitializerNode>();
    initializer->name = std::move(name);
    initializer->arguments = parseCtorArguments(stream);
    if (!initializer->arguments) return nullptr;
    return initializer;
}

// All up to the next `(`, which stays on the stream.
std::unique_ptr<IdNode> Parser::parseCtorInitializerName(Stream& stream) {
    dropTrivia(stream);
    const Token name = stream.get();
    if (name.kind() != Kind::Identifier) {
        report(name.first(), "Expected a variable name for an initializer. Got: \"" + std::string(name.text()) + '"');
        return nullptr;
    }
    JoinedText text;
    text.add(name.text());
    Position last = name.last();
    for (;;) {
        const Token token = stream.get();
        if (isEnd(token.kind()) || token.kind() == Kind::OpenBrace) {
            stream.stepBack();
            report(stream.get().first(), ParseCode::UnexpectedEnd);
            return nullptr;
        }
        if (token.kind() == Kind::OpenParen) {
            stream.stepBack();
            return std::make_unique<IdNode>(text.take(), name.first(), last);
        }
        text.add(token.text());
        last = token.last();
    }
}

std::unique_ptr<ArgListNode> Parser::parseCtorArguments(Stream& stream) {
    auto list = std::make_unique<ArgListNode>();
    list->setFirstPosition(stream.get().first());
    attachTrivia(stream, *list);
    auto argument = std::make_unique<ArgNode>(std::string(), stream.peek().first(), Position());
    for (int depth = 1;;) {
        attachTrivia(stream, *list);
        const Token token = stream.get();
        if (isEnd(token.kind())) {
            report(stream.get().first(), ParseCode::UnexpectedEnd);
            return nullptr;
        }
        if (token.kind() == Kind::OpenParen) ++depth;
        if (token.kind() == Kind::CloseParen && --depth == 0) {
            list->addChild(std::move(argument));
            list->setLastPosition(token.last());
            return list;
        }
        if (token.kind() == Kind::Comma && depth == 1) {
            list->addChild(std::move(argument));
            argument = std::make_unique<ArgNode>(std::string(), stream.peek().first(), Position());
            continue;
        }
        argument->text += token.text();
        argument->setLastPosition(token.last());
    }
}

// ---- Templates

// The declaration behind the head is the next item of the enclosing body.
std::unique_ptr<SyntaxNode> Parser::parseTemplate(Stream& stream) {
    dropTrivia(stream);
    const Token keyword = stream.get();
    dropTrivia(stream);
    if (stream.peek().kind() != Kind::Less) {
        stream.unget(keyword);
        return parseExpressionStatement(stream);
    }
    auto node = std::make_unique<TemplateNode>();
    node->keyword = std::make_unique<KeywordNode>(keyword.kind(), keyword.first(), keyword.last());
    node->parameters = parseParameterList(stream, true);
    return node;
}

}  // namespace Cpp
