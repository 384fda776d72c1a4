// A carriage return goes back to the begin of the line; what stood there is erased by the terminal.
#include "Console_ProgressLine.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <array>
#include <cstdio>

#include "Console_StandardStreams.h"

namespace Console {

namespace {

using namespace std::chrono_literals;
using Seconds = std::chrono::duration<double>;

// A short run shows nothing, and a long one doesn't spend its time on showing.
constexpr auto firstDelay = 300ms, delay = 100ms;
constexpr const char* eraseLine = "\r\x1b[K";

// A job in the background must not write over the line that is being typed.
bool isInForeground() { return tcgetpgrp(STDERR_FILENO) == getpgrp(); }

std::size_t terminalWidth() {
    winsize size{};
    return ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col : 80;
}

template <class... Numbers>
std::string printed(const char* pattern, Numbers... numbers) {
    std::array<char, 80> text{};
    std::snprintf(text.data(), text.size(), pattern, numbers...);
    return text.data();
}

std::string speedText(double speed) {
    constexpr double kilo = 1e3, mega = 1e6;
    return speed < mega ? printed(", %.0f kB/s", speed / kilo) : printed(", %.1f MB/s", speed / mega);
}

std::string timeText(double seconds) {
    const auto whole = static_cast<long>(seconds + 0.5);
    constexpr long minute = 60, hour = 3600;
    if (whole < hour) return printed(", %ld:%02ld left", whole / minute, whole % minute);
    return printed(", %ld:%02ld:%02ld left", whole / hour, whole % hour / minute, whole % minute);
}

}  // namespace

std::string progressText(const RunProgress& progress, Seconds time) {
    std::string text = std::to_string(progress.files) + " of " + std::to_string(progress.allFiles) + " files";
    if (progress.bytes == 0 || time.count() <= 0) return text;
    const double speed = static_cast<double>(progress.bytes) / time.count();
    text += speedText(speed);
    // A file may have grown since its size was asked for.
    if (progress.allBytes < progress.bytes) return text;
    return text + timeText(static_cast<double>(progress.allBytes - progress.bytes) / speed);
}

ProgressLine::ProgressLine() : isWanted_(isCapableTerminal(STDERR_FILENO)), next_(start_ + firstDelay) {}

void ProgressLine::disable() {
    erase();
    isWanted_ = false;
}

void ProgressLine::update(const RunProgress& progress) {
    if (isDue()) show(progressText(progress, Clock::now() - start_));
}

void ProgressLine::update(const std::string& text) {
    if (isDue()) show(text);
}

bool ProgressLine::isDue() const { return isWanted_ && Clock::now() >= next_ && isInForeground(); }

void ProgressLine::show(const std::string& text) {
    next_ = Clock::now() + delay;
    // A line that is cut in two could not be erased.
    std::fputs((eraseLine + text.substr(0, terminalWidth() - 1)).c_str(), stderr);
    isShown_ = true;
}

void ProgressLine::erase() {
    if (isShown_) std::fputs(eraseLine, stderr);
    isShown_ = false;
}

}  // namespace Console
