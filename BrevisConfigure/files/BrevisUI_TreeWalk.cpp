// The walk, on a system with permission bits and hidden names.
#include "files/BrevisUI_TreeWalk.h"

#include <unistd.h>

#include <cerrno>
#include <vector>

namespace BrevisUI {

namespace {

namespace fs = std::filesystem;

std::vector<fs::path> list(const std::string& directory, std::error_code& error) {
    std::vector<fs::path> names;
    for (fs::directory_iterator at(directory, error), end; !error && at != end; at.increment(error)) {
        names.push_back(at->path().filename());
    }
    return names;
}

bool mayWrite(const std::string& path, bool onlyReads) {
    constexpr fs::perms writeBits = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
    std::error_code error;
    if ((fs::status(path, error).permissions() & writeBits) == fs::perms::none || error) return false;
    return onlyReads || access(path.c_str(), W_OK) == 0 || errno == EROFS;
}

bool isHidden(const std::string& path) { return path[path.rfind('/') + 1] == '.'; }

}  // namespace

void TreeWalk::walk(const std::string& directory, const FileAction& action) const {
    const std::string head = directory.ends_with('/') ? directory : directory + "/";
    std::error_code error;
    for (const fs::path& name : list(directory, error)) {
        const std::string path = head + name.string();
        std::error_code ignored;
        const fs::file_type type = fs::symlink_status(path, ignored).type();
        if (isLeftOut(path, type)) continue;
        if (hooks_.isCancelled && hooks_.isCancelled()) return;
        if (type == fs::file_type::directory) {
            walk(path, action);
        } else if (extensions_.holds(path)) {
            action(path);
        }
    }
    if (error && hooks_.onFailure) hooks_.onFailure(directory, error);
}

bool TreeWalk::isLeftOut(const std::string& path, fs::file_type type) const {
    if (type != fs::file_type::regular && type != fs::file_type::directory) return true;
    if (isHidden(path)) return true;
    if (hooks_.leaveOut && hooks_.leaveOut(path, type == fs::file_type::directory)) return true;
    if (mayWrite(path, hooks_.onlyReads)) return false;
    tellProtected(path, type);
    return true;
}

void TreeWalk::tellProtected(const std::string& path, fs::file_type type) const {
    if (hooks_.onProtected && (type == fs::file_type::directory || extensions_.holds(path))) hooks_.onProtected(path);
}

}  // namespace BrevisUI
