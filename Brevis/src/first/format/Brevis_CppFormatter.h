// The main formatting visitor. It walks the tree once and moves an input cursor over the source text beside it,
// copying what stands between the places that the tree names and changing only the white space at those places.
//
// Invariants
// 1. Every character that is written was read from the source or comes from a property value.
// 2. The input cursor only moves forward; a position that it has passed reads as an empty text.
// 3. A visit leaves indent, keep flag and column stack as it found them; only a template head leaves its column on
//    the stack, for the declaration behind it.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Cpp_Nodes.h"
#include "first/align/Brevis_OffsetCalculator.h"
#include "first/expr/Brevis_CppExprFormatter.h"
#include "first/text/Brevis_ColumnPush.h"
#include "first/text/Brevis_Columns.h"
#include "first/text/Brevis_Copying.h"
#include "first/text/Brevis_Gaps.h"
#include "first/text/Brevis_NodeTests.h"
#include "first/text/Brevis_Signs.h"
#include "first/text/Brevis_StreamColumns.h"
#include "scheme/Brevis_Scheme.h"

namespace Brevis {

// The visits stand in files by theme: Brevis_CppFormatter.cpp (the shared steps), and behind it
// ...Classes, ...Functions, ...Data, ...Enums, ...Bodies, ...Statements and ...Trivia.
class CppFormatter : public Cpp::Emitter {
public:
    // `source` is the text that the tree was parsed from; it and the scheme must outlive the formatter.
    CppFormatter(std::string_view source, const Scheme& scheme, LeafDialect dialect = {});
    CppFormatter(std::string_view source, Scheme&& scheme, LeafDialect dialect = {}) = delete;

    // The formatted text, complete once the root has accepted the formatter.
    std::string takeText() { return out_.takeStr(); }

    using Emitter::visit;
    void visit(Cpp::RootNode& root) override;
    void visit(Cpp::NamespaceDeclNode& node) override;
    void visit(Cpp::NamespaceHeadNode& node) override;
    void visit(Cpp::NamespaceBodyNode& body) override;
    void visit(Cpp::LinkageBlockNode& node) override;
    void visit(Cpp::LinkageBlockBodyNode& body) override;
    void visit(Cpp::BlockNode& block) override;
    void visit(Cpp::TemplateNode& node) override;

    void visit(Cpp::ClassDeclNode& node) override;
    void visit(Cpp::ClassHeadNode& head) override;
    void visit(Cpp::ClassNameNode& name) override;
    void visit(Cpp::BaseClauseListNode& list) override;
    void visit(Cpp::BaseClauseNode& clause) override;
    void visit(Cpp::ClassBodyNode& body) override;
    void visit(Cpp::AccessSpecNode& node) override;

    void visit(Cpp::FunctionDeclNode& node) override;
    void visit(Cpp::CtorDeclNode& node) override;
    void visit(Cpp::ParameterNode& node) override;
    void visit(Cpp::InitializerListNode& list) override;
    void visit(Cpp::InitializerNode& node) override;
    void visit(Cpp::FunctionPtrDeclNode& node) override;

    void visit(Cpp::DataDeclNode& node) override;

    void visit(Cpp::EnumDeclNode& node) override;
    void visit(Cpp::EnumHeadNode& head) override;
    void visit(Cpp::EnumBodyNode& body) override;

    void visit(Cpp::CtrlStmtNode& node) override;
    void visit(Cpp::CtrlSubStmtNode& node) override;
    void visit(Cpp::CtrlSubStmtHeadNode& head) override;
    void visit(Cpp::CaseNode& node) override;

    void visit(Cpp::CommentNode& node) override;
    void visit(Cpp::PreprocDirectiveNode& node) override;
    void visit(Cpp::VerbatimNode& node) override;
    void visit(Cpp::LabelNode& node) override;
    void visit(Cpp::AsmNode& node) override;

