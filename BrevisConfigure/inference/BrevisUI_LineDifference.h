// How many lines of a text a formatter has changed.
#pragma once

#include <cstdint>
#include <string_view>

namespace BrevisUI {

struct LineDifference {
    std::uint64_t lines = 0;    // of the source
    std::uint64_t changed = 0;  // those that the result doesn't have at the same place between its characters
};

// Both have the same characters beside their white space, and line feeds for line ends. Linear.
LineDifference compareLines(std::string_view source, std::string_view result);

}  // namespace BrevisUI
