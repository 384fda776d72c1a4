// The line and column of an offset in a text, for messages. It counts from the front and is not for loops.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

#include "Trn_Position.h"

namespace Brevis {

// Line and column count from 1, the column in bytes.
inline Trn::Position placeAt(std::string_view text, std::size_t offset) {
    const std::string_view before = text.substr(0, offset);
    const std::size_t lineFeed = before.rfind('\n');
    const std::size_t lineStart = lineFeed == std::string_view::npos ? 0 : lineFeed + 1;
    return {static_cast<int>(std::count(before.begin(), before.end(), '\n')) + 1,
            static_cast<int>(offset - lineStart) + 1};
}

}  // namespace Brevis
