// Blocked signals wait in the kernel, so no handler is needed.
#include "BrevisUI_SignalPause.h"

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

}  // namespace BrevisUI
