// What the readers of small text files share: their encodings, lines and lists.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace BrevisUI {

// UTF-8 without a byte order mark. A text with the mark of UTF-16 is converted, what is no UTF-16 in it becoming
// U+FFFD; without a mark the bytes stay as they are.
std::string decodeText(std::string_view bytes);

// The lines without their ends, be they line feeds with or without a carriage return.
std::vector<std::string_view> linesOf(std::string_view text);

// The pieces between separators, white space at their ends removed; empty ones are left out.
std::vector<std::string> splitList(std::string_view text, char separator);

// The text without the white space at its ends.
std::string_view trimBlanks(std::string_view text);

// With the letters of ASCII in lower case.
std::string lowerCase(std::string_view text);

}  // namespace BrevisUI
