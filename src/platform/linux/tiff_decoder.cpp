#include <algorithm>
#include <array>
#include <cstring>
#include <optional>

#include "platform/linux/tiff_codec.h"
#include "platform/linux/tiff_samples.h"
#include "platform/linux/tiff_stream.h"

namespace orvane {
namespace {

constexpr std::uint64_t kAlwaysPlausibleBytes = 1u << 22;

/// The compressions that are read, with the bytes that one byte of each may become: beyond that a size is a
/// lie.
struct Compression {
    std::uint16_t number;
    std::uint64_t maxExpansion;
};
constexpr Compression kCompressions[] = {
    {COMPRESSION_NONE, 1},         {COMPRESSION_PACKBITS, 64},        {COMPRESSION_LZW, 4096},
    {COMPRESSION_DEFLATE, 1100},   {COMPRESSION_ADOBE_DEFLATE, 1100}, {COMPRESSION_JPEG, 1024},
    {COMPRESSION_CCITTRLE, 8192},  {COMPRESSION_CCITTRLEW, 8192},     {COMPRESSION_CCITTFAX3, 8192},
    {COMPRESSION_CCITTFAX4, 8192}, {COMPRESSION_SGILOG, 64},          {COMPRESSION_SGILOG24, 2},
    {COMPRESSION_LZMA, 8192},      {COMPRESSION_ZSTD, 65536},         {COMPRESSION_WEBP, 65536},
};

std::uint16_t field16(TIFF* tiff, std::uint32_t tag, std::uint16_t otherwise) {
    std::uint16_t value = 0;
    return TIFFGetFieldDefaulted(tiff, tag, &value) != 0 ? value : otherwise;
}
std::uint32_t field32(TIFF* tiff, std::uint32_t tag) {
    std::uint32_t value = 0;
    return TIFFGetFieldDefaulted(tiff, tag, &value) != 0 ? value : 0;
}

/// Where stored rows go in the picture: the orientations 5 to 8 stand on their side.
class Placement {
 public:
    Placement(int width, int height, int orientation)
        : width_(width),
          height_(height),
          orientation_(orientation >= 1 && orientation <= 8 ? orientation : 1) {}

    [[nodiscard]] int pictureWidth() const { return swapsSides() ? height_ : width_; }
    [[nodiscard]] int pictureHeight() const { return swapsSides() ? width_ : height_; }
    /// Whether rows are written as they come, so that they need no copy.
    [[nodiscard]] bool keepsRows() const { return orientation_ == 1 || orientation_ == 4; }
    [[nodiscard]] Argb* place(MutablePixelView picture, int x, int y) const {
        const int right = width_ - 1 - x, bottom = height_ - 1 - y;
        switch (orientation_) {
            case 2:
                return &picture.at(right, y);
            case 3:
                return &picture.at(right, bottom);
            case 4:
                return &picture.at(x, bottom);
            case 5:
                return &picture.at(y, x);
            case 6:
                return &picture.at(bottom, x);
            case 7:
                return &picture.at(bottom, right);
            case 8:
                return &picture.at(y, right);
            default:
                return &picture.at(x, y);
        }
    }
    void copyRow(const Argb* row, int count, MutablePixelView picture, int x, int y) const {
        for (int i = 0; i < count; ++i) *place(picture, x + i, y) = row[i];
    }

