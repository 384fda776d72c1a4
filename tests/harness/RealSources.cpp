// Reads the package manager's lists of files.
#include "RealSources.h"

#include <fstream>
#include <set>

namespace Harness {

namespace fs = std::filesystem;

namespace {

bool isSource(const fs::path& path) {
    static const std::set<std::string> extensions{"", ".c", ".cc", ".cpp", ".h", ".hh", ".hpp", ".tcc"};
    const std::string folder = path.string();
    const bool named = folder.starts_with("/usr/include/") || folder.starts_with("/usr/src/");
    return named && extensions.contains(path.extension().string()) && fs::is_regular_file(path) &&
           !fs::is_symlink(path);
}

}  // namespace

std::vector<fs::path> sourcesOf(const std::string& package) {
    std::vector<fs::path> sources;
    const fs::path lists = "/var/lib/dpkg/info";
    if (!fs::exists(lists)) return sources;
    for (const fs::directory_entry& entry : fs::directory_iterator(lists)) {
        const std::string name = entry.path().filename().string();
        const bool ofPackage =
            name == package + ".list" || (name.starts_with(package + ":") && name.ends_with(".list"));
        if (!ofPackage) continue;
        std::ifstream list(entry.path());
        for (std::string line; std::getline(list, line);) {
            if (isSource(line)) sources.emplace_back(line);
        }
    }
    return sources;
}

}  // namespace Harness
