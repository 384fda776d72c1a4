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

    // Those that are put off; not those that the program was told to ignore, as nohup does.
    const sigset_t& pausedSignals() const { return stops_; }
    // Whether one of them has come and waits, if nobody else takes it.
    bool isStopAsked() const;

private:
    sigset_t stops_;
    sigset_t before_;
};

}  // namespace BrevisUI
