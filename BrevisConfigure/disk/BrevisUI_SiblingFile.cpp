// Names are .corvane-PROCESS-TIME.tmp and .corvane-saved-TIME-PROCESS.
#include "BrevisUI_SiblingFile.h"

#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include <charconv>
#include <ctime>
#include <filesystem>

#include "disk/BrevisUI_FileAttributes.h"
#include "disk/BrevisUI_RunStore.h"

namespace BrevisUI {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view prefix = ".corvane-";
constexpr std::string_view suffix = ".tmp";
constexpr std::string_view savedPrefix = ".corvane-saved-";

// Whether the name is that of a temporary file whose process is no more.
bool isStale(std::string_view name) {
    if (!name.starts_with(prefix) || !name.ends_with(suffix)) return false;
    name.remove_prefix(prefix.size());
    pid_t process = 0;
    const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), process);
    if (error != std::errc() || process <= 0 || *end != '-') return false;
    return process == getpid() || (kill(process, 0) == -1 && errno == ESRCH);
}

// A path in the directory of another that this process has not used before.
std::string newPathBeside(const std::string& path) {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    std::string name = parentOf(path) + "/";
    name.append(prefix).append(std::to_string(getpid())).append("-").append(std::to_string(now.tv_sec)).append(".");
    return name.append(std::to_string(now.tv_nsec)).append(suffix);
}

}  // namespace

std::string parentOf(const std::string& path) {
    const std::string directory = fs::path(path).parent_path().string();
    return directory.empty() ? "." : directory;
}

SiblingFile::SiblingFile(FileSystem& system, const std::string& besides)
    : system_(system), path_(newPathBeside(besides)), file_(system, path_, O_CREAT | O_EXCL | O_WRONLY) {}

SiblingFile::~SiblingFile() {
    if (!kept_ && !file_.openError()) system_.remove(path_);
}

std::error_code SiblingFile::write(std::string_view text) {
    return file_.openError() ? file_.openError() : file_.write(text);
}

std::error_code SiblingFile::copyAttributes(int model, const struct stat& status) {
    return BrevisUI::copyAttributes(system_, model, status, file_.number());
}

std::error_code SiblingFile::changeMode(mode_t mode) {
    return system_.changeMode(file_.number(), mode) == -1 ? lastError() : std::error_code();
}

std::vector<std::string> removeStaleSiblings(FileSystem& system, const std::string& directory) {
    std::vector<std::string> removed;
    std::error_code error;
    for (const fs::directory_entry& entry : fs::directory_iterator(directory, error)) {
        if (!isStale(entry.path().filename().string())) continue;
        if (system.remove(entry.path().string()) == 0) removed.push_back(entry.path().string());
    }
    return removed;
}

std::vector<std::string> findSavedTexts(const std::string& directory) {
    std::vector<std::string> found;
    std::error_code error;
    for (const fs::directory_entry& entry : fs::directory_iterator(directory, error)) {
        const bool isOurs = entry.path().filename().string().starts_with(savedPrefix) && !entry.is_symlink(error);
        if (isOurs) found.push_back(entry.path().string());
    }
    return found;
}

std::string newSavedTextsPath(const std::string& path) {
    return parentOf(path) + "/" + std::string(savedPrefix) + RunStore::newRunName();
}

}  // namespace BrevisUI
