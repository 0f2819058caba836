#include <libdeflate.h>

#include <algorithm>
#include <array>
#include <cstring>

#include "platform/linux/png_codec.h"
#include "platform/linux/png_filters.h"
#include "platform/linux/png_format.h"

namespace orvane {
namespace {

using namespace png;

/// DEFLATE cannot expand further: 258 bytes from a code of two bits. A picture that claims more than its data
/// can hold is a lie, found out before anything is allocated for it.
constexpr std::uint64_t kMaxExpansion = 1032;

/// The pixels (x0 + i * stepX, y0 + j * stepY): one of the seven interlace passes, or the whole picture.
struct Pass {
    int x0, y0, stepX, stepY;
    [[nodiscard]] int columns(int width) const { return (width - x0 + stepX - 1) / stepX; }
    [[nodiscard]] int rows(int height) const { return (height - y0 + stepY - 1) / stepY; }
};
constexpr Pass kWhole[] = {{0, 0, 1, 1}};
constexpr Pass kAdam7[] = {{0, 0, 8, 8}, {4, 0, 8, 8}, {0, 4, 4, 8}, {2, 0, 4, 4},
                           {0, 2, 2, 4}, {1, 0, 2, 2}, {0, 1, 1, 2}};

struct Header {
    int width = 0, height = 0;
    unsigned bitDepth = 0;
    std::uint8_t colourType = 0;
    bool interlaced = false;

