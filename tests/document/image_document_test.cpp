#include "document/image_document.h"

#include <gtest/gtest.h>

#include <numeric>

#include "platform/pixel_memory.h"

namespace orvane {
namespace {

std::vector<std::uint8_t> countingBytes(std::size_t count) {
    std::vector<std::uint8_t> bytes(count);
    std::iota(bytes.begin(), bytes.end(), std::uint8_t{1});
    return bytes;
}

TEST(NewImage, NeedsFourByFourAndLeavesTheRestAlone) {
    ImageDocument document;
    document.newImage(20, 10);
    document.pushSnapshot();
    document.view.zoom = 3.5;
    for (const IntSize refused : {IntSize{3, 100}, IntSize{100, 3}, IntSize{-1, 50}, IntSize{0, 0}}) {
        document.newImage(refused.width, refused.height);
        EXPECT_EQ(document.size(), (IntSize{20, 10}));
        EXPECT_TRUE(document.undoEnabled());
        EXPECT_TRUE(document.modified);
    }
    document.bitmapBackColor = 0xFFFF0000u;
    document.newImage(4, 4);
    EXPECT_EQ(document.size(), (IntSize{4, 4}));
    EXPECT_EQ(document.currentPixels().at(3, 3), 0xFFFF0000u);
    EXPECT_FALSE(document.undoEnabled());
    EXPECT_FALSE(document.modified);
    EXPECT_EQ(document.view.zoom, 3.5);
}

TEST(NewImage, BeyondTheSizeLimitLeavesTheDocumentEmpty) {
    ImageDocument document;
    document.newImage(20, 10);
    document.newImage(2147483647, 2147483647);
    EXPECT_TRUE(document.isEmpty());
    EXPECT_EQ(document.width(), 0);
}

TEST(Document, EmptyRefusesEverything) {
    ImageDocument document;
    EXPECT_FALSE(document.pushSnapshot());
    EXPECT_TRUE(document.prepareState(10, 10).isNull());
    EXPECT_FALSE(document.lockCurrent());
    EXPECT_FALSE(document.imageArray().has_value());
    EXPECT_FALSE(document.saveImage("/tmp/never-written.png", 4));
    EXPECT_EQ(document.imageRect().width, 0);
    document.undo();
    document.redo();
    document.clearDocument();
    EXPECT_TRUE(document.isEmpty());
}

TEST(PixelArray, RoundTripKeepsEveryByteAndCostsOneUndoneStep) {
    const auto bytes = countingBytes(3 * 2 * 4);
    ImageDocument document;
    ASSERT_TRUE(document.loadPixels(bytes, 3, 2));
    EXPECT_FALSE(document.modified);
    EXPECT_EQ(document.currentPixels().at(0, 0), 0x04030201u) << "bytes are B, G, R, A";
    EXPECT_EQ(document.imageArray(), bytes);
    EXPECT_TRUE(document.modified);
    EXPECT_TRUE(document.history.redoEnabled());
    EXPECT_FALSE(document.undoEnabled());
    document.redo();
    EXPECT_EQ(document.imageArray(), bytes);
}

TEST(PixelArray, RefusalsEmptyTheDocument) {
    const auto bytes = countingBytes(40);
    const struct {
        int width, height;
        std::size_t bytes;
    } rows[] = {{1, 4, 40}, {4, 1, 40}, {-2, -2, 40}, {5, 2, 39}, {65536, 65536, 40}, {2147483647, 2, 40}};
    for (const auto& row : rows) {
        ImageDocument document;
        document.newImage(9, 9);
        EXPECT_FALSE(document.loadPixels(std::span(bytes).first(row.bytes), row.width, row.height));
        EXPECT_TRUE(document.isEmpty()) << row.width << " x " << row.height;
    }
    ImageDocument document;
    EXPECT_TRUE(document.loadPixels(bytes, 5, 2)) << "exactly enough bytes";
}

TEST(LoadedImage, IsFittedOnlyWhenItReachesTheViewsSize) {
    const struct {
        int width, height;
        double zoom;
    } rows[] = {{99, 79, 1.0}, {100, 50, 0.92}, {50, 80, 0.9}, {200, 100, 0.46}};
    for (const auto& row : rows) {
        ImageDocument document;
        document.view.setViewSize({100, 80}, {});
        document.view.zoom = 5.0;
        const std::vector<std::uint8_t> bytes(std::size_t(row.width * row.height * 4));
        ASSERT_TRUE(document.loadPixels(bytes, row.width, row.height));
        EXPECT_DOUBLE_EQ(document.view.zoom, row.zoom) << row.width << " x " << row.height;
        EXPECT_EQ(document.view.viewCentreX, 50);
    }
}

TEST(PixelSurface, CopiesOnWriteAndNamesItsContents) {
    PixelSurface a = PixelSurface::create(5, 4);
    std::fill_n(a.overwrite().pixels, 20, 0xFF010203u);
    const auto id = a.contentId();
    EXPECT_TRUE(a.isOpaque());
    PixelSurface b = a;
    EXPECT_EQ(b.contentId(), id);
    b.write().at(4, 3) = 0x7F000000u;
    EXPECT_NE(b.contentId(), id);
    EXPECT_EQ(a.contentId(), id);
    EXPECT_EQ(a.read().at(4, 3), 0xFF010203u);
    EXPECT_EQ(b.read().at(0, 0), 0xFF010203u);
    EXPECT_TRUE(a.isOpaque());
    EXPECT_FALSE(b.isOpaque()) << "the last pixel of the last block counts";
    EXPECT_TRUE(PixelSurface::create(0, 5).isNull());
    EXPECT_TRUE(PixelSurface::create(1 << 16, 1 << 15).isNull()) << "one byte over the limit";
}

TEST(PixelMemory, HandsASpareOfTheSameSizeOutAgain) {
    trimPixelMemory();
    void* first = allocatePixelMemory(1 << 20);
    freePixelMemory(first, 1 << 20);
    void* other = allocatePixelMemory(1 << 19);
    void* again = allocatePixelMemory(1 << 20);
    EXPECT_EQ(again, first);
    EXPECT_NE(other, first);
    freePixelMemory(other, 1 << 19);
    freePixelMemory(again, 1 << 20);
    trimPixelMemory();
}

}  // namespace
}  // namespace orvane
