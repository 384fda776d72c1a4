// The base clauses of a class, one node a base.
#include "Cpp_Parser.h"
#include "Cpp_ParserWords.h"

namespace Cpp {

namespace Kind = Trn::Kind;
using Trn::isEnd;

std::unique_ptr<BaseClauseListNode> Parser::parseBaseClauseList(Stream& stream) {
    dropTrivia(stream);
    auto list = std::make_unique<BaseClauseListNode>();
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
            list->addChild(parseBaseClause(stream));
        }
    }
    if (list->childCount() == 0) return nullptr;
    return list;
}

std::unique_ptr<BaseClauseNode> Parser::parseBaseClause(Stream& stream) {
    dropTrivia(stream);
    auto clause = std::make_unique<BaseClauseNode>();
    clause->setFirstPosition(stream.peek().first());
    for (int angleDepth = 0;;) {
        dropTrivia(stream);
        const Token token = stream.get();
        switch (token.kind()) {
            case Kind::Public:
            case Kind::Protected:
            case Kind::Private:
            case Kind::Virtual:
                if (!acceptBaseKeyword(token, *clause)) return nullptr;
                break;
            case Kind::Comma:
                if (angleDepth == 0) {
                    stream.stepBack();
                    return clause;
                }
                clause->text += token.text();
                break;
            case Kind::OpenBrace:
                stream.stepBack();
                return clause;
            case Kind::Star:
            case Kind::Amp:
            case Kind::Identifier:
                clause->text += token.text();
                clause->setLastPosition(token.last());
                break;
            case Kind::Less:
                clause->text += token.text();
                if (!readBaseTemplateArguments(stream, *clause, angleDepth)) return nullptr;
                break;
            case Kind::Greater:
                clause->text += token.text();
                if (--angleDepth == 0) clause->setLastPosition(token.last());
                break;
            default:
                report(token.first(), "Unexpected Token: \"" + std::string(token.text()) + '"');
                return nullptr;
        }
    }
}

// An access keyword may come once, and none of these words behind the name.
bool Parser::acceptBaseKeyword(const Token& keyword, BaseClauseNode& clause) {
    const bool isAccess = keyword.kind() != Kind::Virtual;
    if (!clause.text.empty() || (isAccess && clause.accessKind != 0)) {
        report(keyword.first(), "Not expecting to find keyword \"" + std::string(keyword.text()) + '"');
        return false;
    }
    if (isAccess) {
        clause.accessKind = accessKindOf(keyword.kind());
    } else {
        clause.isVirtual = true;
    }
    return true;
}

// Starts behind the opening `<`. Without a closing `>` the arguments go to the end of the list.
bool Parser::readBaseTemplateArguments(Stream& stream, BaseClauseNode& clause, int& angleDepth) {
    for (++angleDepth; angleDepth != 0;) {
        dropTrivia(stream);
        const Token token = stream.get();
        if (isEnd(token.kind())) {
            reportUnexpectedEnd(stream);
            return false;
        }
        clause.text += token.text();
        if (token.kind() == Kind::Less) ++angleDepth;
        if (token.kind() == Kind::Greater) --angleDepth;
        clause.setLastPosition(token.last());
    }
    return true;
}

}  // namespace Cpp
