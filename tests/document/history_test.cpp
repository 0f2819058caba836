#include <gtest/gtest.h>

#include "document/image_document.h"

namespace orvane {
namespace {

/// A document whose picture is one colour, so that a state can be told by its first pixel.
ImageDocument blankDocument(int width = 8, int height = 6) {
    ImageDocument document;
    document.bitmapBackColor = 0;
    document.newImage(width, height);
    return document;
}

void paintStep(ImageDocument& document, Argb colour) {
    ASSERT_TRUE(document.pushSnapshot());
    document.lockCurrent().at(0, 0) = colour;
}

Argb firstPixel(const ImageDocument& document) { return document.currentPixels().at(0, 0); }

TEST(History, UndoAndRedoWalkTheSameStates) {
    ImageDocument document = blankDocument();
    EXPECT_FALSE(document.undoEnabled());
    EXPECT_FALSE(document.history.redoEnabled());
    for (Argb step = 1; step <= 3; ++step) paintStep(document, step);
    for (Argb expected : {2u, 1u, 0u}) {
        ASSERT_TRUE(document.undoEnabled());
        document.undo();
        EXPECT_EQ(firstPixel(document), expected);
    }
    EXPECT_FALSE(document.undoEnabled());
    document.undo();
    EXPECT_EQ(firstPixel(document), 0u) << "an undo that is not enabled changes nothing";
    for (Argb expected : {1u, 2u, 3u}) {
        ASSERT_TRUE(document.history.redoEnabled());
        document.redo();
        EXPECT_EQ(firstPixel(document), expected);
    }
    EXPECT_FALSE(document.history.redoEnabled());
    EXPECT_TRUE(document.modified);
}

TEST(History, KeepsSevenStepsOfAnyNumber) {
    for (int steps : {6, 7, 8, 10, 15, 16, 17, 40}) {
        ImageDocument document = blankDocument();
        for (int i = 1; i <= steps; ++i) paintStep(document, Argb(i));
        int undone = 0;
        for (; document.undoEnabled(); ++undone) document.undo();
        EXPECT_EQ(undone, std::min(steps, 7)) << steps << " steps";
        EXPECT_EQ(firstPixel(document), Argb(steps - undone)) << steps << " steps";
        for (; document.history.redoEnabled(); --undone) document.redo();
        EXPECT_EQ(undone, 0) << steps << " steps";
        EXPECT_EQ(firstPixel(document), Argb(steps)) << steps << " steps";
    }
}

TEST(History, NewEditAbandonsWhatWasUndone) {
    ImageDocument document = blankDocument();
    for (Argb step = 1; step <= 12; ++step) paintStep(document, step);
    for (int i = 0; i < 3; ++i) document.undo();
    paintStep(document, 100);
    EXPECT_FALSE(document.history.redoEnabled());
    // 12 steps leave the states 5..12; three undone and one made: 5 6 7 8 9 100. The slots of 11 and 12 still
    // hold pictures, which undo must not reach.
    for (Argb expected : {9u, 8u, 7u, 6u, 5u}) {
        ASSERT_TRUE(document.undoEnabled());
        document.undo();
        EXPECT_EQ(firstPixel(document), expected);
    }
    EXPECT_FALSE(document.undoEnabled());
}

TEST(History, AgreesWithAPlainListOverARandomWalk) {
    std::uint32_t seed = 20240901u;
    ImageDocument document = blankDocument();
    std::vector<Argb> states{0};
    std::size_t at = 0;
    for (int step = 0; step < 5000; ++step) {
        seed = seed * 1664525u + 1013904223u;
        switch ((seed >> 24) % 5) {
            case 0:
            case 1:
                states.resize(at + 1);
                states.push_back(Argb(step + 1));
                if (states.size() > 8) states.erase(states.begin());
                at = states.size() - 1;
                paintStep(document, Argb(step + 1));
                break;
            case 2:
            case 3:
                if (at > 0) --at;
                document.undo();
                break;
            default:
                if (at + 1 < states.size()) ++at;
                document.redo();
                break;
        }
        ASSERT_EQ(firstPixel(document), states[at]) << "step " << step;
        ASSERT_EQ(document.undoEnabled(), at > 0) << "step " << step;
        ASSERT_EQ(document.history.redoEnabled(), at + 1 < states.size()) << "step " << step;
    }
}

TEST(History, StepsShareEqualPictures) {
    ImageDocument document = blankDocument(64, 64);
    document.pushSnapshot();
    EXPECT_TRUE(document.history.slots[0].sharesPixelsWith(document.history.slots[1]));
    document.lockCurrent().at(3, 3) = 5;
    EXPECT_FALSE(document.history.slots[0].sharesPixelsWith(document.history.slots[1]));
    EXPECT_EQ(document.history.slots[0].read().at(3, 3), 0u) << "the older state stays as it was";

    PixelSurface equal = document.prepareState(64, 64);
    const PixelView now = document.currentPixels();
    std::copy_n(now.pixels, now.pixelCount(), equal.overwrite().pixels);
    document.pushState(std::move(equal));
    EXPECT_TRUE(document.history.slots[1].sharesPixelsWith(document.history.slots[2]));
    EXPECT_EQ(document.history.undoDepth, 2) << "an equal state is a step all the same";
}

TEST(History, AnotherSizeRecentresTheViewAndKeepsTheZoom) {
    ImageDocument document = blankDocument(50, 40);
    document.view.setViewSize({200, 100}, document.size());
    document.view.zoom = 2.0;
    document.pushState([&] {
        PixelSurface larger = document.prepareState(400, 300);
        std::fill_n(larger.overwrite().pixels, 400 * 300, 7u);
        return larger;
    }());
    document.updateOverflow();
    document.view.viewCentreX = 3;
    document.undo();
    EXPECT_EQ(document.width(), 50);
    EXPECT_EQ(document.view.viewCentreX, 100);
    EXPECT_EQ(document.view.zoom, 2.0);
    EXPECT_FALSE(document.view.overflowX);
    document.view.viewCentreX = 3;
    document.redo();
    EXPECT_EQ(document.view.viewCentreX, 100);
    EXPECT_TRUE(document.view.overflowX);

    document.view.viewCentreX = 3;
    document.pushSnapshot();
    document.undo();
    EXPECT_EQ(document.view.viewCentreX, 3) << "a step of the same size leaves the view where it is";
}

}  // namespace
}  // namespace orvane