 private:
    [[nodiscard]] bool swapsSides() const { return orientation_ >= 5; }
    int width_, height_, orientation_;
};

void readAlpha(TIFF* tiff, TiffSamples& samples) {
    std::uint16_t count = 0;
    std::uint16_t* kinds = nullptr;
    if (TIFFGetFieldDefaulted(tiff, TIFFTAG_EXTRASAMPLES, &count, &kinds) == 0 || kinds == nullptr) return;
    const int first = samples.colourSamples();
    for (int i = 0; i < count && first + i < samples.samplesPerPixel; ++i) {
        if (kinds[i] != EXTRASAMPLE_ASSOCALPHA && kinds[i] != EXTRASAMPLE_UNASSALPHA) continue;
        samples.alpha = kinds[i] == EXTRASAMPLE_ASSOCALPHA ? TiffSamples::Alpha::Premultiplied
                                                           : TiffSamples::Alpha::Straight;
        samples.alphaSample = first + i;
        return;
    }
}

bool readPalette(TIFF* tiff, TiffSamples& samples) {
    std::array<std::uint16_t*, 3> channels{};
    if (TIFFGetField(tiff, TIFFTAG_COLORMAP, &channels[0], &channels[1], &channels[2]) == 0) return false;
    const std::size_t count = std::size_t(1) << samples.bits;
    // Entries should have 16 bits, but some writers leave them at 8.
    const bool hasBytes =
        std::all_of(channels.begin(), channels.end(), [count](const std::uint16_t* channel) {
            return std::all_of(channel, channel + count, [](std::uint16_t value) { return value < 256; });
        });
    const auto toByte = [hasBytes](unsigned value) {
        return hasBytes ? value : (value * 255u + 32767u) / 65535u;
    };
    for (std::size_t i = 0; i < count; ++i) {
        samples.palette.push_back(
            makeOpaque(toByte(channels[0][i]), toByte(channels[1][i]), toByte(channels[2][i])));
    }
    return true;
}

bool readDepth(TIFF* tiff, TiffSamples& samples) {
    samples.bits = field16(tiff, TIFFTAG_BITSPERSAMPLE, 1);
    const int format = field16(tiff, TIFFTAG_SAMPLEFORMAT, SAMPLEFORMAT_UINT);
    samples.isFloat = format == SAMPLEFORMAT_IEEEFP;
    if (samples.isFloat) return samples.bits == 32;
    if (format != SAMPLEFORMAT_UINT && format != SAMPLEFORMAT_VOID) return false;
    return (samples.bits >= 1 && samples.bits <= 16) || samples.bits == 32;
}

/// Nothing for kinds of pixels that are left to the library or not read at all.
std::optional<TiffSamples> readSamples(TIFF* tiff) {
    using Colours = TiffSamples::Colours;
    TiffSamples samples;
    samples.samplesPerPixel = field16(tiff, TIFFTAG_SAMPLESPERPIXEL, 1);
    samples.isPlanar = samples.samplesPerPixel > 1 &&
                       field16(tiff, TIFFTAG_PLANARCONFIG, PLANARCONFIG_CONTIG) == PLANARCONFIG_SEPARATE;
    if (!readDepth(tiff, samples)) return {};
    switch (field16(tiff, TIFFTAG_PHOTOMETRIC, 0xffff)) {
        case PHOTOMETRIC_MINISWHITE:
            samples.isInverted = true;
            break;
        case PHOTOMETRIC_MINISBLACK:
            break;
        case PHOTOMETRIC_RGB:
            samples.colours = Colours::Rgb;
            break;
        case PHOTOMETRIC_PALETTE:
            samples.colours = Colours::Palette;
            if (samples.bits > 16 || !readPalette(tiff, samples)) return {};
            break;
        case PHOTOMETRIC_SEPARATED:
            if (field16(tiff, TIFFTAG_INKSET, INKSET_CMYK) != INKSET_CMYK) return {};
            samples.colours = Colours::Cmyk;
            break;
        case PHOTOMETRIC_YCBCR:
            // The JPEG library brings these to full size and to RGB by itself.
            if (field16(tiff, TIFFTAG_COMPRESSION, 0) != COMPRESSION_JPEG || samples.isPlanar ||
                samples.bits != 8 || samples.samplesPerPixel != 3) {
                return {};
            }
            TIFFSetField(tiff, TIFFTAG_JPEGCOLORMODE, JPEGCOLORMODE_RGB);
            samples.colours = Colours::Rgb;
            break;
        default:
            return {};
    }
    if (samples.samplesPerPixel < samples.colourSamples()) return {};
    readAlpha(tiff, samples);
    return samples;
}

class PageReader {
 public:
    PageReader(TIFF* tiff, std::size_t fileBytes) : tiff_(tiff), fileBytes_(fileBytes) {}

