#pragma once

#include "cli/batch_plan.h"
#include "cli/exit_status.h"
#include "cli/printer.h"

namespace orvane::cli {

/// Runs the steps on every file, several at a time, each in a process of its own, so that a file that brings
/// a decoder down fails alone. What each file has to say is printed in the order of the files, then a
/// summary. A request to end the program ends the processes as well; no file is left half-written.
ExitStatus runBatch(const BatchPlan& plan, Printer& printer);

}  // namespace orvane::cli
