#pragma once

#include <optional>
#include <span>
#include <vector>

#include <orvane/dispatch_types.h>
#include <orvane/value.h>

#include "cli/window_steps.h"
#include "cli/words.h"
#include "control/member.h"

namespace orvane::cli {

/// One thing to do, already checked: a call, put or get of a member, or a window step.
struct Step {
    Word word;                               ///< as it was written, for messages
    const Member* member = nullptr;          ///< null: a window step
    const WindowStep* windowStep = nullptr;  ///< null: a member
    InvokeKind kind = InvokeKind::Method;
    std::vector<Value> arguments;  ///< None where bytes are read from `file` when the step runs
    FileUse fileUse = FileUse::None;
    Word file;              ///< the file that fileUse speaks of
    bool isOption = false;  ///< `-o FILE`: SaveImage, which must not harm the pictures that were read

    /// Whether the step reads standard input or writes bytes to standard output.
    [[nodiscard]] bool usesStandardStream() const {
        return file.text == "-" && (fileUse == FileUse::ReadsBytes || fileUse == FileUse::WritesBytes);
    }
};

/// A whole line of steps, in the order in which they run.
struct Script {
    std::vector<Step> steps;
    bool force = false;                  ///< `--force`: pictures that were read may be overwritten
    std::optional<Word> standardInput;   ///< what reads standard input
    bool bytesToStandardOutput = false;  ///< then everything else is printed to standard error
};

}  // namespace orvane::cli
