#include "platform/linux/png_codec.h"

#include <libdeflate.h>

#include <algorithm>
#include <array>

#include "platform/linux/png_contents.h"
#include "platform/linux/png_filters.h"
#include "platform/linux/png_format.h"

namespace orvane {
namespace {

using namespace png;

/// DEFLATE cannot expand further: 258 bytes from a code of two bits. A picture that claims more than its data
/// can hold is a lie, found out before anything is allocated for it.
constexpr std::uint64_t kMaxExpansion = 1032;

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
