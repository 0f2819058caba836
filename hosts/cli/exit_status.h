#pragma once

#include <algorithm>

namespace orvane::cli {

/// What the program tells its caller. When several apply, the highest one counts.
enum class ExitStatus : int {
    Done = 0,
    AnsweredFalse = 1,  ///< a member answered false; the other steps ran
    Usage = 2,          ///< the line cannot be understood; nothing ran
    Input = 3,          ///< something to be read is missing or unreadable
    Output = 4,         ///< something could not be written
};

constexpr ExitStatus worse(ExitStatus a, ExitStatus b) { return std::max(a, b); }

}  // namespace orvane::cli
