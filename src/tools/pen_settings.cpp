#include "tools/pen_settings.h"

#include <cstddef>
#include <iterator>

namespace orvane {
namespace {

// Dashes and gaps for a pen of width 1. The entries are scaled by the width here and, as every pattern is,
// once more when the pen draws: dashes grow with the square of the width.
constexpr DashPattern kDashes[] = {
    {}, {{4, 1}, 2}, {{2, 1}, 2}, {{4, 1, 2, 1}, 4}, {{4, 1, 2, 1, 2, 1}, 6},
};

}  // namespace

std::optional<Pen> PenSettings::current() const noexcept {
    if (dashStyle < 0 || std::size_t(dashStyle) >= std::size(kDashes)) return std::nullopt;
    Pen pen(colour, width);
    pen.dash = kDashes[dashStyle];
    for (int i = 0; i < pen.dash.count; ++i) pen.dash.lengths[std::size_t(i)] *= width;
    return pen;
}

}  // namespace orvane
