#include "platform/codecs/bmp_codec.h"

#include "platform/codecs/dib.h"

namespace orvane {
namespace {

constexpr std::size_t kFileHeaderBytes = 14;
constexpr std::size_t kPixelOffsetField = 10;
constexpr std::size_t kWrittenPixelOffset = 54;

void append32(std::vector<std::uint8_t>& out, std::uint32_t value) {
    for (int shift = 0; shift < 32; shift += 8) out.push_back(std::uint8_t(value >> shift));
}

bool isBmp(std::span<const std::uint8_t> bytes) {
    return bytes.size() >= kFileHeaderBytes && bytes[0] == 'B' && bytes[1] == 'M';
}

}  // namespace

bool decodeBmp(std::span<const std::uint8_t> bytes, DecodeTarget& target) noexcept {
    if (!isBmp(bytes)) return false;
    std::size_t offset = 0;
    for (int i = 3; i >= 0; --i) offset = offset << 8 | bytes[kPixelOffsetField + std::size_t(i)];
    // Offsets in front of the bitmap are nonsense that some writers leave; the pixels then follow the
    // palette.
    const std::size_t offsetInBitmap = offset > kFileHeaderBytes ? offset - kFileHeaderBytes : 0;
    return decodeDib(bytes.subspan(kFileHeaderBytes), offsetInBitmap, target);
}

std::vector<std::uint8_t> encodeBmp(PixelView picture) noexcept try {
    if (!picture || !isAllowedImageSize(picture.width, picture.height)) return {};
    const std::uint64_t total = kFileHeaderBytes + dibBytes(picture.width, picture.height);
    if (total > 0xffffffffu) return {};

    std::vector<std::uint8_t> out;
    out.reserve(std::size_t(total));
    out.push_back('B');
    out.push_back('M');
    append32(out, std::uint32_t(total));
    append32(out, 0);
    append32(out, kWrittenPixelOffset);
    appendDib(picture, out);
    return out;
} catch (...) {
    return {};
}

}  // namespace orvane
