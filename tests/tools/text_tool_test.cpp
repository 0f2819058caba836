#include "tools/text_tool.h"

#include <limits>

#include "support/failing_allocator.h"
#include "tools/test_tool.h"

namespace orvane {
namespace {

constexpr IntSize kClient{160, 90};
constexpr IntPoint kCorner{9, 14};  // so that the origin is (10, 15)

/// A text tool in a client area, and a white picture of that size to commit into.
struct TextToolTest : testing::Test {
    TextToolTest() {
        document.newImage(kClient.width, kClient.height);
        tool.bounds = {0, 0, kClient.width, kClient.height};
        brush.colour1 = 0xFF000000u;
    }

    void place(std::u16string_view text = u"Text") { ASSERT_TRUE(tool.place(text, kCorner)); }
    std::vector<Argb> paper() const {
        return std::vector<Argb>(std::size_t(kClient.width) * std::size_t(kClient.height), 0xFFFFFFFFu);
    }
    static MutablePixelView viewOf(std::vector<Argb>& pixels) {
        return {pixels.data(), kClient.width, kClient.height, kClient.width};
    }
    std::vector<Argb> overlay() {
        std::vector<Argb> pixels = paper();
        tool.Draw(viewOf(pixels));
        return pixels;
    }
    void drag(IntPoint from, IntPoint to) {
        tool.OnMouseDown(MouseButton::Left, from);
        tool.OnMouseMove(to);
        tool.OnMouseUp(to);
    }
    IntPoint origin() const { return {tool.box.x, tool.box.y}; }
    int steps() const { return document.history.undoDepth; }

