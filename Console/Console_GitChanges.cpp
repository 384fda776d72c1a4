// The commands that git is given, and what is made of their output.
#include "Console_GitChanges.h"

#include <filesystem>
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
    Arguments all = {"git", "--no-pager", "--no-optional-locks", "-C", directory};
    all.insert(all.end(), arguments.begin(), arguments.end());
    return runProgram(all, quiet);
}

std::string runGit(const std::string& directory, const Arguments& arguments) {
    ChildResult result = askGit(directory, arguments);
    if (result.status != 0) throw Trn::Exception(fillIn(gitFailed, arguments.front()));
    return std::move(result.output);
}

std::vector<GitFileDiff> diff(const std::string& top, const Arguments& what) {
    Arguments arguments = diffCommand;
    arguments.insert(arguments.end(), what.begin(), what.end());
    arguments.emplace_back("--");
    return parseGitDiff(runGit(top, arguments));
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

BrevisUI::LineSet GitChanges::linesOf(const std::string& file) {
    const std::string path = canonical(file);
    const WorkTree& tree = workTreeOf(fs::path(path).parent_path().string());
    const std::string name = path.substr(tree.top.size());
    if (const auto found = tree.changed.find(name); found != tree.changed.end()) return found->second;
    return stagedOnly_ || tree.known.contains(name) ? BrevisUI::LineSet() : BrevisUI::LineSet::all();
}

std::vector<std::string> GitChanges::changedFiles() {
    const fs::path here = canonical(".");
    const WorkTree& tree = workTreeOf(here.string());
    std::vector<std::string> files;
    const auto add = [&](const std::string& name) {
        const fs::path path = tree.top + name;
        std::error_code error;
        if (fs::symlink_status(path, error).type() == fs::file_type::regular) {
            files.push_back(path.lexically_relative(here).string());
        }
    };
    for (const auto& [name, lines] : tree.changed) add(name);
    if (!stagedOnly_) {
        forEachName(runGit(tree.top, {"ls-files", "--others", "--exclude-standard", "--full-name", "-z"}), add);
    }
    return files;
}

const GitChanges::WorkTree& GitChanges::workTreeOf(const std::string& directory) {
    const std::string top = topOf(directory);
    std::unique_ptr<WorkTree>& tree = workTrees_[top];
    if (!tree) tree = std::make_unique<WorkTree>(readWorkTree(top));
    return *tree;
}

std::string GitChanges::topOf(const std::string& directory) {
    if (const auto found = tops_.find(directory); found != tops_.end()) return found->second;
    // Most directories lie in a work tree that is known, and need no process.
    for (const auto& [top, tree] : workTrees_) {
        if ((directory + "/").starts_with(top) && !isNested(directory, top)) return tops_[directory] = top;
    }
    const ChildResult result = askGit(directory, {"rev-parse", "--show-toplevel"}, true);
    const std::string top = withoutLineEnd(result.output);
    if (result.status != 0 || top.empty()) throw Trn::Exception(fillIn(noWorkTree, directory));
    return tops_[directory] = top.ends_with('/') ? top : top + "/";
}

GitChanges::WorkTree GitChanges::readWorkTree(const std::string& top) const {
    const std::string object = resolveRevision(top);
    WorkTree tree{top, stagedOnly_ ? readStagedDiff(top, object) : readDiff(top, object), {}};
    forEachName(runGit(top, {"ls-files", "--full-name", "-z"}),
                [&](std::string name) { tree.known.insert(std::move(name)); });
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

GitChanges::FileLines GitChanges::readDiff(const std::string& top, const std::string& object) {
    FileLines files;
    for (const GitFileDiff& file : diff(top, {object})) {
        if (BrevisUI::LineSet lines = newLines(file.hunks); !lines.empty()) files[file.name] = std::move(lines);
    }
    return files;
}

GitChanges::FileLines GitChanges::readStagedDiff(const std::string& top, const std::string& object) {
    FileLines files;
    for (const GitFileDiff& file : diff(top, {"--cached", object})) files[file.name] = newLines(file.hunks);
    // From the index to the work tree.
    for (const GitFileDiff& file : diff(top, {"--no-renames"})) {
        if (const auto staged = files.find(file.name); staged != files.end()) {
            staged->second = mapLines(staged->second, file.hunks);
        }
    }
    std::erase_if(files, [](const auto& entry) { return entry.second.empty(); });
    return files;
}

}  // namespace Console
