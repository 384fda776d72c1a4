// Walks a directory once.
#include "Soak_Sources.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <fstream>
#include <string>
#include <string_view>

namespace Soak {

namespace fs = std::filesystem;

namespace {

constexpr std::array<std::string_view, 10> extensions{".c",   ".cc", ".cpp", ".cxx", ".C",
                                                      ".tcc", ".h",  ".hh",  ".hpp", ".hxx"};

// Headers like `vector` have a name of small letters and an #if or #include near their beginning; scripts, lists and
// make files without an extension have another name or a `#!`.
bool isHeaderWithoutExtension(const fs::path& path) {
    const std::string name = path.filename().string();
    if (!std::all_of(name.begin(), name.end(), [](unsigned char c) { return std::islower(c) || c == '_'; }))
        return false;
    std::ifstream in(path, std::ios::binary);
    std::string head(4096, '\0');
    in.read(head.data(), static_cast<std::streamsize>(head.size()));
    head.resize(static_cast<std::size_t>(in.gcount()));
    const bool isText = head.find('\0') == std::string::npos && !head.starts_with("#!");
    return isText && (head.find("#if") != std::string::npos || head.find("#include") != std::string::npos) &&
           (head.find("//") != std::string::npos || head.find("/*") != std::string::npos);
}

bool isSource(const fs::directory_entry& entry) {
    std::error_code error;
    if (entry.is_symlink(error) || !entry.is_regular_file(error)) return false;
    const std::uintmax_t size = entry.file_size(error);
    if (error || size == 0 || size > largestSource) return false;
    const std::string extension = entry.path().extension().string();
    if (extension.empty()) return isHeaderWithoutExtension(entry.path());
    return std::find(extensions.begin(), extensions.end(), extension) != extensions.end();
}

}  // namespace

std::vector<fs::path> sourcesBelow(const fs::path& directory) {
    std::vector<fs::path> sources;
    std::error_code error;
    const auto options = fs::directory_options::skip_permission_denied;
    for (fs::recursive_directory_iterator at(directory, options, error), end; !error && at != end;
         at.increment(error)) {
        if (isSource(*at)) sources.push_back(at->path());
    }
    std::sort(sources.begin(), sources.end());
    return sources;
}

}  // namespace Soak
