// The operators and brackets of C and C++, digraphs and those of the newest C++ among them.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <iterator>
#include <string_view>

namespace Brevis {

// Ordered by the first character; the longest first among those that share it.
inline constexpr std::string_view seamPunctuators[] = {
    "!=", "!",  "##", "#",   "%:%:", "%:", "%>", "%=", "%",  "&&",  "&=", "&", "(",   ")",  "*=", "*",
    "++", "+=", "+",  ",",   "->*",  "--", "-=", "->", "-",  "...", ".*", ".", "/=",  "/",  "::", ":>",
    ":]", ":",  ";",  "<=>", "<<=",  "<<", "<=", "<:", "<%", "<",   "==", "=", ">>=", ">>", ">=", ">",
    "?",  "[:", "[",  "]",   "^^",   "^=", "^",  "{",  "|=", "||",  "|",  "}", "~",
};

inline constexpr std::size_t seamPunctuatorMostLength = 4;

// True for a punctuator of one character that is in no longer one.
constexpr bool isLonePunctuator(char c) { return c == '(' || c == ')' || c == ',' || c == ';' || c == '{' || c == '}'; }

static_assert(std::all_of(std::begin(seamPunctuators), std::end(seamPunctuators), [](std::string_view punctuator) {
    return punctuator.size() == 1 || std::none_of(punctuator.begin(), punctuator.end(), isLonePunctuator);
}));

// For each character the index of its first punctuator plus 1, or 0 where it begins none.
constexpr std::array<std::uint8_t, 256> makeSeamPunctuatorIndex() {
    std::array<std::uint8_t, 256> index{};
    for (std::size_t i = std::size(seamPunctuators); i-- > 0;) {
        index[static_cast<unsigned char>(seamPunctuators[i].front())] = static_cast<std::uint8_t>(i + 1);
    }
    return index;
}

inline constexpr std::array<std::uint8_t, 256> seamPunctuatorIndex = makeSeamPunctuatorIndex();

// The first that begins with the character; there must be one.
constexpr const std::string_view* firstSeamPunctuator(char c) {
    return &seamPunctuators[seamPunctuatorIndex[static_cast<unsigned char>(c)] - 1];
}

}  // namespace Brevis