    [[nodiscard]] unsigned channels() const {
        switch (colourType) {
            case kRgb:
                return 3;
            case kGreyAlpha:
                return 2;
            case kRgba:
                return 4;
            default:
                return 1;
        }
    }
    [[nodiscard]] unsigned bitsPerPixel() const { return bitDepth * channels(); }
    [[nodiscard]] std::size_t pixelBytes() const { return std::max(1u, bitsPerPixel() / 8); }
    [[nodiscard]] std::size_t rowBytes(int columns) const {
        return (std::size_t(columns) * bitsPerPixel() + 7) / 8;
    }
    [[nodiscard]] std::span<const Pass> passes() const {
        return interlaced ? std::span<const Pass>(kAdam7) : std::span<const Pass>(kWhole);
    }
    [[nodiscard]] std::uint64_t rawBytes() const {
        std::uint64_t total = 0;
        for (const Pass& pass : passes())
            if (const int columns = pass.columns(width); columns > 0)
                total += std::uint64_t(pass.rows(height)) * (1 + rowBytes(columns));
        return total;
    }
};

/// Everything of a file that its picture needs.
struct Contents {
    Header header;
    /// Palette entries; of a palette too short for the picture's indices the rest is opaque black.
    std::array<Argb, 256> palette;
    bool hasPalette = false;
    /// The one grey or colour that stands for full transparency, in samples of the file's depth.
    bool hasTransparentColour = false;
    std::array<std::uint16_t, 3> transparentColour{};
    std::vector<std::span<const std::uint8_t>> data;
    std::uint64_t dataBytes = 0;
};

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

/// Walks the chunks up to the end mark; nothing but the list of picture data spans is allocated.
bool readContents(std::span<const std::uint8_t> bytes, Contents& contents) {
    contents.palette.fill(0xff000000u);
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

/// The raw picture: filter bytes and filtered rows, at least header.rawBytes() of them; null on failure.
Bytes inflate(const Contents& contents) {
    const std::uint64_t rawBytes = contents.header.rawBytes();
    if (contents.data.empty() || rawBytes > contents.dataBytes * kMaxExpansion) return nullptr;

    std::span<const std::uint8_t> packed = contents.data.front();
    Bytes joined;
    if (contents.data.size() > 1) {
        joined = allocateBytes(contents.dataBytes);
        if (!joined) return nullptr;
        std::uint8_t* end = joined.get();
        for (const auto& part : contents.data) end = std::copy(part.begin(), part.end(), end);
        packed = {joined.get(), end};
    }

    // Some writers append surplus bytes to the picture; with room for them the inflation still succeeds.
    const std::uint64_t room = rawBytes + 65536;
    Bytes raw = allocateBytes(room);
    const std::unique_ptr<libdeflate_decompressor, decltype(&libdeflate_free_decompressor)> decompressor(
        libdeflate_alloc_decompressor(), &libdeflate_free_decompressor);
    if (!raw || !decompressor) return nullptr;
    std::size_t inflated = 0;
    if (libdeflate_zlib_decompress(decompressor.get(), packed.data(), packed.size(), raw.get(),
                                   std::size_t(room), &inflated) != LIBDEFLATE_SUCCESS)
        return nullptr;
    return inflated >= rawBytes ? std::move(raw) : nullptr;
}

/// The nearest 8-bit value, v / 257, by multiplication.
inline unsigned roundedTo8(unsigned v) { return (v * 255u + 32895u) >> 16; }

inline unsigned readBig16(const std::uint8_t* at) { return unsigned(at[0] << 8 | at[1]); }

/// Turns unfiltered rows of one picture into pixels.
class RowExpander {
 public:
    explicit RowExpander(const Contents& contents) : contents_(contents) {
        const Header& header = contents.header;
        if (header.colourType == kPalette) {
            table_ = contents.palette;
        } else if (header.colourType == kGrey && header.bitDepth <= 8) {
            const unsigned top = (1u << header.bitDepth) - 1;
            for (unsigned v = 0; v <= top; ++v) {
                const unsigned grey = v * 255 / top;
                const bool clear = contents.hasTransparentColour && v == contents.transparentColour[0];
                table_[v] = makeArgb(clear ? 0 : 255, grey, grey, grey);
            }
        }
    }

    void expand(const std::uint8_t* row, Argb* out, int columns) const {
        const bool wide = contents_.header.bitDepth == 16;
        switch (contents_.header.colourType) {
            case kRgb:
                wide ? expandRgb16(row, out, columns) : expandRgb8(row, out, columns);
                break;
            case kRgba:
                for (int x = 0; x < columns; ++x)
                    out[x] = wide ? makeArgb(sample16(row, 4 * x + 3), sample16(row, 4 * x),
                                             sample16(row, 4 * x + 1), sample16(row, 4 * x + 2))
                                  : makeArgb(row[4 * x + 3], row[4 * x], row[4 * x + 1], row[4 * x + 2]);
                break;
            case kGreyAlpha:
                for (int x = 0; x < columns; ++x) {
                    const unsigned grey = wide ? sample16(row, 2 * x) : row[2 * x];
                    out[x] = makeArgb(wide ? sample16(row, 2 * x + 1) : row[2 * x + 1], grey, grey, grey);
                }
                break;
            default:
                wide ? expandGrey16(row, out, columns) : expandIndexed(row, out, columns);
        }
    }

 private:
    static unsigned sample16(const std::uint8_t* row, std::ptrdiff_t index) {
        return roundedTo8(readBig16(row + 2 * index));
    }

    // Grey of up to 8 bits takes this road too: its levels are a palette.
    void expandIndexed(const std::uint8_t* row, Argb* out, int columns) const {
        const unsigned depth = contents_.header.bitDepth, mask = (1u << depth) - 1;
        if (depth == 8) {
            for (int x = 0; x < columns; ++x) out[x] = table_[row[x]];
            return;
        }
        unsigned shift = 8;
        for (int x = 0; x < columns; ++x) {
            shift -= depth;
            out[x] = table_[(*row >> shift) & mask];
            if (shift == 0) {
                shift = 8;
                ++row;
            }
        }
    }

    void expandGrey16(const std::uint8_t* row, Argb* out, int columns) const {
        for (int x = 0; x < columns; ++x) {
            const unsigned value = readBig16(row + 2 * x), grey = roundedTo8(value);
            const bool clear = contents_.hasTransparentColour && value == contents_.transparentColour[0];
            out[x] = makeArgb(clear ? 0 : 255, grey, grey, grey);
        }
    }

    void expandRgb8(const std::uint8_t* row, Argb* out, int columns) const {
        for (int x = 0; x < columns; ++x) out[x] = makeOpaque(row[3 * x], row[3 * x + 1], row[3 * x + 2]);
        if (!contents_.hasTransparentColour) return;
        const auto& key = contents_.transparentColour;
        const Argb clear = makeOpaque(key[0], key[1], key[2]);
        for (int x = 0; x < columns; ++x)
            if (out[x] == clear) out[x] &= 0xffffffu;
    }

    void expandRgb16(const std::uint8_t* row, Argb* out, int columns) const {
        const auto& key = contents_.transparentColour;
        for (int x = 0; x < columns; ++x, row += 6) {
            const unsigned r = readBig16(row), g = readBig16(row + 2), b = readBig16(row + 4);
            const bool clear = contents_.hasTransparentColour && r == key[0] && g == key[1] && b == key[2];
            out[x] = makeArgb(clear ? 0 : 255, roundedTo8(r), roundedTo8(g), roundedTo8(b));
        }
    }

    const Contents& contents_;
    std::array<Argb, 256> table_{};
};

bool writePixels(const Contents& contents, std::uint8_t* raw, MutablePixelView picture) {
    const Header& header = contents.header;
    const RowExpander expander(contents);
    const std::vector<std::uint8_t> zeros(header.rowBytes(header.width));
    std::vector<Argb> spread(header.interlaced ? std::size_t(header.width) : 0);
    for (const Pass& pass : header.passes()) {
        const int columns = pass.columns(header.width), rows = pass.rows(header.height);
        if (columns <= 0) continue;
        const std::size_t rowBytes = header.rowBytes(columns);
        const std::uint8_t* above = zeros.data();
        for (int j = 0; j < rows; ++j, raw += 1 + rowBytes) {
            std::uint8_t* const row = raw + 1;
            if (!undoFilter(*raw, row, above, rowBytes, header.pixelBytes())) return false;
            above = row;
            Argb* const out = picture.row(pass.y0 + j * pass.stepY);
            if (!header.interlaced) {
                expander.expand(row, out, columns);
                continue;
            }
            expander.expand(row, spread.data(), columns);
            for (int i = 0; i < columns; ++i) out[pass.x0 + i * pass.stepX] = spread[std::size_t(i)];
        }
    }
    return true;
}

}  // namespace

bool decodePng(std::span<const std::uint8_t> bytes, DecodeTarget& target) noexcept {
    try {
        if (bytes.size() < sizeof kSignature || !std::equal(kSignature, std::end(kSignature), bytes.begin()))
            return false;
        Contents contents;
        if (!readContents(bytes, contents)) return false;
        const Bytes raw = inflate(contents);
        if (!raw) return false;
        const MutablePixelView picture = target.allocate(contents.header.width, contents.header.height);
        return picture && writePixels(contents, raw.get(), picture);
    } catch (...) {
        return false;
    }
}

}  // namespace orvane
