// Counts what becomes of the files of a run.
#pragma once

#include <chrono>
#include <cstddef>
#include <string>

namespace Console {

enum class FileFate {
    Formatted,  // or, where nothing is written, would change
    Unchanged,
    Refused,  // its text can't be formatted
    Failed,   // it can't be read or written, or its scheme is bad
};

class RunSummary {
public:
    void add(FileFate fate) { ++countOf(fate); }
    // For a file that was added as formatted and could not be written after all.
    void takeBackFormatted();
    std::size_t formatted() const { return formatted_; }
    bool hasTrouble() const { return refused_ + failed_ > 0; }
    std::size_t total() const { return formatted_ + unchanged_ + refused_ + failed_; }

    // So many files and directories were left out for being write-protected.
    void setProtected(std::size_t count) { protected_ = count; }

    // "3 files formatted, 1 unchanged, 0 refused, 2 failed in 0.41 s", and if there were any, "; 4 left out,
    // write-protected". `writes` tells whether formatted files are written, or only would change.
    std::string text(bool writes, std::chrono::duration<double> time) const;

private:
    std::size_t& countOf(FileFate fate);

    std::size_t formatted_ = 0, unchanged_ = 0, refused_ = 0, failed_ = 0, protected_ = 0;
};

}  // namespace Console
