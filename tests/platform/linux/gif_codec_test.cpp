#include "platform/linux/gif_codec.h"

#include <gtest/gtest.h>

#include <string>

#include "support/recording_decode_target.h"

namespace orvane {
namespace {

using Bytes = std::vector<std::uint8_t>;

struct Frame {
    int left = 0, top = 0;
    std::string letters;  ///< rows of palette letters, in the order in which they are stored
    bool interlaced = false;
    int transparent = -1;
    std::string localPalette = {};
};

void put16(Bytes& out, int value) {
    out.push_back(std::uint8_t(value));
    out.push_back(std::uint8_t(value >> 8));
}
void putPalette(Bytes& out, const std::string& letters) {
    for (char letter : letters) {
        const Argb colour = colourOfLetter(letter);
        out.insert(out.end(), {std::uint8_t(redOf(colour)), std::uint8_t(greenOf(colour)),
                               std::uint8_t(blueOf(colour))});
    }
}
std::uint8_t paletteBits(const std::string& letters) {  // 0 means 2 entries, 1 means 4 and so on
    return std::uint8_t(letters.size() <= 2 ? 0 : letters.size() <= 4 ? 1 : 2);
}

/// The compressed form without compression: codes of 4 bits, and a clear code before they would grow.
void putPixels(Bytes& out, const std::vector<unsigned>& indices) {
    constexpr unsigned kClear = 8, kEnd = 9;
    std::vector<unsigned> codes;
    for (std::size_t i = 0; i < indices.size(); ++i) {
        if (i % 4 == 0) codes.push_back(kClear);
        codes.push_back(indices[i]);
    }
    codes.push_back(kEnd);
    Bytes packed((codes.size() + 1) / 2);
    for (std::size_t i = 0; i < codes.size(); ++i) packed[i / 2] |= std::uint8_t(codes[i] << (i % 2 * 4));
    out.push_back(3);
    for (std::size_t at = 0; at < packed.size(); at += 255) {
        const std::size_t count = std::min<std::size_t>(255, packed.size() - at);
        out.push_back(std::uint8_t(count));
        out.insert(out.end(), packed.begin() + std::ptrdiff_t(at),
                   packed.begin() + std::ptrdiff_t(at + count));
    }
    out.push_back(0);
}

Bytes makeGif(int screenWidth, int screenHeight, const std::string& palette,
              const std::vector<Frame>& frames) {
    Bytes out = {'G', 'I', 'F', '8', '9', 'a'};
    put16(out, screenWidth);
    put16(out, screenHeight);
    out.push_back(palette.empty() ? 0 : std::uint8_t(0x80 | paletteBits(palette)));
    out.push_back(0);
    out.push_back(0);
    putPalette(out, palette);
    for (const Frame& frame : frames) {
        if (frame.transparent >= 0) {
            out.insert(out.end(), {0x21, 0xf9, 4, 1, 0, 0, std::uint8_t(frame.transparent), 0});
        }
        out.insert(out.end(), {0x21, 0xfe, 2, 'h', 'i', 0});  // a comment
        const LetterPicture shape(frame.letters);
        out.push_back(0x2c);
        for (int value : {frame.left, frame.top, shape.width, shape.height}) put16(out, value);
        const std::string& colours = frame.localPalette.empty() ? palette : frame.localPalette;
        out.push_back(std::uint8_t((frame.localPalette.empty() ? 0 : 0x80 | paletteBits(colours)) |
                                   (frame.interlaced ? 0x40 : 0)));
        putPalette(out, frame.localPalette);
        std::vector<unsigned> indices;
        for (char letter : frame.letters) {
            if (letter != '/') indices.push_back(letter == '7' ? 7u : unsigned(colours.find(letter)));
        }
        putPixels(out, indices);
    }
    out.push_back(0x3b);
    return out;
}

TEST(GifDecode, FirstImageOnItsScreen) {
    const struct {
        const char* what;
        int width, height;
        Frame frame;
        const char* expected;
    } rows[] = {
        {"fills the screen", 3, 2, {0, 0, "rgb/kwr"}, "rgb/kwr"},
        {"stands within it", 4, 3, {1, 1, "rg"}, "..../.rg./...."},
        {"juts out", 2, 2, {1, 1, "rg/bk"}, ".../.rg/.bk"},
        {"no screen at all", 0, 0, {0, 0, "rg"}, "rg"},
        {"transparent entry", 3, 1, {0, 0, "rgb", false, 3}, "r.b"},
        {"its own palette", 2, 1, {0, 0, "cm", false, -1, "cmyk"}, "cm"},
        {"an index beyond the palette", 2, 1, {0, 0, "r7", false, -1, "rg"}, "rk"},
        {"interlaced", 1, 9, {0, 0, "r/g/b/k/w/r/g/b/k", true}, "r/r/k/g/b/b/w/k/g"},
    };
    for (const auto& row : rows) {
        const Bytes bytes = makeGif(row.width, row.height, "kwrgb...", {row.frame, {0, 0, "wwwwww"}});
        // The palette order is k w r g b, so 3 is green.
        EXPECT_EQ(decodedLetters(decodeGif, bytes), row.expected) << row.what;
    }
}

TEST(GifDecode, RefusesWhatEndsWithinTheFirstImage) {
    const Bytes bytes = makeGif(4, 4, "kwrgb...", {{0, 0, "rgbk/wwww/rrrr/gggg"}});
    EXPECT_EQ(countAcceptedPrefixes(decodeGif, bytes), 1) << "all but the trailer";
    EXPECT_EQ(decodedLetters(decodeGif, makeGif(2, 2, "kw", {})), "refused");
    EXPECT_EQ(decodedLetters(decodeGif, makeGif(2, 1, "", {{0, 0, "rg"}})), "refused") << "no palette";
}

TEST(GifDecode, LyingSizesAllocateNothing) {
    const auto requestsWith = [](std::size_t offset, int value, std::size_t size) {
        Bytes bytes = makeGif(4, 1, "kwrgb...", {{0, 0, "rgbk"}});
        for (std::size_t i = 0; i < size; ++i) bytes[offset + i] = std::uint8_t(value);
        RecordingDecodeTarget target(0);
        EXPECT_FALSE(decodeGif(bytes, target));
        return target.requests;
    };
    EXPECT_EQ(requestsWith(6, 0xff, 4), 0) << "screen of 65535 x 65535";
    EXPECT_EQ(requestsWith(7, 0x40, 1) + requestsWith(9, 0x40, 1), 2) << "a long screen alone is small";
    constexpr std::size_t kImageSizeOffset = 13 + 24 + 6 + 5;
    EXPECT_EQ(requestsWith(kImageSizeOffset, 0x40, 4), 0) << "image of 16448 x 16448";
    EXPECT_EQ(requestsWith(kImageSizeOffset, 0, 2), 0) << "image without width";
}

TEST(GifEncode, UpTo256ColoursComeBackExactly) {
    for (const char* letters : {"r", "kw/wk", "rgb/.wk/m.y", "..../...."}) {
        EXPECT_EQ(decodedLetters(decodeGif, encodeGif(LetterPicture(letters).view())), letters);
    }
    std::vector<Argb> pixels;
    for (unsigned i = 0; i < 256 * 40; ++i) pixels.push_back(makeOpaque(i % 256, i % 256 / 2, 255 - i % 256));
    EXPECT_TRUE(
        decodesTo(decodeGif, encodeGif({pixels.data(), 256, 40, 256}), {pixels.data(), 256, 40, 256}));
    EXPECT_TRUE(decodesTo(decodeGif, encodeGif({pixels.data(), 64, 40, 256}), {pixels.data(), 64, 40, 256}));
}

TEST(GifEncode, ManyColoursComeBackNearly) {
    const std::vector<Argb> pixels = makeTestPixels(90, 70, true);
    RecordingDecodeTarget target;
    ASSERT_TRUE(decodeGif(encodeGif({pixels.data(), 90, 70, 90}), target));
    double squares = 0;
    for (int y = 0; y < 70; ++y) {
        for (int x = 0; x < 90; ++x) {
            const Argb was = pixels[std::size_t(y * 90 + x)], is = target.picture().at(x, y);
            EXPECT_EQ(alphaOf(is), 255u);
            const double red = double(redOf(was)) - double(redOf(is)),
                         green = double(greenOf(was)) - double(greenOf(is));
            squares += red * red + green * green;
        }
    }
    EXPECT_LT(squares / (2 * 90 * 70), 120.0);
}

TEST(GifEncode, RefusesSidesThatItCannotState) {
    const std::vector<Argb> pixels(65536, 0xff000000u);
    EXPECT_TRUE(encodeGif({pixels.data(), 65536, 1, 65536}).empty());
    EXPECT_FALSE(encodeGif({pixels.data(), 1, 65535, 1}).empty());
    EXPECT_TRUE(encodeGif({}).empty());
}

}  // namespace
}  // namespace orvane
