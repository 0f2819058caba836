#pragma once

#include <string>

namespace orvane::cli {

/// A bar on the terminal that standard error is connected to; nothing when it is connected to anything else.
class ProgressBar {
 public:
    explicit ProgressBar(int total);
    ~ProgressBar() { hide(); }

    void show(int done, int failed);
    /// Clears the line for other words; the next show draws the bar again.
    void hide();

 private:
    int total_;
    bool isTerminal_;
    bool visible_ = false;
};

}  // namespace orvane::cli
