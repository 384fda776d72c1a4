// The nodes that hold lists of children. Comments and directives may be children of each of them.
#pragma once

#include "Cpp_SyntaxNode.h"

namespace Cpp {

class RootNode final : public Visitable<RootNode, InteriorNode, NodeKind::Root> {};

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

}  // namespace Cpp
