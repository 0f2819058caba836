#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <new>

#include "develop.h"
#include "jetty.h"
#include "light.h"
#include "panorama.h"
#include "parallel.h"
#include "water.h"

// Renders the project's own photograph, an evening at a mountain lake, and writes it as a 24-bit BMP file.
// The picture is a pure function of its size, so that documents and benchmarks can rely on it.

namespace {

using namespace sample;

Picture renderScene(const Camera& camera) {
    const Terrain terrain(kTowardsSun);
    const Panorama direct = renderPanorama(camera, terrain, false);
    const Panorama mirrored = renderPanorama(camera, terrain, true);
    Picture picture(camera.width, camera.height);
    forEachIndex(camera.height, [&](int y) {
        for (int x = 0; x < camera.width; ++x) {
            const bool inPanorama = y < direct.light.height;
            float land = 0;
            Vec3 light;
            if (inPanorama) {
                const bool sky = float(y) + 0.5f < camera.horizon();
                light = direct.light.at(x, y);
                land = sky ? 1.0f : direct.land[std::size_t(y) * std::size_t(camera.width) + std::size_t(x)];
            }
            if (land < 1)
                light = mix(waterLight(camera, mirrored, float(x) + 0.5f, float(y) + 0.5f), light, land);
            constexpr int kSamples = 3;
            Vec3 jetty;
            int hits = 0;
            for (int sample = 0; sample<kSamples * kSamples&& float(y)> camera.horizon() * 0.98f; ++sample) {
                const float sx = float(x) + (float(sample % kSamples) + 0.5f) / kSamples;
                const float sy = float(y) + (float(sample / kSamples) + 0.5f) / kSamples;
                const JettyHit hit = seeJetty({0, camera.eye, 0}, normalised(camera.ray(sx, sy)));
                if (hit.distance < 0) continue;
                jetty = jetty + hit.light;
                ++hits;
            }
            constexpr float kShare = 1.0f / (kSamples * kSamples);
            picture.at(x, y) = light * (1.0f - float(hits) * kShare) + jetty * kShare;
        }
    });
    return picture;
}

void putNumber(unsigned char* place, std::uint32_t number, int bytes) {
    for (int i = 0; i < bytes; ++i) place[i] = static_cast<unsigned char>(number >> (8 * i));
}

bool writeBmp(const char* path, const std::vector<std::uint8_t>& bgr, int width, int height) {
    const std::size_t row = std::size_t(width) * 3, padding = (4 - row % 4) % 4;
    unsigned char header[54] = {'B', 'M'};
    putNumber(header + 2, std::uint32_t(54 + (row + padding) * std::size_t(height)), 4);
    putNumber(header + 10, 54, 4);
    putNumber(header + 14, 40, 4);
    putNumber(header + 18, std::uint32_t(width), 4);
    putNumber(header + 22, std::uint32_t(height), 4);
    putNumber(header + 26, 1, 2);
    putNumber(header + 28, 24, 2);
    std::FILE* file = std::fopen(path, "wb");
    if (!file) return false;
    const unsigned char zeros[4] = {};
    bool written = std::fwrite(header, 1, sizeof header, file) == sizeof header;
    for (int y = height - 1; y >= 0 && written; --y)
        written = std::fwrite(bgr.data() + std::size_t(y) * row, 1, row, file) == row &&
                  std::fwrite(zeros, 1, padding, file) == padding;
    return (std::fclose(file) == 0) && written;
}

}  // namespace

int main(int argc, char** argv) {
    constexpr int kSmallest = 16, kLargest = 16000;
    const int width = argc > 3 ? std::atoi(argv[2]) : 1920, height = argc > 3 ? std::atoi(argv[3]) : 1280;
    if ((argc != 2 && argc != 4) || argv[1][0] == '-' || width < kSmallest || height < kSmallest ||
        width > kLargest || height > kLargest) {
        std::fprintf(
            stderr, "usage: %s OUT.bmp [WIDTH HEIGHT]   (1920 x 1280 unless given; %d to %d pixels a side)\n",
            argv[0], kSmallest, kLargest);
        return 2;
    }
    try {
        const Picture picture = renderScene(Camera{width, height});
        if (writeBmp(argv[1], develop(picture), width, height)) return 0;
        std::fprintf(stderr, "%s: cannot write %s: %s\n", argv[0], argv[1], std::strerror(errno));
    } catch (const std::bad_alloc&) {
        std::fprintf(stderr, "%s: not enough memory for %d x %d pixels\n", argv[0], width, height);
    }
    return 1;
}
