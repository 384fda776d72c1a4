// White space as the C locale has it, and texts without it at their ends. Every layer asks here. Pure functions.
#pragma once

#include <string_view>

#include "Vellum_CharSet.h"

namespace Vellum {

inline constexpr CharSet whiteSpace(" \t\n\v\f\r");

constexpr bool isSpace(char c) { return whiteSpace.has(c); }

constexpr std::string_view withoutLeadingSpace(std::string_view text) {
    std::size_t begin = 0;
    while (begin < text.size() && isSpace(text[begin])) ++begin;
    return text.substr(begin);
}

constexpr std::string_view withoutTrailingSpace(std::string_view text) {
    std::size_t end = text.size();
    while (end > 0 && isSpace(text[end - 1])) --end;
    return text.substr(0, end);
}

constexpr std::string_view trimmed(std::string_view text) { return withoutTrailingSpace(withoutLeadingSpace(text)); }

constexpr bool isBlank(std::string_view text) { return withoutLeadingSpace(text).empty(); }

}  // namespace Vellum
