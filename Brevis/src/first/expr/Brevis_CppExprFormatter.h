// Re-spaces a text that the parser keeps as a leaf: an expression, a type, a parameter, an initializer. It rewrites
// the gaps between tokens and nothing else.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "first/expr/Brevis_CppExprFormatterBase.h"
#include "first/expr/Brevis_ExprTokens.h"
#include "first/expr/Brevis_ExprWalk.h"

namespace Brevis {

class CppExprFormatter : public CppExprFormatterBase {
public:
    // The scheme must outlive the formatter.
    explicit CppExprFormatter(const Scheme& scheme, LeafDialect dialect = {});
    explicit CppExprFormatter(Scheme&& scheme, LeafDialect dialect = {}) = delete;
    ~CppExprFormatter() override;

    // The re-spaced text. Throws Trn::Exception for brackets nested beyond Trn::NestingGuard::limit, and where an indent
    // that holds a line feed doubles the lines too often.
    std::string format(std::string_view text, const IndentStreamSettings& settings);
    // The same in type mode, where `*` and `&` behind a type are signs and no operators; `wsAfterType` goes between
    // type and name.
    std::string formatType(std::string_view text, const IndentStreamSettings& settings, const WsProperty& wsAfterType);
    // Puts the assignment signs of a text of enum elements, one element a line, in one column.
    std::string alignAssignments(std::string_view text, const IndentStreamSettings& settings) const;

private:
    // Type mode for the extent of a scope.
    class TypeMode {
    public:
        TypeMode(CppExprFormatter& formatter, const WsProperty& wsAfterType)
            : formatter_(formatter), typeMode_(formatter.typeMode_), wsAfterType_(formatter.wsAfterType_) {
            formatter_.typeMode_ = true;
            formatter_.wsAfterType_ = &wsAfterType;
        }
        ~TypeMode() {
            formatter_.typeMode_ = typeMode_;
            formatter_.wsAfterType_ = wsAfterType_;
        }
        TypeMode(const TypeMode&) = delete;
        TypeMode& operator=(const TypeMode&) = delete;

    private:
        CppExprFormatter& formatter_;
        bool typeMode_;
        const WsProperty* wsAfterType_;
    };

    // The values at one kind of bracket. The last two are for the commas inside.
    struct BracketValues {
        const WsProperty& afterOpen;
        const WsProperty& beforeClose;
        const WsProperty& comma;
        const WsProperty& between;

        bool spacesInside() const { return afterOpen.isSet || beforeClose.isSet; }
        bool spacesCommas() const { return comma.isSet || between.isSet; }
    };

    // `isRewritten` tells that the caller writes the result as ordinary text under the same indent and keep flag.
    std::string formatSlice(const ExprSlice& slice, const IndentStreamSettings& settings, bool isRewritten = false);
    // Leaves the result in `plain_`; false if the text or a value is not so simple.
    bool formatPlain(const ExprSlice& slice, const IndentStreamSettings& settings);
    void walkThrough(ExprWalk walk);
    void writeNested(ExprWalk& walk, const ExprSlice& slice, const NestedStyle& style);
    void writePlain(PlainExprText& plain, const ExprSlice& slice, const NestedStyle& style);
    void notePlainDepth(PlainExprText& plain) const;

    // ---- The dispatch on the current token, and the steps that its rows share
    void formatToken(ExprWalk& walk);
    void defaultRule(ExprWalk& walk);
    void skipTrivia(ExprWalk& walk);
    void spaceBeforeOp(ExprWalk& walk, const ExprToken& before, const ExprToken& op);
    void spaceAfterOp(ExprWalk& walk, const ExprToken& op, const ExprToken& after);
    void spaceUnarySign(ExprWalk& walk);
    void joinStrings(ExprWalk& walk);
    void writeDirectiveToken(ExprWalk& walk, const ExprToken& token);

    // ---- Brackets
    void formatBracket(ExprWalk& walk, const BracketValues& values);
    void formatSpacedBracket(ExprWalk& walk, const BracketValues& values, std::uint32_t close);
    void formatUnspacedBracket(ExprWalk& walk, const BracketValues& values, std::uint32_t close);
    std::string formatCut(const ExprSlice& slice, const IndentStreamSettings& settings);
    void formatInside(ExprWalk& walk, const BracketValues& values, std::uint32_t first, std::uint32_t close);
    void writeEmptyPair(ExprWalk& walk, const ExprToken& open, const ExprToken& close);
    void afterParen(ExprWalk& walk);
    void formatCall(ExprWalk& walk);
    void formatCast(ExprWalk& walk);
    void formatInitializer(ExprWalk& walk);
    void formatInitializerElements(ExprWalk& walk, const ExprSlice& elements);

    // ---- `<`, as a comparison or in front of template arguments
    void formatAngle(ExprWalk& walk);
    void formatComparison(ExprWalk& walk, std::uint32_t open, std::uint32_t firstInner);
    void formatRest(ExprWalk& walk, std::uint32_t firstToken);
    bool rewritingChangesNothing(ExprWalk& walk) const;
    void formatArguments(ExprWalk& walk, std::uint32_t open, std::uint32_t close);

    // ---- Pointer and reference signs
    void pointerRun(ExprWalk& walk);

    void writeAlignedLine(std::string_view line, int widest, OIndentStream& out) const;

    // Configuration, never changed after construction
    bool anyValueBreaks_;  // one of the values that act in expressions holds a line feed
    BracketValues parens_;
    BracketValues squares_;
    BracketValues castAngles_;

    // State of the walk, changed under guards only
    bool typeMode_ = false;
    const WsProperty* wsAfterType_ = &noWs;
    int depth_ = 0;

    // The tokens of the texts that are being formatted, innermost last; their memory is kept for the next texts
    std::vector<std::unique_ptr<ExprTokens>> tokenBuffers_;
    std::size_t buffersInUse_ = 0;

    // The one result that is being written as plain text, and the comparisons in it
    PlainExprText plain_;
    int comparisons_ = 0;
};

}  // namespace Brevis
