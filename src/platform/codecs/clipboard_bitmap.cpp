#include "platform/codecs/clipboard_bitmap.h"

#include "platform/codecs/dib.h"

namespace orvane {
namespace {

/// Other programs expect the block at this length; nobody reads the bytes.
constexpr std::size_t kSlackBytes = 4;

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

bool decodeClipboardBitmap(std::span<const std::uint8_t> block, DecodeTarget& target) noexcept {
    constexpr std::size_t kBehindTheColourTable = 0;
    return decodeDib(block, kBehindTheColourTable, target);
}

}  // namespace orvane
