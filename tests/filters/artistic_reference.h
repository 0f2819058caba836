#pragma once

#include <orvane/pixels.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

#include "base/random_stream.h"
#include "filters/convolution_reference.h"
#include "filters/rank_reference.h"

/// The artistic filters by their definitions alone. They define the results; the filters must give the same
/// bytes.
namespace orvane::reference {

/// One pixel drawn over another: exact fractions, rounded to nearest, halves up.
inline Argb over(Argb s, Argb d) {
    if (alphaOf(s) == 0) return d;
    const unsigned sourceWeight = alphaOf(s) * 255, weight = alphaOf(d) * (255 - alphaOf(s));
    const unsigned total = sourceWeight + weight;
    const auto mixed = [&](int shift) {
        const unsigned sum = ((s >> shift) & 255u) * sourceWeight + ((d >> shift) & 255u) * weight;
        return (2 * sum + total) / (2 * total);
    };
    return makeArgb((2 * total + 255) / 510, mixed(16), mixed(8), mixed(0));
}

/// Draws a finished target over the picture.
inline std::vector<Argb> committed(const std::vector<Argb>& target, const Picture& picture) {
    std::vector<Argb> result;
    for (std::size_t i = 0; i < target.size(); ++i) result.push_back(over(target[i], picture.pixels[i]));
    return result;
}

inline std::int64_t centreDistance(int x, int y, int centreX, int centreY) {
    const double dx = double(centreX) - x, dy = double(centreY) - y;
    return std::int64_t(std::sqrt(dx * dx + dy * dy));
}

inline Argb meanOfTile(const Picture& picture, int centreX, int centreY, int radius) {
    const int n = 2 * radius + 1;
    Weights weights(std::size_t(n) * std::size_t(n), 1);
    weights[weights.size() / 2] = 2;
    return convolveAt(picture, centreX, centreY, weights, n);
}

inline std::vector<Argb> mosaic(const Picture& picture, int type, int radius) {
    std::vector<Argb> target(picture.pixels.size(), 0u);
    if (radius >= picture.width || radius >= picture.height) return picture.pixels;
    const int n = 2 * radius + 1;
    for (int tx = 0; tx + radius < picture.width; tx += n) {
        for (int ty = 0; ty + radius < picture.height; ty += n) {
            const int x = tx + radius, y = ty + radius;
            const Argb colour = type == 0 ? picture.clampedAt(x, y) : meanOfTile(picture, x, y, radius);
            for (int j = ty; j < std::min(ty + n, picture.height); ++j) {
                for (int i = tx; i < std::min(tx + n, picture.width); ++i) {
                    target[std::size_t(j) * std::size_t(picture.width) + std::size_t(i)] = colour;
                }
            }
        }
    }
    return committed(target, picture);
}

inline std::vector<Argb> focalBW(const Picture& picture, int r1, int r2, int centreX, int centreY) {
    return eachPixelOf(picture, [&](int x, int y) {
        const Argb p = picture.clampedAt(x, y);
        const std::int64_t d = centreDistance(x, y, centreX, centreY);
        const int r = int(redOf(p)), g = int(greenOf(p)), b = int(blueOf(p));
        const int luma = int(0.0721 * b + 0.2125 * r + 0.7154 * g);
        if (d < r1) return p;
        if (d >= std::int64_t{r1} + r2) return makeOpaque(unsigned(luma), unsigned(luma), unsigned(luma));
        const double t = double(d - r1) / r2;
        const auto faded = [&](int c) { return unsigned((luma - c) * t + c); };
        return makeOpaque(faded(r), faded(g), faded(b));
    });
}

inline std::vector<Argb> aquarelle(const Picture& picture, int radius) {
    Picture pass{picture.width, picture.height,
                 rankFilter(picture.pixels, picture.width, picture.height, radius, middleRank)};
    pass.pixels = sharpen(pass);
    return sharpen(pass);
}

inline std::vector<Argb> diffuse(const Picture& picture, int reach, RandomStream& stream) {
    const double s = (2.0 * reach + 1.0) * 3.051850947599719e-5;
    std::vector<Argb> target(picture.pixels.size());
    const auto moved = [](int place, double offset, int length) {
        return int(std::clamp(place + offset, 0.0, length - 1.0));
    };
    for (int x = 0; x < picture.width; ++x) {
        for (int y = 0; y < picture.height; ++y) {
            const double ox = std::trunc(stream.next() * s) - reach;
            const double oy = std::trunc(stream.next() * s) - reach;
            target[std::size_t(y) * std::size_t(picture.width) + std::size_t(x)] =
                picture.clampedAt(moved(x, ox, picture.width), moved(y, oy, picture.height));
        }
    }
    return committed(target, picture);
}

inline std::vector<Argb> glow(const Picture& picture, int level, int radius, int intensity) {
    const double k = (intensity - 1.0) / radius;
    std::vector<double> weights;
    double sum = 0;
    for (int d = 0; d <= radius; ++d) {
        weights.push_back(1 / (d * k + 1));
        sum += weights.back();
    }
    for (double& weight : weights) weight = intensity * weight / (765 * sum);

    const int width = picture.width, height = picture.height;
    std::vector<double> light(picture.pixels.size(), 0.0);
    for (int x = 0; x < width; ++x) {
        for (int y = 0; y < height; ++y) {
            const Argb p = picture.clampedAt(x, y);
            const int r = int(redOf(p)), g = int(greenOf(p)), b = int(blueOf(p));
            if (r < level || g < level || b < level) continue;
            for (int tx = std::max(0, x - radius); tx < width && tx - x <= radius; ++tx) {
                for (int ty = std::max(0, y - radius); ty < height && ty - y <= radius; ++ty) {
                    const std::int64_t d = centreDistance(tx, ty, x, y);
                    if (d < 1 || d > radius) continue;
                    light[std::size_t(ty) * std::size_t(width) + std::size_t(tx)] +=
                        (r + g + b) * weights[std::size_t(d)];
                }
            }
        }
    }
    return eachPixelOf(picture, [&](int x, int y) {
        const Argb p = picture.clampedAt(x, y);
        const double added = std::trunc(light[std::size_t(y) * std::size_t(width) + std::size_t(x)]);
        const auto lit = [&](unsigned c) { return unsigned(std::min(255.0, c + added)); };
        return makeOpaque(lit(redOf(p)), lit(greenOf(p)), lit(blueOf(p)));
    });
}

inline std::vector<Argb> glowingEdge(const Picture& picture, int level, int radius, int intensity) {
    const Picture edges{picture.width, picture.height,
                        convolve(picture, asSeen({-1, -1, -1, -1, 8, -1, -1, -1, -1}), 3)};
    if (level < 1 || radius < 1 || intensity < 1) return edges.pixels;
    return glow(edges, level, radius, intensity);
}

inline std::vector<Argb> softFocus(Picture picture, int passes, int r1, int r2, int centreX, int centreY) {
    for (int pass = 0; pass < passes; ++pass) {
        const std::vector<Argb> target = eachPixelOf(picture, [&](int x, int y) {
            const std::int64_t d = centreDistance(x, y, centreX, centreY);
            if (d < r1) return picture.clampedAt(x, y);
            double centre = 2;
            if (d < std::int64_t{r1} + r2) {
                centre = std::trunc((r2 - ((r2 - 1.0) / r2) * double(d - r1)) * 2);
            }
            Weights weights(9, 1);
            weights[4] = std::int32_t(std::min(centre, 2147483647.0));
            return convolveAt(picture, x, y, weights, 3);
        });
        picture.pixels = committed(target, picture);
    }
    return picture.pixels;
}

}  // namespace orvane::reference
