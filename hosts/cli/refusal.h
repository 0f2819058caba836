#pragma once

#include <stdexcept>
#include <string>

#include "cli/exit_status.h"
#include "cli/words.h"

namespace orvane::cli {

/// Ends the program before its first step: what is wrong and where, and how to put it right.
class Refusal : public std::runtime_error {
 public:
    Refusal(const std::string& message, ExitStatus status) : std::runtime_error(message), status_(status) {}
    [[nodiscard]] ExitStatus status() const { return status_; }

 private:
    ExitStatus status_;
};

[[noreturn]] inline void refuseAt(const Place& place, const std::string& message,
                                  ExitStatus status = ExitStatus::Usage) {
    throw Refusal(place.describe() + ": " + message, status);
}

/// Names the word as well: `argument 3: "Bluur" is ...`.
[[noreturn]] inline void refuse(const Word& word, const std::string& message,
                                ExitStatus status = ExitStatus::Usage) {
    refuseAt(word.place, inQuotes(word.text) + " " + message, status);
}

}  // namespace orvane::cli
