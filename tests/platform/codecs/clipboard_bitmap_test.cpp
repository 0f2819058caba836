#include "platform/codecs/clipboard_bitmap.h"

#include <gtest/gtest.h>

#include "support/dib_forms.h"
#include "support/recording_decode_target.h"

namespace orvane {
namespace {

using namespace test;

/// A BMP file without its file header.
Bytes blockOf(const Bytes& file) { return {file.begin() + kBmpFileHeaderBytes, file.end()}; }

TEST(ClipboardBitmap, ByteForByte) {
    const Argb pixels[] = {0x80112233u, 0xff445566u, 0x00778899u, 0xffaabbccu, 0x01ddeeffu,
                           0xffff0000u, 0xff00ff00u, 0xff0000ffu, 0xff000000u, 0xffffffffu};
    const Bytes expected = {40,   0,    0,    0,    5,    0,    0,    0,
                            2,    0,    0,    0,    1,    0,    24,   0,  // header
                            0,    0,    0,    0,    32,   0,    0,    0,
                            0,    0,    0,    0,    0,    0,    0,    0,  //
                            0,    0,    0,    0,    0,    0,    0,    0,  //
                            0,    0,    0xff, 0,    0xff, 0,    0xff, 0,
                            0,    0,    0,    0,    0xff, 0xff, 0xff, 0,  // bottom
                            0x33, 0x22, 0x11, 0x66, 0x55, 0x44, 0x99, 0x88,
                            0x77, 0xcc, 0xbb, 0xaa, 0xff, 0xee, 0xdd, 0,  // top
                            0,    0,    0,    0};                         // slack
    EXPECT_EQ(encodeClipboardBitmap({pixels, 5, 2, 5}), expected);
    EXPECT_TRUE(encodeClipboardBitmap({}).empty());
}

TEST(ClipboardBitmap, ComesBackOpaque) {
    for (int width = 1; width <= 9; ++width) {
        const std::vector<Argb> pixels = makeTestPixels(width + 3, 6, false);  // a part of a wider picture
        std::vector<Argb> opaque;
        for (int y = 0; y < 6; ++y) {
            for (int x = 0; x < width; ++x) {
                opaque.push_back(pixels[std::size_t(y * (width + 3) + x + 2)] | 0xff000000u);
            }
        }
        const Bytes block = encodeClipboardBitmap({pixels.data() + 2, width, 6, width + 3});
        EXPECT_TRUE(decodesTo(decodeClipboardBitmap, block, {opaque.data(), width, 6, width})) << width;
    }
}

TEST(ClipboardBitmap, EveryFormAndEveryTruncation) {
    constexpr int kSlack = 7;
    for (const DibForm& form : kDibForms) {
        for (const std::size_t width : {std::size_t{4}, std::size_t{9}}) {
            const std::string letters = lettersFor(form, width);
            Bytes block = blockOf(makeBmp(form, letters));
            block.insert(block.end(), kSlack, std::uint8_t{0xee});
            EXPECT_EQ(decodedLetters(decodeClipboardBitmap, block), letters) << form.name;
            // Whole are those that lack some of the slack or of the last row's padding.
            const int padding = (32 - int(width) * form.bits % 32) % 32 / 8;
            EXPECT_EQ(countAcceptedPrefixes(decodeClipboardBitmap, block), padding + kSlack)
                << form.name << ", " << width << " wide";
        }
    }
}

TEST(ClipboardBitmap, RunsFollowTheColourTable) {
    // 5 x 2; the colour table is k w r g b c m y.
    const struct {
        int bits;
        std::uint32_t compression;
        Bytes runs;
    } rows[] = {{8, 1, {0, 5, 1, 2, 3, 4, 5, 0xaa, 0, 0, 5, 6, 0, 1}},
                {4, 2, {0, 5, 0x12, 0x34, 0x50, 0xaa, 0, 0, 5, 0x66, 0, 1}}};
    for (const auto& row : rows) {
        Bytes block = blockOf(makeHeader({"", 40, row.bits, row.compression, {}, false, 8}, 5, 2, 8));
        block.insert(block.end(), row.runs.begin(), row.runs.end());
        EXPECT_EQ(decodedLetters(decodeClipboardBitmap, block), "mmmmm/wrgbc") << row.bits;
        countAcceptedPrefixes(decodeClipboardBitmap, block);
    }
}

TEST(ClipboardBitmap, LiesAllocateNothing) {
    constexpr std::size_t kWidth = 4, kHeight = 8, kBits = 14, kCompression = 16, kColoursUsed = 32;
    const struct {
        const char* what;
        std::size_t offset;
        std::uint32_t value;
    } rows[] = {
        {"an unknown header", 0, 41},
        {"a header longer than the block", 0, 124},
        {"a negative width", kWidth, 0xffffffffu},
        {"no width", kWidth, 0},
        {"one column more", kWidth, 5},
        {"no height", kHeight, 0},
        {"the smallest height", kHeight, 0x80000000u},
        {"one row more", kHeight, 4},
        {"one row more from the top", kHeight, 0xfffffffcu},
        {"beyond the size limit", kWidth, 0x7fffffffu},
        {"five bits", kBits, 5},
        {"a JPEG inside", kCompression, 4},
        {"a PNG inside", kCompression, 5},
        {"a printer's coding", kCompression, 11},
        {"a colour table over the pixels", kColoursUsed, 1},
        {"a huge colour table", kColoursUsed, 0xffffffffu},
        {"a colour table of 2^32 bytes", kColoursUsed, 0x40000000u},
    };
    const Bytes good = blockOf(makeBmp({"", 40, 24}, "rgbw/kkcm/ywrg"));
    ASSERT_EQ(decodedLetters(decodeClipboardBitmap, good), "rgbw/kkcm/ywrg");
    for (const auto& row : rows) {
        Bytes block = good;
        set(block, row.offset, row.value, row.offset == kBits ? 2 : 4);
        RecordingDecodeTarget target;
        EXPECT_FALSE(decodeClipboardBitmap(block, target)) << row.what;
        EXPECT_EQ(target.requests, 0) << row.what;
    }
}

}  // namespace
}  // namespace orvane
