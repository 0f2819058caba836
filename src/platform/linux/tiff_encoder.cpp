#include <fcntl.h>

#include <algorithm>

#include "platform/linux/tiff_codec.h"
#include "platform/linux/tiff_stream.h"

namespace orvane {
namespace {

constexpr std::size_t kStripBytes = 1u << 18;

bool isOpaque(PixelView picture) {
    for (int y = 0; y < picture.height; ++y) {
        Argb all = 0xff000000u;
        for (int x = 0; x < picture.width; ++x) all &= picture.row(y)[x];
        if (alphaOf(all) != 255u) return false;
    }
    return true;
}

bool setFields(TIFF* tiff, PixelView picture, bool opaque, int rowsPerStrip) {
    const std::uint16_t alpha[] = {EXTRASAMPLE_UNASSALPHA};
    return TIFFSetField(tiff, TIFFTAG_IMAGEWIDTH, std::uint32_t(picture.width)) != 0 &&
           TIFFSetField(tiff, TIFFTAG_IMAGELENGTH, std::uint32_t(picture.height)) != 0 &&
           TIFFSetField(tiff, TIFFTAG_BITSPERSAMPLE, 8) != 0 &&
           TIFFSetField(tiff, TIFFTAG_SAMPLESPERPIXEL, opaque ? 3 : 4) != 0 &&
           (opaque || TIFFSetField(tiff, TIFFTAG_EXTRASAMPLES, 1, alpha) != 0) &&
           TIFFSetField(tiff, TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_RGB) != 0 &&
           TIFFSetField(tiff, TIFFTAG_PLANARCONFIG, PLANARCONFIG_CONTIG) != 0 &&
           TIFFSetField(tiff, TIFFTAG_ORIENTATION, ORIENTATION_TOPLEFT) != 0 &&
           TIFFSetField(tiff, TIFFTAG_COMPRESSION, COMPRESSION_LZW) != 0 &&
           TIFFSetField(tiff, TIFFTAG_PREDICTOR, PREDICTOR_HORIZONTAL) != 0 &&
           TIFFSetField(tiff, TIFFTAG_ROWSPERSTRIP, std::uint32_t(rowsPerStrip)) != 0 &&
           TIFFSetField(tiff, TIFFTAG_XRESOLUTION, 96.0) != 0 &&
           TIFFSetField(tiff, TIFFTAG_YRESOLUTION, 96.0) != 0 &&
           TIFFSetField(tiff, TIFFTAG_RESOLUTIONUNIT, RESUNIT_INCH) != 0;
}

std::uint8_t* packRow(const Argb* row, int width, bool opaque, std::uint8_t* out) {
    for (int x = 0; x < width; ++x) {
        *out++ = std::uint8_t(redOf(row[x]));
        *out++ = std::uint8_t(greenOf(row[x]));
        *out++ = std::uint8_t(blueOf(row[x]));
        if (!opaque) *out++ = std::uint8_t(alphaOf(row[x]));
    }
    return out;
}

bool writePage(TIFF* tiff, PixelView picture) {
    const bool opaque = isOpaque(picture);
    const std::size_t rowBytes = std::size_t(picture.width) * (opaque ? 3 : 4);
    const int rowsPerStrip =
        int(std::clamp<std::size_t>(kStripBytes / rowBytes, 1, std::size_t(picture.height)));
    if (!setFields(tiff, picture, opaque, rowsPerStrip)) return false;

    std::vector<std::uint8_t> strip(rowBytes * std::size_t(rowsPerStrip));
    std::uint32_t number = 0;
    for (int top = 0; top < picture.height; top += rowsPerStrip, ++number) {
        const int rows = std::min(rowsPerStrip, picture.height - top);
        std::uint8_t* out = strip.data();
        for (int y = top; y < top + rows; ++y) out = packRow(picture.row(y), picture.width, opaque, out);
        if (TIFFWriteEncodedStrip(tiff, number, strip.data(), out - strip.data()) < 0) return false;
    }
    return TIFFWriteDirectory(tiff) != 0;
}

}  // namespace

std::vector<std::uint8_t> encodeTiff(PixelView picture) noexcept try {
    if (!picture || !isAllowedImageSize(picture.width, picture.height)) return {};
    TiffOutput output;
    TiffHandle tiff = openTiffForWriting(output);
    const bool done = tiff && writePage(tiff.get(), picture);
    // Closing would flush what an encoder without memory left half-made; everything is written by now or
    // never.
    if (tiff) TIFFSetMode(tiff.get(), O_RDONLY);
    tiff.reset();
    if (!done || output.failed) return {};
    return std::move(output.bytes);
} catch (...) {
    return {};
}

}  // namespace orvane
