// Conversion between characters and their escaped form. Pure functions of their argument.
#include "Trn_Escapes.h"

namespace Trn {

namespace {

// The pairs of a character and the letter behind the backslash that stands for it.
struct Escape {
    char character;
    char letter;
};

constexpr Escape controlEscapes[] = {{'\t', 't'}, {'\n', 'n'}, {'\v', 'v'}, {'\r', 'r'}};
constexpr Escape quotedCharacters[] = {{'"', '"'}, {'\'', '\''}, {'\\', '\\'}};

char unescaped(char letter) {
    for (const Escape& escape : controlEscapes) {
        if (escape.letter == letter) return escape.character;
    }
    return letter;
}

void appendEscaped(std::string& result, char c) {
    for (const auto& [character, letter] : controlEscapes) {
        if (character == c) {
            result += '\\';
            result += letter;
            return;
        }
    }
    for (const auto& [character, letter] : quotedCharacters) {
        if (character == c) result += '\\';
    }
    result += c;
}

}  // namespace

std::string unescape(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\') {
            result += text[i];
        } else if (++i < text.size()) {
            result += unescaped(text[i]);
        }
    }
    return result;
}

std::string escape(std::string_view text) {
    std::string result;
    result.reserve(text.size() + 8);
    for (const char c : text) appendEscaped(result, c);
    return result;
}

}  // namespace Trn
