#include "view/view_mapping.h"

#include <gtest/gtest.h>

namespace orvane {
namespace {

ImageDocument documentInView(IntSize image, IntSize view) {
    ImageDocument document;
    document.newImage(image.width, image.height);
    document.view.setViewSize(view, document.size());
    return document;
}

TEST(Zoom, StepsMultiplyAndStopAtTheBounds) {
    ImageDocument document = documentInView({100, 100}, {400, 300});
    for (int i = 0; i < 3; ++i) zoomIn(document);
    EXPECT_NEAR(document.view.zoom, 1.331, 1e-12);
    zoomOut(document);
    EXPECT_NEAR(document.view.zoom, 1.21, 1e-12);
    EXPECT_NEAR(document.view.previousZoom, 1.331, 1e-12);

    const struct {
        double before, in, out;
    } rows[] = {{8.0, 8.0, 8.0 * 0.9090909090909091},
                {7.99, 7.99 * 1.1, 7.99 * 0.9090909090909091},
                {0.1, 0.1 * 1.1, 0.1},
                {0.105, 0.105 * 1.1, 0.105 * 0.9090909090909091}};
    for (const auto& row : rows) {
        document.view.zoom = row.before;
        document.view.previousZoom = 77;
        zoomIn(document);
        EXPECT_EQ(document.view.zoom, row.in) << row.before;
        EXPECT_EQ(document.view.previousZoom, row.in == row.before ? 77 : row.before)
            << "nothing changes at the bound";
        document.view.zoom = row.before;
        zoomOut(document);
        EXPECT_EQ(document.view.zoom, row.out) << row.before;
    }
}

TEST(Zoom, ActualSizeComesBackToTheBoundFirst) {
    ImageDocument document = documentInView({100, 100}, {400, 300});
    const struct {
        double before, first, second;
    } rows[] = {{8.69, 8.0, 1.0}, {0.0955, 0.1, 1.0}, {0.1, 1.0, 1.0}, {8.0, 1.0, 1.0}, {29.2, 8.0, 1.0}};
    for (const auto& row : rows) {
        document.view.zoom = row.before;
        setZoom(document, 1.0);
        EXPECT_EQ(document.view.zoom, row.first) << row.before;
        setZoom(document, 1.0);
        EXPECT_EQ(document.view.zoom, row.second) << row.before;
    }
}

TEST(Zoom, FitLeavesFourPixelsInTheLimitingDirection) {
    const struct {
        IntSize image, view;
        double zoom;
    } rows[] = {
        {{1000, 500}, {408, 300}, 0.4}, {{500, 1000}, {408, 300}, 0.292}, {{10, 10}, {400, 300}, 29.2}};
    for (const auto& row : rows) {
        ImageDocument document = documentInView(row.image, row.view);
        zoomToFit(document);
        EXPECT_DOUBLE_EQ(document.view.zoom, row.zoom);
    }
    ImageDocument empty;
    empty.view.zoom = 3;
    zoomToFit(empty);
    EXPECT_EQ(empty.view.zoom, 3);
}

TEST(ImageRect, TruncatesTowardZeroBeforeTheShiftByOne) {
    const struct {
        IntSize image, view;
        double zoom;
        IntRect rect;
        bool overflowX, overflowY;
    } rows[] = {
        {{200, 100}, {400, 300}, 1.0, {101, 101, 200, 100}, false, false},
        {{201, 101}, {400, 300}, 1.0, {100, 100, 201, 101}, false, false},
        {{398, 100}, {400, 300}, 1.0, {2, 101, 398, 100}, true, false},  // touches the right edge
        {{397, 100}, {400, 300}, 1.0, {2, 101, 397, 100}, false, false},
        {{401, 300}, {400, 300}, 1.0, {1, 1, 401, 300}, true, true},  // -0.5 truncates to 0
        {{403, 300}, {400, 300}, 1.0, {0, 1, 403, 300}, true, true},
        {{100, 100}, {400, 300}, 0.333, {184, 134, 33, 33}, false, false},
    };
    for (const auto& row : rows) {
        ImageDocument document = documentInView(row.image, row.view);
        document.view.zoom = row.zoom;
        document.updateOverflow();
        EXPECT_EQ(document.imageRect(), row.rect) << row.image.width << " at " << row.zoom;
        EXPECT_EQ(document.view.overflowX, row.overflowX) << row.image.width;
        EXPECT_EQ(document.view.overflowY, row.overflowY) << row.image.height;
    }
}

TEST(Mapping, WindowToImageAndBack) {
    const struct {
        IntSize image;
        double zoom;
        IntPoint window, image1, back;
    } rows[] = {
        // At 1.0 whole pixels; the even window takes one off before the shift by one.
        {{200, 100}, 1.0, {101, 101}, {0, 0}, {101, 101}},
        {{201, 101}, 1.0, {101, 101}, {1, 1}, {101, 101}},
        {{200, 100}, 1.0099, {101, 101}, {0, 0}, {100, 100}},  // still the branch of 1.0, but with its own
                                                               // halving
        {{200, 100}, 2.0, {0, 50}, {0, 0}, {0, 50}},
        {{200, 100}, 2.0, {399, 249}, {199, 99}, {398, 248}},
        {{201, 101}, 0.5, {150, 125}, {1, 1}, {150, 125}},
        {{200, 100}, 4.0, {-200, -50}, {0, 0}, {-200, -50}},
        {{200, 100}, 4.0, {-300, -50}, {-24, 0}, {-296, -50}},
    };
    for (const auto& row : rows) {
        ImageDocument document = documentInView(row.image, {400, 300});
        const IntPoint mapped = windowToImage(document, row.zoom, row.window);
        EXPECT_EQ(mapped, row.image1)
            << row.zoom << ": " << row.window.x << " gave " << mapped.x << ", " << mapped.y;
        const IntPoint back = imageToWindow(document, row.zoom, mapped, {400, 300});
        EXPECT_EQ(back, row.back) << row.zoom << ": " << mapped.x << " gave " << back.x << ", " << back.y;
    }
    ImageDocument document = documentInView({200, 100}, {400, 300});
    EXPECT_EQ(imageToWindow(document, 1.0, {0, 0}, {401, 303}), (IntPoint{102, 102})) << "odd outer size";
    EXPECT_EQ(imageToWindow(document, 2.0, {0, 0}, {401, 303}), (IntPoint{0, 50}))
        << "parity counts at 1.0 only";
}

TEST(Pan, MovesAnAxisOnlyWhileTheImageCoversIt) {
    ImageDocument document = documentInView({600, 200}, {400, 300});  // overflows in x, fits in y
    EXPECT_EQ(document.imageRect().x, -99);
    EXPECT_FALSE(panTo(document, {10, 10})) << "no drag yet";
    beginPan(document, {100, 100});
    EXPECT_TRUE(panTo(document, {150, 180}));
    EXPECT_EQ(document.imageRect().x, -49);
    EXPECT_EQ(document.view.viewCentreY, 150) << "an axis that fits is never moved";
    panTo(document, {199, 180});
    EXPECT_EQ(document.imageRect().x, 0);
    panTo(document, {200, 180});
    EXPECT_EQ(document.imageRect().x, 0) << "a move to x = 1 is refused";
    panTo(document, {199, 180});
    EXPECT_EQ(document.imageRect().x, -1) << "the anchor follows the mouse even when the move was refused";
    endPan(document);
    EXPECT_FALSE(panTo(document, {0, 0}));

    ImageDocument fits = documentInView({100, 100}, {400, 300});
    beginPan(fits, {5, 5});
    EXPECT_EQ(fits.view.panAnchorX, -1) << "an image that fits takes no anchor";
}

TEST(Pan, ScrollToShowsThePointAtTheCornerOfOverflowingAxes) {
    ImageDocument both = documentInView({1000, 800}, {400, 300});
    scrollTo(both, {120, 60});
    EXPECT_EQ(windowToImage(both, 1.0, {1, 1}), (IntPoint{120, 60}));
    ImageDocument tall = documentInView({100, 800}, {400, 300});
    scrollTo(tall, {120, 60});
    EXPECT_EQ(tall.view.viewCentreX, 200);
    EXPECT_EQ(tall.view.viewCentreY, 340);
}

TEST(Mapping, SurvivesWildCoordinates) {
    ImageDocument document = documentInView({200, 100}, {400, 300});
    for (double zoom : {1.0, 0.05, 29.0, 1e300, -1.0, 0.0}) {
        for (int wild : {-2147483647 - 1, 2147483647}) {
            (void)windowToImage(document, zoom, {wild, wild});
            (void)imageToWindow(document, zoom, {wild, wild}, {400, 300});
        }
        document.view.zoom = zoom;
        document.updateOverflow();
        scrollTo(document, {2147483647, -2147483647});
        (void)document.imageRect().right();
    }
}

}  // namespace
}  // namespace orvane
