// The lines of each file that a run may change: those of --lines, or those that have changed since a revision of git.
#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "Console_FormatOptions.h"
#include "Console_GitChanges.h"

namespace Console {

class LineChoice {
public:
    // `options` must outlive the choice.
    explicit LineChoice(const FormatOptions& options)
        : options_(options), changes_(options.gitRevision, options.staged) {}

    // For --git without names: the files to begin with. Throws as GitChanges does.
    std::vector<std::string> changedFiles() { return changes_.changedFiles(); }
    // Finds the lines of each file, and leaves out the files without any. Throws as GitChanges does.
    void narrow(std::vector<std::string>& files);
    // The lines of a file that was among them; null if all may change.
    const BrevisUI::LineSet* linesOf(const std::string& file) const;

private:
    const FormatOptions& options_;
    GitChanges changes_;
    std::unordered_map<std::string, BrevisUI::LineSet> lines_;
};

}  // namespace Console
