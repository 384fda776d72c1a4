// Tells texts that can be formatted, whose characters are bytes or made of bytes above 127, from others.
#pragma once

#include <string_view>

namespace BrevisUI {

enum class Encoding {
    Bytes,  // ASCII, UTF-8, Latin-1 and their like
    Utf16,  // or UTF-32
    Nul,    // bytes with NUL among them, which no source text has
};

Encoding encodingOf(std::string_view text);

// The byte order mark of UTF-8 at the beginning of a text, or nothing.
std::string_view byteOrderMarkOf(std::string_view text);

}  // namespace BrevisUI
