#pragma once

#include "cli/step.h"

namespace orvane::cli {

/// Judges the files that the steps name, before the first step runs: what is read must be there, unless an
/// earlier step writes it, what is written must have a folder, and a file that an earlier step read is
/// overwritten only with --force. Throws Refusal, for reading with status Input, for a missing folder Output.
void checkFiles(const Script& script);

}  // namespace orvane::cli
