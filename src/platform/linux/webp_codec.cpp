#include "platform/linux/webp_codec.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <optional>

#include <webp/decode.h>

namespace orvane {
namespace {

//     "RIFF" size(4) "WEBP" chunk ...      chunk = name(4) size(4) data, padded to an even size;
//                                          little-endian, a size counts what follows it
constexpr std::size_t kFileHeader = 12, kChunkHeader = 8, kFrameHeader = 16;

/// A lossless picture of one colour takes no bits per pixel at all, so that no file is too small for any
/// size. Blank pictures are let through up to this many pixels; beyond, every byte may account for so many
/// more.
constexpr std::uint64_t kBlankPixels = std::uint64_t{1} << 26;
constexpr std::uint64_t kPixelsPerByte = 4096;

std::uint32_t readLittle24(const std::uint8_t* at) {
    return at[0] | std::uint32_t(at[1]) << 8 | std::uint32_t(at[2]) << 16;
}
std::uint32_t readLittle32(const std::uint8_t* at) { return readLittle24(at) | std::uint32_t(at[3]) << 24; }

/// The file without what may follow its container; empty when bytes are missing.
std::span<const std::uint8_t> container(std::span<const std::uint8_t> bytes) {
    if (bytes.size() < kFileHeader || std::memcmp(&bytes[0], "RIFF", 4) != 0 ||
        std::memcmp(&bytes[8], "WEBP", 4) != 0)
        return {};
    const std::uint64_t size = std::uint64_t(readLittle32(&bytes[4])) + 8;
    return size >= kFileHeader && size <= bytes.size() ? bytes.first(std::size_t(size))
                                                       : std::span<const std::uint8_t>();
}

/// A still picture and where it lies on the canvas. The data of an animation frame are chunks without a
/// container around them, which libwebp reads as well.
struct Frame {
    std::uint32_t x = 0, y = 0;
    std::span<const std::uint8_t> data;
};

std::optional<Frame> firstFrame(std::span<const std::uint8_t> file) {
    std::size_t at = kFileHeader;
    while (file.size() - at >= kChunkHeader) {
        const std::uint32_t size = readLittle32(&file[at + 4]);
        const auto data = file.subspan(at + kChunkHeader);
        if (size > data.size()) return std::nullopt;
        if (std::memcmp(&file[at], "ANMF", 4) == 0) {
            if (size < kFrameHeader) return std::nullopt;
            return Frame{2 * readLittle24(&data[0]), 2 * readLittle24(&data[3]),
                         data.subspan(kFrameHeader, size - kFrameHeader)};
        }
        const std::size_t step = kChunkHeader + std::size_t(size) + (size & 1);
        if (step > file.size() - at) return std::nullopt;
        at += step;
    }
    return std::nullopt;
}

/// libwebp up to 1.3.2 follows an uninitialised pointer when it gets no memory for its code tables. Memory
/// that is taken and given back just before makes that failure unlikely: here it is met safely.
constexpr std::size_t kHeadroomBytes = std::size_t{16} << 20;
bool hasHeadroom() {
    void* const probe = std::malloc(kHeadroomBytes);
    std::free(probe);
    return probe != nullptr;
}

bool decodeOnto(MutablePixelView canvas, const Frame& frame) {
    WebPDecoderConfig config;
    if (!WebPInitDecoderConfig(&config) ||
        WebPGetFeatures(frame.data.data(), frame.data.size(), &config.input) != VP8_STATUS_OK)
        return false;
    const auto width = std::uint32_t(config.input.width), height = std::uint32_t(config.input.height);
    if (frame.x > std::uint32_t(canvas.width) || width > std::uint32_t(canvas.width) - frame.x ||
        frame.y > std::uint32_t(canvas.height) || height > std::uint32_t(canvas.height) - frame.y)
        return false;
    config.output.colorspace = MODE_BGRA;
    config.output.is_external_memory = 1;
    Argb* const corner = canvas.row(int(frame.y)) + frame.x;
    const std::size_t stride = std::size_t(canvas.stridePixels) * sizeof(Argb);
    config.output.u.RGBA.rgba = reinterpret_cast<std::uint8_t*>(corner);
    config.output.u.RGBA.stride = int(stride);
    config.output.u.RGBA.size = stride * (height - 1) + width * sizeof(Argb);
    return WebPDecode(frame.data.data(), frame.data.size(), &config) == VP8_STATUS_OK;
}

}  // namespace

bool decodeWebp(std::span<const std::uint8_t> bytes, DecodeTarget& target) noexcept {
    try {
        const auto file = container(bytes);
        WebPBitstreamFeatures features;
        if (file.empty() || WebPGetFeatures(file.data(), file.size(), &features) != VP8_STATUS_OK)
            return false;
        if (!isAllowedImageSize(features.width, features.height)) return false;
        const std::uint64_t pixels = std::uint64_t(features.width) * std::uint64_t(features.height);
        if (pixels > kBlankPixels + file.size() * kPixelsPerByte) return false;

        std::optional<Frame> frame;
        if (features.has_animation)
            frame = firstFrame(file);
        else
            frame = Frame{0, 0, file};
        if (!frame) return false;
        const MutablePixelView canvas = target.allocate(features.width, features.height);
        if (!canvas || !hasHeadroom()) return false;
        if (features.has_animation)
            for (int y = 0; y < canvas.height; ++y) std::fill_n(canvas.row(y), canvas.width, Argb{0});
        return decodeOnto(canvas, *frame);
    } catch (...) {
        return false;
    }
}

}  // namespace orvane
