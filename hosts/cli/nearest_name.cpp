#include "cli/nearest_name.h"

#include <algorithm>
#include <vector>

#include "cli/window_steps.h"
#include "control/member_table.h"

namespace orvane::cli {
namespace {

constexpr std::size_t kLongestText = 64;  // no name comes near; what is longer is no misspelling

char lower(char c) { return c >= 'A' && c <= 'Z' ? char(c - 'A' + 'a') : c; }

/// Damerau's distance: row i, column j holds the cost of turning i letters of `a` into j letters of `b`.
std::size_t editDistance(std::string_view a, std::string_view b) {
    const std::size_t columns = b.size() + 1;
    std::vector<std::size_t> cost((a.size() + 1) * columns);
    const auto at = [&](std::size_t i, std::size_t j) -> std::size_t& { return cost[i * columns + j]; };
    for (std::size_t i = 0; i <= a.size(); ++i) at(i, 0) = i;
    for (std::size_t j = 0; j <= b.size(); ++j) at(0, j) = j;
    for (std::size_t i = 1; i <= a.size(); ++i) {
        for (std::size_t j = 1; j <= b.size(); ++j) {
            const bool same = lower(a[i - 1]) == lower(b[j - 1]);
            std::size_t best = std::min(at(i - 1, j), at(i, j - 1)) + 1;
            best = std::min(best, at(i - 1, j - 1) + (same ? 0 : 1));
            const bool swapped =
                i > 1 && j > 1 && lower(a[i - 1]) == lower(b[j - 2]) && lower(a[i - 2]) == lower(b[j - 1]);
            if (swapped) best = std::min(best, at(i - 2, j - 2) + 1);
            at(i, j) = best;
        }
    }
    return at(a.size(), b.size());
}

}  // namespace

std::string_view nearestName(std::string_view text, std::span<const std::string_view> names) {
    if (text.empty() || text.size() > kLongestText) return {};
    std::string_view nearest;
    std::size_t smallest = std::max<std::size_t>(1, text.size() / 3) + 1;
    for (const std::string_view name : names) {
        const std::size_t distance = editDistance(text, name);
        if (distance < smallest) {
            smallest = distance;
            nearest = name;
        }
    }
    return nearest;
}

std::string_view nearestStepName(std::string_view text) {
    std::vector<std::string_view> names;
    for (const Member& member : memberTable()) names.emplace_back(member.name);
    for (const WindowStep& step : windowSteps()) names.emplace_back(step.name);
    return nearestName(text, names);
}

}  // namespace orvane::cli
