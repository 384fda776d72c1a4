// The real path of a file, with that of its directory found once.
#include "Console_FileIdentity.h"

#include <filesystem>
#include <system_error>

#include "projects/BrevisUI_ProjectPaths.h"

namespace Console {

namespace fs = std::filesystem;

std::string FileIdentity::of(const std::string& file) {
    std::error_code error;
    const std::size_t slash = file.rfind('/') + 1;
    const std::string name = file.substr(slash);
    const bool isPlain = fs::symlink_status(file, error).type() == fs::file_type::regular && !name.empty();
    if (!isPlain) {
        const std::string path = fs::canonical(file, error).string();
        return error ? BrevisUI::fullPath(file) : path;
    }
    if (lastReal_.empty() || file.compare(0, slash, lastDirectory_) != 0) {
        lastDirectory_ = file.substr(0, slash);
        lastReal_ = fs::canonical(slash == 0 ? "." : lastDirectory_, error).string();
        if (error) return lastReal_.clear(), BrevisUI::fullPath(file);
    }
    return lastReal_ + "/" + name;
}

}  // namespace Console
