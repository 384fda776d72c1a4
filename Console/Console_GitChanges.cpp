// The commands that git is given, and what is made of their output.
#include "Console_GitChanges.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <string_view>

#include "BrevisUI_Messages.h"
#include "Console_ChildProcess.h"
#include "Console_GitDiff.h"
#include "Trn_Exception.h"

namespace Console {

namespace fs = std::filesystem;
using BrevisUI::fillIn;

namespace {

using Arguments = std::vector<std::string>;

constexpr std::string_view noWorkTree = "\"%s\" is in no work tree of git.";
constexpr std::string_view noRevision = "git knows no revision \"%s\".";
constexpr std::string_view gitFailed = "git %s has failed.";

// Whatever a user has configured, the output has one form.
const Arguments diffCommand = {
    "diff",   "-U0", "--inter-hunk-context=0",  "--no-color",      "--no-ext-diff", "--no-textconv", "--no-relative",
    "--text", "-M",  "--ignore-submodules=all", "--src-prefix=a/", "--dst-prefix=b/"};

ChildResult askGit(const std::string& directory, const Arguments& arguments, bool quiet = false) {
    Arguments all = {"git", "--no-pager", "--no-optional-locks", "--literal-pathspecs", "-C", directory};
    all.insert(all.end(), arguments.begin(), arguments.end());
    return runProgram(all, quiet);
}

std::string runGit(const std::string& directory, const Arguments& arguments) {
    ChildResult result = askGit(directory, arguments);
    if (result.status != 0) throw Trn::Exception(fillIn(gitFailed, arguments.front()));
    return std::move(result.output);
}

// Of the files named, or below the directories named; of all if there are none.
std::vector<GitFileDiff> diff(const std::string& top, const Arguments& what, const Arguments& names) {
    Arguments arguments = diffCommand;
    arguments.insert(arguments.end(), what.begin(), what.end());
    arguments.emplace_back("--");
    arguments.insert(arguments.end(), names.begin(), names.end());
    return parseGitDiff(runGit(top, arguments));
}

// More names than a command line should have give way to the directory that holds them all.
Arguments fewNames(const Arguments& names) {
    constexpr std::size_t most = 256;
    if (names.size() <= most) return names;
    std::string_view common = names.front();
    for (const std::string& name : names) {
        const auto end = std::ranges::mismatch(common, name).in1;
        common = common.substr(0, static_cast<std::size_t>(end - common.begin()));
    }
    const std::size_t slash = common.rfind('/');
    if (slash == std::string_view::npos) return {};
    return {std::string(common.substr(0, slash))};
}

// One line of output, whatever the line holds.
std::string withoutLineEnd(std::string text) {
    if (text.ends_with('\n')) text.pop_back();
    return text;
}

template <class Take>
void forEachName(std::string_view list, Take take) {
    while (!list.empty()) {
        const std::string_view name = list.substr(0, list.find('\0'));
        take(std::string(name));
        list.remove_prefix(std::min(name.size() + 1, list.size()));
    }
}

std::string canonical(const std::string& path) {
    std::error_code error;
    const std::string result = fs::weakly_canonical(fs::absolute(path), error).string();
    return error ? path : result;
}

// Whether a work tree of its own begins in a directory between `directory` and the top.
bool isNested(const std::string& directory, const std::string& top) {
    for (fs::path at = directory; at.string().size() >= top.size(); at = at.parent_path()) {
        std::error_code error;
        if (fs::exists(at / ".git", error)) return true;
    }
    return false;
}

}  // namespace

BrevisUI::LineSet GitChanges::WorkTree::linesOf(const std::string& name) const {
    if (const auto found = changed.find(name); found != changed.end()) return found->second;
    return isOfIndex || known.contains(name) ? BrevisUI::LineSet() : BrevisUI::LineSet::all();
}

std::vector<BrevisUI::LineSet> GitChanges::linesOf(const std::vector<std::string>& files) {
    std::vector<std::pair<std::string, std::string>> places;  // top and name
    std::map<std::string, Names> names;
    for (const std::string& file : files) {
        const std::string path = canonical(file);
        const std::string top = topOf(fs::path(path).parent_path().string());
        places.emplace_back(top, path.substr(top.size()));
        names[top].push_back(places.back().second);
    }
    std::map<std::string, WorkTree> trees;
    for (const auto& [top, all] : names) trees.emplace(top, readWorkTree(top, fewNames(all)));

    std::vector<BrevisUI::LineSet> lines;
    for (const auto& [top, name] : places) lines.push_back(trees.at(top).linesOf(name));
    return lines;
}

std::vector<std::string> GitChanges::changedFiles() {
    const fs::path here = canonical(".");
    const std::string top = topOf(here.string());
    std::vector<std::string> files;
    const auto add = [&](const std::string& name) {
        const fs::path path = top + name;
        std::error_code error;
        if (fs::symlink_status(path, error).type() == fs::file_type::regular) {
            files.push_back(path.lexically_relative(here).string());
        }
    };
    for (const auto& [name, lines] : readWorkTree(top, {}).changed) add(name);
    if (!stagedOnly_) {
        forEachName(runGit(top, {"ls-files", "--others", "--exclude-standard", "--full-name", "-z"}), add);
    }
    return files;
}

std::string GitChanges::topOf(const std::string& directory) {
    if (const auto found = topsOfDirectories_.find(directory); found != topsOfDirectories_.end()) return found->second;
    // Most directories lie in a work tree that is known, and need no process.
    const auto holds = [&](const std::string& known) {
        return (directory + "/").starts_with(known) && !isNested(directory, known);
    };
    if (const auto known = std::ranges::find_if(tops_, holds); known != tops_.end()) {
        return topsOfDirectories_[directory] = *known;
    }
    const ChildResult result = askGit(directory, {"rev-parse", "--show-toplevel"}, true);
    std::string top = withoutLineEnd(result.output);
    if (result.status != 0 || top.empty()) throw Trn::Exception(fillIn(noWorkTree, directory));
    if (!top.ends_with('/')) top += '/';
    tops_.insert(top);
    return topsOfDirectories_[directory] = top;
}

GitChanges::WorkTree GitChanges::readWorkTree(const std::string& top, const Names& names) const {
    WorkTree tree{readDiff(top, resolveRevision(top), names), {}, stagedOnly_};
    if (stagedOnly_) mapToWorkTree(top, names, tree.changed);
    std::erase_if(tree.changed, [](const auto& entry) { return entry.second.empty(); });
    if (stagedOnly_) return tree;
    Arguments list = {"ls-files", "--full-name", "-z", "--"};
    list.insert(list.end(), names.begin(), names.end());
    forEachName(runGit(top, list), [&](std::string name) { tree.known.insert(std::move(name)); });
    return tree;
}

std::string GitChanges::resolveRevision(const std::string& top) const {
    const auto find = [&](const std::string& name) {
        return askGit(top, {"rev-parse", "--verify", "--quiet", "--end-of-options", name}, true);
    };
    ChildResult result = find(revision_ + "^{commit}");
    // In front of the first commit everything is new.
    const bool isUnborn = result.status != 0 && revision_ == "HEAD";
    if (isUnborn) result = askGit(top, {"hash-object", "-t", "tree", "/dev/null"}, true);
    if (result.status != 0) throw Trn::Exception(fillIn(noRevision, revision_));
    return withoutLineEnd(result.output);
}

GitChanges::FileLines GitChanges::readDiff(const std::string& top, const std::string& object,
                                           const Names& names) const {
    Arguments what = {object};
    if (stagedOnly_) what.insert(what.begin(), "--cached");
    FileLines files;
    bool mayBeRenamed = false;
    for (const GitFileDiff& file : diff(top, what, names)) {
        files[file.name] = newLines(file.hunks);
        mayBeRenamed = mayBeRenamed || (file.isNew && !names.empty());
    }
    if (!mayBeRenamed) return files;
    // What it was called before is not among the names.
    what.insert(what.begin(), "--diff-filter=R");
    for (const GitFileDiff& file : diff(top, what, {})) {
        if (const auto found = files.find(file.name); found != files.end()) found->second = newLines(file.hunks);
    }
    return files;
}

// From the lines of the index.
void GitChanges::mapToWorkTree(const std::string& top, const Names& names, FileLines& files) {
    for (const GitFileDiff& file : diff(top, {"--no-renames"}, names)) {
        if (const auto staged = files.find(file.name); staged != files.end()) {
            staged->second = mapLines(staged->second, file.hunks);
        }
    }
}

}  // namespace Console
