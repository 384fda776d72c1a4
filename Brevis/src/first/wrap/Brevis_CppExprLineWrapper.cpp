// The three operations of the wrapper. What else a text undergoes stands in Brevis_CppExprLineWrapperLines.cpp.
#include "first/wrap/Brevis_CppExprLineWrapper.h"

#include "first/wrap/Brevis_ColumnFold.h"
#include "first/wrap/Brevis_FindFirstElem.h"
#include "first/wrap/Brevis_Ladder.h"
#include "first/wrap/Brevis_LaidOperands.h"
#include "first/wrap/Brevis_StreamedOperands.h"
#include "first/wrap/Brevis_WrapSteps.h"

namespace Brevis {

using namespace Trn::Kind;

namespace {

// Sets a flag for the extent of a scope.
class FlagGuard {
public:
    FlagGuard(bool& flag, bool value) : flag_(flag), saved_(flag) { flag_ = value; }
    ~FlagGuard() { flag_ = saved_; }
    FlagGuard(const FlagGuard&) = delete;
    FlagGuard& operator=(const FlagGuard&) = delete;

private:
    bool& flag_;
    bool saved_;
};

// The column behind `text`, written from `column` on.
int columnPast(std::string_view text, int column, int tabSize) {
    const std::size_t lineFeed = text.rfind('\n');
    if (lineFeed == std::string_view::npos) return columnAfter(text, column, tabSize);
    return columnAfter(text.substr(lineFeed + 1), 0, tabSize);
}

// The text through the first `return`, or nothing.
std::size_t prefixLength(const LexedText& text) {
    for (std::size_t i = 0; text.isWalked(i); ++i) {
        if (text[i].kind == Return) return text[i].end;
    }
    return 0;
}

// The text behind `begin` through the assignment at depth zero that stands in front of all other operators.
std::size_t headEnd(const LexedText& text, std::size_t begin) {
    int paren = 0;
    int brace = 0;
    int bracket = 0;
    for (std::size_t i = 0; text.isWalked(i); ++i) {
        if (text[i].begin < begin) continue;
        const Trn::TokenKind kind = text[i].kind;
        if (WrapTokens::stopOps.contains(kind) || WrapTokens::logicalOps.contains(kind) ||
            WrapTokens::shiftOps.contains(kind)) {
            return begin;
        }
        paren += static_cast<int>(kind == OpenParen) - static_cast<int>(kind == CloseParen);
        brace += static_cast<int>(kind == OpenBrace) - static_cast<int>(kind == CloseBrace);
        bracket += static_cast<int>(kind == OpenBracket) - static_cast<int>(kind == CloseBracket);
        const bool atDepthZero = paren == 0 && brace == 0 && bracket == 0;
        if (atDepthZero && WrapTokens::assignOps.contains(kind)) return text[i].end;
    }
    return begin;
}

}  // namespace

CppExprLineWrapper::CppExprLineWrapper(const Scheme& scheme, LeafDialect dialect)
    : CppExprFormatterBase(scheme, dialect), values_(scheme) {}

std::string CppExprLineWrapper::wrapExpression(std::string text, const IndentStreamSettings& settings,
                                               bool noExtraIndent) {
    const FlagGuard guard(values_.noExtraIndent, noExtraIndent);
    if (!values_.lineWrap) return placeDirectives(std::move(text), settings);
    if (!overflows(text, WrapPlace(settings))) {
        return placeDirectives(alignStrings(std::move(text), settings), settings);
    }
    // A `return` and the left side of an assignment stay whole and take no part in what follows.
    const LexedText lexed(text, dialect());
    const std::size_t operandsBegin = headEnd(lexed, prefixLength(lexed));
    std::string result = text.substr(0, operandsBegin);

    WrapPlace place(settings);
    place.column = columnPast(result, place.column, settings.tabSize);
    place.behindBackslash = place.behindBackslash && operandsBegin == 0;
    result += placeDirectives(alignStrings(wrapOperands(LexedText(lexed, operandsBegin), place), settings), settings);
    return result;
}

std::string CppExprLineWrapper::wrapOperands(const LexedText& lexed, const WrapPlace& place) const {
    if (LaidText::isSuited(lexed, place, values_)) {
        LaidOperands operands(lexed, place, values_);
        WrapSteps(operands).run();
        if (!operands.hasGivenUp()) return operands.text();
    }
    const std::string_view text = lexed.text();
    if (ColumnFold::isSafe(text, dialect())) {
        ColumnFold fold(values_.rightMargin, place);
        WrapPlace folded = place;
        folded.fold = &fold;
        std::string result = runSteps(text, folded);
        if (fold.isGood(result)) return result;
    }
    return runSteps(text, place);
}

std::string CppExprLineWrapper::runSteps(std::string_view text, const WrapPlace& place) const {
    StreamedOperands operands(std::string(text), place, tools());
    WrapSteps(operands).run();
    return operands.take();
}

std::string CppExprLineWrapper::wrapList(std::string text, const IndentStreamSettings& settings, bool noExtraIndent) {
    const FlagGuard guard(values_.noExtraIndent, noExtraIndent);
    if (!values_.lineWrap) return text;
    if (values_.listWrapStrategy != 0 && overflows(text, WrapPlace(settings))) {
        if (values_.listWrapStrategy == 2) return wrapExpression(std::move(text), settings, noExtraIndent);
        text = fillLines(std::move(text), WrapPlace(settings));
    }
    return placeDirectives(alignStrings(std::move(text), settings), settings);
}

std::string CppExprLineWrapper::wrapForHead(std::string text, const IndentStreamSettings& settings) {
    const WrapPlace place(settings);
    FindFirstElem semicolonFinder(WrapTokens::semicolonOp);
    StreamedText clauses(std::move(text), place, tools());
    Ladder(values_, clauses).breakAll(semicolonFinder, true);
    if (!clauses.overflows()) return clauses.take();

    StreamedText::Pass pass(clauses, semicolonFinder);
    PieceReader::Piece clause = pass.cutThrough();
    for (; !pass.atEnd(); clause = pass.cutThrough()) {
        if (pass.overflows(clause)) {
            pass.write({wrapExpression(std::string(clause.text), pass.stream().settings(), false)});
        } else {
            pass.write(clause);
        }
    }
    pass.write(clause);  // what stands behind the last separator
    pass.finish();
    return clauses.take();
}

bool CppExprLineWrapper::overflows(std::string_view text, const WrapPlace& place) const {
    return Brevis::overflows(text, place.column, place.settings->tabSize, values_.rightMargin);
}

}  // namespace Brevis
