// The patterns of one ignore file, in the syntax of .gitignore.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "files/BrevisUI_GlobPattern.h"

namespace BrevisUI {

// One line of such a file.
class IgnorePattern {
public:
    // Nothing for a line without a pattern, such as a comment.
    static std::optional<IgnorePattern> parse(std::string_view line);

    // Whether a match takes an entry back in.
    bool isNegated() const { return isNegated_; }
    // `path` is relative to the directory of the file.
    bool matches(std::string_view path, bool isDirectory) const;

private:
    explicit IgnorePattern(std::string_view pattern) : glob_(pattern) {}

    GlobPattern glob_;
    bool isNegated_ = false;
    bool onlyDirectories_ = false;
    bool onlyName_ = false;  // the pattern is held against the last name of the path
};

class IgnoreList {
public:
    void add(std::string_view line);
    // All lines of the file. A file that isn't there or can't be read has none.
    void read(const std::string& path);

    bool empty() const { return patterns_.empty(); }
    // Whether the entry is ignored, as the last pattern that matches has it; nothing if none does.
    std::optional<bool> verdict(std::string_view path, bool isDirectory) const;

private:
    std::vector<IgnorePattern> patterns_;
};

}  // namespace BrevisUI
