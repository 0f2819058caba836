#include "view/scroll_window.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <string>
#include <vector>

#include "platform/graphics/source_over.h"
#include "support/failing_allocator.h"
#include "support/pictures.h"

namespace orvane {
namespace {

constexpr Argb kPaper = 0xFFFFFFFFu;

/// A window of a scroll window's own, with an image of one colour that is shown too large for it.
class Panel {
 public:
    Panel(IntSize clientSize, IntSize image, Argb colour = 0xFF20A040u) : client(clientSize) {
        scroll.setClientSize(client);
        picture = PixelSurface::create(image.width, image.height);
        const MutablePixelView view = picture.overwrite();
        std::fill_n(view.pixels, view.pixelCount(), colour);
    }
    Panel& show(IntPoint corner, IntPoint opposite, double zoom = 1.0) {
        scroll.setViewRect(corner, opposite);
        return draw(zoom);
    }
    Panel& draw(double zoom = 1.0) {
        pixels.assign(std::size_t(client.width) * std::size_t(client.height), kPaper);
        scroll.draw(picture, zoom, {pixels.data(), client.width, client.height, client.width});
        return *this;
    }
    [[nodiscard]] Argb at(int x, int y) const { return pixels[std::size_t(y * client.width + x)]; }
    /// The smallest rectangle around everything that was drawn.
    [[nodiscard]] IntRect drawn() const {
        IntPoint first{client.width, client.height}, last{-1, -1};
        for (int y = 0; y < client.height; ++y) {
            for (int x = 0; x < client.width; ++x) {
                if (at(x, y) == kPaper) continue;
                first = {std::min(first.x, x), std::min(first.y, y)};
                last = {std::max(last.x, x), std::max(last.y, y)};
            }
        }
        return {first.x, first.y, last.x - first.x + 1, last.y - first.y + 1};
    }

