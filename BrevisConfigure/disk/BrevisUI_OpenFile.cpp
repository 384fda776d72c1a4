// Reads and writes in as many calls as it takes.
#include "BrevisUI_OpenFile.h"

#include <fcntl.h>

#include <algorithm>
#include <utility>

namespace BrevisUI {

namespace {

// Nobody else may read a file before it has the mode of the file whose place it is to take.
constexpr mode_t modeOfNewFiles = 0600;

}  // namespace

OpenFile::OpenFile(FileSystem& system, const std::string& path, int flags)
    : system_(system), number_(system.open(path, flags, modeOfNewFiles)) {
    if (number_ == -1) openError_ = lastError();
}

std::error_code OpenFile::write(std::string_view text) {
    while (!text.empty()) {
        const ssize_t count = system_.write(number_, text.data(), text.size());
        if (count == -1) return lastError();
        if (count == 0) return std::make_error_code(std::errc::no_space_on_device);
        text.remove_prefix(static_cast<std::size_t>(count));
    }
    return {};
}

std::error_code OpenFile::read(std::string& text) {
    constexpr std::size_t leastChunk = 1 << 12;
    text.clear();
    struct stat status {};
    if (system_.status(number_, status) == -1) return lastError();
    std::size_t filled = 0;
    while (true) {
        // One byte more than the file holds: the end is found without another round.
        const std::size_t expected = static_cast<std::size_t>(std::max<off_t>(status.st_size, 0)) + 1;
        text.resize(std::max(expected, filled + leastChunk));
        const ssize_t count = system_.read(number_, text.data() + filled, text.size() - filled);
        if (count == -1) return lastError();
        filled += static_cast<std::size_t>(count);
        if (count == 0) break;
    }
    text.resize(filled);
    return {};
}

std::error_code OpenFile::readSome(off_t place, std::size_t length, std::string& text) {
    if (system_.seek(number_, place) == -1) return lastError();
    text.resize(length);
    std::size_t filled = 0;
    while (filled < length) {
        const ssize_t count = system_.read(number_, text.data() + filled, length - filled);
        if (count == -1) return lastError();
        if (count == 0) break;
        filled += static_cast<std::size_t>(count);
    }
    text.resize(filled);
    return {};
}

std::error_code OpenFile::readAt(off_t place, std::size_t length, std::string& text) {
    if (const std::error_code error = readSome(place, length, text)) return error;
    return text.size() == length ? std::error_code() : std::make_error_code(std::errc::io_error);
}

std::error_code OpenFile::sync() { return system_.sync(number_) == -1 ? lastError() : std::error_code(); }

std::error_code OpenFile::close() {
    if (number_ == -1) return {};
    return system_.close(std::exchange(number_, -1)) == -1 ? lastError() : std::error_code();
}

std::error_code syncPath(FileSystem& system, const std::string& path) {
    OpenFile file(system, path, O_RDONLY);
    return file.openError() ? file.openError() : file.sync();
}

}  // namespace BrevisUI
