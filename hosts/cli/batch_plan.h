#pragma once

#include <span>
#include <string>
#include <vector>

#include "cli/step.h"
#include "cli/words.h"

namespace orvane::cli {

/// One file of a batch.
struct BatchItem {
    Word input;
    std::string output;
    int format = 0;  ///< the number that SaveImage takes
};

struct BatchPlan {
    std::string folder;  ///< created when the batch starts
    std::vector<BatchItem> items;
    Script script;
    int jobs = 1;  ///< files at a time
};

/// Reads `[--jobs N] [--format F] [--force] OUTDIR FILE... -- STEP...`. Everything that would go wrong for
/// the whole batch is refused here: a line that cannot be understood, steps that write one file for all
/// pictures, two results of one name, a result that would overwrite an input. Throws Refusal.
[[nodiscard]] BatchPlan planBatch(std::span<const Word> words);

}  // namespace orvane::cli
