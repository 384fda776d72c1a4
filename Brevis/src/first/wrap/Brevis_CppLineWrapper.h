// The last pass: breaks the lines of an already formatted text that are wider than the right margin. It walks the tree
// of that text and moves an input cursor over the text beside it.
//
// Invariants
// 1. What doesn't touch an overlong line is copied as it stands, and the walk doesn't enter it.
// 2. Only white space changes, and only inside nodes that touch an overlong line.
// 3. A visit leaves indent, keep flag and column stack as it found them; only a template head leaves its column on
//    the stack, for the class or function behind it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "Cpp_Nodes.h"
#include "first/expr/Brevis_CppExprFormatter.h"
#include "first/text/Brevis_ColumnPush.h"
#include "first/text/Brevis_Columns.h"
#include "first/text/Brevis_Copying.h"
#include "first/text/Brevis_Gaps.h"
#include "first/text/Brevis_StreamColumns.h"
#include "first/wrap/Brevis_CppExprLineWrapper.h"
#include "first/wrap/Brevis_OverlongLines.h"
#include "scheme/Brevis_Scheme.h"

namespace Brevis {

// Run by `root.accept(wrapper)`. The result is not checked: a line may still be too long afterwards.
//
// The visits stand in files by theme: Brevis_CppLineWrapper.cpp (the shared steps, bodies, lists and small visits), and
// behind it ...Decls and ...Statements.
class CppLineWrapper : public Cpp::Emitter {
public:
    // `text` must be the text that the tree was parsed from; it and the scheme must outlive the wrapper.
    CppLineWrapper(const Scheme& scheme, std::string_view text, LeafDialect dialect = {});
    CppLineWrapper(Scheme&& scheme, std::string_view text, LeafDialect dialect = {}) = delete;

    // The wrapped text, complete once the root has accepted the wrapper.
    std::string takeText() { return out_.takeStr(); }

    using Emitter::visit;
    void visit(Cpp::RootNode& root) override;

    void visit(Cpp::NamespaceDeclNode& node) override;
    void visit(Cpp::NamespaceBodyNode& body) override { visitBody(body, scheme_.indentNsContent); }
    void visit(Cpp::LinkageBlockNode& node) override;
    void visit(Cpp::LinkageBlockBodyNode& body) override { visitBody(body, scheme_.globalIndentContent); }
    void visit(Cpp::BlockNode& block) override;
    void visit(Cpp::TemplateNode& node) override;

    void visit(Cpp::ClassDeclNode& node) override;
    void visit(Cpp::ClassHeadNode& head) override;
    void visit(Cpp::ClassBodyNode& body) override { visitBody(body, scheme_.indentClassContent); }
    void visit(Cpp::BaseClauseListNode& list) override;
    void visit(Cpp::BaseClauseNode& clause) override;

    void visit(Cpp::FunctionDeclNode& node) override;
    void visit(Cpp::CtorDeclNode& node) override;
    void visit(Cpp::InitializerListNode& list) override;
    void visit(Cpp::InitializerNode& node) override;
    void visit(Cpp::FunctionPtrDeclNode& node) override;
    void visit(Cpp::DataDeclNode& node) override;
    void visit(Cpp::EnumDeclNode& node) override;
    void visit(Cpp::EnumBodyNode& body) override;

    void visit(Cpp::CtrlStmtNode& node) override;
    void visit(Cpp::CtrlSubStmtNode& node) override;
    void visit(Cpp::CtrlSubStmtHeadNode& head) override;

    void visit(Cpp::ExprNode& node) override;
    void visit(Cpp::CommentNode& node) override;
    void visit(Cpp::PreprocDirectiveNode& node) override;

    void visit(Cpp::VerbatimNode& node) override { copyToEnd(node); }
    void visit(Cpp::EnumHeadNode& node) override { copyToEnd(node); }
    void visit(Cpp::NamespaceHeadNode& node) override { copyToEnd(node); }
    void visit(Cpp::ClassNameNode& node) override { copyToEnd(node); }
    void visit(Cpp::AccessSpecNode& node) override { copyToEnd(node); }
    void visit(Cpp::ParameterNode& node) override { copyToEnd(node); }
    void visit(Cpp::IdNode& node) override { copyToEnd(node); }
    void visit(Cpp::CaseNode& node) override { copyToEnd(node); }
    void visit(Cpp::KeywordNode& node) override { copyToEnd(node); }
    void visit(Cpp::TypeNode& node) override { copyToEnd(node); }

