#include "platform/linux/png_contents.h"

#include <libdeflate.h>

#include "platform/image_codecs.h"

namespace orvane::png {
namespace {

bool isValidDepth(std::uint8_t colourType, unsigned depth) {
    switch (colourType) {
        case kGrey:
            return depth == 1 || depth == 2 || depth == 4 || depth == 8 || depth == 16;
        case kPalette:
            return depth == 1 || depth == 2 || depth == 4 || depth == 8;
        case kRgb:
        case kGreyAlpha:
        case kRgba:
            return depth == 8 || depth == 16;
        default:
            return false;
    }
}

bool readHeader(std::span<const std::uint8_t> chunk, Header& header) {
    if (chunk.size() != 13) return false;
    const std::uint32_t width = readBig32(&chunk[0]), height = readBig32(&chunk[4]);
    if (!isAllowedImageSize(width, height)) return false;
    header.width = int(width);
    header.height = int(height);
    header.bitDepth = chunk[8];
    header.colourType = chunk[9];
    header.interlaced = chunk[12] == 1;
    return isValidDepth(header.colourType, header.bitDepth) && chunk[10] == 0 && chunk[11] == 0 &&
           chunk[12] <= 1;
}

bool readPalette(std::span<const std::uint8_t> chunk, Contents& contents) {
    if (chunk.empty() || chunk.size() % 3 != 0 || chunk.size() > 3 * 256) return false;
    for (std::size_t i = 0; i < chunk.size() / 3; ++i)
        contents.palette[i] = makeOpaque(chunk[3 * i], chunk[3 * i + 1], chunk[3 * i + 2]);
    contents.hasPalette = true;
    return true;
}

/// A malformed transparency chunk is ignored: it is not critical.
void readTransparency(std::span<const std::uint8_t> chunk, Contents& contents) {
    const std::uint8_t type = contents.header.colourType;
    if (type == kPalette && contents.hasPalette && chunk.size() <= 256) {
        for (std::size_t i = 0; i < chunk.size(); ++i)
            contents.palette[i] = (contents.palette[i] & 0xffffffu) | Argb(chunk[i]) << 24;
    } else if ((type == kGrey && chunk.size() == 2) || (type == kRgb && chunk.size() == 6)) {
        const unsigned mask = (1u << contents.header.bitDepth) - 1;
        for (std::size_t c = 0; c < chunk.size() / 2; ++c)
            contents.transparentColour[c] =
                std::uint16_t(unsigned(chunk[2 * c] << 8 | chunk[2 * c + 1]) & mask);
        contents.hasTransparentColour = true;
    }
}

}  // namespace

bool readContents(std::span<const std::uint8_t> bytes, Contents& contents) {
    contents.palette.fill(0xff000000u);
    if (bytes.size() < sizeof kSignature || !std::equal(kSignature, std::end(kSignature), bytes.begin()))
        return false;
    std::size_t at = sizeof kSignature;
    bool sawHeader = false;
    while (bytes.size() - at >= kChunkOverhead) {
        const std::uint32_t length = readBig32(&bytes[at]), type = readBig32(&bytes[at + 4]);
        if (length > kMaxChunkLength || length > bytes.size() - at - kChunkOverhead) return false;
        const auto chunk = bytes.subspan(at + 8, length);
        const bool intact =
            libdeflate_crc32(0, &bytes[at + 4], 4 + length) == readBig32(&bytes[at + 8 + length]);
        if (!intact && isCritical(type)) return false;
        at += kChunkOverhead + length;

        if (!sawHeader) {
            if (type != chunkType("IHDR") || !readHeader(chunk, contents.header)) return false;
            sawHeader = true;
        } else if (type == chunkType("PLTE")) {
            // In true-colour files the palette is only a hint for poorer displays.
            if (contents.header.colourType == kPalette && !readPalette(chunk, contents)) return false;
        } else if (type == chunkType("IDAT")) {
            if (!chunk.empty()) contents.data.push_back(chunk);
            contents.dataBytes += length;
        } else if (type == chunkType("IEND")) {
            return contents.header.colourType != kPalette || contents.hasPalette;
        } else if (type == chunkType("tRNS")) {
            if (intact && contents.data.empty()) readTransparency(chunk, contents);
        } else if (isCritical(type)) {
            return false;
        }
    }
    return false;
}

}  // namespace orvane::png
