// Asks git which lines of files have changed. Runs git as a child process; never changes anything.
#pragma once

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

    // The changed lines of each of the files, in the work tree that holds it. git is asked about these files alone or,
    // if they are many, about the directory that they have in common.
    std::vector<BrevisUI::LineSet> linesOf(const std::vector<std::string>& files);
    // The files with changed lines in the work tree that holds the current directory, in no order. Files that git
    // doesn't know are among them unless it ignores them. Paths are relative to the current directory.
    std::vector<std::string> changedFiles();

private:
    using FileLines = std::unordered_map<std::string, BrevisUI::LineSet>;
    using Names = std::vector<std::string>;

    // What git has told of files in a work tree. Names are relative to the top.
    struct WorkTree {
        FileLines changed;
        std::unordered_set<std::string> known;  // to git
        bool isOfIndex = false;                 // which holds no files that git doesn't know

        BrevisUI::LineSet linesOf(const std::string& name) const;
    };

    // With a slash at its end.
    std::string topOf(const std::string& directory);
    // `names` are files or directories below the top; none: the whole tree.
    WorkTree readWorkTree(const std::string& top, const Names& names) const;
    // The object that the changes are counted from.
    std::string resolveRevision(const std::string& top) const;
    FileLines readDiff(const std::string& top, const std::string& object, const Names& names) const;
    static void mapToWorkTree(const std::string& top, const Names& names, FileLines& files);

    const std::string revision_;
    const bool stagedOnly_;
    std::unordered_map<std::string, std::string> topsOfDirectories_;
    std::unordered_set<std::string> tops_;
};

}  // namespace Console
