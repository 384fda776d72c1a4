// Breaks the text of one expression, list, initializer or `for` head into lines. It works on text and never on a tree,
// and it changes nothing but white space.
//
// A text that fits is left alone. One that doesn't goes down the ladder (Brevis_Ladder.h), its calls and groups by the
// steps of Brevis_WrapSteps.h.
#pragma once

#include <string>
#include <string_view>

#include "first/expr/Brevis_CppExprFormatterBase.h"
#include "first/wrap/Brevis_StreamedText.h"
#include "first/wrap/Brevis_WrapPlace.h"
#include "first/wrap/Brevis_WrapValues.h"

namespace Brevis {

class CppExprLineWrapper : public CppExprFormatterBase {
public:
    // The scheme must outlive the wrapper.
    explicit CppExprLineWrapper(const Scheme& scheme, LeafDialect dialect = {});
    explicit CppExprLineWrapper(Scheme&& scheme, LeafDialect dialect = {}) = delete;

    // `settings` says where the text will stand: its column, its indent. The results hold the line feeds and the
    // continuation indents, so the caller writes them raw. With `noExtraIndent` a continuation line is not indented by
    // WRAP_INDENT, because the text stands under an indent of its own already.
    std::string wrapExpression(std::string text, const IndentStreamSettings& settings, bool noExtraIndent);
    // A list, by LIST_WRAP_STRATEGY.
    std::string wrapList(std::string text, const IndentStreamSettings& settings, bool noExtraIndent);
    // The clauses of a `for`.
    std::string wrapForHead(std::string text, const IndentStreamSettings& settings);

private:
    bool overflows(std::string_view text, const WrapPlace& place) const;
    StreamTools tools() const { return {values_, *this}; }

    // What stands behind a `return` and the left side of an assignment.
    std::string wrapOperands(const LexedText& text, const WrapPlace& place) const;
    std::string runSteps(std::string_view text, const WrapPlace& place) const;

    // ---- Brevis_CppExprLineWrapperLines.cpp
    std::string fillLines(std::string text, const WrapPlace& place) const;
    void fillBehind(StreamedText::Pass& pass) const;
    void fillInFront(StreamedText::Pass& pass) const;
    // Adjacent string literals get one line each.
    std::string alignStrings(std::string text, const IndentStreamSettings& settings) const;
    // Each directive gets a line of its own.
    std::string placeDirectives(std::string text, const IndentStreamSettings& settings) const;
    std::string rewritten(std::string text, const IndentStreamSettings& settings) const;

    WrapValues values_;
};

}  // namespace Brevis
