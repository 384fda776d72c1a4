// The line at the bottom of a terminal that tells how far a run has come.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>

namespace Console {

// How far a run has come.
struct RunProgress {
    std::size_t files = 0, allFiles = 0;
    std::uint64_t bytes = 0, allBytes = 0;
};

// "12 of 400 files, 1.8 MB/s, 0:25 left". What can't be told yet is left out.
std::string progressText(const RunProgress& progress, std::chrono::duration<double> time);

// On standard error, where nothing else may be written while the line stands.
class ProgressLine {
public:
    using Clock = std::chrono::steady_clock;

    // Without a terminal that can do it, nothing is ever shown.
    ProgressLine();
    ~ProgressLine() { erase(); }
    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;

    bool isWanted() const { return isWanted_; }
    void disable();
    // Shows it, unless something was shown a moment ago or the run has only begun.
    void update(const RunProgress& progress);
    void update(const std::string& text);
    // Takes the line away, if it is there.
    void erase();

private:
    bool isDue() const;
    void show(const std::string& text);

    bool isWanted_;
    bool isShown_ = false;
    const Clock::time_point start_ = Clock::now();
    Clock::time_point next_;
};

}  // namespace Console
