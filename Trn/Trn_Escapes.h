// The text-level escapes that token values and scheme files share.
#pragma once

#include <string>
#include <string_view>

namespace Trn {

// From left to right, a backslash is dropped and the character behind it decides: `n`, `r`, `t`, `v` give their
// control character, any other character stands for itself. A backslash at the very end is dropped.
std::string unescape(std::string_view text);

// The reverse: tab, line feed, vertical tab, carriage return, both quotes and the backslash get a backslash.
std::string escape(std::string_view text);

}  // namespace Trn
