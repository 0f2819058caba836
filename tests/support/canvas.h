#pragma once

#include <orvane/geometry.h>
#include <orvane/pixels.h>

#include <string>
#include <vector>

namespace orvane::test {

/// A transparent picture to draw on. Opaque drawing leaves its coverage in the alphas.
class Canvas {
 public:
    Canvas(int width, int height)
        : width_(width), height_(height), pixels_(std::size_t(width) * std::size_t(height)) {}

    MutablePixelView view() { return {pixels_.data(), width_, height_, width_}; }
    [[nodiscard]] const std::vector<Argb>& pixels() const { return pixels_; }
    [[nodiscard]] Argb at(int x, int y) const { return pixels_[std::size_t(y * width_ + x)]; }
    [[nodiscard]] int coverage(int x, int y) const { return int(alphaOf(at(x, y))); }

    [[nodiscard]] double coveredArea() const {
        double sum = 0;
        for (Argb p : pixels_) sum += alphaOf(p) / 255.0;
        return sum;
    }
    [[nodiscard]] bool isUntouched() const { return coveredArea() == 0; }

    /// A letter for each pixel: '.' nothing, ',' a quarter, '+' a half, '*' three quarters, '#' all, '?'
    /// other.
    [[nodiscard]] std::vector<std::string> rows() const {
        std::vector<std::string> result(std::size_t(height_), std::string(std::size_t(width_), '?'));
        for (int y = 0; y < height_; ++y) {
            for (int x = 0; x < width_; ++x) {
                for (const Letter& letter : kLetters) {
                    if (letter.coverage == coverage(x, y))
                        result[std::size_t(y)][std::size_t(x)] = letter.name;
                }
            }
        }
        return result;
    }

 private:
    struct Letter {
        int coverage;
        char name;
    };
    static constexpr Letter kLetters[] = {{0, '.'}, {64, ','}, {128, '+'}, {191, '*'}, {255, '#'}};

    int width_, height_;
    std::vector<Argb> pixels_;
};

}  // namespace orvane::test
