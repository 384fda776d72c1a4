// The nodes that hold lists of children. Comments and directives may be children of each of them.
#pragma once

#include "Cpp_SyntaxNode.h"

namespace Cpp {

class RootNode : public Visitable<RootNode, InteriorNode> {};

// Access labels, declarations, templates.
class ClassBodyNode : public Visitable<ClassBodyNode, StoredInteriorNode> {
public:
    using Visitable::Visitable;
};

// One ExprNode per enumerator.
class EnumBodyNode : public Visitable<EnumBodyNode, StoredInteriorNode> {
public:
    using Visitable::Visitable;
};

class NamespaceBodyNode : public Visitable<NamespaceBodyNode, StoredInteriorNode> {
public:
    using Visitable::Visitable;
};

class LinkageBlockBodyNode : public Visitable<LinkageBlockBodyNode, FallbackInteriorNode> {
public:
    using Visitable::Visitable;
};

// A braced block, or the single statement of a control statement without braces, whose positions are not set.
class BlockNode : public Visitable<BlockNode, FallbackInteriorNode> {
public:
    using Visitable::Visitable;
};

// ArgNode children. Arrives at the catch-all visit.
class ArgListNode : public StoredInteriorNode {
public:
    using StoredInteriorNode::StoredInteriorNode;
    void accept(Emitter& emitter) override { emitter.visit(static_cast<SyntaxNode&>(*this)); }
    std::unique_ptr<SyntaxNode> clone() const override { return std::make_unique<ArgListNode>(*this); }
};

class ParameterListNode : public Visitable<ParameterListNode, StoredInteriorNode> {
public:
    using Visitable::Visitable;
};

class BaseClauseListNode : public Visitable<BaseClauseListNode, InteriorNode> {};

// InitializerNode children.
class InitializerListNode : public Visitable<InitializerListNode, InteriorNode> {};

// The parts of one control statement: `if` and `else`, `try` and its `catch`, `do` and its `while`.
class CtrlStmtNode : public Visitable<CtrlStmtNode, InteriorNode> {};

}  // namespace Cpp
