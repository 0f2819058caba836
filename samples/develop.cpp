#include "develop.h"

#include "noise.h"
#include "parallel.h"

namespace sample {
namespace {

/// A quarter of the size, each pixel the mean of its block.
Picture shrunk(const Picture& source) {
    Picture target(std::max(2, source.width / 4), std::max(2, source.height / 4));
    forEachIndex(target.height, [&](int y) {
        for (int x = 0; x < target.width; ++x) {
            Vec3 sum;
            for (int j = 0; j < 4; ++j)
                for (int i = 0; i < 4; ++i)
                    sum = sum + source.at(std::min(x * 4 + i, source.width - 1),
                                          std::min(y * 4 + j, source.height - 1));
            target.at(x, y) = sum * (1.0f / 16.0f);
        }
    });
    return target;
}

void blurRows(Picture& picture, int radius) {
    forEachIndex(picture.height, [&](int y) {
        std::vector<Vec3> row(static_cast<std::size_t>(picture.width));
        for (int x = 0; x < picture.width; ++x) {
            Vec3 sum;
            float weights = 0;
            for (int i = -radius; i <= radius; ++i) {
                const float weight = std::exp(-4.0f * float(i * i) / float(radius * radius));
                sum = sum + picture.at(std::clamp(x + i, 0, picture.width - 1), y) * weight;
                weights += weight;
            }
            row[std::size_t(x)] = sum * (1.0f / weights);
        }
        for (int x = 0; x < picture.width; ++x) picture.at(x, y) = row[std::size_t(x)];
    });
}

Picture turned(const Picture& source) {
    Picture target(source.height, source.width);
    for (int y = 0; y < source.height; ++y)
        for (int x = 0; x < source.width; ++x) target.at(y, x) = source.at(x, y);
    return target;
}

Picture glowOf(const Picture& picture) {
    Picture small = shrunk(picture);
    for (Vec3& light : small.pixels) {  // only what outshines the sky
        const float brightness = std::max({light.x, light.y, light.z});
        light = light * (std::max(0.0f, brightness - 1.0f) / std::max(brightness, 1e-3f));
    }
    const int radius = std::max(2, picture.width / 120);
    blurRows(small, radius);
    small = turned(small);
    blurRows(small, radius);
    return turned(small);
}

/// Film: a straight middle, shadows slightly lifted, highlights that roll off instead of clipping.
float toneCurve(float light) {
    const float v = std::max(light, 0.0f) * 1.3f;
    const float rolled = v * (1.0f + v * 0.16f) / (1.0f + v * 0.72f);
    const float encoded =
        rolled <= 0.0031308f ? 12.92f * rolled : 1.055f * std::pow(rolled, 1.0f / 2.4f) - 0.055f;
    return 0.012f + 0.988f * encoded;
}

}  // namespace

std::vector<std::uint8_t> develop(const Picture& picture) {
    const Picture glow = glowOf(picture);
    const int width = picture.width, height = picture.height;
    std::vector<std::uint8_t> result(std::size_t(width) * std::size_t(height) * 3);
    forEachIndex(height, [&](int y) {
        std::uint8_t* out = result.data() + std::size_t(y) * std::size_t(width) * 3;
        for (int x = 0; x < width; ++x) {
            const float across = (float(x) + 0.5f) / float(width) - 0.5f,
                        down = (float(y) + 0.5f) / float(height) - 0.5f;
            const float corner = across * across + 0.7f * down * down;
            const Vec3 light =
                (picture.at(x, y) + glow.between(float(x) / 4 - 0.4f, float(y) / 4 - 0.4f) * 0.9f) *
                (1.0f - 0.55f * corner);
            const float grain = hash(x, y, 400) + hash(x, y, 401) + hash(x, y, 402) - 1.5f;
            const float channels[] = {light.z, light.y, light.x};
            for (const float channel : channels) {
                const float tone = toneCurve(channel);
                const float noisy = tone + grain * 0.018f * (1.1f - tone);
                *out++ = std::uint8_t(std::lround(255.0f * clamp01(noisy)));
            }
        }
    });
    return result;
}

}  // namespace sample
