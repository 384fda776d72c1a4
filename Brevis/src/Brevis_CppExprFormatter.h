// Re-spaces a text that the parser keeps as a leaf: an expression, a type, a parameter, an initializer. It rewrites
// the gaps between tokens and nothing else.
#pragma once

#include <string>
#include <string_view>

#include "Brevis_CppExprFormatterBase.h"

namespace Brevis {

class CppExprFormatter : public CppExprFormatterBase {
public:
    explicit CppExprFormatter(const PropertySet& scheme);
    ~CppExprFormatter() override;

    // The re-spaced text. Throws Trn::Exception for brackets nested beyond Trn::NestingGuard::limit.
    std::string format(std::string_view text, const IndentStreamSettings& settings);
    // The same in type mode, where `*` and `&` behind a type are signs and no operators; `wsAfterType` goes between
    // type and name.
    std::string formatType(std::string_view text, const IndentStreamSettings& settings, const WsProperty& wsAfterType);
    // Puts the assignment signs of a text of enum elements, one element a line, in one column.
    std::string alignAssignments(std::string_view text, const IndentStreamSettings& settings) const;
};

}  // namespace Brevis
