#pragma once

#include <orvane/pixels.h>

#include <vector>

#include "platform/graphics/brush.h"
#include "platform/graphics/coverage_row.h"

namespace orvane {

/// Lays a brush over a raster wherever a shape covers it, by straight-alpha source-over.
class BrushPainter final : public CoverageSink {
 public:
    /// The brush must outlive the painter. Throws std::bad_alloc; painting does not.
    BrushPainter(MutablePixelView target, const Brush& brush);

    void paint(int x, int y, const std::uint8_t* coverage, int count) noexcept override;
    void paintWhole(int x, int y, int count) noexcept override;

    /// The part of left <= x < right, top <= y < bottom that lies in the raster. Any numbers are fine.
    void paintBlock(double left, double top, double right, double bottom) noexcept;

 private:
    MutablePixelView target_;
    const Brush& brush_;
    const SolidBrush* solid_;
    bool opaque_;                ///< whether the brush hides what it covers wholly
    std::vector<Argb> colours_;  ///< one row of what the brush gives
};

}  // namespace orvane
