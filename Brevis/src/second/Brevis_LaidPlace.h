// Where a token came to stand.
#pragma once

#include <cstdint>

namespace Brevis {

// Line and column from 0, and the column in which the gap in front of the token begins.
struct LaidPlace {
    std::uint32_t line = 0;
    std::int32_t column = 0;
    std::int32_t gap = 0;
};

}  // namespace Brevis
