#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "cli/exit_status.h"

namespace orvane::cli {

/// Everything that the program says: results on standard output, complaints on standard error, in the order
/// in which they were said.
class Printer {
 public:
    Printer() = default;
    /// Puts "subject: " before every line and complaint.
    explicit Printer(const std::string& subject) : prefix_(subject + ": ") {}

    /// Standard output is kept for the bytes of arrays; lines go to standard error.
    void keepOutputForBytes() { linesToStandardError_ = true; }

    void line(std::string_view text);
    /// Text as it stands, already in lines.
    void text(std::string_view text);
    void bytes(std::span<const std::uint8_t> bytes);
    void complain(std::string_view text);

    /// Hands what was said so far to the system. False when standard output no longer takes it.
    bool flush();
    /// The last word: Output when anything was lost, with a complaint unless the reader just went away.
    ExitStatus finish();

 private:
    void noteFailure();

    std::string prefix_;
    bool linesToStandardError_ = false;
    bool failed_ = false;
    int error_ = 0;  ///< of the first failed write
};

}  // namespace orvane::cli
