// posix_spawn, a pipe and a wait.
#include "Console_ChildProcess.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>

namespace Console {

namespace {

class Pipe {
public:
    Pipe() { good_ = pipe2(ends_.data(), O_CLOEXEC) == 0; }
    ~Pipe() {
        closeEnd(0);
        closeEnd(1);
    }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;

    bool good() const { return good_; }
    int writeEnd() const { return ends_[1]; }
    void closeWriteEnd() { closeEnd(1); }

    std::string readAll() const {
        std::string text;
        std::array<char, 65536> buffer{};
        for (;;) {
            const ssize_t count = read(ends_[0], buffer.data(), buffer.size());
            if (count > 0) text.append(buffer.data(), static_cast<std::size_t>(count));
            if (count == 0 || (count < 0 && errno != EINTR)) return text;
        }
    }

private:
    void closeEnd(std::size_t end) {
        if (good_ && ends_[end] >= 0) close(ends_[end]);
        ends_[end] = -1;
    }

    std::array<int, 2> ends_{-1, -1};
    bool good_ = false;
};

// What the child has of our streams and signals.
class Setup {
public:
    Setup(int output, bool quiet) {
        posix_spawn_file_actions_init(&actions);
        posix_spawnattr_init(&attributes);
        posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
        posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
        if (quiet) posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
        // Signals that we ignore or hold back are none of its business.
        sigset_t signals;
        sigemptyset(&signals);
        posix_spawnattr_setsigmask(&attributes, &signals);
        sigaddset(&signals, SIGPIPE);
        sigaddset(&signals, SIGXFSZ);
        posix_spawnattr_setsigdefault(&attributes, &signals);
        posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK);
    }
    ~Setup() {
        posix_spawnattr_destroy(&attributes);
        posix_spawn_file_actions_destroy(&actions);
    }
    Setup(const Setup&) = delete;
    Setup& operator=(const Setup&) = delete;

    posix_spawn_file_actions_t actions{};
    posix_spawnattr_t attributes{};
};

int waitFor(pid_t child) {
    int status = 0;
    while (waitpid(child, &status, 0) < 0) {
        if (errno != EINTR) return -1;
    }
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

}  // namespace

ChildResult runProgram(const std::vector<std::string>& arguments, bool quiet) {
    std::vector<std::string> texts = arguments;
    std::vector<char*> pointers;
    for (std::string& text : texts) pointers.push_back(text.data());
    pointers.push_back(nullptr);

    Pipe pipe;
    if (!pipe.good()) return {};
    const Setup setup(pipe.writeEnd(), quiet);
    pid_t child = 0;
    if (posix_spawnp(&child, pointers[0], &setup.actions, &setup.attributes, pointers.data(), environ) != 0) return {};
    pipe.closeWriteEnd();
    ChildResult result;
    result.output = pipe.readAll();
    result.status = waitFor(child);
    return result;
}

}  // namespace Console
