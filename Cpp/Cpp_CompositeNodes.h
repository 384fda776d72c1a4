// The nodes with single members. Every member may be empty, so whoever reads one tests it first.
//
// A position query goes down a fixed chain to the first member that is present; the setters go the same way.
// A class with an `endPosition` (or a `colonPosition`) stores the last position there and answers with it when set.
#pragma once

#include "Cpp_InteriorNodes.h"
#include "Cpp_LeafNodes.h"
#include "Cpp_Owned.h"

namespace Cpp {

class ClassHeadNode : public Visitable<ClassHeadNode, SyntaxNode> {
public:
    void setFirstPosition(Position position) override;
    Position firstPosition() const override;
    void setLastPosition(Position position) override;
    Position lastPosition() const override;

    Owned<ClassNameNode> name;
    Owned<BaseClauseListNode> bases;
};

class ClassDeclNode : public Visitable<ClassDeclNode, DeclNode> {
public:
    void setFirstPosition(Position position) override;
    Position firstPosition() const override;
    void setLastPosition(Position position) override { endPosition = position; }
    Position lastPosition() const override;

    Owned<ClassHeadNode> head;
    Owned<ClassBodyNode> body;
    Position endPosition;
};

class EnumDeclNode : public Visitable<EnumDeclNode, DeclNode> {
public:
    void setFirstPosition(Position position) override;
    Position firstPosition() const override;
    void setLastPosition(Position position) override { endPosition = position; }
    Position lastPosition() const override;

    Owned<EnumHeadNode> head;
    Owned<EnumBodyNode> body;
    Position endPosition;
};

class NamespaceDeclNode : public Visitable<NamespaceDeclNode, SyntaxNode> {
public:
    void setFirstPosition(Position position) override;
    Position firstPosition() const override;
    void setLastPosition(Position position) override;
    Position lastPosition() const override;

    Owned<NamespaceHeadNode> head;
    Owned<NamespaceBodyNode> body;
};

class LinkageBlockNode : public Visitable<LinkageBlockNode, DeclNode> {
public:
    void setFirstPosition(Position position) override;
    Position firstPosition() const override;
    void setLastPosition(Position position) override;
    Position lastPosition() const override;

    Owned<ExprNode> head;
    Owned<LinkageBlockBodyNode> body;
};

class TemplateNode : public Visitable<TemplateNode, SyntaxNode> {
public:
    void setFirstPosition(Position position) override;
    Position firstPosition() const override;
    void setLastPosition(Position position) override;
    Position lastPosition() const override;

    Owned<KeywordNode> keyword;
    Owned<ParameterListNode> parameters;
};

class FunctionHeadNode : public Visitable<FunctionHeadNode, SyntaxNode> {
public:
    FunctionHeadNode() = default;
    // A copy stores the end that its source answers with.
    FunctionHeadNode(const FunctionHeadNode& other);

    void setFirstPosition(Position position) override;
    Position firstPosition() const override;
    void setLastPosition(Position position) override { endPosition = position; }
    Position lastPosition() const override;

    Position endPosition;
    Owned<FunctionReturnNode> returnType;
    Owned<IdNode> name;
    Owned<ParameterListNode> parameters;
    Owned<TextNode> qualifiers;     // the `const` and `volatile` behind the parameter list
    Owned<ExprNode> exceptionSpec;  // the `throw(...)` clause
    Owned<ExprNode> pureSpec;       // the `= 0`
};

class FunctionDeclNode : public Visitable<FunctionDeclNode, DeclNode> {
public:
    void setFirstPosition(Position position) override;
    Position firstPosition() const override;
    void setLastPosition(Position position) override;
    Position lastPosition() const override;

    Owned<FunctionHeadNode> head;
    Owned<BlockNode> body;
};

// A function definition with a member initializer list.
class CtorDeclNode : public Visitable<CtorDeclNode, FunctionDeclNode> {
public:
    void setFirstPosition(Position position) override;
    Position firstPosition() const override;
    void setLastPosition(Position position) override;
    Position lastPosition() const override;

    Owned<InitializerListNode> initializers;
};

class InitializerNode : public Visitable<InitializerNode, SyntaxNode> {
public:
    void setFirstPosition(Position position) override;
    Position firstPosition() const override;
    void setLastPosition(Position position) override;
    Position lastPosition() const override;

    Owned<IdNode> name;
    Owned<ArgListNode> arguments;
};

class FunctionPtrDeclNode : public Visitable<FunctionPtrDeclNode, DeclNode> {
public:
    FunctionPtrDeclNode() = default;
    // A copy stores the end that its source answers with.
    FunctionPtrDeclNode(const FunctionPtrDeclNode& other);

    void setFirstPosition(Position position) override;
    Position firstPosition() const override;
    void setLastPosition(Position position) override { endPosition = position; }
    Position lastPosition() const override;

    Position endPosition;
    Owned<TypeNode> type;
    Owned<IdNode> name;
    Owned<ParameterListNode> parameters;
    Owned<TextNode> qualifiers;
};

class DataDeclNode : public Visitable<DataDeclNode, DeclNode> {
public:
    void setFirstPosition(Position position) override;
    Position firstPosition() const override;
    void setLastPosition(Position position) override { endPosition = position; }
    Position lastPosition() const override;

    Owned<TypeNode> type;
    Owned<IdNode> name;
    Owned<ExprNode> initializer;
    Position endPosition;
};

class CtrlSubStmtHeadNode : public Visitable<CtrlSubStmtHeadNode, SyntaxNode> {
public:
    void setFirstPosition(Position position) override;
    Position firstPosition() const override;
    void setLastPosition(Position position) override { endPosition = position; }
    Position lastPosition() const override;

    Owned<KeywordNode> keyword;
    Owned<ExprNode> condition;
    Position endPosition;
};

class CtrlSubStmtNode : public Visitable<CtrlSubStmtNode, SyntaxNode> {
public:
    void setFirstPosition(Position position) override;
    Position firstPosition() const override;
    void setLastPosition(Position position) override;
    Position lastPosition() const override;

    Owned<CtrlSubStmtHeadNode> head;
    Owned<BlockNode> body;
};

class CaseNode : public Visitable<CaseNode, SyntaxNode> {
public:
    void setFirstPosition(Position position) override;
    Position firstPosition() const override;
    void setLastPosition(Position position) override { colonPosition = position; }
    Position lastPosition() const override;

    Owned<KeywordNode> keyword;
    Owned<ExprNode> value;
    Position colonPosition;
};

class LabelNode : public Visitable<LabelNode, SyntaxNode> {
public:
    void setFirstPosition(Position position) override;
    Position firstPosition() const override;
    void setLastPosition(Position position) override { colonPosition = position; }
    Position lastPosition() const override;

    Owned<IdNode> name;
    Position colonPosition;
};

class AsmNode : public Visitable<AsmNode, SyntaxNode> {
public:
    void setFirstPosition(Position position) override;
    Position firstPosition() const override;
    void setLastPosition(Position position) override;
    Position lastPosition() const override;

    Owned<TextNode> text;
    Owned<BlockNode> block;
    int asmForm = 0;  // 0 simple, 1 with a bracket on its line, 2 a braced block
};

}  // namespace Cpp
