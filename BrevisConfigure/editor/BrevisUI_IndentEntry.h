// The form in which a user sees and sets an indent: a number and a unit. Pure functions of their arguments.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace BrevisUI {

// The values are the indices of the rows of a unit box.
enum class IndentUnit { Spaces = 0, Tabs = 1 };

inline constexpr std::string_view indentUnitLabels[] = {"spaces", "tabs"};

struct IndentEntry {
    std::int32_t number = 0;
    IndentUnit unit = IndentUnit::Spaces;

    bool operator==(const IndentEntry&) const = default;
};

// The number is the length of the text; the unit is tabs if it holds any.
IndentEntry showIndent(std::string_view text);
// A negative number counts as 0.
std::string readIndent(IndentEntry entry);

}  // namespace BrevisUI
