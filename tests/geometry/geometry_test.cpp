#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <limits>

#include "geometry/crop.h"
#include "support/pictures.h"
#include "support/test_control.h"

namespace orvane {
namespace {

using test::loadPicture;
using test::pictureOf;
using test::randomPicture;

constexpr int kWidth = 101, kHeight = 51;

/// A control that shows a picture dragged away from the centre, with a redo step at hand.
class Scene : public TestControl {
 public:
    Scene() {
        loadPicture(document(), picture, kWidth, kHeight);
        call("Invert");
        call("Undo");
        document().view.viewCentreX = -500;
        document().updateOverflow();
        document().modified = false;
        redraws();
    }

    [[nodiscard]] IntSize size() { return document().size(); }
    /// The last call was one complete step: undone, everything is as it was.
    void expectStep(IntSize expected) {
        EXPECT_EQ(size(), expected);
        EXPECT_TRUE(document().modified);
        EXPECT_FALSE(flag("RedoEnable"));
        EXPECT_EQ(document().view.viewCentreX, 200);
        EXPECT_FALSE(document().view.overflowX);
        call("Undo");
        EXPECT_EQ(size(), (IntSize{kWidth, kHeight}));
        EXPECT_EQ(pictureOf(document()), picture);
        EXPECT_FALSE(flag("UndoEnable"));
    }
    void expectNothingHappened() {
        EXPECT_EQ(size(), (IntSize{kWidth, kHeight}));
        EXPECT_FALSE(document().modified);
        EXPECT_FALSE(flag("UndoEnable"));
        EXPECT_TRUE(flag("RedoEnable"));
        EXPECT_EQ(document().view.viewCentreX, -500);
    }