    PenSettings pen;
    BrushSettings brush;
    TextSettings font;
    TextTool tool{pen, brush, font};
    ImageDocument document;
};

constexpr auto shiftedByFive = [](IntPoint p) { return IntPoint{p.x + 5, p.y - 5}; };

TEST_F(TextToolTest, ShowsTheTextInAStripedFrame) {
    place();
    const std::vector<Argb> shown = overlay();
    const TextExtent extent = measureText(*font.current(), u"Text");
    EXPECT_EQ(tool.box, (IntRect{10, 15, int(extent.width), int(extent.height)}));

    std::vector<Argb> bare = paper();
    drawText(viewOf(bare), *font.current(), u"Text", SolidBrush{0xFF000000u}, IntPoint{10, 15});
    int red = 0;
    for (int y = 0; y < kClient.height; ++y) {
        for (int x = 0; x < kClient.width; ++x) {
            const std::size_t i = std::size_t(y * kClient.width + x);
            const bool isInside = x > 11 && x < tool.box.right() - 2 && y > 16 && y < tool.box.bottom() - 2;
            if (isInside) {
                EXPECT_EQ(shown[i], bare[i]) << x << ' ' << y;
            }
            red += shown[i] == 0xFFFF0000u;
        }
    }
    EXPECT_GT(red, tool.box.width + tool.box.height) << "half of the three pixels on four sides, at least";
}

TEST_F(TextToolTest, WithoutTextFontOrBrushLessIsShown) {
    EXPECT_EQ(overlay(), paper()) << "no text yet";
    place(u"");
    EXPECT_EQ(overlay(), paper());
    place();
    for (const int index : {-1, int(fontFamilies().size()), std::numeric_limits<int>::max()}) {
        font.chosenIndex = index;
        EXPECT_EQ(overlay(), paper()) << index;
    }
    font.chosenIndex.reset();
    brush.style = 7;
    const std::vector<Argb> frameOnly = overlay();
    EXPECT_NE(frameOnly, paper());
    for (const Argb pixel : frameOnly) EXPECT_EQ(redOf(pixel), 255u) << "red and white, no black letter";
}

TEST_F(TextToolTest, IsGrabbedInsideItsBoxOnly) {
    place();
    (void)overlay();
    const int right = tool.box.right(), bottom = tool.box.bottom();
    const struct {
        IntPoint mouse;
        MouseButton button;
        bool grabbed;
    } rows[] = {{{10, 15}, MouseButton::Left, true},     {{9, 15}, MouseButton::Left, false},
                {{10, 14}, MouseButton::Left, false},    {{right - 1, bottom - 1}, MouseButton::Left, true},
                {{right, 20}, MouseButton::Left, false}, {{20, bottom}, MouseButton::Left, false},
                {{20, 20}, MouseButton::Right, false}};
    for (const auto& row : rows) {
        tool.Reset();
        place();
        (void)overlay();
        tool.OnMouseDown(row.button, row.mouse);
        EXPECT_EQ(tool.activeHandle, row.grabbed ? 0 : -1);
        EXPECT_EQ(tool.OnMouseMove({row.mouse.x + 7, row.mouse.y - 30}), row.grabbed);
        EXPECT_EQ(origin(), (row.grabbed ? IntPoint{17, -15} : IntPoint{10, 15}));
    }
}

TEST_F(TextToolTest, AGrabOutlastsTheRelease) {
    place();
    (void)overlay();
    drag({12, 20}, {22, 30});
    EXPECT_EQ(origin(), (IntPoint{20, 25}));
    drag({150, 80}, {150, 80});
    EXPECT_EQ(origin(), (IntPoint{148, 75})) << "from where the mouse last was";
    drag({0, 0}, {-300, 40});
    EXPECT_EQ(origin(), (IntPoint{-302, 35})) << "bounds do not matter";
    constexpr int kMost = std::numeric_limits<int>::max();
    for (int i = 0; i < 20; ++i) drag({-kMost, kMost}, {kMost, -kMost});
    (void)overlay();
    tool.Reset();
    EXPECT_FALSE(tool.OnMouseMove({5, 5}));
    EXPECT_EQ(tool.box, IntRect{});
}

TEST_F(TextToolTest, TheCursorTellsWhereItCanBeGrabbed) {
    EXPECT_EQ(tool.HitCursor({0, 0}), CursorId::Arrow);
    place();
    (void)overlay();
    EXPECT_EQ(tool.HitCursor({12, 20}), CursorId::Move);
    EXPECT_EQ(tool.HitCursor({9, 20}), CursorId::Arrow);
    tool.bounds.width = 12;
    EXPECT_EQ(tool.HitCursor({12, 20}), CursorId::Arrow) << "inside the box but not the client area";
    place(u"");
    EXPECT_EQ(tool.HitCursor({11, 20}), CursorId::Arrow);
}

TEST_F(TextToolTest, CommitDrawsAtTheImagesPlaceAndEmptiesTheTool) {
    place();
    font.fontStyleBits = TextSettings::Bold | TextSettings::Italic | TextSettings::Underline;
    std::vector<Argb> expected = paper();
    drawText(viewOf(expected), {u"Arial", 20, true, true, true}, u"Text", SolidBrush{0xFF000000u},
             IntPoint{15, 10});
    tool.commit(document, shiftedByFive);
    EXPECT_EQ(test::pictureOf(document), expected);
    EXPECT_EQ(steps(), 1);
    EXPECT_TRUE(tool.text.empty());
    EXPECT_EQ(tool.box, IntRect{});
    tool.commit(document, shiftedByFive);
    EXPECT_EQ(steps(), 1) << "nothing to draw";
}

TEST_F(TextToolTest, CommitWithoutBrushOrFontIsAStepThatChangesNothing) {
    const std::vector<Argb> before = test::pictureOf(document);
    place();
    brush.style = 7;
    tool.commit(document, test::sameSpot);
    EXPECT_EQ(steps(), 1);
    brush.style = BrushSettings::Solid;
    place();
    font.chosenIndex = -1;
    tool.commit(document, test::sameSpot);
    EXPECT_EQ(steps(), 2);
    EXPECT_EQ(test::pictureOf(document), before);
    EXPECT_TRUE(tool.text.empty());
}

TEST_F(TextToolTest, AGradientRunsAcrossTheBox) {
    brush.style = BrushSettings::Gradient;
    place();
    (void)overlay();
    const IntRect box = tool.box;
    EXPECT_EQ(brush.gradientRectangle, (IntRect{9, 14, box.width + 2, box.height + 2}));
    font.fontSize = 31;  // measured again when it is committed
    tool.commit(document, shiftedByFive);
    const TextExtent extent = measureText({u"Arial", 31}, u"Text");
    EXPECT_EQ(brush.gradientRectangle, (IntRect{14, 9, int(extent.width) + 2, int(extent.height) + 2}));
}

TEST_F(TextToolTest, AnotherTextReplacesTheFirstAndAZoomTakesItAlong) {
    place(u"One");
    (void)overlay();
    drag({12, 20}, {40, 50});
    tool.reproject([](IntPoint p) { return IntPoint{2 * p.x, 2 * p.y}; });
    EXPECT_EQ(origin(), (IntPoint{76, 90}));
    place(u"Two");
    EXPECT_EQ(origin(), (IntPoint{10, 15}));
    EXPECT_EQ(tool.text, u"Two");

    const std::u16string longer(100, u'x');
    FailingAllocator::arm(1);
    const bool placed = tool.place(longer, {70, 70});
    FailingAllocator::disarm();
    EXPECT_FALSE(placed);
    EXPECT_EQ(tool.text, u"Two");
    EXPECT_EQ(origin(), (IntPoint{10, 15}));
}

}  // namespace
}  // namespace orvane
