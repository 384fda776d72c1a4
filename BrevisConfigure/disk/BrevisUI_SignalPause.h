// Puts off the signals by which a user stops a program, for as long as the object lives, so that a run can bring what
// it has begun to an end. One that has come in the meantime acts when the object goes.
#pragma once

#include <signal.h>

namespace BrevisUI {

class SignalPause {
public:
    SignalPause();
    ~SignalPause();
    SignalPause(const SignalPause&) = delete;
    SignalPause& operator=(const SignalPause&) = delete;

    // Whether one of them has come.
    static bool isStopAsked();

private:
    sigset_t before_;
};

}  // namespace BrevisUI
