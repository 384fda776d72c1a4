// The form in which a user types the names of macros. A pure function of its argument.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace BrevisUI {

// The names of an entry with one blank between them. None if a word of it can't be the name of a macro.
std::optional<std::string> readNames(std::string_view entry);

}  // namespace BrevisUI
