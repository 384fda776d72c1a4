// Compares two texts that differ in white space only, in time linear in their length. Pure functions of their
// arguments.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace BrevisUI {

// A stretch of a text in bytes, `end` behind the last one.
struct TextRange {
    std::size_t begin = 0;
    std::size_t end = 0;

    bool operator==(const TextRange&) const = default;
};

// The stretches of `after` whose white space differs from that of `before`, in ascending order and apart from each
// other. Where white space has gone the stretch is the two characters that now meet, or the one that is there. Empty if
// the texts differ in more than white space, as then they aren't two forms of one text.
std::vector<TextRange> movedRanges(std::string_view before, std::string_view after);

// The number of lines of `before` that don't stand in `after` as they are. If the texts differ in more than white space
// the count goes on with the lines from there as changed.
std::size_t countChangedLines(std::string_view before, std::string_view after);
// The number of lines; a last one needs no line feed.
std::size_t countLines(std::string_view text);

}  // namespace BrevisUI
