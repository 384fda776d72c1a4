// The replacement of a file, on a POSIX system.
#include "BrevisUI_FileReplacement.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <string_view>
#include <utility>

namespace BrevisUI {

namespace {

namespace fs = std::filesystem;

constexpr mode_t usualMode = 0666, protectedMode = 0444, permissionBits = 07777;

class Descriptor {
public:
    explicit Descriptor(int number) : number_(number) {}
    ~Descriptor() { close(); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int number() const { return number_; }
    bool isOpen() const { return number_ >= 0; }
    // What the system holds back may fail only now.
    bool close() { return !isOpen() || ::close(std::exchange(number_, -1)) == 0; }

private:
    int number_;
};

// A file of its own in a directory, gone again at the end unless it was renamed. Its short name can't be too long, and
// has no extension by which it could be taken for a scheme.
class TemporaryFile {
public:
    explicit TemporaryFile(const fs::path& directory) : path_(directory), descriptor_(create(path_)) {}
    ~TemporaryFile() {
        if (descriptor_.isOpen() || isPending_) ::unlink(path_.c_str());
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    bool isOpen() const { return descriptor_.isOpen(); }
    bool write(std::string_view text);
    bool setMode(mode_t mode) { return fchmod(descriptor_.number(), mode) == 0; }
    // A file that the superuser writes for its user stays the user's, if that can be had.
    bool setOwner(uid_t user, gid_t group) { return fchown(descriptor_.number(), user, group) == 0; }
    bool flush() { return fsync(descriptor_.number()) == 0 && closeWritten(); }
    bool renameTo(const fs::path& target);

private:
    // Opens a new file, completing its path. Another run may have left one of the same name.
    static int create(fs::path& path);
    bool closeWritten() {
        isPending_ = true;
        return descriptor_.close();
    }

    fs::path path_;
    Descriptor descriptor_;
    bool isPending_ = false;  // closed and not renamed yet
};

int TemporaryFile::create(fs::path& path) {
    constexpr int attempts = 100;
    const fs::path directory = path;
    const std::string stem = ".corvane-" + std::to_string(getpid()) + "-";
    for (int i = 0; i < attempts; ++i) {
        path = directory / (stem + std::to_string(i));
        const int number = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, usualMode);
        if (number >= 0 || errno != EEXIST) return number;
    }
    return -1;
}

bool TemporaryFile::write(std::string_view text) {
    while (!text.empty()) {
        const ssize_t count = ::write(descriptor_.number(), text.data(), text.size());
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) return false;
        text.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

bool TemporaryFile::renameTo(const fs::path& target) {
    if (std::rename(path_.c_str(), target.c_str()) != 0) return false;
    isPending_ = false;
    return true;
}

// Links lead on to the file that is meant, which may stand in another directory.
fs::path resolved(const std::string& path) {
    std::error_code error;
    const fs::path target = fs::canonical(path, error);
    return error ? fs::path(path) : target;
}

bool takeOverPermissions(const fs::path& target, Protection protection, TemporaryFile& file) {
    struct stat old {};
    const bool exists = stat(target.c_str(), &old) == 0;
    if (exists && (old.st_uid != geteuid() || old.st_gid != getegid())) file.setOwner(old.st_uid, old.st_gid);
    if (protection == Protection::WriteProtected) return file.setMode(protectedMode);
    return !exists || file.setMode(old.st_mode & permissionBits);
}

// The new name is on disk only once its directory is. Not every file system can do that, and none loses the file.
void flushDirectory(const fs::path& directory) {
    const Descriptor descriptor(open(directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (descriptor.isOpen()) fsync(descriptor.number());
}

}  // namespace

bool replaceFile(const std::string& path, const std::string& text, Protection protection) {
    const fs::path target = resolved(path);
    const fs::path directory = target.has_parent_path() ? target.parent_path() : fs::path(".");
    TemporaryFile file(directory);
    const bool replaced = file.isOpen() && file.write(text) && takeOverPermissions(target, protection, file) &&
                          file.flush() && file.renameTo(target);
    if (replaced) flushDirectory(directory);
    return replaced;
}

}  // namespace BrevisUI