    // Labels, `asm` and its text go out with the next copy; function heads are written by wrapFunctionHead.

private:
    // ---- Steps that the visits share (Brevis_CppLineWrapper.cpp)
    // Whether the node reaches into an overlong line. A node without positions doesn't.
    bool isOverlong(const Cpp::SyntaxNode& node) const;
    int topColumn() const { return columnStack_.empty() ? 0 : columnStack_.back(); }
    void copyToEnd(const Cpp::SyntaxNode& node) { copyThroughRaw(in_, out_, node.lastPosition()); }
    // Copies through the first character of the node and gives that character's output column.
    int copyFirstCharacter(const Cpp::SyntaxNode& node);
    std::string readToEnd(const Cpp::SyntaxNode& node) { return std::string(readThrough(in_, node.lastPosition())); }
    std::string readGap(Position before) { return std::string(readBefore(in_, before)); }
    void writeVerbatim(std::string_view text) { out_ << Verbatim{text}; }
    // Writes what the expression wrapper gave for a text of `size` characters. Throws Trn::Exception if all of them
    // together have grown by more than maxGrowth.
    void writeWrapped(std::string_view wrapped, std::size_t size);
    // Takes the column of a template head off the stack, if one has just been written.
    void clearTemplate();

    void wrapChildren(Cpp::InteriorNode& interior, const WsProperty& indentWs);
    void wrapBracedBody(Cpp::InteriorNode& body, const WsProperty& indentWs);
    void visitBody(Cpp::InteriorNode& body, const WsProperty& indentWs);
    void wrapHeadAndBody(int column, Cpp::SyntaxNode* head, Cpp::SyntaxNode* body);
    void wrapParenList(Cpp::InteriorNode& list, const WsProperty& beforeComma, const WsProperty& between);
    void wrapListItems(Cpp::InteriorNode& list, const WsProperty& beforeComma, const WsProperty& between,
                       bool commaAfter);
    void wrapListText(Cpp::InteriorNode& list, bool isNormalized, bool commaAfter);

    // ---- Declarations (Brevis_CppLineWrapperDecls.cpp)
    int wrapFunctionHead(Cpp::FunctionDeclNode& node);
    void wrapFunction(Cpp::FunctionDeclNode& node, Cpp::InitializerListNode* initializers);
    void wrapInitializer(const Cpp::ExprNode& initializer, int column);
    int wrapPointerDeclarator(Cpp::FunctionPtrDeclNode& node);
    bool isEnumWrapped(const Cpp::EnumBodyNode& body) const;
    void wrapEnumElements(const Cpp::EnumBodyNode& body, int column);
    void wrapEnumTail(const Cpp::EnumBodyNode& body);

    // ---- Statements (Brevis_CppLineWrapperStatements.cpp)
    void wrapCondition(const Cpp::ExprNode& condition, Trn::TokenKind keyword);
    void wrapForCondition(std::string inner, std::string_view close, int column);

    // Configuration, never changed after construction
    const Scheme& scheme_;
    std::vector<int> overlongLineNumbers_;  // ascending

    // The two cursors
    ITextDocStream in_;
    OIndentStream out_;

    // State
    bool templatePending_ = false;  // a template head has left its column on the stack
    bool inElseIf_ = false;         // the statement now being written is the `if` of an `else if`
    std::vector<int> columnStack_;  // 0-based output columns of the enclosing constructs' first tokens
    int depth_ = 0;
    std::size_t wrappedSize_ = 0;  // characters given to writeWrapped, and what they were made of
    std::size_t unwrappedSize_ = 0;

    CppExprFormatter expr_;
    CppExprLineWrapper exprWrapper_;
};

}  // namespace Brevis
