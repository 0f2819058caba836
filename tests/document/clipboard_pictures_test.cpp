#include <orvane/clipboard_pictures.h>

#include <gtest/gtest.h>

#include "platform/codecs/clipboard_bitmap.h"
#include "support/failing_allocator.h"
#include "support/recording_decode_target.h"

namespace orvane {
namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr int kWidth = 7, kHeight = 5;

PixelView viewOf(const std::vector<Argb>& pixels) { return {pixels.data(), kWidth, kHeight, kWidth}; }

std::vector<Argb> opaqueOf(std::vector<Argb> pixels) {
    for (Argb& pixel : pixels) pixel |= 0xff000000u;
    return pixels;
}

Bytes fileOf(const std::vector<Argb>& pixels, ImageFormat format) {
    return encodeImage(viewOf(pixels), format, 90);
}

TEST(ClipboardPictures, AFileOfAnyFormatBecomesTheBlockOfItsPicture) {
    for (const bool opaque : {true, false}) {
        const std::vector<Argb> pixels = makeTestPixels(kWidth, kHeight, opaque);
        for (const ImageFormat format :
             {ImageFormat::Bmp, ImageFormat::Jpeg, ImageFormat::Gif, ImageFormat::Tiff, ImageFormat::Png}) {
            const Bytes file = fileOf(pixels, format);
            RecordingDecodeTarget inFile;
            ASSERT_TRUE(decodeImage(file, inFile)) << int(format);
            const Bytes block = clipboardBlockFromFile(file);
            EXPECT_TRUE(decodesTo(decodeClipboardBitmap, block, inFile.picture())) << int(format);
        }
    }
}

TEST(ClipboardPictures, TransparencyOutlivesPngButNotBmp) {
    const std::vector<Argb> pixels = makeTestPixels(kWidth, kHeight, false), opaque = opaqueOf(pixels);
    ASSERT_NE(pixels, opaque);
    const Bytes block = clipboardBlockFromFile(fileOf(pixels, ImageFormat::Png));
    EXPECT_TRUE(decodesTo(decodeImage, pngFromClipboardBlock(block), viewOf(pixels)));
    EXPECT_TRUE(decodesTo(decodeImage, bmpFromClipboardBlock(block), viewOf(opaque)));
    // What the control copies has none; its block is the one that every program knows.
    EXPECT_EQ(clipboardBlockFromFile(fileOf(opaque, ImageFormat::Png)),
              encodeClipboardBitmap(viewOf(pixels)));
}

TEST(ClipboardPictures, GarbageAndWhatIsCutShortGiveNothing) {
    const std::vector<Argb> pixels = makeTestPixels(kWidth, kHeight, false);
    const Bytes file = fileOf(pixels, ImageFormat::Png), block = clipboardBlockFromFile(file);
    for (std::size_t size = 0; size < block.size(); ++size) {
        const Bytes part(block.begin(), block.begin() + std::ptrdiff_t(size));
        ASSERT_TRUE(bmpFromClipboardBlock(part).empty()) << size;
        ASSERT_TRUE(pngFromClipboardBlock(part).empty()) << size;
    }
    for (std::size_t size = 0; size < file.size() - 12; ++size) {  // the last 12 bytes only say that it ends
        ASSERT_TRUE(clipboardBlockFromFile({file.data(), size}).empty()) << size;
    }
    EXPECT_TRUE(clipboardBlockFromFile(block).empty()) << "a block is no file";
    EXPECT_TRUE(pngFromClipboardBlock(file).empty()) << "a file is no block";
}

// Whichever allocation fails: everything or nothing, and never an exception.
TEST(ClipboardPictures, WithoutMemoryThereIsNothing) {
    const std::vector<Argb> pixels = makeTestPixels(kWidth, kHeight, false);
    const Bytes file = fileOf(pixels, ImageFormat::Png), block = clipboardBlockFromFile(file);
    const struct {
        Bytes (*convert)(std::span<const std::uint8_t>) noexcept;
        Bytes from;
    } rows[] = {
        {clipboardBlockFromFile, file}, {bmpFromClipboardBlock, block}, {pngFromClipboardBlock, block}};
    for (const auto& row : rows) {
        const Bytes whole = row.convert(row.from);
        bool refused = true;
        for (long n = 1; refused; ++n) {
            FailingAllocator::arm(n);
            const Bytes result = row.convert(row.from);
            refused = FailingAllocator::disarm();
            EXPECT_TRUE(result.empty() || result == whole) << n;
            EXPECT_TRUE(!result.empty() || refused) << n;
        }
    }
}

}  // namespace
}  // namespace orvane
