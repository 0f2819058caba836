#pragma once

#include <cstddef>
#include <cstdint>

namespace orvane {

/// One pixel: 0xAARRGGBB with straight (not premultiplied) alpha, in memory the bytes B, G, R, A.
using Argb = std::uint32_t;

constexpr unsigned alphaOf(Argb p) { return p >> 24; }
constexpr unsigned redOf(Argb p) { return (p >> 16) & 255u; }
constexpr unsigned greenOf(Argb p) { return (p >> 8) & 255u; }
constexpr unsigned blueOf(Argb p) { return p & 255u; }
constexpr Argb makeArgb(unsigned a, unsigned r, unsigned g, unsigned b) {
    return (a << 24) | (r << 16) | (g << 8) | b;
}
constexpr Argb makeOpaque(unsigned r, unsigned g, unsigned b) { return makeArgb(255u, r, g, b); }

/// Read access to a raster of width x height pixels, top row first. Row y starts stridePixels * y words
/// after `pixels`. A view owns nothing and is null when it has no pixels.
struct PixelView {
    const Argb* pixels = nullptr;
    int width = 0, height = 0;
    std::ptrdiff_t stridePixels = 0;

    [[nodiscard]] const Argb* row(int y) const { return pixels + stridePixels * y; }
    [[nodiscard]] Argb at(int x, int y) const { return row(y)[x]; }
    [[nodiscard]] std::size_t pixelCount() const { return std::size_t(width) * std::size_t(height); }
    [[nodiscard]] bool isContiguous() const { return stridePixels == width; }
    explicit operator bool() const { return pixels != nullptr; }
};

/// The same with write access.
struct MutablePixelView {
    Argb* pixels = nullptr;
    int width = 0, height = 0;
    std::ptrdiff_t stridePixels = 0;

    [[nodiscard]] Argb* row(int y) const { return pixels + stridePixels * y; }
    [[nodiscard]] Argb& at(int x, int y) const { return row(y)[x]; }
    [[nodiscard]] std::size_t pixelCount() const { return std::size_t(width) * std::size_t(height); }
    [[nodiscard]] bool isContiguous() const { return stridePixels == width; }
    explicit operator bool() const { return pixels != nullptr; }
    operator PixelView() const { return {pixels, width, height, stridePixels}; }
};

}  // namespace orvane
