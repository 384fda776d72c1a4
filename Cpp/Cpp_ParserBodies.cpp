// Enums, namespaces and linkage blocks: heads of a few tokens and bodies between braces. An enum is read from its
// own tokens, the other two from the stream in hand.
#include "Cpp_CharClasses.h"
#include "Cpp_JoinedText.h"
#include "Cpp_Parser.h"
#include "Cpp_ParserWords.h"
#include "Trn_NestingGuard.h"

namespace Cpp {

namespace Kind = Trn::Kind;
using Trn::isEnd;
using Trn::isTrivia;

// ---- Enums

std::unique_ptr<EnumDeclNode> Parser::parseEnumDecl(Stream& stream) {
    auto declaration = std::make_unique<EnumDeclNode>();
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
    if (seenEnum) return std::make_unique<EnumHeadNode>(text.take(), first, previous.last());
    report(current.first(), "Expected \"enum\".");
    return nullptr;
}

// The run of tokens up to a `,`, a comment, a directive or the closing brace.
struct Parser::Enumerator {
    std::string text;
    Position first;
    Position last;

    void startAt(const Token& token) {
        text.clear();
        first = token.first();
        last = token.last();
    }
    void add(const Token& token) {
        joinBehindBlank(text, token.text());
        last = token.last();
    }
    void addTo(EnumBodyNode& body) const {
        const std::string_view content = trimmed(text);
        if (!content.empty()) body.addChild(std::make_unique<ExprNode>(std::string(content), first, last));
    }
};

std::unique_ptr<EnumBodyNode> Parser::parseEnumBody(Stream& stream) {
    const auto first = readOpenBrace(stream, "Expected: \"{\".");
    if (!first) return nullptr;
    auto body = std::make_unique<EnumBodyNode>();
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
            enumerator.addTo(body);
            return false;
        case Kind::Comma:
        case Kind::Directive:
        case Kind::LineComment:
        case Kind::BlockComment:
            enumerator.addTo(body);
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

// ---- Namespaces

// An alias gets no node.
std::unique_ptr<NamespaceDeclNode> Parser::parseNamespaceDecl(Stream& stream) {
    const Trn::NestingGuard guard(depth_);
    dropTrivia(stream);
    const Token keyword = stream.get();
    dropTrivia(stream);
    if (startsNamespaceAlias(stream)) {
        skipUntil(stream, Kind::Semicolon);
        return nullptr;
    }
    stream.unget(keyword);
    auto declaration = std::make_unique<NamespaceDeclNode>();
    declaration->head = parseNamespaceHead(stream);
    declaration->body = parseNamespaceBody(stream);
    return declaration;
}

bool Parser::startsNamespaceAlias(const Stream& stream) const {
    return stream.peek(1).kind() == Kind::Identifier && stream.peek(2).kind() == Kind::Assign;
}

std::unique_ptr<NamespaceHeadNode> Parser::parseNamespaceHead(Stream& stream) {
    const Token keyword = stream.get();
    dropTrivia(stream);
    if (stream.peek().kind() != Kind::Identifier) {
        return std::make_unique<NamespaceHeadNode>(std::string(), keyword.first(), keyword.last());
    }
    const Token name = stream.get();
    return std::make_unique<NamespaceHeadNode>(std::string(name.text()), keyword.first(), name.last());
}

std::unique_ptr<NamespaceBodyNode> Parser::parseNamespaceBody(Stream& stream) {
    // The two colons are part of the message.
    const auto first = readOpenBrace(stream, "Expected:: \"{\".");
    if (!first) return nullptr;
    auto body = std::make_unique<NamespaceBodyNode>();
    body->setFirstPosition(*first);
    int depth = 1;
    if (repeat(stream, [&] { return parseNamespaceItem(stream, *body, depth); }) == Step::Fail) return nullptr;
    return body;
}

Parser::Step Parser::parseNamespaceItem(Stream& stream, NamespaceBodyNode& body, int& depth) {
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
        case Kind::Using:
            skipUntilAttaching(stream, body, Kind::Semicolon);
            return Step::GoOn;
        case Kind::Namespace:
            // The rest of an alias passes as the data declaration that it looks like.
            attachTrivia(stream, body);
            if (startsNamespaceAlias(stream)) return Step::GoOn;
            stream.unget(token);
            body.addChild(parseNamespaceDecl(stream));
            return Step::GoOn;
        default:
            break;
    }
    stream.stepBack();
    if (token.kind() == Kind::Extern) {
        body.addChild(parseExtern(stream));
    } else if (token.kind() == Kind::Template) {
        body.addChild(parseTemplate(stream));
    } else if (!addDeclaration(stream, body, false)) {
        return Step::Fail;
    }
    return Step::GoOn;
}

// ---- Linkage blocks

// Either a linkage block or a declaration that begins with `extern`.
std::unique_ptr<SyntaxNode> Parser::parseExtern(Stream& stream) {
    dropTrivia(stream);
    if (startsLinkageBlock(stream)) return parseLinkageBlock(stream);
    const Position first = stream.peek().first();
    auto declaration = parseDeclarationWithEnd(stream, false);
    if (!declaration) report(first, ParseCode::UnknownStatement);
    return declaration;
}

// Behind the `extern`, trivia and one string literal are passed over.
bool Parser::startsLinkageBlock(const Stream& stream) const {
    bool seenString = false;
    for (std::size_t ahead = 2;; ++ahead) {
        const TokenKind kind = stream.peek(ahead).kind();
        if (isTrivia(kind)) continue;
        if (kind != Kind::StringLiteral || seenString) return kind == Kind::OpenBrace;
        seenString = true;
    }
}

std::unique_ptr<LinkageBlockNode> Parser::parseLinkageBlock(Stream& stream) {
    const Trn::NestingGuard guard(depth_);
    const Token keyword = stream.get();
    auto head = std::make_unique<ExprNode>(std::string(keyword.text()), keyword.first(), Position());
    dropTrivia(stream);
    head->setLastPosition(stream.peek().last());
    if (stream.peek().kind() == Kind::StringLiteral) joinTo(head->text, stream.get().text());
    dropTrivia(stream);
    const Token next = stream.peek();
    if (next.kind() != Kind::OpenBrace) {
        report(next.first(), "Expected '{'. Got: " + std::string(next.text()));
        return nullptr;
    }
    auto block = std::make_unique<LinkageBlockNode>();
    block->head = std::move(head);
    block->body = parseLinkageBody(stream);
    return block;
}

std::unique_ptr<LinkageBlockBodyNode> Parser::parseLinkageBody(Stream& stream) {
    auto body = std::make_unique<LinkageBlockBodyNode>();
    body->setFirstPosition(stream.get().first());
    int depth = 1;
    if (repeat(stream, [&] { return parseLinkageItem(stream, *body, depth); }) == Step::Fail) return nullptr;
    return body;
}

namespace {

// Why a token has no place in a linkage block; empty for one that has.
std::string_view linkageRefusal(Trn::TokenKind kind) {
    if (kind == Kind::Template) return "templates cannot be declared to have 'C' linkage.";
    if (isAccessKeyword(kind)) return "public: protected: private: labels are illegal inside linkage blocks.";
    if (isStatementKeyword(kind)) {
        return "control statements (e.g. if, else, while) are illegal inside linkage blocks.";
    }
    return {};
}

}  // namespace

Parser::Step Parser::parseLinkageItem(Stream& stream, LinkageBlockBodyNode& body, int& depth) {
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
        case Kind::Using:
            skipUntilAttaching(stream, body, Kind::Semicolon);
            return Step::GoOn;
        default:
            break;
    }
    if (const std::string_view refusal = linkageRefusal(token.kind()); !refusal.empty()) {
        report(token.first(), std::string(refusal));
        return Step::GoOn;
    }
    stream.stepBack();
    if (token.kind() == Kind::Extern) {
        body.addChild(parseExtern(stream));
    } else if (token.kind() == Kind::Namespace) {
        body.addChild(parseNamespaceDecl(stream));
    } else if (!addDeclaration(stream, body, false)) {
        return Step::Fail;
    }
    return Step::GoOn;
}

}  // namespace Cpp
