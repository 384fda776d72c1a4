// Where the lines of a text start, so that an offset tells its position.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "Trn_Position.h"

namespace Trn {

// Grows from the front of the text to its end. A question is answered at once if it is about a place near the last one.
class LineTable {
public:
    // The line `line` starts at `start`, which is below 0 for a text that begins in the middle of a line.
    LineTable(int line, std::ptrdiff_t start)
        : firstLine_(line), firstStart_(start), starts_{static_cast<std::uint32_t>(start < 0 ? 0 : start)} {}

    // The next line starts at this offset.
    void add(std::size_t start) { starts_.push_back(static_cast<std::uint32_t>(start)); }

    // The cursor in front of the character at `offset`, which is not in front of the first line.
    Position positionAt(std::size_t offset) const {
        if (!isIn(line_, offset)) line_ = isIn(line_ + 1, offset) ? line_ + 1 : find(offset);
        const auto start = line_ == 0 ? firstStart_ : static_cast<std::ptrdiff_t>(starts_[line_]);
        return {firstLine_ + static_cast<int>(line_), static_cast<int>(static_cast<std::ptrdiff_t>(offset) - start)};
    }

    // The offset of a cursor that has been given.
    std::size_t offsetOf(Position position) const {
        const auto line = static_cast<std::size_t>(position.line - firstLine_);
        const auto start = line == 0 ? firstStart_ : static_cast<std::ptrdiff_t>(starts_[line]);
        return static_cast<std::size_t>(start + position.column);
    }

private:
    bool isIn(std::size_t line, std::size_t offset) const {
        return line < starts_.size() && starts_[line] <= offset &&
               (line + 1 == starts_.size() || offset < starts_[line + 1]);
    }
    std::size_t find(std::size_t offset) const;

    int firstLine_;
    std::ptrdiff_t firstStart_;
    std::vector<std::uint32_t> starts_;
    mutable std::size_t line_ = 0;  // that the last question was about
};

}  // namespace Trn
