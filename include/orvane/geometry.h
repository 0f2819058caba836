#pragma once

/// Points and rectangles in whole pixels: plain values, valid and empty when default-constructed.
namespace orvane {

struct IntPoint {
    int x = 0, y = 0;
    friend bool operator==(const IntPoint&, const IntPoint&) = default;
};

struct IntSize {
    int width = 0, height = 0;
    friend bool operator==(const IntSize&, const IntSize&) = default;
};

/// A rectangle covers the pixels x <= px < x + width and y <= py < y + height.
struct IntRect {
    int x = 0, y = 0, width = 0, height = 0;

    [[nodiscard]] constexpr int right() const { return x + width; }
    [[nodiscard]] constexpr int bottom() const { return y + height; }
    [[nodiscard]] constexpr bool isEmpty() const { return width <= 0 || height <= 0; }
    [[nodiscard]] constexpr bool contains(IntPoint p) const {
        return x <= p.x && p.x < right() && y <= p.y && p.y < bottom();
    }
    /// The common part of both rectangles; an empty rectangle when there is none.
    [[nodiscard]] constexpr IntRect intersected(const IntRect& other) const {
        const int left = x > other.x ? x : other.x;
        const int top = y > other.y ? y : other.y;
        const int r = right() < other.right() ? right() : other.right();
        const int b = bottom() < other.bottom() ? bottom() : other.bottom();
        return r > left && b > top ? IntRect{left, top, r - left, b - top} : IntRect{};
    }
    friend bool operator==(const IntRect&, const IntRect&) = default;
};

}  // namespace orvane
