// Turns what a project file says about files into full paths. Such files write paths with backslashes, relative to
// themselves, with macros such as $(ProjectDir) and at times with wildcards.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace BrevisUI {

class ProjectPaths {
public:
    // Relative paths start at the directory of the file.
    explicit ProjectPaths(const std::string& projectFile);

    // The directory of the project file, a slash at its end.
    const std::string& directory() const { return directory_; }

    // The case of names doesn't matter. A later value takes the place of an earlier one.
    void define(std::string_view name, std::string value);
    // The text with the values in the place of $(NAME), for names that aren't defined those of the environment. What
    // is unknown stays as it stands.
    std::string expand(std::string_view text) const;

    // The full path, for a path with slashes or backslashes.
    std::string resolve(std::string_view path) const;
    // As `resolve`, or the paths of the files that match if the path holds wildcards: * and ? within a name, ** for
    // any number of directories. In ascending order; none if nothing matches.
    std::vector<std::string> find(std::string_view path) const;

private:
    std::optional<std::string_view> valueOf(std::string_view name) const;

    std::string directory_;
    std::map<std::string, std::string, std::less<>> values_;  // by the name in lower case
};

// `path` as seen from `directory`, without "." and with ".." only where leaving it out would name another file.
std::string fullPath(const std::string& directory, const std::string& path);
// As seen from the working directory.
std::string fullPath(const std::string& path);

}  // namespace BrevisUI
