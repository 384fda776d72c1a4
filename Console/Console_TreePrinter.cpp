// The printing pass: each visit writes the line of its node and then goes to members and children.
#include "Console_TreePrinter.h"

#include <string_view>

#include "Trn_Escapes.h"

namespace Console {

namespace {

using namespace Cpp;

class TreePrinter : public Emitter {
public:
    std::string takeText() { return std::move(out_); }

    void visit(AsmNode& node) override {
        startLine("AsmNode", node);
        number("form", node.asmForm);
        endLine({node.text.get(), node.block.get()});
    }
    void visit(LabelNode& node) override {
        startLine("LabelNode", node);
        position("colon", node.colonPosition);
        endLine({node.name.get()});
    }
    void visit(TextNode& node) override { textLeaf("TextNode", node); }
    void visit(FunctionPtrDeclNode& node) override {
        startLine("FunctionPtrDeclNode", node);
        end(node.endPosition);
        endLine({node.type.get(), node.name.get(), node.parameters.get(), node.qualifiers.get()});
    }
    void visit(LinkageBlockBodyNode& node) override { list("LinkageBlockBodyNode", node); }
    void visit(LinkageBlockNode& node) override { pair("LinkageBlockNode", node); }
    void visit(EnumBodyNode& node) override { list("EnumBodyNode", node); }
    void visit(EnumHeadNode& node) override { textLeaf("EnumHeadNode", node); }
    void visit(EnumDeclNode& node) override { declaration("EnumDeclNode", node); }
    void visit(PreprocDirectiveNode& node) override { textLeaf("PreprocDirectiveNode", node); }
    void visit(CommentNode& node) override {
        startLine("CommentNode", node);
        if (node.verbatim) out_ += " verbatim";
        text(node.text);
    }
    void visit(TemplateNode& node) override {
        startLine("TemplateNode", node);
        endLine({node.keyword.get(), node.parameters.get()});
    }
    void visit(CaseNode& node) override {
        startLine("CaseNode", node);
        position("colon", node.colonPosition);
        endLine({node.keyword.get(), node.value.get()});
    }
    void visit(KeywordNode& node) override {
        startLine("KeywordNode", node);
        number("kind", node.kind());
        endLine({});
    }
    void visit(CtrlSubStmtHeadNode& node) override {
        startLine("CtrlSubStmtHeadNode", node);
        end(node.endPosition);
        endLine({node.keyword.get(), node.condition.get()});
    }
    void visit(CtrlSubStmtNode& node) override { pair("CtrlSubStmtNode", node); }
    void visit(CtrlStmtNode& node) override { list("CtrlStmtNode", node); }
    void visit(ExprNode& node) override { textLeaf("ExprNode", node); }
    void visit(TypeNode& node) override { textLeaf("TypeNode", node); }
    void visit(InitializerNode& node) override {
        startLine("InitializerNode", node);
        endLine({node.name.get(), node.arguments.get()});
    }
    void visit(InitializerListNode& node) override { list("InitializerListNode", node); }
    void visit(DataDeclNode& node) override {
        startLine("DataDeclNode", node);
        end(node.endPosition);
        endLine({node.type.get(), node.name.get(), node.initializer.get()});
    }
    void visit(ParameterListNode& node) override { list("ParameterListNode", node); }
    void visit(ParameterNode& node) override { textLeaf("ParameterNode", node); }
    void visit(IdNode& node) override { textLeaf("IdNode", node); }
    void visit(FunctionReturnNode& node) override { textLeaf("FunctionReturnNode", node); }
    void visit(BlockNode& node) override { list("BlockNode", node); }
    void visit(FunctionHeadNode& node) override {
        startLine("FunctionHeadNode", node);
        end(node.endPosition);
        endLine({node.returnType.get(), node.name.get(), node.parameters.get(), node.qualifiers.get(),
                 node.exceptionSpec.get(), node.pureSpec.get()});
    }
    void visit(FunctionDeclNode& node) override { pair("FunctionDeclNode", node); }
    void visit(CtorDeclNode& node) override {
        startLine("CtorDeclNode", node);
        endLine({node.head.get(), node.body.get(), node.initializers.get()});
    }
    void visit(NamespaceBodyNode& node) override { list("NamespaceBodyNode", node); }
    void visit(NamespaceHeadNode& node) override { textLeaf("NamespaceHeadNode", node); }
    void visit(NamespaceDeclNode& node) override { pair("NamespaceDeclNode", node); }
    void visit(AccessSpecNode& node) override {
        startLine("AccessSpecNode", node);
        number("access", node.accessKind);
        endLine({});
    }
    void visit(ClassNameNode& node) override {
        startLine("ClassNameNode", node);
        number("key", node.classKey);
        text(node.text);
    }
    void visit(ClassHeadNode& node) override {
        startLine("ClassHeadNode", node);
        endLine({node.name.get(), node.bases.get()});
    }
    void visit(ClassDeclNode& node) override { declaration("ClassDeclNode", node); }
    void visit(ClassBodyNode& node) override { list("ClassBodyNode", node); }
    void visit(BaseClauseListNode& node) override { list("BaseClauseListNode", node); }
    void visit(BaseClauseNode& node) override {
        startLine("BaseClauseNode", node);
        number("access", node.accessKind);
        if (node.isVirtual) out_ += " virtual";
        text(node.text);
    }
    void visit(RootNode& node) override { list("RootNode", node); }
    void visit(SyntaxNode& node) override {
        if (auto* argument = dynamic_cast<ArgNode*>(&node)) return textLeaf("ArgNode", *argument);
        if (auto* arguments = dynamic_cast<ArgListNode*>(&node)) return list("ArgListNode", *arguments);
    }

private:
    void startLine(std::string_view className, const SyntaxNode& node) {
        out_.append(static_cast<std::size_t>(level_) * 2, ' ').append(className);
        out_.append(" ").append(printPosition(node.firstPosition()));
        out_.append("-").append(printPosition(node.lastPosition()));
    }
    void number(std::string_view name, int value) {
        out_.append(" ").append(name).append("=").append(std::to_string(value));
    }
    void position(std::string_view name, Trn::Position value) {
        out_.append(" ").append(name).append("=").append(printPosition(value));
    }
    void end(Trn::Position value) {
        if (value.isSet()) position("end", value);
    }
    void text(const std::string& value) { out_.append(" \"").append(Trn::escape(value)).append("\"\n"); }
    void endLine(std::initializer_list<SyntaxNode*> members) {
        out_ += '\n';
        ++level_;
        for (SyntaxNode* member : members) {
            if (member) member->accept(*this);
        }
        --level_;
    }

    // The shapes that several classes share.
    void textLeaf(std::string_view className, const TextLeafNode& node) {
        startLine(className, node);
        text(node.text);
    }
    void list(std::string_view className, const InteriorNode& node) {
        startLine(className, node);
        out_ += '\n';
        ++level_;
        for (const auto& child : node) child->accept(*this);
        --level_;
    }
    template <class Node>
    void pair(std::string_view className, const Node& node) {
        startLine(className, node);
        endLine({node.head.get(), node.body.get()});
    }
    template <class Node>
    void declaration(std::string_view className, const Node& node) {
        startLine(className, node);
        end(node.endPosition);
        endLine({node.head.get(), node.body.get()});
    }

    std::string out_;
    int level_ = 0;
};

}  // namespace

std::string printTree(Cpp::RootNode& root) {
    TreePrinter printer;
    root.accept(printer);
    return printer.takeText();
}

std::string printPosition(Trn::Position position) {
    return std::to_string(position.line) + ':' + std::to_string(position.column);
}

}  // namespace Console
