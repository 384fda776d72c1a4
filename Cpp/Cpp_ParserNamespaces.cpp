// Namespaces: a head of a word or two and the body's items.
#include "Cpp_Parser.h"
#include "Trn_NestingGuard.h"

namespace Cpp {

namespace Kind = Trn::Kind;

// An alias gets no node.
std::unique_ptr<NamespaceDeclNode> Parser::parseNamespaceDecl(Stream& stream) {
    const Trn::NestingGuard guard(depth_);
    const Token keyword = getSignificant(stream);
    dropTrivia(stream);
    if (startsNamespaceAlias(stream)) {
        skipUntil(stream, Kind::Semicolon);
        return nullptr;
    }
    stream.unget(keyword);
    auto declaration = make<NamespaceDeclNode>();
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
        return make<NamespaceHeadNode>(std::string_view(), keyword.first(), keyword.last());
    }
    const Token name = stream.get();
    return make<NamespaceHeadNode>(name.text(), keyword.first(), name.last());
}

std::unique_ptr<NamespaceBodyNode> Parser::parseNamespaceBody(Stream& stream) {
    // The two colons are part of the message.
    const auto first = readOpenBrace(stream, "Expected:: \"{\".");
    if (!first) return nullptr;
    auto body = make<NamespaceBodyNode>();
    body->setFirstPosition(*first);
    if (!parseNamespaceItems(stream, *body)) return nullptr;
    return body;
}

}  // namespace Cpp
