// Which files a run of corvane-format is about. Lists directories and reads ignore files, projects and lists of names;
// never a source file.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <unordered_set>
#include <vector>

#include "Console_FileIdentity.h"
#include "Console_FormatOptions.h"
#include "Console_LineChoice.h"
#include "files/BrevisUI_IgnoreRules.h"

namespace Console {

class FileSelection {
public:
    // Told what goes wrong, with one of BrevisUI::Severity.
    using Tell = std::function<void(const std::string& text, int severity)>;

    // `options` and `lines` must outlive the selection.
    FileSelection(const FormatOptions& options, LineChoice& lines, Tell tell)
        : options_(options), lines_(lines), tell_(std::move(tell)) {}

    // The files that are named, that a list names and that the projects hold, in this order, and each once. Those below
    // a directory stand in its place, in the order of their names. If changes of git are wanted, the files without any
    // are left out, and without names it is all files with some. None if a list, a project or git's answer can't be
    // read.
    std::vector<std::string> select();
    // Whether something that was named could not be taken, once its message has been sent.
    bool hasFailed() const { return failed_; }
    // The write-protected files and directories that stand below a directory and were not taken, each once.
    std::vector<std::string> protectedEntries() const;

private:
    void fail(const std::string& text);
    // The same for what leaves no files at all.
    void giveUp(const std::string& text);
    void addNamed(const std::string& name);
    void addList();
    void addProjects();
    void addProject(const std::string& path, BrevisUI::IgnoreRules& rules);
    void addChanged();
    void keepChanged();
    void addPath(const std::string& path);
    void addTree(const std::string& directory);
    // The part to which the file belongs depends on its name as seen from the directory.
    void add(const std::string& file, const std::string& directory);
    bool isOfShard(const std::string& file, const std::string& directory) const;

    const FormatOptions& options_;
    LineChoice& lines_;
    const Tell tell_;
    std::vector<std::string> files_;
    FileIdentity identities_;
    std::unordered_set<std::string> known_;         // by identity
    std::map<std::string, std::string> protected_;  // by identity too
    bool failed_ = false;
    bool gaveUp_ = false;
};

}  // namespace Console