    void visit(Cpp::TextNode& node) override;
    void visit(Cpp::KeywordNode& node) override;
    void visit(Cpp::TypeNode& node) override;
    void visit(Cpp::IdNode& node) override;
    void visit(Cpp::ExprNode& node) override;

private:
    // The indent and keep flag of a body, for the extent of a scope. A set value puts its text behind the column of
    // the enclosing construct and drops the source's leading white space; an unset one leaves the indent as it is and
    // the keep flag as it is or, with `keepIfUnset`, true.
    class BodyIndent {
    public:
        BodyIndent(CppFormatter& formatter, const WsProperty& indentValue, bool keepIfUnset = false);

    private:
        std::optional<LeadingWsGuard> keep_;
        std::optional<IndentStringGuard> indent_;
    };

    // A keep flag and an indent for the extent of a scope.
    struct Layout {
        Layout(OIndentStream& out, bool keep, std::string indent) : keep_(out, keep), indent_(out, std::move(indent)) {}

    private:
        LeadingWsGuard keep_;
        IndentStringGuard indent_;
    };

    // A text that ends in `*` or `&`, split for an alignment that keeps the sign with the name.
    struct SignSplit {
        bool isStar = false;
        bool isAmp = false;
        bool isAnchored = false;  // the sign keeps with the identifier, so that it stands in `tail`
        std::string tail;         // the trailing run of signs and white space, its leading white space taken off
    };

    // ---- Steps that the visits share (Brevis_CppFormatter.cpp)
    int topColumn() const { return columnStack_.empty() ? 0 : columnStack_.back(); }
    // Takes the column of a template head over, if one has just been written; tells whether it was.
    bool takeTemplateColumn();
    void pushPending(const WsProperty& value);
    std::optional<std::string_view> popPending();
    void applyPending(const Cpp::SyntaxNode& node);
    void copyToEnd(const Cpp::SyntaxNode& node);
    // Writes through the first character of the node and gives that character's output column.
    int copyFirstCharacter(const Cpp::SyntaxNode& node);
    // The same where the rest of the node is lexed on its own: a literal or number goes out whole.
    int copyFirstUnit(const Cpp::SyntaxNode& node);
    std::string readGap(Position before) { return std::string(readBefore(in_, before)); }
    void writeVerbatim(std::string_view text) { out_ << Verbatim{text}; }
    // Writes the gap in front of a position as it stands.
    void writeGap(Position before) { out_ << readBefore(in_, before); }
    // Writes it verbatim, the value in place of the white space at its end or its start.
    void writeGapTrailing(Position before, std::string_view ws);
    void writeGapLeading(Position before, std::string_view ws);
    // The first of these if the value is set, otherwise as it stands.
    void writeGapTrailing(Position before, const WsProperty& ws);
    // Writes `text` up to and including its first character that is no white space, takes it off `text` and puts its
    // output column in `column`. Without such a character nothing happens.
    void writeFirstCharacter(std::string_view& text, bool raw, int& column);
    // The same where the rest of the text is lexed on its own, as above; always raw, and gives the column.
    int writeFirstUnit(std::string_view& text);

    void formatChildren(Cpp::InteriorNode& node);
    void writeGapInFront(const Cpp::InteriorNode& body, const WsProperty& indentValue, std::string_view ws);
    void formatBracedBody(Cpp::InteriorNode& body, const WsProperty& indentValue, const WsProperty& wsAfterOpen,
                          const WsProperty& wsBeforeClose);
    void formatEmptyBody(Cpp::InteriorNode& body, const WsProperty& indentValue, const WsProperty& wsAfterOpen,
                         const WsProperty& wsBeforeClose);
    void formatEmptyBraces(Cpp::InteriorNode& body, const WsProperty& indentValue, const WsProperty& wsAfterOpen,
                           const WsProperty& wsBeforeClose);
    void formatParenList(Cpp::InteriorNode& list, const WsProperty& wsAfterOpen, const WsProperty& wsBeforeComma,
                         const WsProperty& wsBetween, const WsProperty& wsBeforeClose);
    // A list with its brackets, but for what stands inside an empty one.
    void formatEnclosedItems(Cpp::InteriorNode& list, const WsProperty& wsAfterOpen, const WsProperty& wsBeforeComma,
                             const WsProperty& wsBetween, const WsProperty& wsBeforeClose);
    void formatListItems(Cpp::InteriorNode& list, const WsProperty& wsBeforeComma, const WsProperty& wsBetween);
    void formatGapBetween(const Cpp::SyntaxNode& item, const Cpp::SyntaxNode& next, const WsProperty& wsBeforeComma,
                          const WsProperty& wsBetween);

