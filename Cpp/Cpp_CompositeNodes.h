// The nodes with single members. Every member may be empty, so whoever reads one tests it first.
#pragma once

#include "Cpp_InteriorNodes.h"
#include "Cpp_LeafNodes.h"
#include "Cpp_MemberNode.h"

namespace Cpp {

class ClassHeadNode final : public MemberNode<ClassHeadNode, SyntaxNode, NodeKind::ClassHead> {
public:
    Owned<ClassNameNode> name;
    Owned<BaseClauseListNode> bases;
    static constexpr std::tuple members{&ClassHeadNode::name, &ClassHeadNode::bases};
};

class ClassDeclNode final : public EndedNode<ClassDeclNode, DeclNode, NodeKind::ClassDecl> {
public:
    Owned<ClassHeadNode> head;
    Owned<ClassBodyNode> body;
    Position endPosition;
    static constexpr std::tuple members{&ClassDeclNode::head, &ClassDeclNode::body};
    static constexpr auto end = &ClassDeclNode::endPosition;
};

class EnumDeclNode final : public EndedNode<EnumDeclNode, DeclNode, NodeKind::EnumDecl> {
public:
    Owned<EnumHeadNode> head;
    Owned<EnumBodyNode> body;
    Position endPosition;
    static constexpr std::tuple members{&EnumDeclNode::head, &EnumDeclNode::body};
    static constexpr auto end = &EnumDeclNode::endPosition;
};

class NamespaceDeclNode final : public MemberNode<NamespaceDeclNode, SyntaxNode, NodeKind::NamespaceDecl> {
public:
    Owned<NamespaceHeadNode> head;
    Owned<NamespaceBodyNode> body;
    static constexpr std::tuple members{&NamespaceDeclNode::head, &NamespaceDeclNode::body};
};

class LinkageBlockNode final : public MemberNode<LinkageBlockNode, DeclNode, NodeKind::LinkageBlock> {
public:
    Owned<ExprNode> head;
    Owned<LinkageBlockBodyNode> body;
    static constexpr std::tuple members{&LinkageBlockNode::head, &LinkageBlockNode::body};
};

class TemplateNode final : public MemberNode<TemplateNode, SyntaxNode, NodeKind::Template> {
public:
    Owned<KeywordNode> keyword;
    Owned<ParameterListNode> parameters;
    static constexpr std::tuple members{&TemplateNode::keyword, &TemplateNode::parameters};
};

class FunctionHeadNode final : public EndedNode<FunctionHeadNode, SyntaxNode, NodeKind::FunctionHead> {
public:
    FunctionHeadNode() = default;
    // A copy stores the end that its source answers with.
    FunctionHeadNode(const FunctionHeadNode& other);

    Position endPosition;
    Owned<FunctionReturnNode> returnType;
    Owned<IdNode> name;
    Owned<ParameterListNode> parameters;
    Owned<TextNode> qualifiers;     // the `const` and `volatile` behind the parameter list
    Owned<ExprNode> exceptionSpec;  // the `throw(...)` clause
    Owned<ExprNode> pureSpec;       // the `= 0`
    Owned<VerbatimNode> tail;       // all of these and more, in the modern dialect
    static constexpr std::tuple members{&FunctionHeadNode::returnType,    &FunctionHeadNode::name,
                                        &FunctionHeadNode::parameters,    &FunctionHeadNode::qualifiers,
                                        &FunctionHeadNode::exceptionSpec, &FunctionHeadNode::pureSpec,
                                        &FunctionHeadNode::tail};
    static constexpr auto end = &FunctionHeadNode::endPosition;
};

class FunctionDeclNode : public MemberNode<FunctionDeclNode, DeclNode, NodeKind::FunctionDecl> {
public:
    Owned<FunctionHeadNode> head;
    Owned<BlockNode> body;
    static constexpr std::tuple members{&FunctionDeclNode::head, &FunctionDeclNode::body};
};

// A function definition with a member initializer list.
class CtorDeclNode final : public MemberNode<CtorDeclNode, FunctionDeclNode, NodeKind::CtorDecl> {
public:
    Owned<InitializerListNode> initializers;
    static constexpr std::tuple members{&CtorDeclNode::head, &CtorDeclNode::initializers, &CtorDeclNode::body};
};

class InitializerNode final : public MemberNode<InitializerNode, SyntaxNode, NodeKind::Initializer> {
public:
    Owned<IdNode> name;
    Owned<ArgListNode> arguments;
    static constexpr std::tuple members{&InitializerNode::name, &InitializerNode::arguments};
};

class FunctionPtrDeclNode final : public EndedNode<FunctionPtrDeclNode, DeclNode, NodeKind::FunctionPtrDecl> {
public:
    FunctionPtrDeclNode() = default;
    // A copy stores the end that its source answers with.
    FunctionPtrDeclNode(const FunctionPtrDeclNode& other);

