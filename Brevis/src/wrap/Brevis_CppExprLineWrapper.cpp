// The three operations of the wrapper and the steps of wrapExpression. The ladder stands in
// Brevis_CppExprLineWrapperRungs.cpp.
#include "wrap/Brevis_CppExprLineWrapper.h"

#include <algorithm>

#include "Trn_NestingGuard.h"
#include "wrap/Brevis_BraceWalker.h"
#include "wrap/Brevis_ColumnFold.h"
#include "wrap/Brevis_FindFirstElem.h"
#include "wrap/Brevis_ParenWalker.h"
#include "wrap/Brevis_WrapText.h"

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
int columnBehind(std::string_view text, int column, int tabSize) {
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

// Levels of nesting are tried one by one, each over the whole text, so their number has a limit.
int triedLevels(int depth) { return std::min(depth, Trn::NestingGuard::limit); }

}  // namespace

void checkGrowth(std::size_t wrappedSize, std::size_t size) {
    if (wrappedSize > size + maxGrowth) throw Trn::Exception("The text is too long once its lines are wrapped.");
}

CppExprLineWrapper::CppExprLineWrapper(const Scheme& scheme)
    : CppExprFormatterBase(scheme),
      commaWrapStyle_(scheme.commaWrapStyle < 0 || scheme.commaWrapStyle > 2 ? 2 : scheme.commaWrapStyle) {}

std::string CppExprLineWrapper::wrapExpression(std::string text, const IndentStreamSettings& settings,
                                               bool noExtraIndent) {
    const FlagGuard guard(noExtraIndent_, noExtraIndent);
    if (!scheme().lineWrap) return placeDirectives(std::move(text), settings);
    if (!overflows(text, WrapPlace(settings))) {
        return placeDirectives(alignStrings(std::move(text), settings), settings);
    }
    // A `return` and the left side of an assignment stay whole and take no part in what follows.
    const LexedText lexed(text);
    const std::size_t operandsBegin = headEnd(lexed, prefixLength(lexed));
    std::string result = text.substr(0, operandsBegin);

    WrapPlace place(settings);
    place.column = columnBehind(result, place.column, settings.tabSize);
    place.behindBackslash = place.behindBackslash && operandsBegin == 0;
    text = wrapOperands(text.substr(operandsBegin), place);
    result += placeDirectives(alignStrings(std::move(text), settings), settings);
    return result;
}

std::string CppExprLineWrapper::wrapOperands(const std::string& text, const WrapPlace& place) const {
    if (ColumnFold::isSafe(text)) {
        ColumnFold fold(scheme().rightMargin, place);
        WrapPlace folded = place;
        folded.fold = &fold;
        std::string result = runSteps(text, folded);
        if (fold.isGood(result)) return result;
    }
    return runSteps(text, place);
}

std::string CppExprLineWrapper::runSteps(const std::string& text, const WrapPlace& place) const {
    WrapText operands(text);
    if (maxParenDepth(operands.lexed()) >= 1) wrapGroups(operands, place, 1, true);
    operands.set(wrapAtBreaks(operands.text(), place));
    wrapBraceGroups(operands, place);
    wrapInnerParens(operands, place);
    return operands.take();
}

void CppExprLineWrapper::wrapBraceGroups(WrapText& text, const WrapPlace& place) const {
    if (!overflows(text.text(), place)) return;
    const int depth = triedLevels(maxBraceDepth(text.lexed()));
    bool isTooLong = true;
    for (int level = 1; level <= depth && isTooLong; ++level) {
        if (wrapBraces(text, place, level)) isTooLong = overflows(text.text(), place);
    }
}

void CppExprLineWrapper::wrapInnerParens(WrapText& text, const WrapPlace& place) const {
    if (!overflows(text.text(), place)) return;
    const int depth = triedLevels(maxParenDepth(text.lexed()));
    bool isTooLong = true;
    const auto wrapLevel = [&](int level, bool namedOnly) {
        if (wrapGroups(text, place, level, namedOnly)) isTooLong = overflows(text.text(), place);
    };
    for (int level = 1; level <= depth && isTooLong; ++level) {
        if (level < depth) wrapLevel(level + 1, true);
        if (isTooLong) wrapLevel(level, false);
    }
}

namespace {

// Whether a stream that writes `text` raw leaves it as it is.
bool isPlainText(std::string_view text, const IndentStreamSettings& settings) {
    if (settings.convertMode == 1) return text.find('\t') == std::string_view::npos;
    if (settings.convertMode == 2) return settings.tabSize > 1 && text.find("  ") == std::string_view::npos;
    return true;
}

// Writes a text to a scratch stream stretch by stretch, some of them wrapped.
class StretchWriter {
public:
    StretchWriter(std::string_view text, WrapStream& out) : text_(text), out_(out) {}

    std::string_view take(std::size_t end) {
        const std::string_view stretch = text_.substr(begin_, end - begin_);
        begin_ = end;
        return stretch;
    }
    void copy(std::size_t end) { out_.raw(take(end)); }
    void copyRest() { copy(text_.size()); }

