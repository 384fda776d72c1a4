// A file that is open for as long as the object lives, and reads and writes that don't stop half-way.
#pragma once

#include <string>
#include <string_view>

#include "disk/BrevisUI_FileSystem.h"

namespace BrevisUI {

class OpenFile {
public:
    // Opens the file; `openError` tells whether that failed.
    OpenFile(FileSystem& system, const std::string& path, int flags);
    ~OpenFile() { close(); }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    std::error_code openError() const { return openError_; }
    int number() const { return number_; }

    // From the place that the last read or write has reached.
    std::error_code write(std::string_view text);
    // All that is left.
    std::error_code read(std::string& text);
    // At most `length` bytes at a place of the file, fewer only at its end.
    std::error_code readSome(off_t place, std::size_t length, std::string& text);
    // `length` bytes at a place of the file; an error too where the file is too short.
    std::error_code readAt(off_t place, std::size_t length, std::string& text);

    std::error_code sync();
    // Some file systems tell only now that a write has failed. Closing once more does nothing.
    std::error_code close();

private:
    FileSystem& system_;
    int number_;
    std::error_code openError_;
};

// Opens a file or directory for nothing but syncing it.
std::error_code syncPath(FileSystem& system, const std::string& path);

}  // namespace BrevisUI
