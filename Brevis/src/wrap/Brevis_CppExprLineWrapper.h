// Breaks the text of one expression, list, initializer or `for` head into lines. It works on text and never on a tree,
// and it changes nothing but white space.
//
// The method is a ladder. A text that fits is left alone. One that doesn't is broken at the coarsest separators first:
// commas, then shift operators, then `&&` and `||`, then other binary operators, and last casts. Each rung breaks at
// every separator of its kind at nesting depth zero, and runs only if some line is still too long.
#pragma once

#include <string>
#include <string_view>

#include "expr/Brevis_CppExprFormatterBase.h"
#include "text/Brevis_TokenReader.h"
#include "wrap/Brevis_PieceReader.h"
#include "wrap/Brevis_WrapStream.h"
#include "wrap/Brevis_WrapText.h"

namespace Brevis {

// Lines that are aligned under each other can take room beyond all measure: a line of thousands of statements has each
// of them begin further to the right than the last. This is the room that wrapping may take.
inline constexpr std::size_t maxGrowth = std::size_t{256} << 20;
// Throws Trn::Exception if a text of `size` characters has grown by more than that.
void checkGrowth(std::size_t wrappedSize, std::size_t size);

class CppExprLineWrapper : public CppExprFormatterBase {
public:
    // The scheme must outlive the wrapper.
    explicit CppExprLineWrapper(const Scheme& scheme);
    explicit CppExprLineWrapper(Scheme&& scheme) = delete;

    // `settings` says where the text will stand: its column, its indent. The results hold the line feeds and the
    // continuation indents, so the caller writes them raw. With `noExtraIndent` a continuation line is not indented by
    // WRAP_INDENT, because the text stands under an indent of its own already.
    std::string wrapExpression(std::string text, const IndentStreamSettings& settings, bool noExtraIndent);
    // A list, by LIST_WRAP_STRATEGY.
    std::string wrapList(std::string text, const IndentStreamSettings& settings, bool noExtraIndent);
    // The clauses of a `for`.
    std::string wrapForHead(std::string text, const IndentStreamSettings& settings);

private:
    // ---- Measuring. The convert mode moves no column, so a text overflows as it stands or not at all.
    bool overflows(std::string_view text, int column, int tabSize) const;
    bool overflows(std::string_view text, const WrapPlace& place) const {
        return overflows(text, place.column, place.settings->tabSize);
    }
    bool overflows(std::string_view text, const WrapStream& out) const {
        return overflows(text, out.column(), out.tabSize());
    }

    // ---- The steps of wrapExpression
    std::string wrapOperands(const std::string& text, const WrapPlace& place) const;
    std::string runSteps(const std::string& text, const WrapPlace& place) const;
    void wrapBraceGroups(WrapText& text, const WrapPlace& place) const;
    void wrapInnerParens(WrapText& text, const WrapPlace& place) const;
    // The insides of the parenthesised groups at a level go down the ladder: those of calls or, if not `namedOnly`,
    // all. These two tell whether the text has changed.
    bool wrapGroups(WrapText& text, const WrapPlace& place, int level, bool namedOnly) const;
    bool wrapBraces(WrapText& text, const WrapPlace& place, int level) const;

    // ---- The ladder and its rungs (Brevis_CppExprLineWrapperRungs.cpp)
    std::string wrapAtBreaks(std::string text, const WrapPlace& place) const;
    std::string breakAll(const std::string& text, const WrapPlace& place, FirstWrapToken& finder,
                         bool breakAfter) const;
    void breakBehind(PieceReader& rest, FirstWrapToken& finder, WrapStream& out) const;
    void breakInFront(PieceReader& rest, WrapStream& out) const;
    std::string wrapShifts(const std::string& text, const WrapPlace& place) const;
    void wrapInFrontOfShifts(PieceReader& rest, int column, WrapStream& out) const;
    void wrapBehindShifts(PieceReader& rest, const WrapPlace& place, int column, WrapStream& out) const;
    std::string wrapFill(std::string text, const WrapPlace& place) const;
    std::string fillLines(const std::string& text, const WrapPlace& place, FirstWrapToken& finder) const;
    void fillBehind(PieceReader& rest, WrapStream& out) const;
    void fillInFront(PieceReader& rest, WrapStream& out) const;

    // ---- Writing
    // One continuation line; `column` is where its text belongs.
    void writeContinuation(WrapStream& out, std::string_view text, int column, bool breakAfter) const;
    // Writes a comment or directive at the front of a piece of several tokens and takes it off; `reader` has just read
    // the piece's first token. Gives false if it was a line comment or directive, which breaks the line by itself.
    bool writeLeadingTrivia(WrapStream& out, const TokenReader& reader, std::string_view& piece) const;
    // Keeps a line comment or directive at the front of a unit of several tokens on the line that it belongs to.
    void leadingLineTokens(WrapStream& out, std::string_view& unit) const;
    // Adjacent string literals get one line each.
    std::string alignStrings(std::string text, const IndentStreamSettings& settings) const;
    // Each directive gets a line of its own.
    std::string placeDirectives(std::string text, const IndentStreamSettings& settings) const;
    std::string rewritten(std::string text, const IndentStreamSettings& settings) const;

    const int commaWrapStyle_;  // a value beyond 0 to 2 acts as 2
    // State
    bool noExtraIndent_ = false;
};

}  // namespace Brevis
