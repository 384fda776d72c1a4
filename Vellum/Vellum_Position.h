// A place in a text. A value type that every layer shares; it touches nothing else.
#pragma once

#include <compare>
#include <cstdint>

namespace Vellum {

// Lines count from 1. A column is the number of characters of the line that have been read so far,
// a tab being one, so the column of a token's first character is its 1-based column.
// The default value (0,0) means that no position is set.
struct Position {
    std::int32_t line = 0;
    std::int32_t column = 0;

    constexpr bool isSet() const { return line != 0 || column != 0; }
    constexpr auto operator<=>(const Position&) const = default;
};

}  // namespace Vellum
