// What begins with `extern`: a linkage block or a declaration.
#include "Cpp_JoinedText.h"
#include "Cpp_Parser.h"
#include "Trn_NestingGuard.h"

namespace Cpp {

namespace Kind = Trn::Kind;
using Trn::isTrivia;

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
    JoinedText text(keyword.text());
    dropTrivia(stream);
    auto head = make<ExprNode>(std::string_view(), keyword.first(), stream.peek().last());
    if (stream.peek().kind() == Kind::StringLiteral) text.join(stream.get().text());
    head->text = kept(text);
    dropTrivia(stream);
    const Token next = stream.peek();
    if (next.kind() != Kind::OpenBrace) {
        report(next.first(), "Expected '{'. Got: " + std::string(next.text()));
        return nullptr;
    }
    auto block = make<LinkageBlockNode>();
    block->head = std::move(head);
    block->body = parseLinkageBody(stream);
    return block;
}

std::unique_ptr<LinkageBlockBodyNode> Parser::parseLinkageBody(Stream& stream) {
    auto body = make<LinkageBlockBodyNode>();
    body->setFirstPosition(stream.get().first());
    if (!parseLinkageItems(stream, *body)) return nullptr;
    return body;
}

}  // namespace Cpp
