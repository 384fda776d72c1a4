// Tells a run that the user wants it to stop.
#pragma once

#include <atomic>
#include <string>
#include <thread>

#include "disk/BrevisUI_SignalPause.h"

namespace Console {

// While it lives, a signal that would stop the program is only noted. Threads that are to be kept from such signals too
// begin after it.
class SignalWatch {
public:
    // What a second signal does.
    enum class Again { Nothing, ExitAtOnce };

    explicit SignalWatch(Again again);
    ~SignalWatch();
    SignalWatch(const SignalWatch&) = delete;
    SignalWatch& operator=(const SignalWatch&) = delete;

    // The number of the first signal that has come, or 0. Any thread may ask.
    int signal() const;

    // The exit status that tells of the signal.
    static int statusFor(int signal) { return 128 + signal; }
    static std::string nameOf(int signal);

private:
    void watch(sigset_t awaited);

    const Again again_;
    const BrevisUI::SignalPause pause_;
    std::atomic<int> signal_ = 0;
    std::atomic<bool> ends_ = false;
    std::thread watcher_;
};

}  // namespace Console
