#include "platform/graphics/brush.h"

#include <algorithm>

#include "platform/graphics/brush_rows.h"

namespace orvane {

void brushRow(const Brush& brush, int x, int y, std::size_t count, Argb* colours) noexcept {
    if (const auto* solid = std::get_if<SolidBrush>(&brush)) {
        std::fill_n(colours, count, solid->colour);
    } else if (const auto* hatch = std::get_if<HatchBrush>(&brush)) {
        hatchRow(*hatch, x, y, count, colours);
    } else if (const auto* gradient = std::get_if<GradientBrush>(&brush)) {
        gradientRow(*gradient, x, y, count, colours);
    } else if (const auto* texture = std::get_if<TextureBrush>(&brush)) {
        textureRow(*texture, x, y, count, colours);
    }
}

}  // namespace orvane
