// Classes, structs and unions: the head as text, one node a base class, and the loop over the members. All of it
// runs on a stream over the class's own tokens.
#include "Cpp_JoinedText.h"
#include "Cpp_Parser.h"
#include "Cpp_ParserWords.h"
#include "Trn_NestingGuard.h"

namespace Cpp {

namespace Kind = Trn::Kind;
using Trn::isEnd;

namespace {

// The kind of a word that stands as an access label.
constexpr int wordAccessKind = 4;

int accessKindOf(Trn::TokenKind kind) {
    switch (kind) {
        case Kind::Public:
            return 1;
        case Kind::Protected:
            return 2;
        case Kind::Private:
            return 3;
        default:
            return 0;
    }
}

}  // namespace

std::unique_ptr<ClassDeclNode> Parser::parseClassDecl(Stream& stream) {
    auto declaration = std::make_unique<ClassDeclNode>();
    declaration->head = parseClassHead(stream);
    dropTrivia(stream);
    if (stream.peek().kind() == Kind::OpenBrace) declaration->body = parseClassBody(stream);
    return declaration;
}

std::unique_ptr<ClassHeadNode> Parser::parseClassHead(Stream& stream) {
    auto head = std::make_unique<ClassHeadNode>();
    head->name = parseClassName(stream);
    dropTrivia(stream);
    if (stream.peek().kind() == Kind::Colon) {
        stream.get();
        head->bases = parseBaseClauseList(stream);
    }
    return head;
}

// The whole head up to the base clauses or the body is one text, so no way of writing it needs a grammar.
std::unique_ptr<ClassNameNode> Parser::parseClassName(Stream& stream) {
    dropTrivia(stream);
    const Position first = stream.peek().first();
    JoinedText text;
    int angleDepth = 0;
    int classKey = 0;
    bool seenKey = false;
    Token previous, current;
    for (;;) {
        previous = current;
        current = stream.get();
        const TokenKind kind = current.kind();
        if (kind == Kind::Semicolon || kind == Kind::Colon || kind == Kind::OpenBrace || isEnd(kind)) break;
        if (kind == Kind::Directive) {
            stream.stepBack();
            if (!parseDirective(stream)) continue;
        }
        if (kind == Kind::Less) ++angleDepth;
        if (kind == Kind::Greater) --angleDepth;
        if ((kind == Kind::Class || kind == Kind::Struct || kind == Kind::Union) && angleDepth == 0) {
            classKey = kind == Kind::Class ? 0 : kind == Kind::Struct ? 1 : 2;
            seenKey = true;
        }
        text.add(current.text());
    }
    if (!isEnd(current.kind()) || seenKey) stream.stepBack();
    if (seenKey) return std::make_unique<ClassNameNode>(classKey, text.take(), first, previous.last());
    report(current.last(), "Expected an identifier for the class name.");
    return nullptr;
}

// ---- Base clauses

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

// ---- The body

std::unique_ptr<ClassBodyNode> Parser::parseClassBody(Stream& stream) {
    const Trn::NestingGuard guard(depth_);
    const auto first = readOpenBrace(stream, "Expected: \"{\".");
    if (!first) return nullptr;
    auto body = std::make_unique<ClassBodyNode>();
    body->setFirstPosition(*first);
    int depth = 1;
    if (repeat(stream, [&] { return parseClassItem(stream, *body, depth); }) == Step::Fail) return nullptr;
    return body;
}

// A block among the members is passed over by its braces.
Parser::Step Parser::parseClassItem(Stream& stream, ClassBodyNode& body, int& depth) {
    attachTrivia(stream, body);
    const Token token = stream.get();
    switch (token.kind()) {
        case Kind::EndOfInput:
        case Kind::Defective:
            reportUnexpectedEnd(stream);
            return Step::Stop;
        case Kind::Semicolon:
            return Step::GoOn;
        case Kind::OpenBrace:
            ++depth;
            return Step::GoOn;
        case Kind::CloseBrace:
            if (--depth > 0) return Step::GoOn;
            body.setLastPosition(token.last());
            return Step::Stop;
        case Kind::Namespace:
            report(token.first(), "Namespace declaration illegal inside class declaration.");
            return Step::GoOn;
        case Kind::Using:
            skipUntilAttaching(stream, body, Kind::Semicolon);
            return Step::GoOn;
        default:
            break;
    }
    const bool isLabel =
        isAccessKeyword(token.kind()) || (token.kind() == Kind::Identifier && stream.peek().kind() == Kind::Colon);
    stream.stepBack();
    if (isLabel) {
        body.addChild(parseAccessLabel(stream));
    } else if (token.kind() == Kind::Template) {
        body.addChild(parseTemplate(stream));
    } else if (token.kind() == Kind::Extern) {
        body.addChild(parseExtern(stream));
    } else if (!addDeclaration(stream, body, true)) {
        return Step::Fail;
    }
    return Step::GoOn;
}

std::unique_ptr<AccessSpecNode> Parser::parseAccessLabel(Stream& stream) {
    dropTrivia(stream);
    const Token label = stream.get();
    int kind = accessKindOf(label.kind());
    if (label.kind() == Kind::Identifier && stream.peek().kind() == Kind::Colon) kind = wordAccessKind;
    if (kind == 0) {
        if (label.kind() != Kind::Identifier) stream.unget(label);
        report(label.first(), ParseCode::ExpectedAccessKeyword);
        return nullptr;
    }
    Position last = label.last();
    dropTrivia(stream);
    Token token = stream.get();
    if (kind != wordAccessKind) {
        for (; token.kind() == Kind::Identifier; token = stream.get()) {
            kind = wordAccessKind;
            dropTrivia(stream);
        }
    }
    if (token.kind() == Kind::Colon) {
        last = token.last();
    } else {
        stream.unget(token);
        report(token.first(), "Expected ':' Found: " + std::string(token.text()));
    }
    return std::make_unique<AccessSpecNode>(kind, label.first(), last);
}

}  // namespace Cpp
