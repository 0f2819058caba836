#include "platform/linux/webp_codec.h"

#include <gtest/gtest.h>
#include <webp/encode.h>

#include <cstdlib>

#include "support/recording_decode_target.h"

namespace orvane {
namespace {

using Bytes = std::vector<std::uint8_t>;

// Fully transparent pixels lose their colour in the encoder, so there are none.
std::vector<Argb> visiblePixels(int width, int height, bool opaque) {
    auto pixels = makeTestPixels(width, height, opaque);
    for (Argb& pixel : pixels) pixel |= 0x01000000u;
    return pixels;
}

Bytes encoded(const std::vector<Argb>& pixels, int width, int height, bool lossless) {
    std::uint8_t* memory = nullptr;
    const auto* bgra = reinterpret_cast<const std::uint8_t*>(pixels.data());
    const std::size_t size = lossless ? WebPEncodeLosslessBGRA(bgra, width, height, width * 4, &memory)
                                      : WebPEncodeBGRA(bgra, width, height, width * 4, 95, &memory);
    const Bytes file(memory, memory + size);
    WebPFree(memory);
    return file;
}

void appendLittle(Bytes& to, std::uint32_t value, int bytes) {
    for (int i = 0; i < bytes; ++i) to.push_back(std::uint8_t(value >> (8 * i)));
}

void appendChunk(Bytes& to, const char* name, const Bytes& data) {
    to.insert(to.end(), name, name + 4);
    appendLittle(to, std::uint32_t(data.size()), 4);
    to.insert(to.end(), data.begin(), data.end());
    if (data.size() % 2) to.push_back(0);
}

/// An animation of one frame, taken from a still file, at (x, y) on a canvas.
Bytes animation(const Bytes& still, std::uint32_t canvasWidth, std::uint32_t canvasHeight, std::uint32_t x,
                std::uint32_t y, std::uint32_t width, std::uint32_t height) {
    Bytes features = {0x12, 0, 0, 0};
    appendLittle(features, canvasWidth - 1, 3);
    appendLittle(features, canvasHeight - 1, 3);
    Bytes frame;
    for (std::uint32_t field : {x / 2, y / 2, width - 1, height - 1, 100u}) appendLittle(frame, field, 3);
    frame.push_back(0);
    frame.insert(frame.end(), still.begin() + 12, still.end());

    Bytes body = {'W', 'E', 'B', 'P'};
    appendChunk(body, "VP8X", features);
    appendChunk(body, "ANIM", Bytes(6));
    appendChunk(body, "ANMF", frame);
    Bytes file;
    appendChunk(file, "RIFF", body);
    return file;
}

TEST(WebpCodec, ReadsLosslessPicturesExactly) {
    const int sizes[][2] = {{1, 1}, {3, 2}, {16, 16}, {67, 45}};
    for (const auto& size : sizes)
        for (bool opaque : {true, false}) {
            const auto pixels = visiblePixels(size[0], size[1], opaque);
            EXPECT_TRUE(decodesTo(decodeWebp, encoded(pixels, size[0], size[1], true),
                                  {pixels.data(), size[0], size[1], size[0]}))
                << size[0] << " x " << size[1];
        }
}

TEST(WebpCodec, ReadsLossyPicturesWithTheirAlpha) {
    std::vector<Argb> pixels;
    for (int y = 0; y < 40; ++y)
        for (int x = 0; x < 50; ++x) pixels.push_back(makeArgb(x < 25 ? 255 : 128, unsigned(5 * x), 90, 160));
    RecordingDecodeTarget target;
    ASSERT_TRUE(decodeWebp(encoded(pixels, 50, 40, false), target));
    EXPECT_TRUE(target.isGuardIntact());
    for (int y = 0; y < 40; ++y)
        for (int x = 0; x < 50; ++x) {
            const Argb expected = pixels[std::size_t(50 * y + x)], actual = target.picture().at(x, y);
            ASSERT_EQ(alphaOf(actual), alphaOf(expected));
            ASSERT_NEAR(int(redOf(actual)), int(redOf(expected)), 14);
            ASSERT_NEAR(int(blueOf(actual)), int(blueOf(expected)), 14);
        }
}

TEST(WebpCodec, PutsTheFirstFrameOfAnAnimationOnItsCanvas) {
    const std::vector<Argb> frame(6, 0xff00ff00u);
    const Bytes still = encoded(frame, 3, 2, true);
    EXPECT_EQ(decodedLetters(decodeWebp, animation(still, 6, 4, 2, 2, 3, 2)), "....../....../..ggg./..ggg.");
    EXPECT_EQ(decodedLetters(decodeWebp, animation(still, 4, 4, 2, 2, 3, 2)), "refused") << "frame outside";
}

TEST(WebpCodec, RefusesEveryFileThatIsCutShortBeforeAskingForMemory) {
    for (bool lossless : {true, false}) {
        const Bytes file = encoded(visiblePixels(30, 20, false), 30, 20, lossless);
        for (std::size_t length = 0; length < file.size(); ++length) {
            RecordingDecodeTarget target;
            EXPECT_FALSE(decodeWebp(Bytes(file.begin(), file.begin() + std::ptrdiff_t(length)), target));
            EXPECT_EQ(target.requests, 0);
        }
    }
    EXPECT_EQ(countAcceptedPrefixes(
                  decodeWebp, animation(encoded(visiblePixels(9, 8, false), 9, 8, true), 20, 20, 2, 2, 9, 8)),
              0);
}

TEST(WebpCodec, JudgesTheSizeBeforeAskingForMemory) {
    Bytes file = encoded(visiblePixels(30, 20, false), 30, 20, true);
    ASSERT_EQ(file[20], 0x2f);  // the lossless stream's mark, then 14 bits each of width and height less 1
    file[21] = file[22] = file[23] = 0xff;
    file[24] |= 0x0f;
    RecordingDecodeTarget target;
    EXPECT_FALSE(decodeWebp(file, target));
    EXPECT_EQ(target.requests, 0);
}

}  // namespace
}  // namespace orvane
