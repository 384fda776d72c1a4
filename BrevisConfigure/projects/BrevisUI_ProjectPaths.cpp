// Macros, backslashes and wildcards.
#include "projects/BrevisUI_ProjectPaths.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <filesystem>

#include "files/BrevisUI_GlobPattern.h"

namespace BrevisUI {

namespace {

namespace fs = std::filesystem;

std::string lowerCase(std::string_view text) {
    std::string lower(text);
    std::ranges::transform(lower, lower.begin(), [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return lower;
}

std::string withSlashes(std::string_view path) {
    std::string result(path);
    std::ranges::replace(result, '\\', '/');
    return result;
}

// Such a path comes from a system with drives; it stands for no file here, but relative it isn't.
bool hasDrive(std::string_view path) {
    return path.size() > 1 && path[1] == ':' && std::isalpha(static_cast<unsigned char>(path[0]));
}

bool hasWildcard(std::string_view path) { return path.find_first_of("*?") != std::string_view::npos; }

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

std::vector<std::string> expandWildcards(const std::string& pattern) {
    const std::size_t slash = pattern.rfind('/', pattern.find_first_of("*?"));
    const bool deep = pattern.find_first_of('/', slash + 1) != std::string::npos || pattern.ends_with("**");
    const GlobPattern glob(asGlob(pattern));
    std::vector<std::string> paths = filesBelow(pattern.substr(0, slash + 1), deep);
    std::erase_if(paths, [&](const std::string& path) { return !glob.matches(path); });
    std::ranges::sort(paths);
    return paths;
}

}  // namespace

ProjectPaths::ProjectPaths(const std::string& projectFile)
    : directory_((fs::path(fullPath(fs::current_path().string(), projectFile)).parent_path() / "").string()) {}

void ProjectPaths::define(std::string_view name, std::string value) {
    values_.insert_or_assign(lowerCase(name), std::move(value));
}

std::string ProjectPaths::expand(std::string_view text) const {
    std::string result;
    for (std::size_t begin; (begin = text.find("$(")) != std::string_view::npos;) {
        const std::size_t end = text.find(')', begin);
        if (end == std::string_view::npos) break;
        const std::string name(text.substr(begin + 2, end - begin - 2));
        const auto found = values_.find(lowerCase(name));
        const char* variable = std::getenv(name.c_str());
        result.append(text.substr(0, begin));
        if (found != values_.end()) {
            result.append(found->second);
        } else {
            result.append(variable ? std::string_view(variable) : text.substr(begin, end + 1 - begin));
        }
        text.remove_prefix(end + 1);
    }
    return result.append(text);
}

std::string ProjectPaths::resolve(std::string_view path) const {
    const std::string slashed = withSlashes(path);
    return hasDrive(slashed) ? slashed : fullPath(directory_, slashed);
}

std::vector<std::string> ProjectPaths::find(std::string_view path) const {
    const std::string resolved = resolve(path);
    return hasWildcard(path) ? expandWildcards(resolved) : std::vector{resolved};
}

// Behind a symbolic link to a directory, ".." leads to where the link's target stands.
std::string fullPath(const std::string& directory, const std::string& path) {
    const fs::path full = fs::path(directory) / path;
    const fs::path normal = full.lexically_normal();
    std::error_code error;
    const bool isOther = fs::exists(full, error) && !fs::equivalent(full, normal, error);
    return (isOther ? full : normal).string();
}

}  // namespace BrevisUI
