// Classes, structs and unions: the head as text, one node a base class, and the loop over the members. All of it
// runs on a stream over the class's own tokens.
#include "Cpp_JoinedText.h"
#include "Cpp_Parser.h"
#include "Cpp_ParserWords.h"
#include "Trn_NestingGuard.h"

namespace Cpp {

namespace Kind = Trn::Kind;
using Trn::isEnd;

std::unique_ptr<ClassDeclNode> Parser::parseClassDecl(Stream& stream) {
    auto declaration = make<ClassDeclNode>();
    declaration->head = parseClassHead(stream);
    dropTrivia(stream);
    if (stream.peek().kind() == Kind::OpenBrace) declaration->body = parseClassBody(stream);
    return declaration;
}

std::unique_ptr<ClassHeadNode> Parser::parseClassHead(Stream& stream) {
    auto head = make<ClassHeadNode>();
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
    if (seenKey) return make<ClassNameNode>(classKey, text, first, previous.last());
    report(current.last(), "Expected an identifier for the class name.");
    return nullptr;
}

// ---- The body

std::unique_ptr<ClassBodyNode> Parser::parseClassBody(Stream& stream) {
    const Trn::NestingGuard guard(depth_);
    const auto first = readOpenBrace(stream, "Expected: \"{\".");
    if (!first) return nullptr;
    auto body = make<ClassBodyNode>();
    body->setFirstPosition(*first);
    if (!parseClassItems(stream, *body)) return nullptr;
    return body;
}

std::unique_ptr<AccessSpecNode> Parser::parseAccessLabel(Stream& stream) {
    const Token label = getSignificant(stream);
    int kind = accessKindOf(label.kind());
    if (label.kind() == Kind::Identifier && stream.peek().kind() == Kind::Colon) kind = wordAccessKind;
    if (kind == 0) {
        if (label.kind() != Kind::Identifier) stream.unget(label);
        report(label.first(), ParseCode::ExpectedAccessKeyword);
        return nullptr;
    }
    Position last = label.last();
    Token token = getSignificant(stream);
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
    return make<AccessSpecNode>(kind, label.first(), last);
}

}  // namespace Cpp