    void formatTemplateParameters(Cpp::ParameterListNode& list);

    SignSplit splitSign(std::string& text) const;
    // Writes alignment white space up to the column that `offset` stands for, then the sign.
    void writeAligned(int offset, const SignSplit& sign);

    // ---- Functions (Brevis_CppFormatterFunctions.cpp)
    int formatFunctionHead(Cpp::FunctionDeclNode& node);
    // What stands behind the parameters and goes out as it stands. On a line of its own it keeps its distance from the
    // column of the head.
    void writeHeadTail(Cpp::FunctionHeadNode& head, int column);
    SignSplit splitAlignedSign(std::string& text) const;
    int writeReturnTypeAndName(Cpp::FunctionDeclNode& node, int column, bool hadTemplate);
    void formatFunctionBody(Cpp::FunctionDeclNode& node);

    // ---- Data declarations (Brevis_CppFormatterData.cpp)
    bool dataNamesAligned() const;
    int writeAlignedDataHead(Cpp::DataDeclNode& node);
    int writePlainDataHead(Cpp::DataDeclNode& node);
    void writeInitializer(Cpp::DataDeclNode& node, int declColumn);
    void writeGapOfAlignedInitializer(Cpp::DataDeclNode& node);
    int alignedInitializerPad(Cpp::DataDeclNode& node) const;
    void writeGapOfInitializer(Cpp::DataDeclNode& node, bool isCall);
    void applyNameSpacing(std::string& text) const;
    std::string formatCallInitializer(std::string text);

    // ---- Enums (Brevis_CppFormatterEnums.cpp)
    void formatEnumElements(Cpp::EnumBodyNode& body);
    void writeGapBehindElements(const Cpp::EnumBodyNode& body);

    // ---- Statements (Brevis_CppFormatterStatements.cpp)
    void formatForInside(std::string_view text, int insideColumn);
    void writeForClauses(std::string_view text, std::size_t firstEnd, std::size_t secondEnd, int insideColumn);
    void writeCondition(std::string_view text, Trn::TokenKind keyword, int insideColumn);
    std::string formattedCondition(std::string_view text, Trn::TokenKind keyword);

    const Scheme& scheme_;

    // The two cursors
    std::string_view source_;
    ITextDocStream in_;
    OIndentStream out_;

    // State
    bool inClassBody_ = false;
    bool templatePending_ = false;             // a template head has left its column on the stack
    bool inElseIf_ = false;                    // the current statement is the `if` of an `else if`
    bool classTailPending_ = false;            // the last class ended at its brace: a declarator follows
    std::vector<int> columnStack_;             // 0-based output columns of the enclosing constructs' first tokens
    std::vector<std::string_view> pendingWs_;  // values of the scheme that the next visit is to write

    // Alignment columns, filled by the visit of the root
    ColumnTable functionNameColumns_;
    ColumnTable dataNameColumns_;
    ColumnTable initializerColumns_;

    CppExprFormatter expr_;
};

// The value stored for the node, or 1.
int offsetFor(const ColumnTable& table, const Cpp::SyntaxNode& node);

}  // namespace Brevis
