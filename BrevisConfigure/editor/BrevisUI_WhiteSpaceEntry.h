// The form in which a user sees and types a white space value. Pure functions of their arguments.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace BrevisUI {

// A line feed as \n, a carriage return as \r, a tab as \t, a double quote as \" and a blank as \s. Everything else
// stands as it is.
std::string showWhiteSpace(std::string_view value);

// The reverse. A backslash in front of any other character, or at the end, is dropped; a typed blank stays one. None if
// the result holds anything but white space.
std::optional<std::string> readWhiteSpace(std::string_view entry);

}  // namespace BrevisUI
