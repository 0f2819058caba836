#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "control/mode_table.h"
#include "control/paint_mode.h"
#include "support/recording_sink.h"
#include "support/test_control.h"

namespace orvane {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(Mouse, AnEmptyControlIgnoresIt) {
    TestControl control;
    control.put("PaintStatus", PaintMode::Rectangle);
    EXPECT_EQ(control.number("PaintStatus"), PaintMode::None);
    control.redraws();
    control.press(10, 10).move(50, 50).release(50, 50).rightPress(5, 5).tick(3);
    EXPECT_EQ(control.redraws(), 0);
    EXPECT_FALSE(control.window().isCaptured());
    EXPECT_FALSE(control.flag("Modified"));
}

TEST(Mouse, PansAnOverflowingPictureWithTheMouseCaptured) {
    TestControl control(200, 150);
    control.call("NewImage", {100, 80});
    const IntPoint centre{control.document().view.viewCentreX, control.document().view.viewCentreY};
    control.press(50, 50);
    EXPECT_FALSE(control.window().isCaptured()) << "a picture that fits is not dragged";
    control.move(60, 60).release(60, 60);
    EXPECT_EQ(control.document().view.viewCentreX, centre.x);

    control.call("NewImage", {400, 80});
    control.redraws();
    control.press(50, 50);
    EXPECT_TRUE(control.window().isCaptured());
    EXPECT_EQ(control.redraws(), 0);
    control.move(20, 90);
    EXPECT_EQ(control.document().view.viewCentreX, centre.x - 30);
    EXPECT_EQ(control.document().view.viewCentreY, centre.y) << "this axis fits";
    EXPECT_EQ(control.redraws(), 1);
    control.release(20, 90);
    EXPECT_FALSE(control.window().isCaptured());
    EXPECT_EQ(control.redraws(), 0) << "no tool is active";
    control.put("PaintStatus", -3);
    control.press(50, 50).move(45, 50).release(45, 50);
    EXPECT_EQ(control.document().view.viewCentreX, centre.x - 35) << "negative modes pan too";
    control.put("PaintStatus", 22);
    control.press(50, 50).move(30, 50).release(30, 50);
    EXPECT_EQ(control.document().view.viewCentreX, centre.x - 35) << "a mode that is none does nothing";
}

TEST(Mouse, ANewFigureIsFollowedOutsideTheWindow) {
    for (const int mode :
         {PaintMode::Line, PaintMode::Arc, PaintMode::Ellipse, PaintMode::Pie, PaintMode::Rectangle}) {
        TestControl control;
        control.call("NewImage", {200, 200});
        control.put("PaintStatus", mode);
        control.redraws();
        control.press(120, 80);
        EXPECT_TRUE(control.window().isCaptured()) << mode;
        EXPECT_EQ(control.redraws(), 0) << "a press does not redraw, mode " << mode;
        control.move(160, 140);
        EXPECT_EQ(control.redraws(), 1) << mode;
        control.release(170, 150);
        EXPECT_FALSE(control.window().isCaptured()) << mode;
        EXPECT_EQ(control.redraws(), 1) << mode;

        control.press(170, 150);
        EXPECT_FALSE(control.window().isCaptured()) << "an edit takes no capture, mode " << mode;
        control.release(175, 155);
        control.move(20, 20);
        EXPECT_EQ(control.window().cursor(), CursorId::Arrow) << mode;
    }
}

// A cursor other than the arrow holds the mouse, so that its leaving is noticed.
TEST(Mouse, CursorsHoldTheMouseUntilTheArrowReturns) {
    const struct {
        int mode;
        CursorId inside;
        bool redrawsAtEachMove, atOnce;
    } rows[] = {
        {PaintMode::Pencil, CursorId::Pencil, false, true},
        {PaintMode::Brush, CursorId::Brush, true, true},
        {PaintMode::Eraser, CursorId::Brush, true, false},
        {PaintMode::Spray, CursorId::Spray, false, false},
    };
    for (const auto& row : rows) {
        TestControl control;
        control.call("NewImage", {20, 20});
        control.put("PaintStatus", row.mode);
        EXPECT_EQ(control.window().cursor(), row.atOnce ? row.inside : CursorId::Arrow) << row.mode;
        control.redraws();
        control.move(0, 299);
        EXPECT_EQ(control.window().cursor(), row.inside) << "the client area counts, mode " << row.mode;
        EXPECT_TRUE(control.window().isCaptured());
        control.move(400, 299);
        EXPECT_EQ(control.window().cursor(), CursorId::Arrow) << row.mode;
        EXPECT_FALSE(control.window().isCaptured());
        EXPECT_EQ(control.redraws(), row.redrawsAtEachMove ? 2 : 0) << row.mode;
    }

    TestControl control;
    control.call("NewImage", {200, 200});
    control.put("PaintStatus", PaintMode::Rectangle);
    control.drag({{120, 80}, {200, 160}});
    control.move(120, 80);
    EXPECT_EQ(control.window().cursor(), CursorId::SizeNorthwestSoutheast);
    EXPECT_TRUE(control.window().isCaptured());
    control.rightPress(150, 100);
    control.control().onMouseMove(150, 100, {.left = false, .right = true});
    EXPECT_EQ(control.window().cursor(), CursorId::SizeNorthwestSoutheast)
        << "not asked while a button is held";
    control.move(150, 100);
    EXPECT_EQ(control.window().cursor(), CursorId::Move);
    control.move(390, 290);
    EXPECT_EQ(control.window().cursor(), CursorId::Arrow);
    EXPECT_FALSE(control.window().isCaptured());
}

TEST(Mouse, TheRightButtonDeletesVerticesInFourModes) {
    for (int mode = 0; mode < 22; ++mode) {
        const bool deletes = mode == PaintMode::Polyline || mode == PaintMode::Curve ||
                             mode == PaintMode::ClosedCurve || mode == PaintMode::Polygon;
        TestControl control;
        control.call("NewImage", {200, 200});
        control.put("PaintStatus", mode);
        control.drag({{120, 80}, {120, 80}});
        control.redraws();
        control.rightPress(120, 80);
        EXPECT_EQ(control.redraws(), deletes ? 1 : 0) << mode;
        control.move(120, 80);
        if (!deletes) continue;
        EXPECT_EQ(control.window().cursor(), CursorId::Arrow) << "the only vertex is gone, mode " << mode;
    }
}

TEST(Mouse, TheTimerRunsInSprayAndSelection) {
    TestControl control;
    control.call("NewImage", {200, 200});
    const struct {
        int mode;
        bool runs;
    } rows[] = {{7, true}, {18, true}, {7, true}, {11, false}, {18, true}, {0, false}};
    for (const auto& row : rows) {
        control.put("PaintStatus", row.mode);
        EXPECT_EQ(control.window().isTimerRunning(), row.runs) << row.mode;
    }
    control.put("PaintStatus", PaintMode::Spray);
    EXPECT_EQ(control.window().timerPeriodMs(), 50);
    control.redraws();
    control.tick(4);
    EXPECT_EQ(control.redraws(), 0) << "no button is held";
    control.press(100, 100).tick(4);
    EXPECT_EQ(control.redraws(), 4);
    control.control().onDestroy();
    EXPECT_FALSE(control.window().isTimerRunning());
}

TEST(TrackPoint, ReportsItsDragInImagePixels) {
    TestControl control;
    RecordingSink sink;
    control.control().sinks.connect(sink);
    control.call("NewImage", {200, 100});  // shown at (101, 101)
    control.put("PaintStatus", PaintMode::TrackPoint);
    EXPECT_EQ(control.control().tools.trackPoint.point, (IntPoint{200, 150}));

    control.press(216, 150).move(220, 150).release(220, 150);
    EXPECT_THAT(sink.take(), IsEmpty()) << "too far from the crosshair";
    control.redraws();
    control.press(215, 165);
    EXPECT_EQ(control.redraws(), 0);
    control.move(90, 101);
    EXPECT_EQ(control.redraws(), 1);
    control.move(-1, 101);
    EXPECT_EQ(control.redraws(), 0) << "outside the window it stays";
    control.release(-1, 101);
    EXPECT_EQ(control.redraws(), 1);
    EXPECT_THAT(sink.take(), ElementsAre("OnTrackPointMouseDown 114 64", "OnTrackPointMouseMove -11 0",
                                         "OnTrackPointMouseUp -102 0"));
    EXPECT_EQ(control.control().tools.trackPoint.point, (IntPoint{90, 101}));

    control.call("ZoomIn");
    EXPECT_EQ(control.control().tools.trackPoint.point, (IntPoint{90, 101})) << "it belongs to the window";
    control.press(90, 101);
    control.call("ResetTrack");
    control.move(95, 101).release(95, 101);
    EXPECT_EQ(sink.take().size(), 1u) << "ResetTrack drops the grab";
    EXPECT_FALSE(control.flag("Modified"));
}

// A red cross that leaves its centre free, over the picture and under nothing.
TEST(TrackPoint, ShowsACrosshair) {
    TestControl control(100, 80);
    control.put("ScrollWindowVisible", false);
    control.call("NewImage", {100, 80});
    control.put("PaintStatus", PaintMode::TrackPoint);
    const PixelView shown = control.window().picture();
    EXPECT_EQ(shown.at(50, 40), 0xFFFFFFFFu);
    EXPECT_EQ(shown.at(48, 40), 0xFFFFFFFFu);
    for (const IntPoint p : {IntPoint{40, 40}, {60, 40}, {50, 30}, {50, 50}}) {
        EXPECT_EQ(shown.at(p.x, p.y), 0xFFFF0000u) << p.x << ", " << p.y;
    }
    EXPECT_EQ(shown.at(50, 23), 0xFFFFFFFFu);
    EXPECT_EQ(shown.at(50, 57), 0xFFFFFFFFu);
    control.put("PaintStatus", PaintMode::None);
    EXPECT_EQ(control.window().picture().at(40, 40), 0xFFFFFFFFu);
}

// Whatever a sink does from inside an event, the message that fired it ends well.
TEST(Events, SinksMayCallBackIntoTheControl) {
    using Action = void (*)(TestControl&);
    const Action actions[] = {
        [](TestControl& c) { c.call("Empty"); },
        [](TestControl& c) {
            c.call("NewImage", {30, 30});
        },
        [](TestControl& c) { c.put("PaintStatus", PaintMode::Polygon); },
        [](TestControl& c) { c.put("PaintStatus", PaintMode::None); },
        [](TestControl& c) { c.call("ResetTrack"); },
        [](TestControl& c) { c.control().onSize(50, 40); },
        [](TestControl& c) { c.control().onDestroy(); },
    };
    for (const Action action : actions) {
        for (const EventId when :
             {EventId::OnTrackPointMouseDown, EventId::OnTrackPointMouseMove, EventId::OnTrackPointMouseUp}) {
            TestControl control;
            RecordingSink sink;
            control.control().sinks.connect(sink);
            sink.then = [&](EventId event) {
                if (event != when) return;
                control.control().sinks.disconnect(sink);
                action(control);
            };
            control.call("NewImage", {200, 100});
            control.put("PaintStatus", PaintMode::TrackPoint);
            control.drag({{200, 150}, {210, 150}, {220, 150}});
            control.call("NewImage", {20, 20});
            EXPECT_FALSE(control.control().tools.trackPoint.isGrabbed());
        }
    }
}

TEST(ModeTable, NumbersOutsideItSelectNothing) {
    for (const int mode : {-1, 22, 1000000, std::numeric_limits<int>::min()}) {
        EXPECT_EQ(rulesOf(mode).leftDown, nullptr);
        EXPECT_EQ(rulesOf(mode).overlay, nullptr);
    }
}

}  // namespace
}  // namespace orvane
