// The escapes of white space entries.
#include "editor/BrevisUI_WhiteSpaceEntry.h"

#include "Vellum_WhiteSpace.h"

namespace BrevisUI {

namespace {

struct Escape {
    char character;
    char letter;
};

constexpr Escape escapes[] = {{'\n', 'n'}, {'\r', 'r'}, {'\t', 't'}, {'"', '"'}, {' ', 's'}};

}  // namespace

std::string showWhiteSpace(std::string_view value) {
    std::string entry;
    for (const char c : value) {
        char shown = c;
        for (const auto& [character, letter] : escapes) {
            if (c == character) entry += '\\', shown = letter;
        }
        entry += shown;
    }
    return entry;
}

std::optional<std::string> readWhiteSpace(std::string_view entry) {
    std::string value;
    for (std::size_t i = 0; i < entry.size(); ++i) {
        char read = entry[i];
        if (read == '\\') {
            if (++i == entry.size()) break;
            read = entry[i];
            for (const auto& [character, letter] : escapes) {
                if (entry[i] == letter) read = character;
            }
        }
        value += read;
    }
    if (!Vellum::isBlank(value)) return std::nullopt;
    return value;
}

}  // namespace BrevisUI
