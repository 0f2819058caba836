#include "platform/graphics/brush.h"

#include <algorithm>

#include "platform/graphics/brush_rows.h"

namespace orvane {
namespace {

struct RowWriter {
    int x, y;
    std::size_t count;
    Argb* colours;

    void operator()(const SolidBrush& brush) const noexcept { std::fill_n(colours, count, brush.colour); }
    void operator()(const HatchBrush& brush) const noexcept { hatchRow(brush, x, y, count, colours); }
    void operator()(const GradientBrush& brush) const noexcept { gradientRow(brush, x, y, count, colours); }
    void operator()(const TextureBrush& brush) const noexcept { textureRow(brush, x, y, count, colours); }
};

}  // namespace

void brushRow(const Brush& brush, int x, int y, std::size_t count, Argb* colours) noexcept {
    std::visit(RowWriter{x, y, count, colours}, brush);
}

}  // namespace orvane
