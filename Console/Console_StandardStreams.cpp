// Standard output and error, on a POSIX system.
#include "Console_StandardStreams.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace Console {

void prepareStandardStreams() {
    for (const int number : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (fcntl(number, F_GETFD) != -1 || errno != EBADF) continue;
        // The lowest free number is the one that is missing. Opened the wrong way round, every use fails.
        const int flags = number == STDIN_FILENO ? O_WRONLY : O_RDONLY;
        if (open("/dev/null", flags) != number) std::abort();
    }
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
}

// Whole texts go out, so there is room for those of many small files at once. A terminal sees each line.
StandardOutput::StandardOutput() {
    constexpr std::size_t room = 1 << 16;
    if (!isTerminal(STDOUT_FILENO)) std::setvbuf(stdout, nullptr, _IOFBF, room);
}

void StandardOutput::noteFailure() {
    if (error_ == 0) error_ = errno == 0 ? EIO : errno;
}

void StandardOutput::write(std::string_view text) {
    if (text.empty()) return;
    errno = 0;
    if (std::fwrite(text.data(), 1, text.size(), stdout) != text.size()) noteFailure();
}

void StandardOutput::flush() {
    errno = 0;
    if (std::fflush(stdout) != 0) noteFailure();
}

int StandardOutput::finish() {
    flush();
    return error_;
}

bool isTerminal(int stream) { return isatty(stream) == 1; }

bool isCapableTerminal(int stream) {
    const char* const terminal = std::getenv("TERM");
    return terminal && std::string_view(terminal) != "dumb" && isTerminal(stream);
}

void writeErrorLine(std::string_view line) {
    std::string text(line);
    text += '\n';
    std::fwrite(text.data(), 1, text.size(), stderr);
}

}  // namespace Console
