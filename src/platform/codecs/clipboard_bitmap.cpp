#include "platform/codecs/clipboard_bitmap.h"

#include <array>

#include "platform/codecs/dib.h"

namespace orvane {
namespace {

/// Other programs expect the block at this length; nobody reads the bytes.
constexpr std::size_t kSlackBytes = 4;

constexpr std::size_t kAlphaHeaderWords = 31;

/// The long header, of which most fields describe colour spaces.
std::array<std::uint32_t, kAlphaHeaderWords> alphaHeader(PixelView picture) {
    constexpr std::uint32_t kPlanesAndBits = 1u | 32u << 16, kMasks = 3, kSrgb = 0x73524742;
    std::array<std::uint32_t, kAlphaHeaderWords> words = {kAlphaHeaderWords * 4,
                                                          std::uint32_t(picture.width),
                                                          std::uint32_t(picture.height),
                                                          kPlanesAndBits,
                                                          kMasks,
                                                          std::uint32_t(picture.pixelCount() * sizeof(Argb))};
    constexpr std::size_t kFirstMask = 10, kColourSpace = 14;
    words[kFirstMask] = 0xff0000u;
    words[kFirstMask + 1] = 0xff00u;
    words[kFirstMask + 2] = 0xffu;
    words[kFirstMask + 3] = 0xff000000u;
    words[kColourSpace] = kSrgb;
    return words;
}

}  // namespace

std::vector<std::uint8_t> encodeClipboardBitmap(PixelView picture) noexcept try {
    if (!picture || !isAllowedImageSize(picture.width, picture.height)) return {};
    std::vector<std::uint8_t> block;
    block.reserve(std::size_t(dibBytes(picture.width, picture.height)) + kSlackBytes);
    appendDib(picture, block);
    block.insert(block.end(), kSlackBytes, std::uint8_t{0});
    return block;
} catch (...) {
    return {};
}

std::vector<std::uint8_t> encodeClipboardBitmapWithAlpha(PixelView picture) noexcept try {
    if (!picture || !isAllowedImageSize(picture.width, picture.height)) return {};
    const auto header = alphaHeader(picture);
    const std::size_t rowBytes = std::size_t(picture.width) * sizeof(Argb);
    std::vector<std::uint8_t> block;
    block.reserve(sizeof header + rowBytes * std::size_t(picture.height));
    const auto append = [&block](const void* data, std::size_t bytes) {
        const auto* first = static_cast<const std::uint8_t*>(data);
        block.insert(block.end(), first, first + bytes);
    };
    append(header.data(), sizeof header);
    for (int y = picture.height - 1; y >= 0; --y) append(picture.row(y), rowBytes);
    return block;
} catch (...) {
    return {};
}

bool decodeClipboardBitmap(std::span<const std::uint8_t> block, DecodeTarget& target) noexcept {
    constexpr std::size_t kBehindTheColourTable = 0;
    return decodeDib(block, kBehindTheColourTable, target);
}

}  // namespace orvane
