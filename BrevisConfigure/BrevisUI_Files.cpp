// Disk access of the file job, on a POSIX system.
#include "BrevisUI_Files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <filesystem>

namespace BrevisUI {

namespace {

namespace fs = std::filesystem;

class Descriptor {
public:
    explicit Descriptor(const char* path) : number_(open(path, O_RDONLY | O_CLOEXEC)) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() {
        if (number_ >= 0) close(number_);
    }

    int number() const { return number_; }

private:
    const int number_;
};

constexpr std::size_t readChunk = 1 << 16;
constexpr std::size_t largestRoom = 1 << 28;

// Adds up to `size` bytes, fewer only at the end. False if reading failed.
bool addBytes(int file, std::size_t size, std::string& text) {
    std::size_t done = text.size();
    const std::size_t end = done + size;
    text.resize(end);
    ssize_t count = 1;
    while (done < end && count != 0) {
        count = read(file, text.data() + done, end - done);
        if (count < 0 && errno != EINTR) break;
        done += static_cast<std::size_t>(std::max<ssize_t>(count, 0));
    }
    text.resize(done);
    return count >= 0;
}

}  // namespace

bool fileExists(const std::string& path) { return access(path.c_str(), F_OK) == 0; }

bool fileIsReadable(const std::string& path) { return access(path.c_str(), R_OK) == 0; }

bool fileIsWritable(const std::string& path) {
    constexpr fs::perms writeBits = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    return !error && (status.permissions() & writeBits) != fs::perms::none && access(path.c_str(), W_OK) == 0;
}

bool isDirectory(const std::string& path) {
    std::error_code error;
    return fs::is_directory(path, error);
}

// A pipe or a device counts as empty here: it has no size, and it can't be written over.
bool hasNoContents(const std::string& path) {
    std::error_code error;
    const std::uintmax_t size = fs::file_size(path, error);
    return error || size == 0;
}

bool readStream(int file, std::string& text) {
    struct stat status {};
    // Room for the whole file at once, and for the byte that shows its end, unless its size is beyond belief.
    const bool isKnown = fstat(file, &status) == 0 && status.st_size > 0;
    std::size_t room = isKnown ? std::min(static_cast<std::size_t>(status.st_size), largestRoom) + 1 : readChunk;
    text.clear();
    std::size_t full = 0;
    do {
        full = text.size() + room;
        if (!addBytes(file, room, text)) return false;
        room = std::max(readChunk, full);
    } while (text.size() == full);
    return true;
}

bool readFile(const std::string& path, std::string& text) {
    const Descriptor file(path.c_str());
    return file.number() >= 0 && readStream(file.number(), text);
}

}  // namespace BrevisUI
