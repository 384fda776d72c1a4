// The nodes that hold lists of children. Comments and directives may be children of each of them.
#pragma once

#include "Cpp_SyntaxNode.h"
#include "Cpp_TreeStorage.h"

namespace Cpp {

// The root of a parsed text owns the storage of its tree. A copy of a root shares it.
class RootNode final : public Visitable<RootNode, InteriorNode, NodeKind::Root> {
public:
    RootNode() = default;
    explicit RootNode(std::shared_ptr<TreeStorage> storage) : storage_(std::move(storage)) {}
    RootNode(const RootNode&) = default;
    RootNode& operator=(const RootNode&) = default;
    // The children go first.
    ~RootNode() override { eraseChildren(begin(), end()); }

    void swap(RootNode& other) noexcept {
        swapChildren(other);
        storage_.swap(other.storage_);
    }

    // The tokens of the text and what they are, if the parser was asked for them and the text was read. Null otherwise.
    const TokenTable* tokens() const { return storage_ ? storage_->tokens() : nullptr; }
    // The same, if there are any, to be kept longer than the tree.
    TokenTable takeTokens() { return storage_->takeTokens(); }

private:
    std::shared_ptr<TreeStorage> storage_;
};

// Access labels, declarations, templates.
class ClassBodyNode final : public Visitable<ClassBodyNode, StoredInteriorNode, NodeKind::ClassBody> {
public:
    using Visitable::Visitable;
};

// One ExprNode per enumerator.
class EnumBodyNode final : public Visitable<EnumBodyNode, StoredInteriorNode, NodeKind::EnumBody> {
public:
    using Visitable::Visitable;
};

class NamespaceBodyNode final : public Visitable<NamespaceBodyNode, StoredInteriorNode, NodeKind::NamespaceBody> {
public:
    using Visitable::Visitable;
};

class LinkageBlockBodyNode final
    : public Visitable<LinkageBlockBodyNode, FallbackInteriorNode, NodeKind::LinkageBlockBody> {
public:
    using Visitable::Visitable;
};

// A braced block, or the single statement of a control statement without braces, whose positions are not set.
class BlockNode final : public Visitable<BlockNode, FallbackInteriorNode, NodeKind::Block> {
public:
    using Visitable::Visitable;
};

// ArgNode children. Arrives at the catch-all visit.
class ArgListNode final : public Visitable<ArgListNode, StoredInteriorNode, NodeKind::ArgList> {
public:
    using Visitable::Visitable;
};

class ParameterListNode final : public Visitable<ParameterListNode, StoredInteriorNode, NodeKind::ParameterList> {
public:
    using Visitable::Visitable;
};

class BaseClauseListNode final : public Visitable<BaseClauseListNode, InteriorNode, NodeKind::BaseClauseList> {};

// InitializerNode children.
class InitializerListNode final : public Visitable<InitializerListNode, InteriorNode, NodeKind::InitializerList> {};

// The parts of one control statement: `if` and `else`, `try` and its `catch`, `do` and its `while`.
class CtrlStmtNode final : public Visitable<CtrlStmtNode, InteriorNode, NodeKind::CtrlStmt> {};

// A stretch that is copied as it stands, its later lines moved by as much as its first one. Either nothing fits it, or it
// holds bodies inside of expressions: these are its children then.
class VerbatimNode final : public Visitable<VerbatimNode, StoredInteriorNode, NodeKind::Verbatim> {
public:
    using Visitable::Visitable;

    bool isUnread = false;
};

}  // namespace Cpp
