#include "platform/codecs/dib.h"

#include <algorithm>
#include <cstring>

#include "platform/codecs/dib_header.h"
#include "platform/codecs/dib_runs.h"

namespace orvane {
namespace {

constexpr std::size_t kHeaderBytes = 40;

std::uint64_t bitsToBytes(std::uint64_t bits) { return (bits + 7) / 8; }
std::uint64_t rowBytes(int width, int bitsPerPixel) {
    return (std::uint64_t(width) * unsigned(bitsPerPixel) + 31) / 32 * 4;
}

/// One colour channel of a masked pixel, stretched to 0..255 and rounded to nearest. A mask without bits
/// reads as `absent`; one with gaps counts as if its gaps were bits that are always 0.
class Channel {
 public:
    Channel(std::uint32_t mask, unsigned absent) : mask_(mask) {
        if (mask == 0) {
            table_[0] = std::uint8_t(absent);
            return;
        }
        while (((mask >> shift_) & 1u) == 0) ++shift_;
        maximum_ = mask >> shift_;
        for (std::uint32_t i = 0; i <= std::min(maximum_, 255u); ++i) table_[i] = std::uint8_t(stretched(i));
    }
    [[nodiscard]] unsigned of(std::uint32_t pixel) const {
        const std::uint32_t value = (pixel & mask_) >> shift_;
        return maximum_ <= 255u ? table_[value] : stretched(value);
    }

 private:
    [[nodiscard]] unsigned stretched(std::uint64_t value) const {
        return unsigned((value * 255u + maximum_ / 2) / maximum_);
    }

