#include <gtest/gtest.h>

#include <functional>
#include <utility>

#include "support/test_control.h"

namespace orvane {
namespace {

TEST(Refresh, UpdatesAreHeldBackUntilOneEndUpdate) {
    TestControl control;
    control.call("NewImage", {100, 100});
    control.redraws();
    control.call("BeginUpdate");
    control.call("BeginUpdate");
    control.call("Undo");
    control.put("PenWidth", 5);
    control.control().onPaint();
    EXPECT_EQ(control.redraws(), 0);
    EXPECT_EQ(control.number("PenWidth"), 5);
    control.call("EndUpdate");
    EXPECT_EQ(control.redraws(), 1) << "nothing is counted: one EndUpdate ends any number of BeginUpdates";
    control.call("Undo");
    EXPECT_EQ(control.redraws(), 1);
}

TEST(Refresh, DrawsNothingBeforeTheFirstResizeOrWithoutAWindow) {
    HeadlessWindow window;
    VistrelControl unsized(&window);
    unsized.refresh();
    EXPECT_EQ(window.presents(), 0);
    unsized.onSize(30, 20);
    EXPECT_EQ(window.presents(), 0) << "a resize does not redraw by itself";
    unsized.refresh();
    EXPECT_EQ(window.picture().width, 30);
    unsized.onSize(0, 0);
    unsized.refresh();
    EXPECT_EQ(window.presents(), 1);

    VistrelControl windowless;
    windowless.onSize(30, 20);
    windowless.refresh();
}

TEST(Refresh, LayersBackgroundPictureAndFrame) {
    TestControl control(60, 50);
    control.put("BackColor1", ColorValue{0x00FF0000});
    control.put("FrameColor", ColorValue{0x0000FF00});
    control.put("BitmapBackColor", ColorValue{0x000000FF});
    control.call("NewImage", {20, 10});
    const PixelView shown = control.window().picture();
    const IntRect r = control.document().imageRect();
    EXPECT_EQ(r, (IntRect{21, 21, 20, 10}));
    EXPECT_EQ(shown.at(0, 0), 0xFF0000FFu) << "background";
    EXPECT_EQ(shown.at(r.x, r.y), 0xFFFF0000u) << "picture";
    EXPECT_EQ(shown.at(r.right() - 1, r.bottom() - 1), 0xFFFF0000u);
    EXPECT_EQ(shown.at(r.x - 2, r.y - 2), 0xFF00FF00u) << "frame";
    EXPECT_EQ(shown.at(r.x - 4, r.y), 0xFF0000FFu) << "outside the frame";
}

class Recorder final : public EventSink {
 public:
    void onEvent(EventId event, std::span<const Value> arguments) override {
        EXPECT_EQ(event, EventId::OnDropFile);
        heard.emplace_back(arguments[0].string());
        if (const auto now = std::exchange(then, nullptr)) now();
    }
    std::vector<std::u16string> heard;
    std::function<void()> then;  ///< done once, while the event is being heard
};

TEST(Events, SinksMayCallBackConnectAndDisconnectWhileHearing) {
    TestControl control;
    Recorder first, second, late;
    EventSinks& sinks = control.control().sinks;
    sinks.connect(first);
    sinks.connect(second);
    first.then = [&] {
        control.call("NewImage", {50, 40});
        sinks.disconnect(first);
        sinks.connect(late);
    };
    control.control().onDropFile(u"a.png");
    EXPECT_EQ(control.number("ImageWidth"), 50);
    EXPECT_EQ(second.heard.size(), 1u);
    EXPECT_TRUE(late.heard.empty());
    second.then = [&] {
        sinks.disconnect(late);
        control.control().onDropFile(u"nested.png");
    };
    control.control().onDropFile(u"b.png");
    EXPECT_EQ(first.heard, (std::vector<std::u16string>{u"a.png"}));
    EXPECT_EQ(second.heard, (std::vector<std::u16string>{u"a.png", u"b.png", u"nested.png"}));
    EXPECT_TRUE(late.heard.empty());
}

}  // namespace
}  // namespace orvane
