// Pointer and reference signs at the end of a text. Pure functions.
#pragma once

#include <string_view>

#include "Vellum_WhiteSpace.h"

namespace Brevis {

// Whether the text ends, white space aside, in `mark`. Its first character is not looked at.
constexpr bool endsInMark(std::string_view text, char mark) {
    const std::string_view trimmed = Vellum::withoutTrailingSpace(text);
    return trimmed.size() > 1 && trimmed.back() == mark;
}
constexpr bool endsInStar(std::string_view text) { return endsInMark(text, '*'); }
constexpr bool endsInAmp(std::string_view text) { return endsInMark(text, '&'); }
constexpr bool endsInSign(std::string_view text) { return endsInStar(text) || endsInAmp(text); }

}  // namespace Brevis
