// Visitors that treat all classes of nodes alike, or nearly so: they say once what to do with a node of any class.
#pragma once

#include "Cpp_Nodes.h"

namespace Cpp {

// Overrides the visit of each class of Nodes by a call of `Self::each`, which has an overload or a template for each.
template <class Self, class... Nodes>
class EachVisitOf : public Emitter {
public:
    using Emitter::visit;
};

template <class Self, class Node, class... Nodes>
class EachVisitOf<Self, Node, Nodes...> : public EachVisitOf<Self, Nodes...> {
public:
    using EachVisitOf<Self, Nodes...>::visit;
    void visit(Node& node) override { static_cast<Self*>(this)->each(node); }
};

// All classes that have a visit of their own, and the catch-all, which gets a SyntaxNode.
template <class Self>
using EachVisit =
    EachVisitOf<Self, AsmNode, LabelNode, TextNode, FunctionPtrDeclNode, LinkageBlockBodyNode, LinkageBlockNode,
                EnumBodyNode, EnumHeadNode, EnumDeclNode, PreprocDirectiveNode, CommentNode, TemplateNode, CaseNode,
                KeywordNode, CtrlSubStmtHeadNode, CtrlSubStmtNode, CtrlStmtNode, ExprNode, TypeNode, InitializerNode,
                InitializerListNode, DataDeclNode, ParameterListNode, ParameterNode, IdNode, FunctionReturnNode,
                BlockNode, FunctionHeadNode, FunctionDeclNode, CtorDeclNode, NamespaceBodyNode, NamespaceHeadNode,
                NamespaceDeclNode, AccessSpecNode, ClassNameNode, ClassHeadNode, ClassDeclNode, ClassBodyNode,
                BaseClauseListNode, BaseClauseNode, RootNode, VerbatimNode, SyntaxNode>;

}  // namespace Cpp
