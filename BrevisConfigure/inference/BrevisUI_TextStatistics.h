// What the lines of a code base show without a look at its tokens: tabs, white space at line ends, empty lines, the
// ends of the files. Counts only; it decides nothing.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace BrevisUI {

struct TextStatistics {
    static constexpr std::array<int, 4> tabSizes = {8, 4, 2, 3};
    static constexpr std::size_t longestRun = 9;

    // Lines
    std::uint64_t lines = 0;
    std::uint64_t withTrailingBlanks = 0;
    std::uint64_t indented = 0;     // that begin with white space
    std::uint64_t tabbed = 0;       // that hold a tab
    std::uint64_t tabIndented = 0;  // that begin with one
    // Indented lines of the width of a tab or more that have all the tabs they can, by tabSizes, and all such lines.
    std::array<std::uint64_t, tabSizes.size()> filledWithTabs{}, wideAsTab{};
    std::uint64_t directives = 0;
    std::uint64_t directivesAtMargin = 0;
    // Runs of empty lines between others, by their length; the last one stands for all longer ones.
    std::array<std::uint64_t, longestRun + 1> emptyRuns{};

    // Texts
    std::uint64_t texts = 0;
    std::uint64_t endingInOneFeed = 0;

    // `text` has line feeds for line ends.
    void add(std::string_view text);
    // No run is longer than this, but for a share of `rare`.
    int usualEmptyLines(double rare) const;
};

}  // namespace BrevisUI