    Position endPosition;
    Owned<TypeNode> type;
    Owned<IdNode> name;
    Owned<ParameterListNode> parameters;
    Owned<TextNode> qualifiers;
    static constexpr std::tuple members{&FunctionPtrDeclNode::type, &FunctionPtrDeclNode::name,
                                        &FunctionPtrDeclNode::parameters, &FunctionPtrDeclNode::qualifiers};
    static constexpr auto end = &FunctionPtrDeclNode::endPosition;
};

class DataDeclNode final : public EndedNode<DataDeclNode, DeclNode, NodeKind::DataDecl> {
public:
    Owned<TypeNode> type;
    Owned<IdNode> name;
    Owned<ExprNode> initializer;
    Position endPosition;
    static constexpr std::tuple members{&DataDeclNode::type, &DataDeclNode::name, &DataDeclNode::initializer};
    static constexpr auto end = &DataDeclNode::endPosition;
};

class CtrlSubStmtHeadNode final : public EndedNode<CtrlSubStmtHeadNode, SyntaxNode, NodeKind::CtrlSubStmtHead> {
public:
    Owned<KeywordNode> keyword;
    Owned<ExprNode> condition;
    Owned<VerbatimNode> held;  // the condition once more, if it holds bodies
    Position endPosition;
    static constexpr std::tuple members{&CtrlSubStmtHeadNode::keyword, &CtrlSubStmtHeadNode::condition,
                                        &CtrlSubStmtHeadNode::held};
    static constexpr auto end = &CtrlSubStmtHeadNode::endPosition;
};

class CtrlSubStmtNode final : public MemberNode<CtrlSubStmtNode, SyntaxNode, NodeKind::CtrlSubStmt> {
public:
    Owned<CtrlSubStmtHeadNode> head;
    Owned<BlockNode> body;
    static constexpr std::tuple members{&CtrlSubStmtNode::head, &CtrlSubStmtNode::body};
};

// This and the next one answer with the colon for a first position that no member gives.
class CaseNode final : public EndedNode<CaseNode, SyntaxNode, NodeKind::Case> {
public:
    Position firstPosition() const override { return firstMember() ? EndedNode::firstPosition() : colonPosition; }

    Owned<KeywordNode> keyword;
    Owned<ExprNode> value;
    Position colonPosition;
    static constexpr std::tuple members{&CaseNode::keyword, &CaseNode::value};
    static constexpr auto end = &CaseNode::colonPosition;
};

class LabelNode final : public EndedNode<LabelNode, SyntaxNode, NodeKind::Label> {
public:
    Position firstPosition() const override { return firstMember() ? EndedNode::firstPosition() : colonPosition; }

    Owned<IdNode> name;
    Position colonPosition;
    static constexpr std::tuple members{&LabelNode::name};
    static constexpr auto end = &LabelNode::colonPosition;
};

class AsmNode final : public MemberNode<AsmNode, SyntaxNode, NodeKind::Asm> {
public:
    Owned<TextNode> text;
    Owned<BlockNode> block;
    int asmForm = 0;  // 0 simple, 1 with a bracket on its line, 2 a braced block
    static constexpr std::tuple members{&AsmNode::text, &AsmNode::block};
};

}  // namespace Cpp
