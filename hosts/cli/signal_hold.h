#pragma once

#include <csignal>

namespace orvane::cli {

/// While it lives, a request to end the program waits: a file being written becomes whole first, and no
/// temporary file stays behind.
class SignalHold {
 public:
    SignalHold() {
        sigset_t held;
        sigemptyset(&held);
        for (const int signal : {SIGINT, SIGTERM, SIGHUP}) sigaddset(&held, signal);
        sigprocmask(SIG_BLOCK, &held, &before_);
    }
    ~SignalHold() { sigprocmask(SIG_SETMASK, &before_, nullptr); }
    SignalHold(const SignalHold&) = delete;
    SignalHold& operator=(const SignalHold&) = delete;

 private:
    sigset_t before_;
};

}  // namespace orvane::cli
