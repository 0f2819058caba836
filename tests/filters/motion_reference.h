#pragma once

#include <orvane/pixels.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <utility>
#include <vector>

#include "platform/graphics/source_over.h"

/// The filters that move or smear pixels along a path, by their definitions alone: every sample is read,
/// every walk is walked. They define the results; the filters must give the same bytes.
namespace orvane::reference {

struct Picture {
    int width = 0, height = 0;
    std::vector<Argb> pixels;

    [[nodiscard]] Argb& at(std::int64_t x, std::int64_t y) {
        return pixels[std::size_t(y) * std::size_t(width) + std::size_t(x)];
    }
    [[nodiscard]] Argb at(std::int64_t x, std::int64_t y) const {
        return pixels[std::size_t(y) * std::size_t(width) + std::size_t(x)];
    }
    [[nodiscard]] bool contains(std::int64_t x, std::int64_t y) const {
        return x >= 0 && x < width && y >= 0 && y < height;
    }
    [[nodiscard]] Argb clamped(std::int64_t x, std::int64_t y) const {
        return at(std::clamp<std::int64_t>(x, 0, width - 1), std::clamp<std::int64_t>(y, 0, height - 1));
    }
};

/// Colours added up, each as often as it is asked for.
struct Mean {
    std::int64_t red = 0, green = 0, blue = 0, count = 0;

    void add(Argb pixel, std::int64_t times = 1) {
        red += redOf(pixel) * times;
        green += greenOf(pixel) * times;
        blue += blueOf(pixel) * times;
        count += times;
    }
    [[nodiscard]] Argb value() const {
        return makeOpaque(unsigned(red / count), unsigned(green / count), unsigned(blue / count));
    }
};

inline Picture blurMotion(const Picture& source, int radius, int direction) {
    const std::int64_t stepX = direction == 2 ? 0 : direction == 0 || direction == 1 ? 1 : -1;
    const std::int64_t stepY = direction == 0 ? 0 : 1;
    // From this distance on every sample is the same corner or border pixel.
    const std::int64_t reach = std::min<std::int64_t>(radius, source.width + source.height);
    Picture target = source;
    for (int y = 0; y < source.height; ++y) {
        for (int x = 0; x < source.width; ++x) {
            Mean mean;
            for (std::int64_t i = -reach; i <= reach; ++i) {
                mean.add(source.clamped(x + stepX * i, y + stepY * i));
            }
            mean.add(source.clamped(x - stepX * reach, y - stepY * reach), radius - reach);
            mean.add(source.clamped(x + stepX * reach, y + stepY * reach), radius - reach);
            target.at(x, y) = mean.value();
        }
    }
    return target;
}

inline Picture twirl(const Picture& source, int degrees, Argb outside) {
    const int centreX = source.width / 2, centreY = source.height / 2;
    const double farthest = std::sqrt(double(centreX) * centreX + double(centreY) * centreY);
    const double f = degrees / farthest;
    Picture target = source;
    for (int y = 0; y < source.height; ++y) {
        for (int x = 0; x < source.width; ++x) {
            const double dx = x - centreX, dy = y - centreY;
            const double angle = std::sqrt(dx * dx + dy * dy) * f * 0.0174532925;
            const double fromX = centreX + dx * std::cos(angle) - dy * std::sin(angle);
            const double fromY = centreY + dx * std::sin(angle) + dy * std::cos(angle);
            const auto sourceX = std::int64_t(fromX), sourceY = std::int64_t(fromY);
            const Argb word = source.contains(sourceX, sourceY) ? source.at(sourceX, sourceY) : outside;
            target.at(x, y) = sourceOver(word, source.at(x, y));
        }
    }
    return target;
}

}  // namespace orvane::reference
