// A thread waits for the signals, so that they are seen whatever the others are doing.
#include "Console_SignalWatch.h"

#include <unistd.h>

namespace Console {

namespace {

// Sent to the watcher alone, when there is nothing to watch any more.
constexpr int wakeSignal = SIGUSR1;

}  // namespace

SignalWatch::SignalWatch(Again again) : again_(again) {
    sigset_t wake;
    sigset_t before;
    sigemptyset(&wake);
    sigaddset(&wake, wakeSignal);
    sigset_t awaited = pause_.pausedSignals();
    sigaddset(&awaited, wakeSignal);
    // The watcher begins with the mask of this thread.
    pthread_sigmask(SIG_BLOCK, &wake, &before);
    watcher_ = std::thread([this, awaited] { watch(awaited); });
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
}

SignalWatch::~SignalWatch() {
    ends_ = true;
    pthread_kill(watcher_.native_handle(), wakeSignal);
    watcher_.join();
    // One that the watcher had no time for has been seen by now, or is late.
    const timespec noTime{};
    while (sigtimedwait(&pause_.pausedSignals(), nullptr, &noTime) > 0) continue;
}

// One may have come that the watcher had no time for.
int SignalWatch::signal() const {
    sigset_t pending;
    sigemptyset(&pending);
    if (signal_ == 0) sigpending(&pending);
    for (const int stop : {SIGHUP, SIGINT, SIGTERM}) {
        if (sigismember(&pending, stop) == 1 && sigismember(&pause_.pausedSignals(), stop) == 1) return stop;
    }
    return signal_;
}

std::string SignalWatch::nameOf(int signal) {
    if (signal == SIGINT) return "SIGINT";
    return signal == SIGTERM ? "SIGTERM" : "SIGHUP";
}

void SignalWatch::watch(sigset_t awaited) {
    while (!ends_) {
        int signal = 0;
        if (sigwait(&awaited, &signal) != 0 || signal == wakeSignal) continue;
        int none = 0;
        const bool isFirst = signal_.compare_exchange_strong(none, signal);
        if (!isFirst && again_ == Again::ExitAtOnce) _exit(statusFor(signal));
    }
}

}  // namespace Console
