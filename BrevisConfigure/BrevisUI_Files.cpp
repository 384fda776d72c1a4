// Disk access of the file job, on a POSIX system.
#include "BrevisUI_Files.h"

#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <memory>

namespace BrevisUI {

namespace {

namespace fs = std::filesystem;

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

constexpr std::size_t readChunk = 1 << 16;
constexpr std::uintmax_t largestRoom = 1 << 28;

// Reads up to the end, at first in a piece of `room` bytes.
bool readRest(std::FILE* stream, std::size_t room, std::string& text) {
    text.clear();
    for (std::size_t old = 0; text.size() == old; room = std::max(readChunk, old)) {
        text.resize(old + room);
        text.resize(old + std::fread(text.data() + old, 1, room, stream));
        old += room;
    }
    return std::ferror(stream) == 0;
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

bool readStream(std::FILE* stream, std::string& text) { return readRest(stream, readChunk, text); }

bool readFile(const std::string& path, std::string& text) {
    const File file(std::fopen(path.c_str(), "rb"));
    std::error_code error;
    // Room for the whole file at once, and for the byte that shows its end, unless its size is beyond belief.
    const std::uintmax_t size = fs::file_size(path, error);
    const std::size_t room = error ? readChunk : static_cast<std::size_t>(std::min(size, largestRoom)) + 1;
    return file && readRest(file.get(), room, text);
}

}  // namespace BrevisUI
