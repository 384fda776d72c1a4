// Keeps the patterns of each directory and asks those of an entry's directories in their order.
#include "files/BrevisUI_IgnoreRules.h"

#include <cstdlib>
#include <filesystem>

#include "BrevisUI_Files.h"
#include "files/BrevisUI_TextLines.h"

namespace BrevisUI {

namespace {

namespace fs = std::filesystem;

// Absolute, and without a slash at the end save for the top of the file system, which is empty.
std::string normalPath(const std::string& path) {
    std::error_code error;
    std::string normal = fs::absolute(path, error).lexically_normal().string();
    while (normal.ends_with('/')) normal.pop_back();
    return normal;
}

std::string_view relativeTo(std::string_view head, std::string_view path) {
    return path.substr(path.starts_with(head) ? head.size() : 1);
}

// git itself doesn't follow a link in the place of a .gitignore file.
bool isPlainFile(const std::string& path) {
    std::error_code error;
    return fs::symlink_status(path, error).type() == fs::file_type::regular;
}

// The path that a file holds behind `key`, which may be relative to `base`.
std::string pathInFile(const std::string& file, std::string_view key, const std::string& base) {
    std::string text;
    if (!readFile(file, text)) return {};
    std::string_view line = trimBlanks(text);
    if (!line.starts_with(key)) return {};
    line.remove_prefix(key.size());
    return (fs::path(base) / trimBlanks(line)).string();
}

// The directory that holds the settings of a work tree: .git itself, or, if that is a file, what it leads to, be it a
// submodule's directory or that of the repository which a further work tree belongs to.
std::string gitDirectory(const std::string& head) {
    std::string git = head + ".git";
    if (isDirectory(git)) return git;
    std::string linked = pathInFile(git, "gitdir:", head);
    if (linked.empty()) return linked;
    const std::string common = pathInFile(linked + "/commondir", "", linked);
    return common.empty() ? linked : common;
}

std::string variable(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

}  // namespace

IgnoreRules::IgnoreRules(const std::string& root, Options options)
    : root_(normalPath(root) + "/"), options_(std::move(options)) {
    for (const std::string& pattern : options_.excludes) excludes_.add(pattern);
}

bool IgnoreRules::isIgnored(const std::string& path, bool isDirectory) {
    const std::string normal = normalPath(path);
    if (normal.empty() || isAboveRoot(normal + "/")) return false;
    const Scope& scope = scopeOf(normal.substr(0, normal.rfind('/')));
    return scope.isIgnored || isIgnoredIn(scope, normal, isDirectory);
}

std::string IgnoreRules::defaultUserGitIgnore() {
    if (const std::string settings = variable("XDG_CONFIG_HOME"); !settings.empty()) return settings + "/git/ignore";
    const std::string home = variable("HOME");
    return home.empty() ? home : home + "/.config/git/ignore";
}

const IgnoreRules::Scope& IgnoreRules::scopeOf(const std::string& directory) {
    if (const auto found = scopes_.find(directory); found != scopes_.end()) return *found->second;
    std::unique_ptr<Scope> scope = makeScope(directory);
    return *scopes_.emplace(directory, std::move(scope)).first->second;
}

std::unique_ptr<IgnoreRules::Scope> IgnoreRules::makeScope(const std::string& directory) {
    auto scope = std::make_unique<Scope>();
    scope->head = directory + "/";
    if (!directory.empty()) {
        scope->parent = &scopeOf(directory.substr(0, directory.rfind('/')));
        scope->inWorkTree = scope->parent->inWorkTree;
        scope->isIgnored =
            !isAboveRoot(scope->head) && (scope->parent->isIgnored || isIgnoredIn(*scope->parent, directory, true));
    }
    if (!scope->isIgnored) readFiles(*scope);
    return scope;
}

void IgnoreRules::readFiles(Scope& scope) const {
    if (options_.corvaneIgnoreFiles) scope.corvane.read(scope.head + ".corvaneignore");
    if (!options_.gitIgnoreFiles) return;
    readWorkTree(scope);
    const std::string file = scope.head + ".gitignore";
    if (scope.inWorkTree && isPlainFile(file)) scope.git.read(file);
}

void IgnoreRules::readWorkTree(Scope& scope) const {
    scope.isTop = fileExists(scope.head + ".git");
    if (!scope.isTop) return;
    scope.inWorkTree = true;
    // The later of two matching patterns decides, and the user's are the weaker ones.
    if (!options_.userGitIgnore.empty()) scope.gitExclude.read(options_.userGitIgnore);
    const std::string directory = gitDirectory(scope.head);
    if (!directory.empty()) scope.gitExclude.read(directory + "/info/exclude");
}

bool IgnoreRules::isIgnoredIn(const Scope& scope, std::string_view path, bool isDirectory) const {
    if (const auto verdict = excludes_.verdict(relativeTo(root_, path), isDirectory)) return *verdict;
    if (const auto verdict = corvaneVerdict(scope, path, isDirectory)) return *verdict;
    return gitVerdict(scope, path, isDirectory).value_or(false);
}

std::optional<bool> IgnoreRules::corvaneVerdict(const Scope& scope, std::string_view path, bool isDirectory) {
    for (const Scope* at = &scope; at; at = at->parent) {
        if (const auto verdict = at->corvane.verdict(relativeTo(at->head, path), isDirectory)) return verdict;
    }
    return std::nullopt;
}

std::optional<bool> IgnoreRules::gitVerdict(const Scope& scope, std::string_view path, bool isDirectory) {
    if (!scope.inWorkTree) return std::nullopt;
    for (const Scope* at = &scope;; at = at->parent) {
        const std::string_view relative = relativeTo(at->head, path);
        if (const auto verdict = at->git.verdict(relative, isDirectory)) return verdict;
        if (at->isTop) return at->gitExclude.verdict(relative, isDirectory);
    }
}

}  // namespace BrevisUI
