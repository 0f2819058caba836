#include "platform/linux/tiff_codec.h"

#include <gtest/gtest.h>

#include <cstring>
#include <functional>

#include "platform/linux/tiff_stream.h"
#include "support/recording_decode_target.h"

namespace orvane {
namespace {

using Bytes = std::vector<std::uint8_t>;

/// How the samples of a page are stored.
struct Form {
    const char* name;
    int photometric = PHOTOMETRIC_RGB;
    int bits = 8;
    int samples = 3;
    int compression = COMPRESSION_NONE;
    bool planar = false, tiled = false;
    int extraKind = -1;  ///< of the last sample
    bool isFloat = false;
    int orientation = ORIENTATION_TOPLEFT;
};

using SampleAt = std::function<std::uint32_t(int x, int y, int sample)>;

/// Packs one row of one piece: whole bytes as numbers of this machine, others as bits from the left.
void packRow(const Form& form, int left, int columns, int y, int firstSample, int count,
             const SampleAt& sampleAt, std::uint8_t* out) {
    int bit = 0;
    for (int x = left; x < left + columns; ++x) {
        for (int s = firstSample; s < firstSample + count; ++s, bit += form.bits) {
            const std::uint32_t value = sampleAt(x, y, s);
            if (form.bits % 8 == 0) {
                std::memcpy(out + bit / 8, &value, std::size_t(form.bits / 8));
                continue;
            }
            for (int b = 0; b < form.bits; ++b) {
                const unsigned one = (value >> (form.bits - 1 - b)) & 1u;
                out[(bit + b) / 8] |= std::uint8_t(one << (7 - (bit + b) % 8));
            }
        }
    }
}

Bytes makeTiff(const Form& form, int width, int height, const SampleAt& sampleAt,
               const std::function<void(TIFF*)>& more = {}) {
    TiffOutput output;
    TiffHandle handle = openTiffForWriting(output);
    TIFF* tiff = handle.get();
    TIFFSetField(tiff, TIFFTAG_IMAGEWIDTH, width);
    TIFFSetField(tiff, TIFFTAG_IMAGELENGTH, height);
    TIFFSetField(tiff, TIFFTAG_BITSPERSAMPLE, form.bits);
    TIFFSetField(tiff, TIFFTAG_SAMPLESPERPIXEL, form.samples);
    TIFFSetField(tiff, TIFFTAG_PHOTOMETRIC, form.photometric);
    TIFFSetField(tiff, TIFFTAG_COMPRESSION, form.compression);
    TIFFSetField(tiff, TIFFTAG_PLANARCONFIG, form.planar ? PLANARCONFIG_SEPARATE : PLANARCONFIG_CONTIG);
    TIFFSetField(tiff, TIFFTAG_ORIENTATION, form.orientation);
    if (form.isFloat) TIFFSetField(tiff, TIFFTAG_SAMPLEFORMAT, SAMPLEFORMAT_IEEEFP);
    const auto extra = std::uint16_t(form.extraKind);
    if (form.extraKind >= 0) TIFFSetField(tiff, TIFFTAG_EXTRASAMPLES, 1, &extra);
    int pieceWidth = width, pieceHeight = 2;
    if (form.tiled) {
        pieceWidth = pieceHeight = 16;
        TIFFSetField(tiff, TIFFTAG_TILEWIDTH, pieceWidth);
        TIFFSetField(tiff, TIFFTAG_TILELENGTH, pieceHeight);
    } else {
        TIFFSetField(tiff, TIFFTAG_ROWSPERSTRIP, pieceHeight);
    }
    if (more) more(tiff);

    std::uint32_t piece = 0;
    const int samplesTogether = form.planar ? 1 : form.samples;
    for (int first = 0; first < form.samples; first += samplesTogether) {
        for (int top = 0; top < height; top += pieceHeight) {
            for (int left = 0; left < width; left += pieceWidth, ++piece) {
                const int rows = form.tiled ? pieceHeight : std::min(pieceHeight, height - top);
                const std::size_t rowBytes = std::size_t(pieceWidth * samplesTogether * form.bits + 7) / 8;
                Bytes data(rowBytes * std::size_t(rows));
                for (int y = top; y < std::min(top + rows, height); ++y) {
                    packRow(form, left, std::min(pieceWidth, width - left), y, first, samplesTogether,
                            sampleAt, data.data() + rowBytes * std::size_t(y - top));
                }
                const auto size = tmsize_t(data.size());
                if (form.tiled) {
                    TIFFWriteEncodedTile(tiff, piece, data.data(), size);
                } else {
                    TIFFWriteEncodedStrip(tiff, piece, data.data(), size);
                }
            }
        }
    }
    handle.reset();
    return output.bytes;
}

std::uint32_t fullValue(const Form& form) {
    if (form.isFloat) return 0x3f800000u;  // 1.0
    return form.bits == 32 ? 0xffffffffu : (1u << form.bits) - 1;
}

constexpr char kPaletteLetters[] = "kwrgbcmy";

/// Letters as samples of nothing and of everything.
Bytes makeLetterTiff(const Form& form, const std::string& letters) {
    const LetterPicture picture(letters);
    const std::uint32_t full = fullValue(form);
    const auto sampleAt = [&](int x, int y, int sample) -> std::uint32_t {
        const Argb pixel = picture.view().at(x, y);
        const bool red = redOf(pixel) != 0, green = greenOf(pixel) != 0, blue = blueOf(pixel) != 0;
        const bool colours[] = {red, green, blue};
        if (form.extraKind >= 0 && sample == form.samples - 1) return alphaOf(pixel) != 0 ? full : 0;
        switch (form.photometric) {
            case PHOTOMETRIC_MINISWHITE:
                return red ? 0 : full;
            case PHOTOMETRIC_MINISBLACK:
                return red ? full : 0;
            case PHOTOMETRIC_SEPARATED:
                return sample < 3 && !colours[sample] ? full : 0;
            case PHOTOMETRIC_PALETTE:
                return std::uint32_t(
                    std::string(kPaletteLetters).find(letters[std::size_t(y * (picture.width + 1) + x)]));
            default:
                return sample < 3 && colours[sample] ? full : 0;
        }
    };
    return makeTiff(form, picture.width, picture.height, sampleAt, [&](TIFF* tiff) {
        if (form.photometric != PHOTOMETRIC_PALETTE) return;
        std::vector<std::uint16_t> channels[3];
        for (std::size_t i = 0; i < std::size_t(1) << form.bits; ++i) {
            const Argb colour = colourOfLetter(kPaletteLetters[i % 8]);
            channels[0].push_back(std::uint16_t(redOf(colour) * 257));
            channels[1].push_back(std::uint16_t(greenOf(colour) * 257));
            channels[2].push_back(std::uint16_t(blueOf(colour) * 257));
        }
        TIFFSetField(tiff, TIFFTAG_COLORMAP, channels[0].data(), channels[1].data(), channels[2].data());
    });
}

const Form kColourForms[] = {
    {"RGB"},
    {"RGB LZW", PHOTOMETRIC_RGB, 8, 3, COMPRESSION_LZW},
    {"RGB Deflate in tiles", PHOTOMETRIC_RGB, 8, 3, COMPRESSION_ADOBE_DEFLATE, false, true},
    {"RGB PackBits, planes apart", PHOTOMETRIC_RGB, 8, 3, COMPRESSION_PACKBITS, true},
    {"RGB planes apart in tiles", PHOTOMETRIC_RGB, 8, 3, COMPRESSION_NONE, true, true},
    {"RGB of 1 bit", PHOTOMETRIC_RGB, 1, 3},
    {"RGB of 2 bits, planes apart", PHOTOMETRIC_RGB, 2, 3, COMPRESSION_NONE, true},
    {"RGB of 4 bits", PHOTOMETRIC_RGB, 4, 3},
    {"RGB of 5 bits", PHOTOMETRIC_RGB, 5, 3},
    {"RGB of 12 bits", PHOTOMETRIC_RGB, 12, 3},
    {"RGB of 16 bits", PHOTOMETRIC_RGB, 16, 3, COMPRESSION_LZW},
    {"RGB of 32 bits", PHOTOMETRIC_RGB, 32, 3},
    {"RGB floating", PHOTOMETRIC_RGB, 32, 3, COMPRESSION_NONE, false, false, -1, true},
    {"RGB with an unexplained sample", PHOTOMETRIC_RGB, 8, 4, COMPRESSION_NONE, false, false,
     EXTRASAMPLE_UNSPECIFIED},
    {"palette 4", PHOTOMETRIC_PALETTE, 4, 1},
    {"palette 8", PHOTOMETRIC_PALETTE, 8, 1, COMPRESSION_LZW},
    {"CMYK", PHOTOMETRIC_SEPARATED, 8, 4},
    {"CMYK of 16 bits, planes apart", PHOTOMETRIC_SEPARATED, 16, 4, COMPRESSION_LZW, true},
};
const Form kGreyForms[] = {
    {"grey 1", PHOTOMETRIC_MINISBLACK, 1, 1},
    {"grey 1 white first", PHOTOMETRIC_MINISWHITE, 1, 1},
    {"fax", PHOTOMETRIC_MINISWHITE, 1, 1, COMPRESSION_CCITTFAX4},
    {"grey 2", PHOTOMETRIC_MINISBLACK, 2, 1},
    {"grey 4 white first", PHOTOMETRIC_MINISWHITE, 4, 1},
    {"grey 8", PHOTOMETRIC_MINISBLACK, 8, 1, COMPRESSION_LZW},
    {"grey 16 in tiles", PHOTOMETRIC_MINISBLACK, 16, 1, COMPRESSION_LZW, false, true},
    {"grey floating", PHOTOMETRIC_MINISBLACK, 32, 1, COMPRESSION_NONE, false, false, -1, true},
};
const Form kAlphaForms[] = {
    {"RGBA", PHOTOMETRIC_RGB, 8, 4, COMPRESSION_NONE, false, false, EXTRASAMPLE_UNASSALPHA},
    {"RGBA premultiplied", PHOTOMETRIC_RGB, 8, 4, COMPRESSION_NONE, false, false, EXTRASAMPLE_ASSOCALPHA},
    {"RGBA 16, planes apart", PHOTOMETRIC_RGB, 16, 4, COMPRESSION_LZW, true, false, EXTRASAMPLE_UNASSALPHA},
};

TEST(TiffDecode, EveryForm) {
    // Longer than a tile, and than the bytes of one row of bits.
    const std::string colours = "rgbcmykwrrggbbwkycm/wkwkrcrcrcbmymymggk/kkwwrrbbggccmmyykwr";
    const std::string greys = "kwkwwwkkkwkwkwwwwkk/wwwwwwwwwwkkkkkkkkk/kwwkwwkwwkwwkwwkwwk";
    const std::string alpha = "rg.bk.w..rgb.kwmc.y/.................../rgbrgbrgbrgbrgbrgbr";
    for (const Form& form : kColourForms)
        EXPECT_EQ(decodedLetters(decodeTiff, makeLetterTiff(form, colours)), colours) << form.name;
    for (const Form& form : kGreyForms)
        EXPECT_EQ(decodedLetters(decodeTiff, makeLetterTiff(form, greys)), greys) << form.name;
    for (const Form& form : kAlphaForms)
        EXPECT_EQ(decodedLetters(decodeTiff, makeLetterTiff(form, alpha)), alpha) << form.name;
}

TEST(TiffDecode, EveryOrientation) {
    const char* const expected[] = {"rgb/kwc",  "bgr/cwk",  "cwk/bgr",  "kwc/rgb",
                                    "rk/gw/bc", "kr/wg/cb", "cb/wg/kr", "bc/gw/rk"};
    for (const bool tiled : {false, true}) {
        for (int orientation = 1; orientation <= 8; ++orientation) {
            Form form{"", PHOTOMETRIC_RGB, 8, 3, COMPRESSION_NONE, false, tiled};
            form.orientation = orientation;
            EXPECT_EQ(decodedLetters(decodeTiff, makeLetterTiff(form, "rgb/kwc")), expected[orientation - 1]);
        }
    }
}

TEST(TiffDecode, ExactValues) {
    const auto decodedPixel = [](const Form& form, std::vector<std::uint32_t> samples) {
        const Bytes bytes = makeTiff(form, 1, 1, [&](int, int, int s) { return samples[std::size_t(s)]; });
        RecordingDecodeTarget target;
        EXPECT_TRUE(decodeTiff(bytes, target));
        return target.picture() ? target.picture().at(0, 0) : 0u;
    };
    const Form premultiplied = kAlphaForms[1], straight = kAlphaForms[0];
    EXPECT_EQ(decodedPixel(straight, {10, 20, 30, 1}), makeArgb(1, 10, 20, 30));
    EXPECT_EQ(decodedPixel(straight, {10, 20, 30, 0}), makeArgb(0, 10, 20, 30));
    EXPECT_EQ(decodedPixel(premultiplied, {64, 32, 0, 128}), makeArgb(128, 128, 64, 0));  // 127.5, 63.75
    EXPECT_EQ(decodedPixel(premultiplied, {200, 3, 1, 100}), makeArgb(100, 255, 8, 3))
        << "more than its alpha";
    EXPECT_EQ(decodedPixel(premultiplied, {9, 9, 9, 0}), 0u);
    const Form grey16{"", PHOTOMETRIC_MINISBLACK, 16, 1}, grey4{"", PHOTOMETRIC_MINISBLACK, 4, 1};
    EXPECT_EQ(decodedPixel(grey16, {0x7fff}), makeOpaque(127, 127, 127));
    EXPECT_EQ(decodedPixel(grey16, {0x8000}), makeOpaque(128, 128, 128));
    EXPECT_EQ(decodedPixel(grey4, {5}), makeOpaque(85, 85, 85));
    const Form cmyk{"", PHOTOMETRIC_SEPARATED, 8, 4};
    EXPECT_EQ(decodedPixel(cmyk, {55, 0, 255, 128}), makeOpaque(100, 127, 0));  // 200 and 255 times 127 / 255
    const Form real{"", PHOTOMETRIC_MINISBLACK, 32, 1, COMPRESSION_NONE, false, false, -1, true};
    EXPECT_EQ(decodedPixel(real, {0x3f000000u}), makeOpaque(128, 128, 128));  // 0.5
    EXPECT_EQ(decodedPixel(real, {0xbf800000u}), makeOpaque(0, 0, 0));        // -1
    EXPECT_EQ(decodedPixel(real, {0x7fc00000u}), makeOpaque(0, 0, 0));        // not a number
    EXPECT_EQ(decodedPixel(real, {0x7f800000u}), makeOpaque(255, 255, 255));  // infinite
}

TEST(TiffDecode, LumaAndChroma) {
    const auto luma = [](int, int, int sample) -> std::uint32_t {
        return sample == 0 ? 76 : sample == 1 ? 85 : 255;
    };
    const auto red = [](int, int, int sample) -> std::uint32_t { return sample == 0 ? 254 : 0; };
    const Form plain{"", PHOTOMETRIC_YCBCR}, jpeg{"", PHOTOMETRIC_YCBCR, 8, 3, COMPRESSION_JPEG, false, true};
    const Bytes files[] = {
        makeTiff(plain, 16, 16, luma, [](TIFF* tiff) { TIFFSetField(tiff, TIFFTAG_YCBCRSUBSAMPLING, 1, 1); }),
        makeTiff(jpeg, 16, 16, red,
                 [](TIFF* tiff) { TIFFSetField(tiff, TIFFTAG_JPEGCOLORMODE, JPEGCOLORMODE_RGB); }),
    };
    for (const Bytes& file : files) {
        RecordingDecodeTarget target;
        ASSERT_TRUE(decodeTiff(file, target));
        EXPECT_TRUE(target.isGuardIntact());
        const Argb pixel = target.picture().at(7, 15);
        EXPECT_EQ(alphaOf(pixel), 255u);
        EXPECT_GT(redOf(pixel), 250u);
        EXPECT_LT(greenOf(pixel) + blueOf(pixel), 8u);
    }
}

/// The offset of a field's value in a little-endian file.
std::size_t valueOffset(const Bytes& bytes, unsigned tag) {
    const auto at = [&](std::size_t offset) {
        return unsigned(bytes[offset]) | unsigned(bytes[offset + 1]) << 8;
    };
    const std::size_t directory = at(4) | at(6) << 16;
    for (std::size_t i = 0; i < at(directory); ++i) {
        if (at(directory + 2 + 12 * i) == tag) return directory + 2 + 12 * i + 8;
    }
    ADD_FAILURE() << "no field " << tag;
    return 8;
}

TEST(TiffDecode, LyingHeadersAllocateNothing) {
    const std::vector<Argb> pixels = makeTestPixels(20, 20, true);
    const Bytes packed = encodeTiff({pixels.data(), 20, 20, 20});
    const Bytes plain = makeLetterTiff(kColourForms[0], "rgb/kwc");
    const Bytes tiled = makeLetterTiff(kColourForms[2], "rgb/kwc");
    const struct {
        const char* what;
        const Bytes& file;
        std::vector<std::pair<unsigned, unsigned>> fields;
    } rows[] = {
        {"packed, 60 Mpx", packed, {{TIFFTAG_IMAGEWIDTH, 6000}, {TIFFTAG_IMAGELENGTH, 10000}}},
        {"packed, beyond the limit", packed, {{TIFFTAG_IMAGEWIDTH, 0xffff}, {TIFFTAG_IMAGELENGTH, 0xffff}}},
        {"packed, 64000 samples", packed, {{TIFFTAG_SAMPLESPERPIXEL, 64000}}},
        {"plain, more than its data", plain, {{TIFFTAG_IMAGELENGTH, 300}}},
        {"no width", plain, {{TIFFTAG_IMAGEWIDTH, 0}}},
        {"unknown compression", plain, {{TIFFTAG_COMPRESSION, 9999}}},
        {"7 samples of 64 bits", plain, {{TIFFTAG_BITSPERSAMPLE, 64}}},
        {"huge tiles", tiled, {{TIFFTAG_TILEWIDTH, 0xfff0}, {TIFFTAG_TILELENGTH, 0xfff0}}},
        {"tiles of no width", tiled, {{TIFFTAG_TILEWIDTH, 0}}},
    };
    for (const auto& row : rows) {
        Bytes bytes = row.file;
        for (const auto& [tag, value] : row.fields) {
            const std::size_t offset = valueOffset(bytes, tag);
            bytes[offset] = std::uint8_t(value);
            bytes[offset + 1] = std::uint8_t(value >> 8);
        }
        RecordingDecodeTarget target(0);
        EXPECT_FALSE(decodeTiff(bytes, target)) << row.what;
        EXPECT_EQ(target.requests, 0) << row.what;
    }
}

TEST(TiffDecode, EveryTruncationIsRefused) {
    // The directory stands behind the pixels in these files.
    for (const Form& form : {kColourForms[1], kColourForms[2], kColourForms[3], kAlphaForms[2]}) {
        EXPECT_EQ(countAcceptedPrefixes(decodeTiff, makeLetterTiff(form, "rgb/kwc")), 0) << form.name;
    }
    // Here a directory in front promises pixels that are no longer there.
    Bytes bytes = makeLetterTiff(kColourForms[0], "rgb/kwc");
    const std::size_t offset = valueOffset(bytes, TIFFTAG_STRIPOFFSETS);
    const auto size = std::uint32_t(bytes.size());
    bytes[offset] = std::uint8_t(size);
    bytes[offset + 1] = std::uint8_t(size >> 8);
    bytes.resize(bytes.size() + 17);
    EXPECT_EQ(decodedLetters(decodeTiff, bytes), "refused");
    bytes.resize(bytes.size() + 1);
    EXPECT_EQ(decodedLetters(decodeTiff, bytes), "kkk/kkk");
}

TEST(TiffEncode, ComesBackExactly) {
    for (const bool opaque : {true, false}) {
        for (const int width : {1, 2, 33, 700}) {
            const int height = 1400 / width;
            const std::vector<Argb> pixels = makeTestPixels(width, height, opaque);
            const PixelView picture{pixels.data(), width, height, width};
            EXPECT_TRUE(decodesTo(decodeTiff, encodeTiff(picture), picture))
                << width << (opaque ? " opaque" : "");
        }
    }
    // Taller than one strip, and with rows further apart than they are long.
    const std::vector<Argb> pixels = makeTestPixels(300, 700, false);
    const PixelView inner{pixels.data() + 7, 290, 700, 300};
    EXPECT_TRUE(decodesTo(decodeTiff, encodeTiff(inner), inner));
    EXPECT_TRUE(encodeTiff({}).empty());
}

TEST(TiffEncode, LeavesOutAnAlphaThatSaysNothing) {
    const auto samplesOf = [](const char* letters) {
        const Bytes bytes = encodeTiff(LetterPicture(letters).view());
        return int(bytes[valueOffset(bytes, TIFFTAG_SAMPLESPERPIXEL)]);
    };
    EXPECT_EQ(samplesOf("rgb/kwc"), 3);
    EXPECT_EQ(samplesOf("rgb/kw."), 4);
}

}  // namespace
}  // namespace orvane
