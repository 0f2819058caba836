#include "cli/progress_bar.h"

#include <cstdio>

#include <unistd.h>

namespace orvane::cli {
namespace {

constexpr int kCells = 30;

}  // namespace

ProgressBar::ProgressBar(int total) : total_(total), isTerminal_(::isatty(STDERR_FILENO) == 1) {}

void ProgressBar::show(int done, int failed) {
    if (!isTerminal_ || total_ <= 0) return;
    const int filled = int((long long)(done)*kCells / total_);
    const std::string bar =
        std::string(std::size_t(filled), '#') + std::string(std::size_t(kCells - filled), '.');
    const std::string failures = failed > 0 ? ", " + std::to_string(failed) + " failed" : "";
    std::fprintf(stderr, "\r[%s] %d/%d%s\x1b[K", bar.c_str(), done, total_, failures.c_str());
    std::fflush(stderr);
    visible_ = true;
}

void ProgressBar::hide() {
    if (visible_) std::fputs("\r\x1b[K", stderr);
    visible_ = false;
}

}  // namespace orvane::cli
