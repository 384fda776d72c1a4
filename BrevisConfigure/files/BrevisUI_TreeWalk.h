// Finds the source files below a directory. It reads listings and attributes and nothing else.
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <system_error>
#include <utility>

#include "files/BrevisUI_ExtensionList.h"

namespace BrevisUI {

// Depth first, in the order of the system's listings, a subdirectory at the place where it is listed. Entries that are
// write-protected, hidden, symbolic links, or neither plain files nor directories stay out, so that no walk can go
// round in a circle. A file is not write-protected because all of its file system is. The directory that the walk begins
// with may be anything that can be listed.
class TreeWalk {
public:
    struct Hooks {
        // Whether an entry that could be taken stays out. A directory that stays out isn't entered.
        std::function<bool(const std::string& path, bool isDirectory)> leaveOut;
        // A source file or a directory that stays out for being write-protected, and for nothing else.
        std::function<void(const std::string& path)> onProtected;
        // Asked before each entry that isn't left out; once it says true, it has to go on doing so.
        std::function<bool()> isCancelled;
        // A directory that couldn't be listed, or not to its end. What was listed is walked all the same.
        std::function<void(const std::string& directory, const std::error_code& error)> onFailure;
        // No file will be written. Only what nobody may write counts as write-protected then.
        bool onlyReads = false;
    };
    using FileAction = std::function<void(const std::string& path)>;

    explicit TreeWalk(ExtensionList extensions) : extensions_(std::move(extensions)) {}
    TreeWalk(ExtensionList extensions, Hooks hooks) : extensions_(std::move(extensions)), hooks_(std::move(hooks)) {}

    // Calls `action` for each source file. It may change and make files: a directory is listed before its first entry
    // is looked at.
    void walk(const std::string& directory, const FileAction& action) const;

private:
    bool isLeftOut(const std::string& path, std::filesystem::file_type type) const;
    void tellProtected(const std::string& path, std::filesystem::file_type type) const;

    ExtensionList extensions_;
    Hooks hooks_;
};

}  // namespace BrevisUI