    // The next stretch up to `end` goes through `wrap`, which is given it and its place.
    template <class Wrap>
    void writeWrapped(std::size_t end, WrapPlace place, Wrap wrap) {
        if (place.fold != nullptr) place.fold->fold(place);
        out_.raw(wrap(std::string(take(end)), place));
        checkGrowth(out_.rawSize(), text_.size());
    }

private:
    std::string_view text_;
    WrapStream& out_;
    std::size_t begin_ = 0;
};

template <class Walker, class Test>
bool anyGroup(Walker walker, Test test) {
    for (walker.step(); walker; walker.step()) {
        if (test(walker)) return true;
    }
    return false;
}

}  // namespace

bool CppExprLineWrapper::wrapGroups(WrapText& text, const WrapPlace& place, int level, bool namedOnly) const {
    const ParenWalker walker(text.lexed(), level);
    const bool isPlain = isPlainText(text.text(), *place.settings);
    const auto isWrapped = [&](const ParenWalker& group) {
        return (group.hasName() || !namedOnly) && (group.mayBreak() || !isPlain);
    };
    if (isPlain && !anyGroup(walker, isWrapped)) return false;

    WrapStream out(place);
    StretchWriter writer(text.text(), out);
    const auto wrap = [this](std::string inside, const WrapPlace& at) { return wrapAtBreaks(std::move(inside), at); };
    ParenWalker group = walker;
    for (group.step(); group; group.step()) {
        if (isWrapped(group) && group.hasName()) {
            // The arguments stand under the call's name.
            writer.copy(group.prev().begin);
            std::string_view name = writer.take(group.prev().end);
            const int nameColumn = out.writeFirstChar(name);
            out.raw(name);
            writer.copy(group.open().end);
            writer.writeWrapped(group.close().begin, out.placeUnder(nameColumn), wrap);
        } else if (isWrapped(group)) {
            writer.copy(group.open().end);
            writer.writeWrapped(group.close().begin, out.place(), wrap);
        }
        writer.copy(group.close().end);
    }
    writer.copyRest();
    return text.set(out.takeText());
}

bool CppExprLineWrapper::wrapBraces(WrapText& text, const WrapPlace& place, int level) const {
    const BraceWalker walker(text.lexed(), OpenBrace, level);
    const bool isPlain = isPlainText(text.text(), *place.settings);
    const auto isWrapped = [&](const BraceWalker& group) { return group.mayBreak() || !isPlain; };
    if (isPlain && !anyGroup(walker, isWrapped)) return false;

    WrapStream out(place);
    StretchWriter writer(text.text(), out);
    const auto wrap = [this](std::string inside, const WrapPlace& at) { return wrapAtBreaks(std::move(inside), at); };
    BraceWalker group = walker;
    for (group.step(); group; group.step()) {
        if (isWrapped(group)) {
            writer.copy(group.open().end);
            writer.writeWrapped(group.close().begin, out.place(), wrap);
        }
        writer.copy(group.close().end);
    }
    writer.copyRest();
    return text.set(out.takeText());
}

std::string CppExprLineWrapper::wrapList(std::string text, const IndentStreamSettings& settings, bool noExtraIndent) {
    const FlagGuard guard(noExtraIndent_, noExtraIndent);
    if (!scheme().lineWrap) return text;
    if (scheme().listWrapStrategy != 0 && overflows(text, WrapPlace(settings))) {
        if (scheme().listWrapStrategy == 2) return wrapExpression(std::move(text), settings, noExtraIndent);
        text = wrapFill(std::move(text), WrapPlace(settings));
    }
    return placeDirectives(alignStrings(std::move(text), settings), settings);
}

std::string CppExprLineWrapper::wrapForHead(std::string text, const IndentStreamSettings& settings) {
    const WrapPlace place(settings);
    FindFirstElem semicolonFinder(WrapTokens::semicolonOp);
    text = breakAll(text, place, semicolonFinder, true);
    if (!overflows(text, place)) return text;

    const LexedText lexed(text);
    PieceReader rest(lexed, semicolonFinder);
    WrapStream out(place);
    PieceReader::Piece clause = rest.textThrough();
    for (; !rest.isLast(clause); clause = rest.textThrough()) {
        rest.cut(clause);
        if (overflows(clause.text, out)) {
            out.raw(wrapExpression(std::string(clause.text), out.stream().settings(), false));
        } else {
            out.raw(clause.text);
        }
    }
    out.raw(clause.text);
    return out.takeText();
}

bool CppExprLineWrapper::overflows(std::string_view text, int column, int tabSize) const {
    while (!text.empty()) {
        const std::string_view line = text.substr(0, text.find('\n'));
        if (columnAfter(line, column, tabSize) > scheme().rightMargin) return true;
        if (line.size() == text.size()) return false;
        text.remove_prefix(line.size() + 1);
        column = 0;
    }
    return false;
}

}  // namespace Brevis
