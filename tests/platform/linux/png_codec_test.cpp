#include "platform/linux/png_codec.h"

#include <gtest/gtest.h>
#include <png.h>
#include <zlib.h>

#include <cmath>
#include <cstring>
#include <string>

#include "base/random_stream.h"
#include "support/recording_decode_target.h"

namespace orvane {
namespace {

using Bytes = std::vector<std::uint8_t>;

/// What libpng is asked to write, with the samples packed as the file holds them.
struct Recipe {
    int width, height, colourType, bitDepth;
    int interlace = PNG_INTERLACE_NONE;
    int filters = PNG_ALL_FILTERS;
    Bytes samples{};                   // height rows of rowBytes()
    std::vector<png_color> palette{};  // colour type 3
    Bytes paletteAlpha{};              // its first entries' alpha
    bool hasTransparentColour = false;
    std::uint16_t transparent[3] = {};  // grey in the first, or red, green, blue

    [[nodiscard]] int channels() const {
        const int counts[] = {1, 0, 3, 1, 2, 0, 4};
        return counts[colourType];
    }
    [[nodiscard]] std::size_t rowBytes() const {
        return (std::size_t(width) * std::size_t(channels() * bitDepth) + 7) / 8;
    }
    [[nodiscard]] unsigned sample(int x, int y, int channel) const {
        const std::size_t bit = std::size_t(x * channels() + channel) * std::size_t(bitDepth);
        const std::uint8_t* at = &samples[std::size_t(y) * rowBytes() + bit / 8];
        if (bitDepth == 16) return unsigned(at[0] << 8 | at[1]);
        return unsigned(*at >> (8 - bitDepth - int(bit % 8))) & ((1u << bitDepth) - 1);
    }
};

Bytes writtenByLibpng(const Recipe& recipe) {
    Bytes file;
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png_create_info_struct(png);
    png_set_write_fn(
        png, &file,
        [](png_structp self, png_bytep data, std::size_t count) {
            auto* to = static_cast<Bytes*>(png_get_io_ptr(self));
            to->insert(to->end(), data, data + count);
        },
        nullptr);
    png_set_IHDR(png, info, png_uint_32(recipe.width), png_uint_32(recipe.height), recipe.bitDepth,
                 recipe.colourType, recipe.interlace, PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    png_set_filter(png, 0, recipe.filters);
    png_set_compression_buffer_size(png, 700);  // several chunks of picture data
    if (!recipe.palette.empty()) png_set_PLTE(png, info, recipe.palette.data(), int(recipe.palette.size()));
    if (recipe.hasTransparentColour) {
        png_color_16 colour{};
        colour.gray = colour.red = recipe.transparent[0];
        colour.green = recipe.transparent[1];
        colour.blue = recipe.transparent[2];
        png_set_tRNS(png, info, nullptr, 0, &colour);
    } else if (!recipe.paletteAlpha.empty()) {
        png_set_tRNS(png, info, recipe.paletteAlpha.data(), int(recipe.paletteAlpha.size()), nullptr);
    }
    png_write_info(png, info);
    std::vector<png_bytep> rows;
    for (int y = 0; y < recipe.height; ++y)
        rows.push_back(const_cast<png_bytep>(&recipe.samples[std::size_t(y) * recipe.rowBytes()]));
    png_write_image(png, rows.data());
    png_write_end(png, info);
    png_destroy_write_struct(&png, &info);
    return file;
}

/// The definition of each colour type, taken literally.
std::vector<Argb> meaningOf(const Recipe& recipe) {
    std::vector<Argb> pixels;
    for (int y = 0; y < recipe.height; ++y) {
        for (int x = 0; x < recipe.width; ++x) {
            const auto level = [&](int channel) {
                const double top = (1 << recipe.bitDepth) - 1;
                return unsigned(std::lround(recipe.sample(x, y, channel) * 255.0 / top));
            };
            const auto matches = [&](int count) {
                for (int c = 0; c < count; ++c)
                    if (recipe.sample(x, y, c) != recipe.transparent[c]) return false;
                return recipe.hasTransparentColour;
            };
            switch (recipe.colourType) {
                case PNG_COLOR_TYPE_GRAY:
                    pixels.push_back(makeArgb(matches(1) ? 0 : 255, level(0), level(0), level(0)));
                    break;
                case PNG_COLOR_TYPE_RGB:
                    pixels.push_back(makeArgb(matches(3) ? 0 : 255, level(0), level(1), level(2)));
                    break;
                case PNG_COLOR_TYPE_GRAY_ALPHA:
                    pixels.push_back(makeArgb(level(1), level(0), level(0), level(0)));
                    break;
                case PNG_COLOR_TYPE_RGBA:
                    pixels.push_back(makeArgb(level(3), level(0), level(1), level(2)));
                    break;
                default: {
                    const std::size_t index = recipe.sample(x, y, 0);
                    const png_color entry = recipe.palette[index];
                    const unsigned alpha =
                        index < recipe.paletteAlpha.size() ? recipe.paletteAlpha[index] : 255;
                    pixels.push_back(makeArgb(alpha, entry.red, entry.green, entry.blue));
                }
            }
        }
    }
    return pixels;
}

Recipe randomRecipe(int colourType, int bitDepth, int width, int height, bool transparency) {
    RandomStream random(std::uint32_t(colourType * 100 + bitDepth + width * 7 + height));
    Recipe recipe{width, height, colourType, bitDepth};
    recipe.samples.resize(recipe.rowBytes() * std::size_t(height));
    for (auto& byte : recipe.samples) byte = std::uint8_t(random.next() >> 3);
    if (colourType == PNG_COLOR_TYPE_PALETTE) {
        for (int i = 0; i < 1 << bitDepth; ++i) {
            recipe.palette.push_back({png_byte(random.next()), png_byte(random.next()), png_byte(i)});
            if (transparency && i < 3) recipe.paletteAlpha.push_back(png_byte(100 * i));
        }
    } else if (transparency) {
        recipe.hasTransparentColour = true;
        for (int c = 0; c < recipe.channels(); ++c)
            recipe.transparent[c] = std::uint16_t(recipe.sample(width / 2, height / 2, c));
    }
    return recipe;
}

Recipe smallRgb() { return randomRecipe(PNG_COLOR_TYPE_RGB, 8, 19, 11, false); }

std::size_t chunkAt(const Bytes& file, const char* type) {
    return std::size_t(std::search(file.begin(), file.end(), type, type + 4) - file.begin()) - 4;
}

void putBig32(Bytes& file, std::size_t at, std::uint32_t value) {
    for (std::size_t i = 0; i < 4; ++i) file[at + i] = std::uint8_t(value >> (24 - 8 * i));
}

Bytes chunkOf(const char* type, const Bytes& data) {
    Bytes chunk(12 + data.size());
    putBig32(chunk, 0, std::uint32_t(data.size()));
    std::copy(type, type + 4, chunk.begin() + 4);
    std::copy(data.begin(), data.end(), chunk.begin() + 8);
    putBig32(chunk, 8 + data.size(), std::uint32_t(crc32(0, &chunk[4], uInt(4 + data.size()))));
    return chunk;
}

/// A file with a header of the test's choice, right in its check sum, and the given inflated data.
Bytes handMade(std::uint32_t width, std::uint32_t height, std::uint8_t colourType, std::uint8_t bitDepth,
               const Bytes& raw) {
    Bytes header(8);
    putBig32(header, 0, width);
    putBig32(header, 4, height);
    header.insert(header.end(), {bitDepth, colourType, 0, 0, 0});
    uLongf packedBytes = compressBound(raw.size());
    Bytes packed(packedBytes);
    compress(packed.data(), &packedBytes, raw.data(), raw.size());
    packed.resize(packedBytes);

    Bytes file = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1a, '\n'};
    for (const Bytes& chunk : {chunkOf("IHDR", header), chunkOf("PLTE", {1, 2, 3, 4, 5, 6}),
                               chunkOf("IDAT", packed), chunkOf("IEND", {})})
        file.insert(file.end(), chunk.begin(), chunk.end());
    return file;
}

TEST(PngCodec, GivesBackWhatItWrote) {
    for (int width : {1, 2, 5, 67}) {
        for (int height : {1, 2, 67}) {
            for (bool opaque : {true, false}) {
                const auto pixels = makeTestPixels(width, height, opaque);
                const PixelView picture{pixels.data(), width, height, width};
                const Bytes file = encodePng(picture);
                EXPECT_TRUE(decodesTo(decodePng, file, picture)) << width << " x " << height;
                EXPECT_EQ(file[25], opaque ? PNG_COLOR_TYPE_RGB : PNG_COLOR_TYPE_RGBA);
            }
        }
    }
    const auto wide = makeTestPixels(40, 9, false);
    const PixelView cutOut{wide.data() + 3, 20, 9, 40};
    EXPECT_TRUE(decodesTo(decodePng, encodePng(cutOut), cutOut));
    const std::vector<Argb> line(1200000, 0xff102030u);  // beyond a million, the library's own limit
    for (const PixelView& picture :
         {PixelView{line.data(), 1200000, 1, 1200000}, PixelView{line.data(), 1, 1200000, 1}})
        EXPECT_TRUE(decodesTo(decodePng, encodePng(picture), picture)) << picture.width;
    EXPECT_TRUE(encodePng({}).empty());
}

TEST(PngCodec, PacksRepetitionsOfDrawings) {
    constexpr int kSide = 512;
    std::vector<Argb> pixels(std::size_t(kSide) * kSide, 0xffffffffu);
    RandomStream random(5);
    for (int y = 0; y < kSide; ++y)
        for (int x = 0; x < 64; ++x)
            if (random.next() % 8 == 0)
                for (int copy = x; copy < kSide; copy += 64)
                    pixels[std::size_t(y) * kSide + std::size_t(copy)] = 0xff203040u;
    const PixelView picture{pixels.data(), kSide, kSide, kSide};
    const Bytes file = encodePng(picture);
    EXPECT_TRUE(decodesTo(decodePng, file, picture));
    EXPECT_LT(file.size(), std::size_t(kSide) * 64);
}

TEST(PngCodec, ReadsEveryColourTypeDepthAndInterlacing) {
    const struct {
        int colourType;
        std::vector<int> depths;
        bool mayNameAColour;
    } kinds[] = {{PNG_COLOR_TYPE_GRAY, {1, 2, 4, 8, 16}, true},
                 {PNG_COLOR_TYPE_RGB, {8, 16}, true},
                 {PNG_COLOR_TYPE_PALETTE, {1, 2, 4, 8}, true},
                 {PNG_COLOR_TYPE_GRAY_ALPHA, {8, 16}, false},
                 {PNG_COLOR_TYPE_RGBA, {8, 16}, false}};
    const int sizes[][2] = {{1, 1}, {2, 5}, {5, 2}, {3, 3}, {9, 8}, {33, 19}};
    for (const auto& kind : kinds)
        for (int depth : kind.depths)
            for (const auto& size : sizes)
                for (int interlace : {PNG_INTERLACE_NONE, PNG_INTERLACE_ADAM7})
                    for (bool transparency : {false, true}) {
                        if (transparency && !kind.mayNameAColour) continue;
                        Recipe recipe = randomRecipe(kind.colourType, depth, size[0], size[1], transparency);
                        recipe.interlace = interlace;
                        const auto expected = meaningOf(recipe);
                        EXPECT_TRUE(decodesTo(decodePng, writtenByLibpng(recipe),
                                              {expected.data(), size[0], size[1], size[0]}))
                            << "type " << kind.colourType << " depth " << depth << " size " << size[0]
                            << " x " << size[1] << " interlace " << interlace << " transparency "
                            << transparency;
                    }
}

TEST(PngCodec, RefusesEveryFileThatIsCutShort) {
    EXPECT_EQ(countAcceptedPrefixes(decodePng, writtenByLibpng(smallRgb())), 0);
    Recipe palette = randomRecipe(PNG_COLOR_TYPE_PALETTE, 4, 40, 20, true);
    palette.interlace = PNG_INTERLACE_ADAM7;
    EXPECT_EQ(countAcceptedPrefixes(decodePng, writtenByLibpng(palette)), 0);
}

TEST(PngCodec, WantsIntactCriticalChunksOnly) {
    const Recipe recipe = smallRgb();
    const auto expected = meaningOf(recipe);
    const PixelView picture{expected.data(), recipe.width, recipe.height, recipe.width};
    const Bytes file = writtenByLibpng(recipe);
    for (const char* type : {"IHDR", "IDAT", "IEND"}) {
        Bytes damaged = file;
        damaged[chunkAt(file, type) + 4] ^= 0x80;
        EXPECT_FALSE(decodesTo(decodePng, damaged, picture)) << type << " renamed";
        damaged = file;
        const std::size_t at = chunkAt(file, type);
        damaged[at + 8 + (std::size_t(file[at + 2]) << 8 | file[at + 3])] ^= 1;
        EXPECT_FALSE(decodesTo(decodePng, damaged, picture)) << type << " check sum";
    }

    const auto withChunk = [&](Bytes chunk) {
        Bytes longer = file;
        longer.insert(longer.begin() + std::ptrdiff_t(chunkAt(file, "IDAT")), chunk.begin(), chunk.end());
        return longer;
    };
    Bytes note = chunkOf("tEXt", {'a', 0, 'b'});
    note.back() ^= 1;
    EXPECT_TRUE(decodesTo(decodePng, withChunk(note), picture)) << "damaged note";
    EXPECT_TRUE(decodesTo(decodePng, withChunk(chunkOf("iCCP", {'a', 0, 0, 1, 2})), picture)) << "profile";
    EXPECT_TRUE(decodesTo(decodePng, withChunk(chunkOf("gAMA", {0, 0, 0x10, 0})), picture)) << "gamma";
    EXPECT_TRUE(decodesTo(decodePng, withChunk(chunkOf("tRNS", {1, 2})), picture)) << "odd transparency";
    EXPECT_FALSE(decodesTo(decodePng, withChunk(chunkOf("ABCD", {})), picture)) << "unknown critical chunk";
    Bytes followed = file;
    followed.insert(followed.end(), {1, 2, 3});
    EXPECT_TRUE(decodesTo(decodePng, followed, picture)) << "bytes after the end";
}

TEST(PngCodec, JudgesTheSizeBeforeAskingForMemory) {
    const struct {
        const char* name;
        std::uint32_t width, height;
        std::uint8_t colourType, bitDepth;
        Bytes raw;
    } rows[] = {
        {"no width", 0, 4, PNG_COLOR_TYPE_GRAY, 8, Bytes(8)},
        {"no height", 4, 0, PNG_COLOR_TYPE_GRAY, 8, Bytes(8)},
        {"more than DEFLATE can hold", 60000, 8000, PNG_COLOR_TYPE_RGBA, 8, Bytes(50)},
        {"beyond the limit", 0x7fffffff, 0x7fffffff, PNG_COLOR_TYPE_GRAY, 1, Bytes(50)},
        {"negative", 0xffffffff, 1, PNG_COLOR_TYPE_GRAY, 1, Bytes(50)},
        {"depth 3", 4, 4, PNG_COLOR_TYPE_GRAY, 3, Bytes(4 * 13)},
        {"16-bit palette", 4, 4, PNG_COLOR_TYPE_PALETTE, 16, Bytes(4 * 13)},
        {"colour type 1", 4, 4, 1, 8, Bytes(4 * 13)},
    };
    for (const auto& row : rows) {
        RecordingDecodeTarget target;
        EXPECT_FALSE(
            decodePng(handMade(row.width, row.height, row.colourType, row.bitDepth, row.raw), target))
            << row.name;
        EXPECT_EQ(target.requests, 0) << row.name;
    }
    RecordingDecodeTarget refusing(15);
    EXPECT_FALSE(decodePng(handMade(4, 4, PNG_COLOR_TYPE_RGB, 8, Bytes(4 * 13)), refusing));
    EXPECT_EQ(refusing.requests, 1);
}

TEST(PngCodec, TakesOddPictureData) {
    const std::vector<Argb> black(16, 0xff000000u);
    const PixelView picture{black.data(), 4, 4, 4};
    EXPECT_TRUE(decodesTo(decodePng, handMade(4, 4, PNG_COLOR_TYPE_RGB, 8, Bytes(4 * 13 + 900)), picture))
        << "surplus rows";
    Bytes indices = {0, 0, 1, 2, 255};
    const Argb expected[] = {0xff010203u, 0xff040506u, 0xff000000u, 0xff000000u};
    EXPECT_TRUE(decodesTo(decodePng, handMade(4, 1, PNG_COLOR_TYPE_PALETTE, 8, indices), {expected, 4, 1, 4}))
        << "indices beyond the palette";
    Bytes badFilter(4 * 13);
    badFilter[13] = 5;
    for (const Bytes& raw : {badFilter, Bytes(4 * 13 - 1)}) {
        RecordingDecodeTarget target;
        EXPECT_FALSE(decodePng(handMade(4, 4, PNG_COLOR_TYPE_RGB, 8, raw), target)) << raw.size() << " bytes";
    }
}

}  // namespace
}  // namespace orvane
