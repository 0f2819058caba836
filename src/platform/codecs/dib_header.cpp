#include "platform/codecs/dib_header.h"

#include <algorithm>

#include "platform/image_codecs.h"

namespace orvane {
namespace {

constexpr std::size_t kCoreHeaderBytes = 12;
constexpr std::size_t kInfoHeaderBytes = 40;
constexpr std::size_t kMaskOffset = 40;  // behind the common header, whether or not the header includes them

/// Little-endian fields; those beyond the end read as 0.
class Fields {
 public:
    explicit Fields(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}
    [[nodiscard]] std::uint32_t at8(std::size_t offset) const {
        return offset < bytes_.size() ? bytes_[offset] : 0u;
    }
    [[nodiscard]] std::uint32_t at16(std::size_t offset) const { return at8(offset) | at8(offset + 1) << 8; }
    [[nodiscard]] std::uint32_t at32(std::size_t offset) const {
        return at16(offset) | at16(offset + 2) << 16;
    }

 private:
    std::span<const std::uint8_t> bytes_;
};

/// The numbers of the compression field that are understood; pictures in another codec's wrapping are not.
enum Compression : std::uint32_t { kRgb = 0, kRle8 = 1, kRle4 = 2, kBitFields = 3, kAlphaBitFields = 6 };

bool isKnownHeaderSize(std::size_t size) {
    return size == kCoreHeaderBytes || size == 16 || size == kInfoHeaderBytes || size == 52 || size == 56 ||
           size == 64 || size == 108 || size == 124;
}

std::optional<DibCoding> codingOf(std::uint32_t compression, int bits, std::size_t headerBytes) {
    const bool plainDepth = bits == 1 || bits == 2 || bits == 4 || bits == 8 || bits == 24;
    const bool maskedDepth = bits == 16 || bits == 32;
    switch (compression) {
        case kRgb:
            if (plainDepth) return DibCoding::Plain;
            return maskedDepth ? std::optional(DibCoding::Masks) : std::nullopt;
        case kRle8:
            return bits == 8 ? std::optional(DibCoding::RunLength8) : std::nullopt;
        case kRle4:
            return bits == 4 ? std::optional(DibCoding::RunLength4) : std::nullopt;
        case kBitFields:
        case kAlphaBitFields:
            // The second OS/2 family means something else by these numbers.
            return maskedDepth && headerBytes >= kInfoHeaderBytes && headerBytes != 64
                       ? std::optional(DibCoding::Masks)
                       : std::nullopt;
        default:
            return std::nullopt;
    }
}

bool readSize(const Fields& fields, bool isCore, DibHeader& header) {
    std::int64_t width = fields.at16(4), height = fields.at16(6);
    if (!isCore) {
        width = std::int32_t(fields.at32(4));
        height = std::int32_t(fields.at32(8));
    }
    header.topDown = height < 0;
    const std::int64_t rows = header.topDown ? -height : height;
    if (!isAllowedImageSize(width, rows)) return false;
    header.width = int(width);
    header.height = int(rows);
    return true;
}

/// Returns the bytes of masks that stand between the header and the palette.
std::size_t readMasks(const Fields& fields, std::uint32_t compression, std::size_t headerBytes,
                      DibHeader& header) {
    if (compression == kRgb) {
        if (header.bitsPerPixel == 16) {
            header.masks = {0x7c00u, 0x3e0u, 0x1fu, 0u};
        } else {
            header.masks = {0xff0000u, 0xff00u, 0xffu, 0u};
        }
        return 0;
    }
    const bool inHeader = headerBytes > kInfoHeaderBytes;
    const bool hasAlpha = inHeader ? headerBytes >= 56 : compression == kAlphaBitFields;
    const std::uint32_t usable = header.bitsPerPixel == 16 ? 0xffffu : 0xffffffffu;
    for (std::size_t i = 0; i < 4; ++i) {
        header.masks[i] = i < 3 || hasAlpha ? fields.at32(kMaskOffset + 4 * i) & usable : 0u;
    }
    if (inHeader) return 0;
    return hasAlpha ? 16 : 12;
}

void readPalette(std::span<const std::uint8_t> entries, std::size_t entryBytes, std::size_t count,
                 DibHeader& header) {
    header.palette.fill(makeOpaque(0, 0, 0));
    count = std::min({count, entries.size() / entryBytes, std::size_t(1) << header.bitsPerPixel});
    for (std::size_t i = 0; i < count; ++i) {
        const std::uint8_t* entry = entries.data() + i * entryBytes;
        header.palette[i] = makeOpaque(entry[2], entry[1], entry[0]);
    }
}

}  // namespace

std::optional<DibHeader> parseDibHeader(std::span<const std::uint8_t> bytes,
                                        std::size_t pixelOffset) noexcept {
    if (bytes.size() < kCoreHeaderBytes) return {};
    const std::size_t headerBytes = Fields(bytes).at32(0);
    if (!isKnownHeaderSize(headerBytes) || headerBytes > bytes.size()) return {};
    const bool isCore = headerBytes == kCoreHeaderBytes;
    // Fields that a shorter header leaves out read as 0, but masks may stand behind it.
    const Fields fields(bytes.first(std::min(bytes.size(), std::max(headerBytes, kMaskOffset + 16))));
    const auto optionalField = [&](std::size_t offset) {
        return headerBytes >= offset + 4 && !isCore ? fields.at32(offset) : 0u;
    };

    DibHeader header;
    if (!readSize(fields, isCore, header)) return {};
    header.bitsPerPixel = int(isCore ? fields.at16(10) : fields.at16(14));
    const std::uint32_t compression = optionalField(16);
    const std::optional<DibCoding> coding = codingOf(compression, header.bitsPerPixel, headerBytes);
    if (!coding) return {};
    header.coding = *coding;

    std::size_t paletteOffset = headerBytes;
    if (header.coding == DibCoding::Masks) {
        paletteOffset += readMasks(fields, compression, headerBytes, header);
    }
    if (paletteOffset > bytes.size()) return {};
    const std::span<const std::uint8_t> behindHeader = bytes.subspan(paletteOffset);

    // A count beyond what the depth can name still moves the pixels: true-colour files carry such palettes as
    // advice. A pixel offset that contradicts the count wins over it.
    const std::size_t entryBytes = isCore ? 3 : 4;
    const bool isIndexed = header.bitsPerPixel <= 8;
    std::uint64_t entries = optionalField(32);
    if (isIndexed && entries == 0) entries = std::uint64_t(1) << header.bitsPerPixel;
    std::uint64_t paletteBytes = entries * entryBytes;
    const bool isOffsetGiven = pixelOffset >= paletteOffset;
    if (isOffsetGiven) paletteBytes = std::min<std::uint64_t>(paletteBytes, pixelOffset - paletteOffset);
    paletteBytes = std::min<std::uint64_t>(paletteBytes, behindHeader.size());
    if (isIndexed) {
        readPalette(behindHeader.first(std::size_t(paletteBytes)), entryBytes, std::size_t(entries), header);
    }
    const std::size_t start = isOffsetGiven ? pixelOffset : paletteOffset + std::size_t(paletteBytes);
    if (start >= bytes.size()) return {};
    header.pixels = bytes.subspan(start);
    return header;
}

}  // namespace orvane
