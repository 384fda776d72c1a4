// Asks git which lines of files have changed. Runs git as a child process; never changes anything.
#pragma once

#include <memory>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "BrevisUI_LineSet.h"

namespace Console {

// The changes are those of the work tree against a revision. If only the staged ones are asked for, they are those of
// the index: their lines are looked up in the work tree, and lines that have changed there since are left out.
// A renamed file has the lines that changed with the renaming. Every line of a file that git doesn't know is new.
// All operations throw a Trn::Exception with a message if git can't tell.
class GitChanges {
public:
    GitChanges(std::string revision, bool stagedOnly) : revision_(std::move(revision)), stagedOnly_(stagedOnly) {}

    // The changed lines of a file, in the work tree that holds it.
    BrevisUI::LineSet linesOf(const std::string& file);
    // The files with changed lines in the work tree that holds the current directory, in no order. Files that git
    // doesn't know are among them unless it ignores them. Paths are relative to the current directory.
    std::vector<std::string> changedFiles();

private:
    using FileLines = std::unordered_map<std::string, BrevisUI::LineSet>;

    // Names are relative to the top.
    struct WorkTree {
        std::string top;  // with a slash at its end
        FileLines changed;
        std::unordered_set<std::string> known;  // to git
    };

    const WorkTree& workTreeOf(const std::string& directory);
    std::string topOf(const std::string& directory);
    WorkTree readWorkTree(const std::string& top) const;
    // The object that the changes are counted from.
    std::string resolveRevision(const std::string& top) const;
    static FileLines readDiff(const std::string& top, const std::string& object);
    static FileLines readStagedDiff(const std::string& top, const std::string& object);

    const std::string revision_;
    const bool stagedOnly_;
    std::unordered_map<std::string, std::string> tops_;                     // by directory
    std::unordered_map<std::string, std::unique_ptr<WorkTree>> workTrees_;  // by top
};

}  // namespace Console
