#include "cli/printer.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

namespace orvane::cli {

void Printer::line(std::string_view text) { this->text(prefix_ + std::string(text) + "\n"); }

void Printer::text(std::string_view text) {
    std::FILE* stream = linesToStandardError_ ? stderr : stdout;
    const bool written = std::fwrite(text.data(), 1, text.size(), stream) == text.size();
    if (!written && stream == stdout) noteFailure();
}

void Printer::bytes(std::span<const std::uint8_t> bytes) {
    if (std::fwrite(bytes.data(), 1, bytes.size(), stdout) != bytes.size()) noteFailure();
}

void Printer::complain(std::string_view text) {
    flush();
    while (!text.empty() && text.back() == '\n') text.remove_suffix(1);
    const std::string line = "orvane: " + prefix_ + std::string(text) + "\n";
    std::fwrite(line.data(), 1, line.size(), stderr);
}

bool Printer::flush() {
    if (std::fflush(stdout) != 0) noteFailure();
    return !failed_;
}

ExitStatus Printer::finish() {
    flush();
    if (!failed_) return ExitStatus::Done;
    if (error_ != EPIPE) complain(std::string("standard output cannot be written: ") + std::strerror(error_));
    return ExitStatus::Output;
}

void Printer::noteFailure() {
    if (!failed_) error_ = errno;
    failed_ = true;
}

}  // namespace orvane::cli