    IntSize client;
    PenSettings pen;
    BrushSettings brush;
    ScrollWindow scroll{pen, brush};
    PixelSurface picture;
    std::vector<Argb> pixels;
};

TEST(ScrollWindow, LiesInTheLowerRightCorner) {
    const struct {
        IntSize image;
        IntRect panel, thumbnail;
    } rows[] = {
        {{400, 200}, {171, 95, 128, 94}, {181, 115, 108, 54}},
        {{200, 400}, {184, 41, 115, 148}, {214, 61, 54, 108}},
        {{100, 105}, {177, 41, 122, 148}, {187, 61, 102, 108}},
        {{300, 300}, {171, 41, 128, 148}, {181, 61, 108, 108}},
        {{94, 107}, {184, 41, 115, 148}, {194, 61, 94, 108}},
        {{1000, 3}, {171, 149, 128, 40}, {181, 169, 108, 0}},
    };
    for (const auto& row : rows) {
        Panel panel({300, 200}, row.image);
        panel.show({0, 0}, {row.image.width, row.image.height});
        // The left side is rounded, 8 pixels outside the panel's own rectangle.
        const IntRect expected{row.panel.x - 8, row.panel.y, row.panel.width + 8, row.panel.height};
        EXPECT_EQ(panel.drawn(), expected) << row.image.width << " x " << row.image.height;
        const IntRect& t = row.thumbnail;
        EXPECT_EQ(panel.scroll.thumbnailHit({t.x, t.y}), !t.isEmpty());
        EXPECT_EQ(panel.scroll.thumbnailHit({t.right() - 1, t.bottom() - 1}), !t.isEmpty());
        EXPECT_FALSE(panel.scroll.thumbnailHit({t.x - 1, t.y}));
        EXPECT_FALSE(panel.scroll.thumbnailHit({t.right(), t.y}));
        EXPECT_FALSE(panel.scroll.thumbnailHit({t.x, t.bottom()}));
        EXPECT_TRUE(panel.scroll.closeButtonHit({280, row.panel.y + 5}));
        EXPECT_TRUE(panel.scroll.closeButtonHit({289, row.panel.y + 14}));
        EXPECT_FALSE(panel.scroll.closeButtonHit({290, row.panel.y + 14}));
    }
}

TEST(ScrollWindow, ShowsTheImageAndWhereTheViewLies) {
    Panel panel({300, 200}, {400, 200});
    panel.show({100, 50}, {300, 150});
    const Argb image = 0xFF20A040u, shaded = sourceOver(0xA0646464u, image);
    // The thumbnail is 108 x 54 at (181, 115); the view takes the middle half of it, from (208, 128).
    EXPECT_EQ(panel.at(182, 116), shaded);
    EXPECT_EQ(panel.at(208, 128), 0xFFFFFFFFu);
    EXPECT_EQ(panel.at(262, 155), 0xFFFFFFFFu);
    EXPECT_EQ(panel.at(230, 140), image);
    EXPECT_EQ(panel.at(207, 140), shaded);
    EXPECT_EQ(panel.at(263, 140), shaded);
    const Argb even = sourceOver(ScrollWindow::kColour, kPaper);
    EXPECT_EQ(panel.at(175, 100), even);
    EXPECT_EQ(panel.at(180, 140), even);
    EXPECT_EQ(panel.at(165, 140), even) << "the rounded strip";
    EXPECT_EQ(panel.at(163, 95), kPaper) << "its corner";
    EXPECT_EQ(panel.at(280, 105), 0xFFD3D3D3u) << "the close button's outline";
    EXPECT_EQ(panel.at(281, 101), 0xFF8B0000u);
    panel.scroll.colour = 0x8C000000u;
    EXPECT_EQ(panel.draw().at(175, 100), sourceOver(0x8C000000u, kPaper));
    panel.scroll.visible = false;
    EXPECT_EQ(panel.draw().drawn().width, -300) << "nothing";
}

/// Nothing of the panel is painted twice: its translucent pieces meet without a seam.
TEST(ScrollWindow, HasAnEvenPanel) {
    Panel panel({300, 200}, {400, 200});
    panel.show({0, 0}, {400, 200});
    const Argb even = sourceOver(ScrollWindow::kColour, kPaper);
    for (int y = 95; y < 189; ++y) {
        for (int x = 171; x < 181; ++x) ASSERT_EQ(panel.at(x, y), even) << x << ", " << y;
        for (int x = 163; x < 171; ++x) ASSERT_GE(redOf(panel.at(x, y)), redOf(even)) << x << ", " << y;
    }
}

TEST(ScrollWindow, TheCaptionGivesTheZoomInPercent) {
    Panel panel({300, 200}, {400, 200});
    const auto caption = [&](double zoom) {
        panel.show({0, 0}, {400, 200}, zoom);
        std::vector<Argb> rows;
        for (int y = 170; y < 189; ++y) {
            for (int x = 171; x < 299; ++x) rows.push_back(panel.at(x, y));
        }
        return rows;
    };
    EXPECT_EQ(caption(1.5), caption(1.509));
    EXPECT_NE(caption(1.5), caption(1.51));
    EXPECT_EQ(caption(0.333), caption(0.339));
    EXPECT_NE(caption(0.333), caption(0.329999));
    caption(std::numeric_limits<double>::max());
    caption(std::numeric_limits<double>::quiet_NaN());
}

TEST(ScrollWindow, AViewThatScrollsKeepsItsSizeOnTheThumbnail) {
    Panel panel({300, 200}, {1000, 500});
    const auto widthOfView = [&] {
        int first = -1, last = -1;
        for (int x = 181; x <= 289; ++x) {
            if (panel.at(x, 140) != 0xFFFFFFFFu) continue;
            if (first < 0) first = x;
            last = x;
        }
        return last - first;
    };
    panel.show({0, 0}, {296, 500});
    const int width = widthOfView();
    EXPECT_NEAR(width, 32, 1);
    for (int x = 1; x < 700; ++x) {
        panel.show({x, 0}, {x + 296, 500});
        ASSERT_EQ(widthOfView(), width) << x;
    }
    panel.show({0, 0}, {330, 500});
    EXPECT_GT(widthOfView(), width + 1) << "another zoom is another size";
}

TEST(ScrollWindow, IsDraggedByTheRectangleOnly) {
    Panel panel({300, 200}, {400, 200});
    panel.show({100, 50}, {300, 150});  // at (208, 128), 54 x 27
    EXPECT_FALSE(panel.scroll.press({206, 140})) << "beside it, though near an edge";
    EXPECT_FALSE(panel.scroll.drag({216, 150}));
    EXPECT_FALSE(panel.scroll.press({285, 105})) << "the close button";

    for (const IntPoint grip : {IntPoint{230, 140}, {208, 128}, {261, 140}}) {
        panel.show({100, 50}, {300, 150});
        ASSERT_TRUE(panel.scroll.press(grip));
        EXPECT_TRUE(panel.scroll.isDragging());
        EXPECT_TRUE(panel.scroll.drag({grip.x + 10, grip.y - 5}));
        EXPECT_EQ(panel.scroll.targetPoint(), (IntPoint{137, 29}))
            << "trunc(400 / 108 * 37), trunc(200 / 54 * 8)";
        panel.show({0, 0}, {1, 1});
        EXPECT_EQ(panel.scroll.targetPoint(), (IntPoint{137, 29})) << "the view's own rectangle waits";
        EXPECT_TRUE(panel.scroll.drag({-500, -500}));
        EXPECT_EQ(panel.scroll.targetPoint(), (IntPoint{0, 0})) << "held inside the thumbnail";
        EXPECT_FALSE(panel.scroll.release({0, 0}));
        EXPECT_FALSE(panel.scroll.isDragging());
        EXPECT_FALSE(panel.scroll.drag({230, 140}));
    }
}

TEST(ScrollWindow, TheReleaseOnTheCloseButtonHidesIt) {
    Panel panel({300, 200}, {400, 200});
    panel.show({100, 50}, {300, 150});
    EXPECT_FALSE(panel.scroll.press({285, 105}));
    EXPECT_TRUE(panel.scroll.visible);
    EXPECT_TRUE(panel.scroll.release({285, 105}));
    EXPECT_FALSE(panel.scroll.visible);
}

TEST(ScrollWindow, TheThumbnailFollowsTheImage) {
    Panel panel({300, 200}, {400, 200});
    panel.show({0, 0}, {400, 200});
    EXPECT_EQ(panel.at(230, 140), 0xFF20A040u);
    const MutablePixelView view = panel.picture.write();
    std::fill_n(view.pixels, view.pixelCount(), 0xFF4060A0u);
    EXPECT_EQ(panel.show({0, 0}, {400, 200}).at(230, 140), 0xFF4060A0u);
    panel.picture = PixelSurface::create(300, 200);
    const MutablePixelView other = panel.picture.overwrite();
    std::fill_n(other.pixels, other.pixelCount(), 0x80FF0000u);
    EXPECT_EQ(panel.show({0, 0}, {300, 200}).at(230, 140),
              sourceOver(0x80FF0000u, sourceOver(ScrollWindow::kColour, kPaper)));
}

TEST(ScrollWindow, DrawsWithoutMemoryAndInTinyWindows) {
    Panel panel({300, 200}, {400, 200});
    panel.scroll.setViewRect({0, 0}, {400, 200});
    panel.pixels.assign(300 * 200, kPaper);
    FailingAllocator::arm(1, 1000);
    panel.scroll.draw(panel.picture, 1.0, {panel.pixels.data(), 300, 200, 300});
    FailingAllocator::disarm();
    EXPECT_EQ(panel.at(230, 140), 0xFF20A040u);

    for (const IntSize client : {IntSize{1, 1}, {40, 30}, {120, 90}}) {
        Panel small(client, {400, 200});
        small.show({1, 1}, {3, 3});
        small.scroll.press({0, 0});
        small.scroll.drag({20, 20});
        EXPECT_LE(small.scroll.targetPoint().x, 1000000000);
        small.scroll.release({20, 20});
        small.show({-1000000000, -1000000000}, {1000000000, 1000000000});
    }
}

}  // namespace
}  // namespace orvane
