// Blocked signals wait in the kernel, so no handler is needed.
#include "BrevisUI_SignalPause.h"

#include <algorithm>

namespace BrevisUI {

namespace {

constexpr int stopSignals[] = {SIGINT, SIGTERM, SIGHUP};

bool isIgnored(int signal) {
    struct sigaction action {};
    return sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_IGN;
}

}  // namespace

SignalPause::SignalPause() : stops_(), before_() {
    sigemptyset(&stops_);
    for (const int signal : stopSignals) {
        if (!isIgnored(signal)) sigaddset(&stops_, signal);
    }
    pthread_sigmask(SIG_BLOCK, &stops_, &before_);
}

SignalPause::~SignalPause() { pthread_sigmask(SIG_SETMASK, &before_, nullptr); }

bool SignalPause::isStopAsked() const {
    sigset_t pending;
    sigemptyset(&pending);
    sigpending(&pending);
    return std::ranges::any_of(stopSignals, [&](int signal) {
        return sigismember(&stops_, signal) == 1 && sigismember(&pending, signal) == 1;
    });
}

}  // namespace BrevisUI
