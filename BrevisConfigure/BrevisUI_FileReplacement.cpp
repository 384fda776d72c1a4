// The replacement of a file, step by step: a sibling with the text and the attributes, a sync, the name, a sync.
#include "BrevisUI_FileReplacement.h"

#include <fcntl.h>

#include <filesystem>
#include <system_error>

#include "disk/BrevisUI_SiblingFile.h"

namespace BrevisUI {

namespace {

constexpr mode_t usualMode = 0666, protectedMode = 0444;

// Links lead on to the file that is meant, which may stand in another directory.
std::string resolved(const std::string& path) {
    std::error_code error;
    const std::filesystem::path target = std::filesystem::canonical(path, error);
    return error ? path : target.string();
}

// The mode that the system gives a new file. It can only be asked for by setting it.
mode_t modeOfNewFile() {
    const mode_t mask = umask(0);
    umask(mask);
    return usualMode & ~mask;
}

std::error_code takeOverAttributes(FileSystem& system, const std::string& target, Protection protection,
                                   SiblingFile& file) {
    const OpenFile old(system, target, O_RDONLY);
    struct stat status {};
    std::error_code error;
    if (old.openError() || system.status(old.number(), status) == -1)
        error = file.changeMode(modeOfNewFile());
    else
        error = file.copyAttributes(old.number(), status);
    return error || protection == Protection::Usual ? error : file.changeMode(protectedMode);
}

}  // namespace

bool replaceFile(const std::string& path, const std::string& text, Protection protection) {
    FileSystem system;
    const std::string target = resolved(path);
    SiblingFile file(system, target);
    const bool isWhole = !file.write(text) && !takeOverAttributes(system, target, protection, file) && !file.close() &&
                         !syncPath(system, file.path());
    if (!isWhole || system.rename(file.path(), target) == -1) return false;
    file.keep();
    // The new name is on the disk only once its directory is. Not every file system can do that, and none loses the
    // file.
    syncPath(system, parentOf(target));
    return true;
}

}  // namespace BrevisUI
