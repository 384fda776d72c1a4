// Turns ascending positions of a text into offsets. It looks at line feeds alone and passes each of them once.
#pragma once

#include <cstddef>
#include <string_view>

#include "Vellum_Position.h"

namespace Brevis {

class OffsetFinder {
public:
    // The text begins at line 1, column 0.
    explicit OffsetFinder(std::string_view text) : text_(text) {}

    // The offset of the cursor that stands at `position`, on the line of the last one asked for or behind it.
    std::size_t operator()(Vellum::Position position) {
        for (; line_ < position.line; ++line_) lineStart_ = text_.find('\n', lineStart_) + 1;
        return lineStart_ + static_cast<std::size_t>(position.column);
    }

private:
    std::string_view text_;
    int line_ = 1;
    std::size_t lineStart_ = 0;
};

}  // namespace Brevis
