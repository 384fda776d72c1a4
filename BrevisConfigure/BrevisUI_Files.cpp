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

bool readStream(std::FILE* stream, std::string& text) {
    text.clear();
    std::size_t count = 0;
    do {
        const std::size_t old = text.size();
        if (text.capacity() < old + readChunk) text.reserve(2 * old + readChunk);
        text.resize(old + readChunk);
        count = std::fread(text.data() + old, 1, readChunk, stream);
        text.resize(old + count);
    } while (count == readChunk);
    return std::ferror(stream) == 0;
}

bool readFile(const std::string& path, std::string& text) {
    const File file(std::fopen(path.c_str(), "rb"));
    std::error_code error;
    // Room for the whole file at once, unless its size is beyond belief.
    const std::uintmax_t size = fs::file_size(path, error);
    if (!error) text.reserve(static_cast<std::size_t>(std::min(size, largestRoom)) + readChunk);
    return file && readStream(file.get(), text);
}

}  // namespace BrevisUI
