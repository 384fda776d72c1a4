// The leaves of the syntax tree: a stretch of source with two positions and mostly a text.
#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "Cpp_NodeText.h"
#include "Cpp_SyntaxNode.h"
#include "Trn_Exception.h"
#include "Trn_TokenKind.h"

namespace Cpp {

class InvalidKeyword : public Trn::Exception {
public:
    InvalidKeyword() : Exception("Not a keyword") {}
};

class InvalidId : public Trn::Exception {
public:
    InvalidId() : Exception("Invalid name for an Identifier") {}
};

// A leaf with a text.
class TextLeafNode : public LeafNode {
public:
    TextLeafNode() = default;
    explicit TextLeafNode(std::string_view nodeText) : text(nodeText) {}
    TextLeafNode(std::string_view nodeText, Position first, Position last) : LeafNode(first, last), text(nodeText) {}

    NodeText text;
};
// No gap between the members of the bases and the text.
static_assert(sizeof(void*) != 8 || sizeof(TextLeafNode) == 40);

class TextNode : public Visitable<TextNode, TextLeafNode, NodeKind::Text> {
public:
    using Visitable::Visitable;
};

// A comment's text without its delimiters; the blanks inside the delimiters stay. A block comment that lacks its
// closing delimiter is left as it is.
std::string_view bodyOfComment(std::string_view text);

// A comment with its delimiters, or, when `verbatim` is set, a whole region of source that is left alone.
class CommentNode final : public Visitable<CommentNode, TextNode, NodeKind::Comment> {
public:
    using Visitable::Visitable;

    bool isLineComment() const;
    bool isBlockComment() const;
    // `bodyOfComment` of the text.
    std::string commentBody() const;

    bool verbatim = false;
};

// A directive with its line feed, or with empty text a whole `#if 0` region.
class PreprocDirectiveNode final : public Visitable<PreprocDirectiveNode, TextNode, NodeKind::PreprocDirective> {
public:
    using Visitable::Visitable;
};

// A name; never empty.
class IdNode final : public Visitable<IdNode, TextNode, NodeKind::Id> {
public:
    explicit IdNode(std::string_view name, Position first = {}, Position last = {});
};

class KeywordNode final : public Visitable<KeywordNode, LeafNode, NodeKind::Keyword> {
public:
    // Throws InvalidKeyword unless the kind is one of `class` to `default` (53 to 103).
    explicit KeywordNode(Trn::TokenKind kind, Position first = {}, Position last = {});

    Trn::TokenKind kind() const { return kind_; }
    // Throws as the constructor does.
    void setKind(Trn::TokenKind kind);

private:
    Trn::TokenKind kind_;
};

class AccessSpecNode final : public Visitable<AccessSpecNode, LeafNode, NodeKind::AccessSpec> {
public:
    AccessSpecNode() = default;
    AccessSpecNode(int kind, Position first, Position last) : Visitable(first, last), accessKind(kind) {}

    int accessKind = 0;  // 1 public, 2 protected, 3 private, 4 a word that stands as an access label
};

class BaseClauseNode final : public Visitable<BaseClauseNode, TextLeafNode, NodeKind::BaseClause> {
public:
    BaseClauseNode() = default;
    BaseClauseNode(int access, bool isVirtualBase, std::string_view nodeText, Position first, Position last)
        : Visitable(nodeText, first, last), accessKind(access), isVirtual(isVirtualBase) {}

    int accessKind = 0;  // 0 when the clause names none, else 1 to 3 as above
    bool isVirtual = false;
};

// The whole head of a class up to its base clauses or body.
class ClassNameNode final : public Visitable<ClassNameNode, TextLeafNode, NodeKind::ClassName> {
public:
    ClassNameNode() = default;
    ClassNameNode(int key, std::string_view nodeText, Position first, Position last)
        : Visitable(nodeText, first, last), classKey(key) {}

    int classKey = 0;  // 0 class, 1 struct, 2 union
};

class EnumHeadNode final : public Visitable<EnumHeadNode, TextLeafNode, NodeKind::EnumHead> {
public:
    using Visitable::Visitable;
};

class NamespaceHeadNode final : public Visitable<NamespaceHeadNode, TextLeafNode, NodeKind::NamespaceHead> {
public:
    using Visitable::Visitable;
};

class ExprNode final : public Visitable<ExprNode, TextLeafNode, NodeKind::Expr> {
public:
    using Visitable::Visitable;
};

// Arrives at the catch-all visit.
class ArgNode final : public Visitable<ArgNode, TextLeafNode, NodeKind::Arg> {
public:
    using Visitable::Visitable;
};

class ParameterNode final : public Visitable<ParameterNode, TextLeafNode, NodeKind::Parameter> {
public:
    using Visitable::Visitable;
};

class TypeNode : public Visitable<TypeNode, TextLeafNode, NodeKind::Type> {
public:
    using Visitable::Visitable;
};

class FunctionReturnNode final : public Visitable<FunctionReturnNode, TypeNode, NodeKind::FunctionReturn> {
public:
    using Visitable::Visitable;
};

}  // namespace Cpp
