// Reads the output of `git diff -U0`. Pure text work.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "BrevisUI_LineSet.h"

namespace Console {

// A stretch of lines that gave way to another. An empty one names the line in front of it.
struct GitHunk {
    std::size_t oldFirst = 0, oldCount = 0;
    std::size_t newFirst = 0, newCount = 0;
};

struct GitFileDiff {
    std::string name;  // of the new file, from the top of the work tree
    std::vector<GitHunk> hunks;
    bool isNew = false;  // under any name, as far as git has looked
};

// The files that are there afterwards and have changed lines or a new name. The prefix of new files is "b/".
std::vector<GitFileDiff> parseGitDiff(std::string_view text);

// The lines of the new file.
BrevisUI::LineSet newLines(const std::vector<GitHunk>& hunks);
// Where lines of the old file stand in the new one. Those that the hunks change are left out.
BrevisUI::LineSet mapLines(const BrevisUI::LineSet& oldLines, const std::vector<GitHunk>& hunks);

}  // namespace Console
