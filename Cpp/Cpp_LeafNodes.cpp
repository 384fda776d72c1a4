// The leaves that check what they hold, and the queries of comments.
#include "Cpp_LeafNodes.h"

#include "Cpp_CharClasses.h"

namespace Cpp {

bool CommentNode::isLineComment() const { return !verbatim && text.starts_with("//"); }

bool CommentNode::isBlockComment() const { return !verbatim && text.starts_with("/*"); }

std::string CommentNode::commentBody() const { return std::string(bodyOfComment(text)); }

std::string_view bodyOfComment(std::string_view text) {
    if (text.size() < 2) return {};
    while (!text.empty() && isSpace(text.front())) text.remove_prefix(1);
    if (text.starts_with("//")) return text.substr(2);
    if (!text.starts_with("/*") || !text.ends_with("*/")) return text;
    // The delimiters of `/*/` overlap.
    return text.size() < 4 ? std::string_view() : text.substr(2, text.size() - 4);
}

IdNode::IdNode(std::string_view name, Position first, Position last) : Visitable(name, first, last) {
    if (text.empty()) throw InvalidId();
}

KeywordNode::KeywordNode(Trn::TokenKind kind, Position first, Position last) : Visitable(first, last) { setKind(kind); }

void KeywordNode::setKind(Trn::TokenKind kind) {
    if (kind < Trn::Kind::Class || kind > Trn::Kind::Default) throw InvalidKeyword();
    kind_ = kind;
}

}  // namespace Cpp