    const std::vector<Argb> picture = randomPicture(kWidth * kHeight, 1u);
};

TEST(RotateFlip, TurnsAsOneStepAndCentresTheView) {
    constexpr std::size_t kTopLeft = 0, kTopRight = kWidth - 1, kBottomLeft = kWidth * (kHeight - 1),
                          kBottomRight = kWidth * kHeight - 1;
    constexpr std::size_t kNewTopLeft[] = {kTopLeft,  kBottomLeft, kBottomRight, kTopRight,
                                           kTopRight, kTopLeft,    kBottomLeft,  kBottomRight};
    for (int type = 0; type <= 7; ++type) {
        const testing::ScopedTrace trace(__FILE__, __LINE__, std::to_string(type));
        Scene scene;
        scene.call("RotateFlip", {type});
        EXPECT_EQ(scene.redraws(), 1);
        EXPECT_EQ(pictureOf(scene.document())[0], scene.picture[kNewTopLeft[type]]);
        scene.expectStep(type % 2 == 0 ? IntSize{kWidth, kHeight} : IntSize{kHeight, kWidth});
    }
}

TEST(RotateFlip, EndsWhereItBeganAfterAFullTurnOrTwoMirrors) {
    const struct {
        int type, times;
    } rows[] = {{1, 4}, {3, 4}, {2, 2}, {4, 2}, {5, 2}, {6, 2}, {7, 2}, {0, 1}};
    for (const auto& row : rows) {
        Scene scene;
        for (int i = 0; i < row.times; ++i) scene.call("RotateFlip", {row.type});
        EXPECT_EQ(pictureOf(scene.document()), scene.picture) << row.type;
        for (int i = 0; i < row.times; ++i) scene.call("Undo");
        EXPECT_FALSE(scene.flag("UndoEnable")) << row.type;
    }
}

TEST(RotateFlip, RefusesOtherTypes) {
    for (int type : {-1, 8, INT_MIN, INT_MAX}) {
        Scene scene;
        scene.call("RotateFlip", {type});
        EXPECT_EQ(scene.redraws(), 1);
        scene.expectNothingHappened();
    }
}

TEST(ScaleImage, CutsSidesDownToWholePixels) {
    const struct {
        double x, y;
        IntSize size;
    } rows[] = {{0.5, 0.5, {50, 25}}, {2.0, 1.0, {202, 51}}, {1.0, 1.0, {101, 51}}, {0.01, 0.02, {1, 1}}};
    for (const auto& row : rows) {
        Scene scene;
        scene.call("ScaleImage", {row.x, row.y});
        EXPECT_EQ(scene.redraws(), 1);
        EXPECT_EQ(scene.control().tools.crop.limit, scene.document().imageRect());
        scene.expectStep(row.size);
    }
}

TEST(ScaleImage, RefusesSizesThatAreNone) {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    const double rows[][2] = {{0, 1},           {1, 0},     {-1, 1},        {1, -0.5},
                              {0.001, 1},       {1, 0.01},  {1e300, 1e300}, {kInfinity, 1},
                              {1, 3.0e7},       {1e5, 1e5}, {1e-320, 1},    {std::nan(""), 1},
                              {1, std::nan("")}};
    for (const auto& row : rows) {
        Scene scene;
        scene.call("ScaleImage", {row[0], row[1]});
        EXPECT_EQ(scene.redraws(), 1);
        scene.expectNothingHappened();
    }
}

TEST(ScaleImage, KeepsPixelsWhereNothingIsScaled) {
    Scene scene;
    scene.call("ScaleImage", {1.0, 1.0});
    const std::vector<Argb> after = pictureOf(scene.document());
    for (std::size_t i = 0; i < after.size(); ++i) {
        // Drawn onto a transparent picture, a transparent pixel leaves that one's colour.
        ASSERT_EQ(after[i], alphaOf(scene.picture[i]) == 0 ? 0u : scene.picture[i]);
    }
}

TEST(ScaleImage, LendsNoColourOfTransparentPixels) {
    TestControl control;
    loadPicture(control.document(), {0xFF808080u, 0x00FF0000u, 0xFF808080u, 0x00FF0000u}, 2, 2);
    control.call("ScaleImage", {0.5, 0.5});
    EXPECT_EQ(pictureOf(control.document()), (std::vector<Argb>{0x80808080u}));
}

TEST(CropToRectangle, KeepsWhatLiesInsideThePicture) {
    const struct {
        IntRect asked, kept;
    } rows[] = {{{10, 10, 4, 4}, {10, 10, 4, 4}},
                {{0, 0, kWidth, kHeight}, {0, 0, kWidth, kHeight}},
                {{-5, -7, 20, 20}, {0, 0, 15, 13}},
                {{90, 40, 1000, 1000}, {90, 40, 11, 11}},
                {{97, 47, INT_MAX, INT_MAX}, {97, 47, 4, 4}}};
    for (const auto& row : rows) {
        Scene scene;
        cropToRectangle(scene.document(), row.asked);
        std::vector<Argb> expected;
        for (int y = row.kept.y; y < row.kept.bottom(); ++y) {
            const auto line = scene.picture.begin() + y * kWidth;
            expected.insert(expected.end(), line + row.kept.x, line + row.kept.right());
        }
        EXPECT_EQ(pictureOf(scene.document()), expected);
        scene.expectStep({row.kept.width, row.kept.height});
    }
}

TEST(CropToRectangle, RefusesLessThanFourByFour) {
    const IntRect rows[] = {{0, 0, 3, 4},       {0, 0, 4, 3},
                            {98, 0, 100, 100},  {0, 48, 100, 100},
                            {-1, 0, 4, 9},      {200, 10, 9, 9},
                            {10, 10, -9, 9},    {10, 10, 9, INT_MIN},
                            {INT_MIN, 0, 9, 9}, {INT_MAX, INT_MAX, INT_MAX, INT_MAX}};
    for (const IntRect& row : rows) {
        Scene scene;
        cropToRectangle(scene.document(), row);
        scene.expectNothingHappened();
    }
}

TEST(Geometry, LeavesAnEmptyDocumentEmpty) {
    TestControl control;
    control.call("RotateFlip", {1});
    control.call("ScaleImage", {2.0, 2.0});
    cropToRectangle(control.document(), {0, 0, 10, 10});
    EXPECT_TRUE(control.flag("IsEmpty"));
    EXPECT_FALSE(control.flag("Modified"));
}

}  // namespace
}  // namespace orvane
