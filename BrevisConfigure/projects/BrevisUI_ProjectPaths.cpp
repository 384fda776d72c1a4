// Macros, backslashes and wildcards.
#include "projects/BrevisUI_ProjectPaths.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <filesystem>

#include "files/BrevisUI_GlobPattern.h"
#include "files/BrevisUI_TextLines.h"

namespace BrevisUI {

namespace {

namespace fs = std::filesystem;

std::string withSlashes(std::string_view path) {
    std::string result(path);
    std::ranges::replace(result, '\\', '/');
    return result;
}

// Such a path comes from a system with drives; it stands for no file here, but relative it isn't.
bool hasDrive(std::string_view path) {
    return path.size() > 1 && path[1] == ':' && std::isalpha(static_cast<unsigned char>(path[0]));
}

// In project files a bracket is a character of a name.
std::string asGlob(std::string_view pattern) {
    std::string glob;
    for (const char c : pattern) glob.append(c == '[' ? "\\" : "").push_back(c);
    return glob;
}

// The paths of all plain files below the directory, symbolic links not followed. One level only unless `deep`.
std::vector<std::string> filesBelow(const std::string& directory, bool deep) {
    std::vector<std::string> paths;
    std::error_code error;
    fs::recursive_directory_iterator at(directory, fs::directory_options::skip_permission_denied, error), end;
    for (; !error && at != end; at.increment(error)) {
        std::error_code ignored;
        if (!deep) at.disable_recursion_pending();
        if (at->is_regular_file(ignored)) paths.push_back(at->path().string());
    }
    return paths;
}

// `directory` ends with a slash.
std::vector<std::string> expandWildcards(const std::string& directory, const std::string& pattern) {
    const bool deep = pattern.find('/') != std::string::npos || pattern.ends_with("**");
    const GlobPattern glob(asGlob(pattern));
    std::vector<std::string> paths = filesBelow(directory, deep);
    std::erase_if(paths, [&](const std::string& path) { return !glob.matches(path.substr(directory.size())); });
    std::ranges::sort(paths);
    return paths;
}

}  // namespace

ProjectPaths::ProjectPaths(const std::string& projectFile)
    : directory_((fs::path(fullPath(projectFile)).parent_path() / "").string()) {}

void ProjectPaths::define(std::string_view name, std::string value) {
    values_.insert_or_assign(lowerCase(name), std::move(value));
}

std::string ProjectPaths::expand(std::string_view text) const {
    std::string result;
    for (std::size_t begin; (begin = text.find("$(")) != std::string_view::npos;) {
        const std::size_t end = text.find(')', begin);
        if (end == std::string_view::npos) break;
        const std::string_view macro = text.substr(begin, end + 1 - begin);
        result.append(text.substr(0, begin)).append(valueOf(macro.substr(2, macro.size() - 3)).value_or(macro));
        text.remove_prefix(end + 1);
    }
    return result.append(text);
}

std::optional<std::string_view> ProjectPaths::valueOf(std::string_view name) const {
    if (const auto found = values_.find(lowerCase(name)); found != values_.end()) return found->second;
    const char* variable = std::getenv(std::string(name).c_str());
    return variable ? std::optional<std::string_view>(variable) : std::nullopt;
}

std::string ProjectPaths::resolve(std::string_view path) const {
    const std::string slashed = withSlashes(path);
    return hasDrive(slashed) ? slashed : fullPath(directory_, slashed);
}

std::vector<std::string> ProjectPaths::find(std::string_view path) const {
    const std::string slashed = withSlashes(path);
    const std::size_t wildcard = slashed.find_first_of("*?");
    if (wildcard == std::string::npos) return {resolve(path)};
    const std::size_t name = slashed.rfind('/', wildcard) + 1;
    return expandWildcards(resolve(slashed.substr(0, name)), slashed.substr(name));
}

// Behind a symbolic link to a directory, ".." leads to where the link's target stands.
std::string fullPath(const std::string& directory, const std::string& path) {
    const fs::path full = fs::path(directory) / path;
    const fs::path normal = full.lexically_normal();
    if (full.native() == normal.native()) return full.string();
    std::error_code error;
    const bool isOther = fs::exists(full, error) && !fs::equivalent(full, normal, error);
    return (isOther ? full : normal).string();
}

std::string fullPath(const std::string& path) {
    std::error_code error;
    return fullPath(fs::current_path(error).string(), path);
}

}  // namespace BrevisUI
