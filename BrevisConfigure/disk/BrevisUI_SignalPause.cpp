// Blocked signals wait in the kernel, so no handler is needed.
#include "BrevisUI_SignalPause.h"

namespace BrevisUI {

namespace {

constexpr int stopSignals[] = {SIGINT, SIGTERM, SIGHUP};

}  // namespace

SignalPause::SignalPause() : before_() {
    sigset_t stops;
    sigemptyset(&stops);
    for (const int signal : stopSignals) sigaddset(&stops, signal);
    pthread_sigmask(SIG_BLOCK, &stops, &before_);
}

SignalPause::~SignalPause() { pthread_sigmask(SIG_SETMASK, &before_, nullptr); }

bool SignalPause::isStopAsked() {
    sigset_t pending;
    sigemptyset(&pending);
    sigpending(&pending);
    for (const int signal : stopSignals) {
        if (sigismember(&pending, signal) == 1) return true;
    }
    return false;
}

}  // namespace BrevisUI
