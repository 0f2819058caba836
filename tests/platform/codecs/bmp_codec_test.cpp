#include "platform/codecs/bmp_codec.h"

#include <gtest/gtest.h>

#include <array>

#include "platform/codecs/dib.h"
#include "support/dib_forms.h"
#include "support/recording_decode_target.h"

namespace orvane {
namespace {

using namespace test;

TEST(BmpDecode, EveryForm) {
    for (const DibForm& form : kDibForms) {
        for (std::size_t width = 1; width <= 9; ++width) {
            const std::string letters = lettersFor(form, width);
            EXPECT_EQ(decodedLetters(decodeBmp, makeBmp(form, letters)), letters) << form.name;
        }
    }
}

TEST(BmpDecode, EveryTruncationIsRefused) {
    for (const DibForm& form : kDibForms) {
        const Bytes bytes = makeBmp(form, form.bits == 1 ? "kwkw/wwkk" : "kwkw/wwwk");
        const std::size_t padding =
            form.bits == 24 || form.bits == 32 ? 0 : (32 - 4 * form.bits % 32) % 32 / 8;
        EXPECT_EQ(countAcceptedPrefixes(decodeBmp, bytes), int(padding)) << form.name;
    }
}

TEST(BmpDecode, MasksOfAnyWidthAreStretchedExactly) {
    const struct {
        std::array<std::uint32_t, 4> masks;
        std::uint32_t pixel;
        Argb expected;
    } rows[] = {
        {{0x3, 0x1c, 0x1e0, 0},
         0x1 | 0x3u << 2 | 0x7u << 5,
         makeOpaque(85, 109, 119)},  // 255/3, 765/7, 1785/15
        {{0x1f, 0x7e0, 0xf800, 0}, 0x10 | 0x20u << 5 | 0x0fu << 11, makeOpaque(132, 130, 123)},
        {{0x3ff, 0xffc00, 0x3ff00000, 0xc0000000},
         0x200u | 0x1u << 10 | 0x3feu << 20 | 0x2u << 30,
         makeArgb(170, 128, 0, 255)},
        {{0xffffffff, 0, 0, 0}, 0x80000000u, makeOpaque(128, 0, 0)},
        {{0xff, 0xff, 0xff, 0}, 0x12u, makeOpaque(0x12, 0x12, 0x12)},      // overlapping
        {{0xff0000, 0xff00, 0xff, 0xff000000}, 0x00112233u, 0x00112233u},  // alpha 0 keeps its colour
        {{0xff0000, 0xff00, 0xff, 0x0f000000}, 0x38112233u, 0x88112233u},  // alpha of 4 bits
        {{0xff0000, 0xff00, 0xff, 0}, 0x00112233u, 0xff112233u},           // no alpha mask
    };
    for (const auto& row : rows) {
        Bytes bytes = makeHeader({"", 56, 32, 3, row.masks}, 1, 1, 0);
        put(bytes, row.pixel, 4);
        RecordingDecodeTarget target;
        ASSERT_TRUE(decodeBmp(bytes, target));
        EXPECT_EQ(target.picture().at(0, 0), row.expected) << std::hex << row.pixel;
    }
}

TEST(BmpDecode, PaletteCountsThatLie) {
    // 4 pixels of 4 bits, indices 1 2 3 9.
    const auto make = [](std::uint32_t claimed, std::size_t present, bool offsetGiven) {
        Bytes bytes = makeHeader({"", 40, 4, 0, {}, false, claimed}, 4, 1, present);
        if (!offsetGiven) set(bytes, 10, 0, 4);
        put(bytes, 0x3912, 4);
        return bytes;
    };
    EXPECT_EQ(decodedLetters(decodeBmp, make(3, 3, true)), "wrkk") << "missing entries are black";
    EXPECT_EQ(decodedLetters(decodeBmp, make(3, 3, false)), "wrkk") << "pixels follow the palette";
    EXPECT_EQ(decodedLetters(decodeBmp, make(0, 16, false)), "wrgw") << "0 means all";
    EXPECT_EQ(decodedLetters(decodeBmp, make(20, 20, false)), "wrgw") << "entries that no pixel can name";
    EXPECT_EQ(decodedLetters(decodeBmp, make(0x40000001, 3, true)), "wrkk") << "the offset wins";
    EXPECT_EQ(decodedLetters(decodeBmp, make(0x40000001, 3, false)), "refused");
}

struct RunCase {
    const char* what;
    int bits;
    Bytes runs;
    const char* expected;
};

TEST(BmpDecode, Runs) {
    // A picture of 5 x 3; entries k w r g b c m y. The data begin with the bottom row.
    const RunCase rows[] = {
        {"runs and ends", 8, {5, 2, 0, 0, 2, 3, 3, 4, 0, 0, 5, 1, 0, 1}, "wwwww/ggbbb/rrrrr"},
        {"single pixels, odd count padded",
         8,
         {0, 5, 1, 2, 3, 4, 5, 0xaa, 0, 0, 0, 4, 1, 1, 2, 2, 1, 7, 0, 0, 5, 6, 0, 1},
         "mmmmm/wwrry/wrgbc"},
        {"delta leaves entry 0", 8, {1, 1, 0, 2, 2, 1, 2, 2, 0, 1}, "kkkkk/kkkrr/wkkkk"},
        {"early end leaves entry 0", 8, {2, 1, 0, 1}, "kkkkk/kkkkk/wwkkk"},
        {"a run over the edge is cut", 8, {9, 1, 0, 0, 255, 2, 0, 0, 5, 3}, "ggggg/rrrrr/wwwww"},
        {"pixels over the edge are cut",
         8,
         {4, 2, 0, 3, 1, 3, 4, 0, 0, 0, 5, 1, 0, 0, 5, 1},
         "wwwww/wwwww/rrrrw"},
        {"no end mark behind the last pixel", 8, {5, 1, 0, 0, 5, 1, 0, 0, 5, 1}, "wwwww/wwwww/wwwww"},
        {"delta beyond the picture", 8, {5, 1, 0, 2, 255, 255, 5, 2}, "kkkkk/kkkkk/wwwww"},
        {"rows beyond the picture", 8, {0, 0, 0, 0, 0, 0, 0, 0, 5, 2, 0, 1}, "kkkkk/kkkkk/kkkkk"},
        {"alternating nibbles",
         4,
         {5, 0x12, 0, 0, 4, 0x34, 1, 0x70, 0, 0, 5, 0x66, 0, 1},
         "mmmmm/gbgby/wrwrw"},
        {"single nibbles",
         4,
         {0, 5, 0x12, 0x34, 0x50, 0xaa, 0, 0, 0, 3, 0x76, 0x50, 0, 1},
         "kkkkk/ymckk/wrgbc"},
        {"data stop in the middle", 8, {5, 1, 0, 0, 3, 1}, "refused"},
        {"data stop within single pixels", 8, {5, 1, 0, 0, 0, 5, 1, 1}, "refused"},
        {"data stop within a delta", 8, {5, 1, 0, 2, 1}, "refused"},
        {"half a pair", 8, {5, 1, 0, 0, 5}, "refused"},
        {"depth and coding disagree", 24, {5, 1, 0, 0, 5, 1, 0, 1}, "refused"},
    };
    for (const RunCase& row : rows) {
        Bytes bytes = makeHeader({"", 40, row.bits, row.bits == 4 ? 2u : 1u}, 5, 3, row.bits == 4 ? 16 : 256);
        bytes.insert(bytes.end(), row.runs.begin(), row.runs.end());
        EXPECT_EQ(decodedLetters(decodeBmp, bytes), row.expected) << row.what;
        countAcceptedPrefixes(decodeBmp, bytes);
    }
}

TEST(BmpDecode, LyingHeadersAllocateNothing) {
    const auto requests = [](const Bytes& bytes) {
        RecordingDecodeTarget target(0);
        EXPECT_FALSE(decodeBmp(bytes, target));
        return target.requests;
    };
    const struct {
        const char* what;
        std::uint32_t width, height;
        int bits;
        std::uint32_t compression;
    } rows[] = {
        {"more pixels than data", 100, 100, 24, 0},
        {"product beyond 32 bits", 0x10001, 0x10000, 1, 0},
        {"beyond the limit", 0x7fffffff, 0x7fffffff, 32, 0},
        {"smallest height", 1, 0x80000000u, 24, 0},
        {"negative width", 0xffffffffu, 1, 24, 0},
        {"no width", 0, 1, 24, 0},
        {"no height", 1, 0, 24, 0},
        {"runs for 100 Mpx", 10000, 10000, 8, 1},
        {"3 bits", 4, 4, 3, 0},
        {"masks for 24 bits", 4, 4, 24, 3},
        {"a JPEG inside", 4, 4, 0, 4},
    };
    for (const auto& row : rows) {
        Bytes bytes = makeHeader({"", 40, row.bits, row.compression}, int(row.width), 0, 256);
        set(bytes, 22, row.height, 4);
        bytes.resize(bytes.size() + 2000);
        EXPECT_EQ(requests(bytes), 0) << row.what;
    }
    Bytes oddHeader = makeBmp({"", 40, 24}, "rg/bw");
    set(oddHeader, 14, 0xfffffff0u, 4);
    EXPECT_EQ(requests(oddHeader), 0);
}

TEST(BmpDecode, GivesUpWhenTheTargetDoes) {
    RecordingDecodeTarget tooSmall(3);
    EXPECT_FALSE(decodeBmp(makeBmp({"", 40, 24}, "rg/bw"), tooSmall));
    EXPECT_EQ(tooSmall.requests, 1);
}

TEST(BmpEncode, GivesTheSameColoursBackOpaque) {
    for (int width = 1; width <= 9; ++width) {
        const std::vector<Argb> pixels = makeTestPixels(width, 6, false);
        std::vector<Argb> opaque = pixels;
        for (Argb& pixel : opaque) pixel |= 0xff000000u;
        const Bytes bytes = encodeBmp({pixels.data(), width, 6, width});
        EXPECT_TRUE(decodesTo(decodeBmp, bytes, {opaque.data(), width, 6, width})) << width;
        EXPECT_EQ(bytes.size(), 54 + std::size_t(width * 3 + 3) / 4 * 4 * 6);
    }
    EXPECT_TRUE(encodeBmp({}).empty());
}

TEST(BmpEncode, FollowsTheStride) {
    const LetterPicture wide("rgb/kwy");
    EXPECT_EQ(decodedLetters(decodeBmp, encodeBmp({wide.pixels.data() + 1, 2, 2, 3})), "gb/wy");
}

TEST(Dib, BareBitmapIsTheFileWithoutItsHeader) {
    const LetterPicture picture("rgbwk/kkymc");
    Bytes bytes;
    appendDib(picture.view(), bytes);
    ASSERT_EQ(bytes.size(), dibBytes(5, 2));
    EXPECT_EQ(bytes.size(), 40u + 2 * 16);  // 15 bytes of pixels and one of padding
    EXPECT_TRUE(std::equal(bytes.begin(), bytes.end(), encodeBmp(picture.view()).begin() + 14));
    RecordingDecodeTarget target;
    ASSERT_TRUE(decodeDib(bytes, 0, target));
    EXPECT_EQ(lettersOf(target.picture()), "rgbwk/kkymc");
}

}  // namespace
}  // namespace orvane