    bool decode(DecodeTarget& target) {
        const std::uint32_t width = field32(tiff_, TIFFTAG_IMAGEWIDTH),
                            height = field32(tiff_, TIFFTAG_IMAGELENGTH);
        if (!isAllowedImageSize(width, height) || !isKnownCompression()) return false;
        width_ = int(width);
        height_ = int(height);
        const Placement placement(width_, height_, field16(tiff_, TIFFTAG_ORIENTATION, ORIENTATION_TOPLEFT));
        const std::optional<TiffSamples> samples = readSamples(tiff_);
        return samples ? decodeSamples(*samples, placement, target) : decodeByLibrary(placement, target);
    }

 private:
    /// The pieces in which samples are stored: tiles, or strips as wide as the page.
    struct Pieces {
        bool areTiles = false;
        int width = 0, height = 0;
        std::uint64_t rowBytes = 0, bytes = 0;  ///< of one plane
    };

    bool isKnownCompression() {
        const std::uint16_t number = field16(tiff_, TIFFTAG_COMPRESSION, COMPRESSION_NONE);
        const auto* found = std::find_if(std::begin(kCompressions), std::end(kCompressions),
                                         [number](const Compression& c) { return c.number == number; });
        if (found == std::end(kCompressions) || TIFFIsCODECConfigured(number) == 0) return false;
        maxExpansion_ = found->maxExpansion;
        return true;
    }
    [[nodiscard]] bool isPlausible(std::uint64_t decodedBytes) const {
        const std::uint64_t possible = fileBytes_ * maxExpansion_;
        return decodedBytes <= (maxExpansion_ == 1 ? possible : std::max(possible, kAlwaysPlausibleBytes));
    }

    /// The library's idea of a row must be ours, or the samples are arranged in some other way.
    std::optional<Pieces> measurePieces(const TiffSamples& samples) {
        Pieces pieces;
        pieces.areTiles = TIFFIsTiled(tiff_) != 0;
        std::uint32_t width = std::uint32_t(width_), height = 0;
        if (pieces.areTiles) {
            width = field32(tiff_, TIFFTAG_TILEWIDTH);
            height = field32(tiff_, TIFFTAG_TILELENGTH);
        } else {
            height = std::min(field32(tiff_, TIFFTAG_ROWSPERSTRIP), std::uint32_t(height_));
        }
        if (!isAllowedImageSize(width, height)) return {};
        pieces.width = int(width);
        pieces.height = int(height);
        pieces.rowBytes = samples.rowBytes(pieces.width);
        pieces.bytes = pieces.rowBytes * height;
        const std::uint64_t libraryBytes =
            pieces.areTiles ? TIFFTileSize64(tiff_) : TIFFVStripSize64(tiff_, height);
        if (pieces.bytes != libraryBytes) return {};
        return pieces;
    }

    bool decodeSamples(const TiffSamples& samples, const Placement& placement, DecodeTarget& target) {
        const std::optional<Pieces> pieces = measurePieces(samples);
        if (!pieces) return false;
        const std::vector<int> used = samples.usedSamples();
        const std::uint64_t planes = samples.isPlanar ? used.size() : 1;
        const std::uint64_t allPlanes = samples.isPlanar ? unsigned(samples.samplesPerPixel) : 1;
        if (!isPlausible(samples.rowBytes(width_) * std::uint64_t(height_) * allPlanes) ||
            !isPlausible(pieces->bytes) || pieces->bytes * planes > kMaxImageBytes) {
            return false;
        }

        const MutablePixelView picture = target.allocate(placement.pictureWidth(), placement.pictureHeight());
        if (!picture) return false;
        std::vector<std::uint8_t> memory(std::size_t(pieces->bytes * planes) + TiffRowConverter::kReadAhead);
        std::vector<Argb> row(placement.keepsRows() ? 0 : std::size_t(pieces->width));
        TiffRowConverter converter(samples, pieces->width);
        for (std::int64_t top = 0; top < height_; top += pieces->height) {
            for (std::int64_t left = 0; left < width_; left += pieces->width) {
                const int x = int(left), y = int(top);
                const int columns = std::min(pieces->width, width_ - x),
                          rows = std::min(pieces->height, height_ - y);
                for (std::size_t plane = 0; plane < planes; ++plane) {
                    const int sample = samples.isPlanar ? used[plane] : 0;
                    std::uint8_t* out = memory.data() + plane * std::size_t(pieces->bytes);
                    if (!readPiece(*pieces, x, y, rows, sample, out)) return false;
                }
                for (int i = 0; i < rows; ++i) {
                    std::array<const std::uint8_t*, 5> planeRows{};
                    for (std::size_t s = 0; s < used.size(); ++s) {
                        planeRows[s] = memory.data() +
                                       (samples.isPlanar ? s : 0) * std::size_t(pieces->bytes) +
                                       std::size_t(i) * std::size_t(pieces->rowBytes);
                    }
                    if (placement.keepsRows()) {
                        converter.convert(planeRows, columns, placement.place(picture, x, y + i));
                    } else {
                        converter.convert(planeRows, columns, row.data());
                        placement.copyRow(row.data(), columns, picture, x, y + i);
                    }
                }
            }
        }
        return true;
    }

