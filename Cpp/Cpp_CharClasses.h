// The character classes of the C locale as a table, so that they depend on no locale and cost one load.
// A byte of 0x80 or above belongs to none of them.
#pragma once

#include <array>
#include <cstdint>

#include "Vellum_WhiteSpace.h"

namespace Cpp {

using Vellum::isSpace;
using Vellum::trimmed;

namespace CharClass {

inline constexpr std::uint8_t space = 1, alpha = 2, digit = 4, hexDigit = 8, punct = 16, underscore = 32;
inline constexpr std::uint8_t word = alpha | digit | underscore;

}  // namespace CharClass

constexpr std::array<std::uint8_t, 256> makeCharClasses() {
    std::array<std::uint8_t, 256> classes{};
    for (unsigned c = 0; c < 0x80; ++c) {
        const bool isDigit = c >= '0' && c <= '9';
        const bool isAlpha = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
        const bool isHexLetter = (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
        const bool isGraph = c > ' ' && c < 0x7f;
        classes[c] = static_cast<std::uint8_t>(
            (isSpace(static_cast<char>(c)) ? CharClass::space : 0) | (isAlpha ? CharClass::alpha : 0) |
            (isDigit ? CharClass::digit : 0) | (isDigit || isHexLetter ? CharClass::hexDigit : 0) |
            (c == '_' ? CharClass::underscore : 0) | (isGraph && !isAlpha && !isDigit ? CharClass::punct : 0));
    }
    return classes;
}

inline constexpr std::array<std::uint8_t, 256> charClasses = makeCharClasses();

constexpr bool isAny(char c, std::uint8_t classes) {
    return (charClasses[static_cast<unsigned char>(c)] & classes) != 0;
}

}  // namespace Cpp
