#include "platform/graphics/paint.h"

#include <algorithm>

#include "platform/graphics/source_over.h"

namespace orvane {
namespace {

bool hides(const Brush& brush) {
    const auto* const solid = std::get_if<SolidBrush>(&brush);
    const auto* const gradient = std::get_if<GradientBrush>(&brush);
    if (gradient != nullptr) return alphaOf(gradient->from & gradient->to) == 255;
    return solid != nullptr && alphaOf(solid->colour) == 255;
}

}  // namespace

BrushPainter::BrushPainter(MutablePixelView target, const Brush& brush)
    : target_(target), brush_(brush), solid_(std::get_if<SolidBrush>(&brush)), opaque_(hides(brush)) {
    if (solid_ == nullptr || !opaque_) {
        colours_.resize(std::size_t(target.width), solid_ == nullptr ? 0 : solid_->colour);
    }
}

void BrushPainter::paint(int x, int y, const std::uint8_t* coverage, int count) noexcept {
    Argb* const pixels = target_.row(y) + x;
    if (solid_ != nullptr) {
        sourceOverMasked(solid_->colour, coverage, pixels, std::size_t(count));
    } else {
        brushRow(brush_, x, y, std::size_t(count), colours_.data());
        sourceOverMasked(colours_.data(), coverage, pixels, std::size_t(count));
    }
}

void BrushPainter::paintWhole(int x, int y, int count) noexcept {
    Argb* const pixels = target_.row(y) + x;
    if (opaque_) return brushRow(brush_, x, y, std::size_t(count), pixels);
    if (solid_ == nullptr) brushRow(brush_, x, y, std::size_t(count), colours_.data());
    sourceOver(colours_.data(), pixels, pixels, std::size_t(count));
}

void BrushPainter::paintBlock(double left, double top, double right, double bottom) noexcept {
    const auto clamped = [](double value, int limit) { return int(std::clamp(value, 0.0, double(limit))); };
    const int x = clamped(left, target_.width), width = clamped(right, target_.width) - x;
    const int end = clamped(bottom, target_.height);
    if (width <= 0) return;
    for (int y = clamped(top, target_.height); y < end; ++y) paintWhole(x, y, width);
}

}  // namespace orvane