    std::uint32_t mask_;
    unsigned shift_ = 0;
    std::uint32_t maximum_ = 0;
    std::uint8_t table_[256] = {};
};

void convertIndexed(const std::uint8_t* in, int bits, const std::array<Argb, 256>& palette, Argb* out,
                    int width) {
    if (bits == 8) {
        for (int x = 0; x < width; ++x) out[x] = palette[in[x]];
        return;
    }
    const unsigned mask = (1u << bits) - 1;
    const int perByte = 8 / bits;
    for (int x = 0; x < width; x += perByte) {
        const unsigned packed = *in++;
        const int count = std::min(perByte, width - x);
        for (int i = 0; i < count; ++i) out[x + i] = palette[(packed >> (8 - bits * (i + 1))) & mask];
    }
}

void convertBgr(const std::uint8_t* in, Argb* out, int width) {
    // All but the last pixel may be read as a whole word, the fourth byte being the next pixel's first.
    for (int x = 0; x < width - 1; ++x) {
        std::uint32_t word;
        std::memcpy(&word, in + std::size_t(x) * 3, 4);
        out[x] = word | 0xff000000u;
    }
    const std::uint8_t* last = in + std::size_t(width - 1) * 3;
    out[width - 1] = makeOpaque(last[2], last[1], last[0]);
}

void convertBgrx(const std::uint8_t* in, Argb alpha, Argb* out, int width) {
    std::memcpy(out, in, std::size_t(width) * 4);
    for (int x = 0; x < width; ++x) out[x] |= alpha;
}

template <class Word>
void convertMasked(const std::uint8_t* in, const Channel (&channels)[4], Argb* out, int width) {
    for (int x = 0; x < width; ++x) {
        Word word;
        std::memcpy(&word, in + std::size_t(x) * sizeof word, sizeof word);
        out[x] =
            makeArgb(channels[3].of(word), channels[0].of(word), channels[1].of(word), channels[2].of(word));
    }
}

void decodePlainRows(const DibHeader& header, MutablePixelView picture) {
    const Channel channels[4] = {
        {header.masks[0], 0}, {header.masks[1], 0}, {header.masks[2], 0}, {header.masks[3], 255}};
    const bool isBgrx = header.masks[0] == 0xff0000u && header.masks[1] == 0xff00u &&
                        header.masks[2] == 0xffu && (header.masks[3] == 0 || header.masks[3] == 0xff000000u);
    const Argb bgrxAlpha = header.masks[3] == 0 ? 0xff000000u : 0u;
    const std::size_t stride = std::size_t(rowBytes(header.width, header.bitsPerPixel));
    for (int row = 0; row < header.height; ++row) {
        const std::uint8_t* in = header.pixels.data() + stride * std::size_t(row);
        Argb* out = picture.row(header.topDown ? row : header.height - 1 - row);
        switch (header.bitsPerPixel) {
            case 16:
                convertMasked<std::uint16_t>(in, channels, out, header.width);
                break;
            case 24:
                convertBgr(in, out, header.width);
                break;
            case 32:
                if (isBgrx) {
                    convertBgrx(in, bgrxAlpha, out, header.width);
                } else {
                    convertMasked<std::uint32_t>(in, channels, out, header.width);
                }
                break;
            default:
                convertIndexed(in, header.bitsPerPixel, header.palette, out, header.width);
        }
    }
}

/// The padding of the last row is often missing and never missed.
bool holdsAllRows(const DibHeader& header) {
    const std::uint64_t stride = rowBytes(header.width, header.bitsPerPixel);
    const std::uint64_t lastRow = bitsToBytes(std::uint64_t(header.width) * unsigned(header.bitsPerPixel));
    return stride * unsigned(header.height - 1) + lastRow <= header.pixels.size();
}

void append32(std::vector<std::uint8_t>& out, std::uint32_t value) {
    for (int shift = 0; shift < 32; shift += 8) out.push_back(std::uint8_t(value >> shift));
}

/// Four pixels make three words.
void packBgr(const Argb* in, std::uint8_t* out, int width) {
    int x = 0;
    for (; x + 4 <= width; x += 4, out += 12) {
        const std::uint32_t words[3] = {(in[x] & 0xffffffu) | in[x + 1] << 24,
                                        ((in[x + 1] >> 8) & 0xffffu) | in[x + 2] << 16,
                                        ((in[x + 2] >> 16) & 0xffu) | in[x + 3] << 8};
        std::memcpy(out, words, sizeof words);
    }
    for (; x < width; ++x, out += 3) {
        out[0] = std::uint8_t(blueOf(in[x]));
        out[1] = std::uint8_t(greenOf(in[x]));
        out[2] = std::uint8_t(redOf(in[x]));
    }
}

}  // namespace

bool decodeDib(std::span<const std::uint8_t> bytes, std::size_t pixelOffset, DecodeTarget& target) noexcept
    try {
    const std::optional<DibHeader> header = parseDibHeader(bytes, pixelOffset);
    if (!header) return false;
    const bool isRunLength =
        header->coding == DibCoding::RunLength8 || header->coding == DibCoding::RunLength4;
    if (!(isRunLength ? isPlausibleRunLengthSize(*header) : holdsAllRows(*header))) return false;

    const MutablePixelView picture = target.allocate(header->width, header->height);
    if (!picture) return false;
    if (isRunLength) return decodeDibRuns(*header, picture);
    decodePlainRows(*header, picture);
    return true;
} catch (...) {
    return false;  // the target ran out of memory
}

std::uint64_t dibBytes(int width, int height) {
    return kHeaderBytes + rowBytes(width, 24) * std::uint64_t(unsigned(height));
}

void appendDib(PixelView picture, std::vector<std::uint8_t>& out) {
    const std::size_t stride = std::size_t(rowBytes(picture.width, 24));
    append32(out, kHeaderBytes);
    append32(out, std::uint32_t(picture.width));
    append32(out, std::uint32_t(picture.height));
    append32(out, 1u | 24u << 16);  // planes, bits per pixel
    append32(out, 0);               // not compressed
    append32(out, std::uint32_t(stride * std::size_t(picture.height)));
    for (int i = 0; i < 4; ++i) append32(out, 0);  // resolution unstated, no palette

    // By way of one short row, so that the large buffer is touched once only.
    std::vector<std::uint8_t> row(stride);
    for (int y = picture.height - 1; y >= 0; --y) {
        packBgr(picture.row(y), row.data(), picture.width);
        out.insert(out.end(), row.begin(), row.end());
    }
}

}  // namespace orvane
