// Enums: the head as text and one node an enumerator, read from the enum's own tokens.
#include "Cpp_CharClasses.h"
#include "Cpp_JoinedText.h"
#include "Cpp_Parser.h"

namespace Cpp {

namespace Kind = Trn::Kind;
using Trn::isEnd;

std::unique_ptr<EnumDeclNode> Parser::parseEnumDecl(Stream& stream) {
    auto declaration = make<EnumDeclNode>();
    declaration->head = parseEnumHead(stream);
    if (!declaration->head) return nullptr;
    dropTrivia(stream);
    if (stream.peek().kind() == Kind::OpenBrace) declaration->body = parseEnumBody(stream);
    return declaration;
}

std::unique_ptr<EnumHeadNode> Parser::parseEnumHead(Stream& stream) {
    dropTrivia(stream);
    const Position first = stream.peek().first();
    JoinedText text;
    bool seenEnum = false;
    Token previous, current;
    for (;;) {
        previous = current;
        current = stream.get();
        const TokenKind kind = current.kind();
        if (kind == Kind::Semicolon || kind == Kind::OpenBrace || isEnd(kind)) break;
        if (kind == Kind::Directive) {
            stream.stepBack();
            if (!parseDirective(stream)) continue;
        }
        if (kind == Kind::Enum) seenEnum = true;
        text.add(current.text());
    }
    if (!isEnd(current.kind()) || seenEnum) stream.stepBack();
    if (seenEnum) return make<EnumHeadNode>(text, first, previous.last());
    report(current.first(), "Expected \"enum\".");
    return nullptr;
}

// The run of tokens up to a `,`, a comment, a directive or the closing brace.
struct Parser::Enumerator {
    JoinedText text{};
    Position first{};
    Position last{};

    void startAt(const Token& token) {
        text.clear();
        first = token.first();
        last = token.last();
    }
    void add(const Token& token) {
        text.join(token.text());
        last = token.last();
    }
};

void Parser::addEnumerator(EnumBodyNode& body, Enumerator& enumerator) {
    const std::string_view content = trimmed(kept(enumerator.text));
    if (!content.empty()) body.addChild(make<ExprNode>(content, enumerator.first, enumerator.last));
}

std::unique_ptr<EnumBodyNode> Parser::parseEnumBody(Stream& stream) {
    const auto first = readOpenBrace(stream, "Expected: \"{\".");
    if (!first) return nullptr;
    auto body = make<EnumBodyNode>();
    body->setFirstPosition(*first);
    Enumerator enumerator;
    enumerator.startAt(stream.peek());
    for (int depth = 1; parseEnumItem(stream, *body, enumerator, depth);) {
    }
    return body;
}

bool Parser::parseEnumItem(Stream& stream, EnumBodyNode& body, Enumerator& enumerator, int& depth) {
    const Token token = stream.get();
    switch (token.kind()) {
        case Kind::OpenBrace:
            ++depth;
            enumerator.add(token);
            return true;
        case Kind::CloseBrace:
            if (--depth > 0) return true;
            body.setLastPosition(token.last());
            addEnumerator(body, enumerator);
            return false;
        case Kind::Comma:
        case Kind::Directive:
        case Kind::LineComment:
        case Kind::BlockComment:
            addEnumerator(body, enumerator);
            enumerator.startAt(stream.peek());
            if (token.kind() == Kind::Comma) return true;
            stream.stepBack();
            body.addChild(parseTrivia(stream));
            return true;
        case Kind::Extern:
            if (stream.peek().kind() == Kind::StringLiteral) stream.get();
            return true;
        case Kind::Class:
        case Kind::Struct:
        case Kind::Enum:
        case Kind::Union:
            stream.stepBack();
            report(token.first(), "Expected \"}\" first to close enum declaration.");
            return false;
        case Kind::EndOfInput:
        case Kind::Defective:
            reportUnexpectedEnd(stream);
            return false;
        default:
            enumerator.add(token);
            return true;
    }
}

}  // namespace Cpp
