// Text for forms that take only valid UTF-8.
#pragma once

#include <string>
#include <string_view>

namespace Console {

// The text with U+FFFD in the place of every byte that is no part of a character of UTF-8, and of every control
// character but tab, line feed and carriage return.
std::string wholeText(std::string_view text);

}  // namespace Console
