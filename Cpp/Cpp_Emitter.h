// The visitor interface of the syntax tree, base of every pass over it. Each node's `accept` calls exactly
// one of these visits, so a pass selects by class without a test of the node's type.
#pragma once

namespace Cpp {

class SyntaxNode;
class AsmNode;
class LabelNode;
class TextNode;
class FunctionPtrDeclNode;
class LinkageBlockBodyNode;
class LinkageBlockNode;
class EnumBodyNode;
class EnumHeadNode;
class EnumDeclNode;
class PreprocDirectiveNode;
class CommentNode;
class TemplateNode;
class CaseNode;
class KeywordNode;
class CtrlSubStmtHeadNode;
class CtrlSubStmtNode;
class CtrlStmtNode;
class ExprNode;
class TypeNode;
class InitializerNode;
class InitializerListNode;
class DataDeclNode;
class ParameterListNode;
class ParameterNode;
class IdNode;
class FunctionReturnNode;
class BlockNode;
class FunctionHeadNode;
class FunctionDeclNode;
class CtorDeclNode;
class NamespaceBodyNode;
class NamespaceHeadNode;
class NamespaceDeclNode;
class AccessSpecNode;
class ClassNameNode;
class ClassHeadNode;
class ClassDeclNode;
class ClassBodyNode;
class BaseClauseListNode;
class BaseClauseNode;
class RootNode;
class VerbatimNode;

// Every visit does nothing here and there is no default walk: a pass that wants the children of a node walks
// them itself, in the order that it needs. The node stays its owner's; a pass may change it.
class Emitter {
public:
    virtual ~Emitter() = default;

    virtual void visit(AsmNode&) {}
    virtual void visit(LabelNode&) {}
    virtual void visit(TextNode&) {}
    virtual void visit(FunctionPtrDeclNode&) {}
    virtual void visit(LinkageBlockBodyNode&) {}
    virtual void visit(LinkageBlockNode&) {}
    virtual void visit(EnumBodyNode&) {}
    virtual void visit(EnumHeadNode&) {}
    virtual void visit(EnumDeclNode&) {}
    virtual void visit(PreprocDirectiveNode&) {}
    virtual void visit(CommentNode&) {}
    virtual void visit(TemplateNode&) {}
    virtual void visit(CaseNode&) {}
    virtual void visit(KeywordNode&) {}
    virtual void visit(CtrlSubStmtHeadNode&) {}
    virtual void visit(CtrlSubStmtNode&) {}
    virtual void visit(CtrlStmtNode&) {}
    virtual void visit(ExprNode&) {}
    virtual void visit(TypeNode&) {}
    virtual void visit(InitializerNode&) {}
    virtual void visit(InitializerListNode&) {}
    virtual void visit(DataDeclNode&) {}
    virtual void visit(ParameterListNode&) {}
    virtual void visit(ParameterNode&) {}
    virtual void visit(IdNode&) {}
    virtual void visit(FunctionReturnNode&) {}
    virtual void visit(BlockNode&) {}
    virtual void visit(FunctionHeadNode&) {}
    virtual void visit(FunctionDeclNode&) {}
    virtual void visit(CtorDeclNode&) {}
    virtual void visit(NamespaceBodyNode&) {}
    virtual void visit(NamespaceHeadNode&) {}
    virtual void visit(NamespaceDeclNode&) {}
    virtual void visit(AccessSpecNode&) {}
    virtual void visit(ClassNameNode&) {}
    virtual void visit(ClassHeadNode&) {}
    virtual void visit(ClassDeclNode&) {}
    virtual void visit(ClassBodyNode&) {}
    virtual void visit(BaseClauseListNode&) {}
    virtual void visit(BaseClauseNode&) {}
    virtual void visit(RootNode&) {}
    virtual void visit(VerbatimNode&) {}
    // Serves the classes without a visit of their own: ArgNode and ArgListNode.
    virtual void visit(SyntaxNode&) {}
};

}  // namespace Cpp
