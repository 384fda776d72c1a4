// Tells which entries of a directory tree are to be left out: by patterns of the command line, by .corvaneignore files
// and, in a git work tree, by what git ignores. It reads those files, each once, and nothing else.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "files/BrevisUI_IgnoreList.h"

namespace BrevisUI {

// All patterns have the syntax of .gitignore. The strongest source that has a matching pattern decides:
//   1. the patterns given as options, relative to the root;
//   2. .corvaneignore files, from the directory of the entry up to that of the file system, the nearest first;
//   3. in a git work tree: .gitignore files from the directory of the entry up to the top of the work tree, the nearest
//      first, then .git/info/exclude, then the user's own file of patterns.
// Within one file the last matching pattern decides; a negated one takes the entry back in. Below an ignored directory
// everything is ignored.
class IgnoreRules {
public:
    struct Options {
        std::vector<std::string> excludes;
        bool corvaneIgnoreFiles = true;
        bool gitIgnoreFiles = true;
        // The user's patterns for all work trees; empty for none.
        std::string userGitIgnore = defaultUserGitIgnore();
    };

    // The root is what the user named: neither it nor a directory above it is ever ignored, though the files in those
    // directories count for what is below it.
    IgnoreRules(const std::string& root, Options options);
    IgnoreRules(const IgnoreRules&) = delete;
    IgnoreRules& operator=(const IgnoreRules&) = delete;

    // Entries below the root and elsewhere may be asked for, in any order.
    bool isIgnored(const std::string& path, bool isDirectory);

    // Where git looks if it isn't configured: git/ignore in $XDG_CONFIG_HOME, or else in .config of $HOME.
    static std::string defaultUserGitIgnore();

private:
    // A directory with what stands in it.
    struct Scope {
        const Scope* parent = nullptr;
        std::string head;  // the path with a slash at its end
        bool isIgnored = false;
        bool isTop = false;  // of a work tree
        bool inWorkTree = false;
        IgnoreList corvane, git;
        IgnoreList gitExclude;  // of the work tree whose top this is
    };

    const Scope& scopeOf(const std::string& directory);
    std::unique_ptr<Scope> makeScope(const std::string& directory);
    void readFiles(Scope& scope) const;
    void readWorkTree(Scope& scope) const;
    // Whether the root is this directory or below it.
    bool isAboveRoot(const std::string& head) const { return root_.starts_with(head); }
    bool isIgnoredIn(const Scope& scope, std::string_view path, bool isDirectory) const;
    static std::optional<bool> corvaneVerdict(const Scope& scope, std::string_view path, bool isDirectory);
    static std::optional<bool> gitVerdict(const Scope& scope, std::string_view path, bool isDirectory);

    std::string root_;  // with a slash at its end
    Options options_;
    IgnoreList excludes_;
    std::unordered_map<std::string, std::unique_ptr<Scope>> scopes_;  // by directory, without a slash at the end
};

}  // namespace BrevisUI