    bool readPiece(const Pieces& pieces, int x, int y, int rows, int sample, std::uint8_t* out) {
        const auto plane = std::uint16_t(sample);
        if (pieces.areTiles) {
            const std::uint32_t tile = TIFFComputeTile(tiff_, std::uint32_t(x), std::uint32_t(y), 0, plane);
            const auto size = tmsize_t(pieces.bytes);
            return TIFFReadEncodedTile(tiff_, tile, out, size) == size;
        }
        const std::uint32_t strip = TIFFComputeStrip(tiff_, std::uint32_t(y), plane);
        const auto size = tmsize_t(pieces.rowBytes * std::uint64_t(rows));
        return TIFFReadEncodedStrip(tiff_, strip, out, size) == size;
    }

    /// Uncommon colour spaces, none of which has alpha, by the library's own conversion.
    bool decodeByLibrary(const Placement& placement, DecodeTarget& target) {
        const std::uint16_t photometric = field16(tiff_, TIFFTAG_PHOTOMETRIC, 0xffff);
        if (photometric != PHOTOMETRIC_YCBCR && photometric != PHOTOMETRIC_CIELAB &&
            photometric != PHOTOMETRIC_LOGL && photometric != PHOTOMETRIC_LOGLUV) {
            return false;
        }
        const std::uint64_t pixels = std::uint64_t(width_) * std::uint64_t(height_);
        const std::uint64_t pieceBytes =
            TIFFIsTiled(tiff_) != 0 ? TIFFTileSize64(tiff_) : TIFFStripSize64(tiff_);
        char message[1024];
        if (!isPlausible(pixels) || !isPlausible(pieceBytes) || TIFFRGBAImageOK(tiff_, message) == 0)
            return false;

        const MutablePixelView picture = target.allocate(placement.pictureWidth(), placement.pictureHeight());
        if (!picture) return false;
        std::vector<std::uint32_t> raster(static_cast<std::size_t>(pixels));
        TIFFRGBAImage image{};
        if (TIFFRGBAImageBegin(&image, tiff_, 1, message) == 0) return false;
        image.req_orientation = image.orientation;  // turned afterwards, with those that it cannot turn
        const int done =
            TIFFRGBAImageGet(&image, raster.data(), std::uint32_t(width_), std::uint32_t(height_));
        TIFFRGBAImageEnd(&image);
        if (done == 0) return false;
        for (int y = 0; y < height_; ++y) {
            std::uint32_t* row = raster.data() + std::size_t(y) * std::size_t(width_);
            for (int x = 0; x < width_; ++x)
                row[x] = makeOpaque(TIFFGetR(row[x]), TIFFGetG(row[x]), TIFFGetB(row[x]));
            placement.copyRow(row, width_, picture, 0, y);
        }
        return true;
    }

    TIFF* tiff_;
    std::uint64_t fileBytes_;
    std::uint64_t maxExpansion_ = 1;
    int width_ = 0, height_ = 0;
};

}  // namespace

bool decodeTiff(std::span<const std::uint8_t> bytes, DecodeTarget& target) noexcept try {
    TiffInput input{bytes};
    const TiffHandle tiff = openTiffForReading(input);
    return tiff && PageReader(tiff.get(), bytes.size()).decode(target);
} catch (...) {
    return false;
}

}  // namespace orvane
