// A set of lines of a text, by their numbers from 1. Lines end at line feeds, as git and editors count them.
#pragma once

#include <cstddef>
#include <limits>
#include <vector>

namespace BrevisUI {

class LineSet {
public:
    static constexpr std::size_t lastLine = std::numeric_limits<std::size_t>::max();

    static LineSet all() {
        LineSet lines;
        lines.add(1, lastLine);
        return lines;
    }

    // Adds the lines `first` to `last`, in any order of calls. Nothing for a range without lines.
    void add(std::size_t first, std::size_t last);
    bool empty() const { return ranges_.empty(); }
    bool has(std::size_t line) const { return hasAll(line, line); }
    bool hasAll(std::size_t first, std::size_t last) const;

    struct Range {
        std::size_t first, last;
    };
    // In order; no two of them touch.
    const std::vector<Range>& ranges() const { return ranges_; }

private:
    std::vector<Range> ranges_;
};

}  // namespace BrevisUI
