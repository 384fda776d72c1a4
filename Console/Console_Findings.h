// What a check finds in one file, for reports.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "Trn_ParseMessage.h"

namespace Console {

// Lines and columns count from 1, columns in characters; the end is behind the last character. All 0: the whole file.
struct Region {
    std::size_t line = 0, column = 0;
    std::size_t endLine = 0, endColumn = 0;
};

// White space that takes the place of what a region holds.
struct Replacement {
    Region region;
    std::string text;
};

struct Finding {
    enum class Kind { Layout, Remark, Refused };

    Kind kind = Kind::Layout;
    Region region;
    std::string message;
    std::vector<Replacement> replacements;  // of Layout: what formatting does there
};

struct FileFindings {
    std::string name;
    std::vector<Finding> findings;
};

// One finding for each stretch of lines that formatting would change. It begins with the first change in these lines
// and ends with the last.
std::vector<Finding> findLayout(std::string_view source, std::string_view formatted);

// A message about a place of the file. The end of the region is its begin.
Finding findingFrom(const Trn::ParseMessage& message);

}  // namespace Console
