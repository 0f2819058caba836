#include "cli/step_refusals.h"

#include "cli/member_help.h"
#include "cli/nearest_name.h"
#include "cli/picture_formats.h"
#include "cli/values.h"

namespace orvane::cli {
namespace {

std::string countText(std::size_t count) {
    return count == 0 ? "no arguments" : count == 1 ? "1 argument" : std::to_string(count) + " arguments";
}

}  // namespace

std::string usageOf(const Step& step) {
    if (step.isOption) return "  usage: -o FILE\n";
    return step.member != nullptr ? usageOf(*step.member) : usageOf(*step.windowStep);
}

void refuseCount(const Step& step, std::size_t expected, std::size_t given) {
    const std::string follow = given == 0   ? "none follows"
                               : given == 1 ? "only 1 follows"
                                            : "only " + std::to_string(given) + " follow";
    refuse(step.word, "takes " + countText(expected) + ", but " + follow +
                          (step.word.place.file ? " on its line\n" : "\n") + usageOf(step));
}

void refuseArgument(const Step& step, const Word& word, const Parameter& parameter) {
    refuse(word, std::string("is not ") + expectedForm(parameter.type) + ", which " + step.word.text +
                     " takes as " + parameter.name + "\n" + usageOf(step));
}

void refuseSurplus(const Word& word, const Step& before) {
    const bool writesBytes = before.fileUse == FileUse::WritesBytes;
    const std::size_t takes = before.isOption                     ? 1
                              : before.kind == InvokeKind::Method ? before.arguments.size() + writesBytes
                                                                  : 0;
    refuse(word, "is one argument too many: " + before.word.text + " (" + before.word.place.describe() +
                     ") takes " + countText(takes) + "\n" + usageOf(before));
}

void refuseUnknown(const Word& word, std::string_view name) {
    const std::string_view nearest = nearestStepName(name);
    std::string remedy = "\"orvane members\" lists the members, \"orvane help\" the other steps";
    if (!nearest.empty()) {
        remedy = "did you mean " + std::string(nearest) + "?";
    } else if (formatOfPath(word.text) || extensionOf(word.text) == ".webp") {
        remedy = "to load a picture write LoadImage FILE";
    }
    refuse(word, "is not a step; " + remedy);
}

}  // namespace orvane::cli
