// The base clauses of a class, one node a base.
#include "Cpp_JoinedText.h"
#include "Cpp_Parser.h"
#include "Cpp_ParserWords.h"

namespace Cpp {

namespace Kind = Trn::Kind;
using Trn::isEnd;

std::unique_ptr<BaseClauseListNode> Parser::parseBaseClauseList(Stream& stream) {
    dropTrivia(stream);
    return parseItemsToBrace<BaseClauseListNode>(stream, [&] { return parseBaseClause(stream); });
}

std::unique_ptr<BaseClauseNode> Parser::parseBaseClause(Stream& stream) {
    dropTrivia(stream);
    auto clause = make<BaseClauseNode>();
    clause->setFirstPosition(stream.peek().first());
    JoinedText text;
    for (int angleDepth = 0;;) {
        const Token token = getSignificant(stream);
        switch (token.kind()) {
            case Kind::Public:
            case Kind::Protected:
            case Kind::Private:
            case Kind::Virtual:
                if (!acceptBaseKeyword(token, *clause, !text.empty())) return nullptr;
                break;
            case Kind::Comma:
                if (angleDepth == 0) {
                    stream.stepBack();
                    clause->text = kept(text);
                    return clause;
                }
                text.append(token.text());
                break;
            case Kind::OpenBrace:
                stream.stepBack();
                clause->text = kept(text);
                return clause;
            case Kind::Star:
            case Kind::Amp:
            case Kind::Identifier:
                text.append(token.text());
                clause->setLastPosition(token.last());
                break;
            case Kind::Less:
                text.append(token.text());
                if (!readBaseTemplateArguments(stream, *clause, text, angleDepth)) return nullptr;
                break;
            case Kind::Greater:
                text.append(token.text());
                if (--angleDepth == 0) clause->setLastPosition(token.last());
                break;
            default:
                report(token.first(), "Unexpected Token: \"" + std::string(token.text()) + '"');
                return nullptr;
        }
    }
}

// An access keyword may come once, and none of these words behind the name.
bool Parser::acceptBaseKeyword(const Token& keyword, BaseClauseNode& clause, bool isBehindName) {
    const bool isAccess = keyword.kind() != Kind::Virtual;
    if (isBehindName || (isAccess && clause.accessKind != 0)) {
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
bool Parser::readBaseTemplateArguments(Stream& stream, BaseClauseNode& clause, JoinedText& text, int& angleDepth) {
    for (++angleDepth; angleDepth != 0;) {
        const Token token = getSignificant(stream);
        if (isEnd(token.kind())) {
            reportUnexpectedEnd(stream);
            return false;
        }
        text.append(token.text());
        if (token.kind() == Kind::Less) ++angleDepth;
        if (token.kind() == Kind::Greater) --angleDepth;
        clause.setLastPosition(token.last());
    }
    return true;
}

}  // namespace Cpp
