// The widget in a window, used with a real pointer.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include <orvane/headless_window.h>
#include <orvane/vistrel.h>

#include "hosts/gtk/support/screen.h"

namespace orvane::test {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::Not;

constexpr int kRectangle = 11, kPencil = 3, kTrackPoint = 21;

/// Counts the notifications of properties, by name.
class Notices {
 public:
    explicit Notices(OrvaneVistrel* control) : control_(control) {
        const auto note = +[](GObject*, GParamSpec* property, gpointer self) {
            static_cast<Notices*>(self)->names_.emplace_back(property->name);
        };
        handler_ = g_signal_connect(control, "notify", G_CALLBACK(note), this);
    }
    ~Notices() { g_signal_handler_disconnect(control_, handler_); }
    Notices(const Notices&) = delete;
    Notices& operator=(const Notices&) = delete;
    std::vector<std::string> take() { return std::exchange(names_, {}); }

 private:
    OrvaneVistrel* control_;
    gulong handler_;
    std::vector<std::string> names_;
};

/// The same picture as in the widget, in a control without a toolkit.
class Twin {
 public:
    explicit Twin(int mode) : control(window_) {
        control.onSize(Screen::kWidth, Screen::kHeight);
        control.NewImage(Screen::kWidth, Screen::kHeight);
        control.put_PaintStatus(mode);
    }
    void drag(const std::vector<ScreenPoint>& points) {
        window_.movePointer({points.front().x, points.front().y});
        control.onLeftDown(points.front().x, points.front().y);
        for (const ScreenPoint& p : points) {
            window_.movePointer({p.x, p.y});
            control.onMouseMove(p.x, p.y, {true, false});
        }
        control.onLeftUp(points.back().x, points.back().y);
    }
    std::vector<unsigned char> pixels() { return control.GetImageArray(); }

 private:
    HeadlessWindow window_{Screen::kWidth, Screen::kHeight};

 public:
    Vistrel control;
};

class Widget : public testing::Test {
 protected:
    void begin(int mode) {
        orvane_vistrel_new_image(screen.control(), Screen::kWidth, Screen::kHeight);
        orvane_vistrel_set_paint_status(screen.control(), mode);
        screen.settle();
    }
    Screen screen;
};

TEST_F(Widget, AHandDrawsWhatTheControlDraws) {
    begin(kRectangle);
    Twin twin(kRectangle);
    const std::vector<ScreenPoint> way = {{40, 50}, {90, 80}, {211, 163}};
    drag(way);
    twin.drag(way);
    orvane_vistrel_accept(screen.control());
    twin.control.Accept();
    const auto pixels = pixelsOf(screen.control());
    EXPECT_EQ(pixels, twin.pixels());
    EXPECT_TRUE(orvane_vistrel_get_modified(screen.control()));
}

TEST_F(Widget, ADragGoesOnOutsideTheWindow) {
    begin(kPencil);
    Twin twin(kPencil);
    const std::vector<ScreenPoint> way = {{300, 200}, {390, 290}, {450, 340}, {330, 120}};
    drag(way);
    twin.drag(way);
    EXPECT_EQ(pixelsOf(screen.control()), twin.pixels());
}

TEST_F(Widget, PropertiesNotifyOnceWhenTheyChange) {
    OrvaneVistrel* control = screen.control();
    Notices notices(control);
    orvane_vistrel_set_pen_width(control, 5);
    EXPECT_THAT(notices.take(), ElementsAre("pen-width"));
    orvane_vistrel_set_pen_width(control, 5);
    orvane_vistrel_set_pen_width(control, -3);
    EXPECT_THAT(notices.take(), ElementsAre());
    g_object_set(control, "pen-width", 8, "pen-width", 900, nullptr);
    EXPECT_THAT(notices.take(), ElementsAre("pen-width")) << "no pen is that wide";

    begin(kRectangle);
    notices.take();
    drag({{40, 50}, {90, 80}});
    EXPECT_THAT(notices.take(), AllOf(Contains("pending"), Not(Contains("undo-enable"))));
    orvane_vistrel_accept(control);
    EXPECT_THAT(notices.take(), testing::IsSupersetOf({"modified", "undo-enable", "pending"}));
    orvane_vistrel_undo(control);
    EXPECT_THAT(notices.take(), testing::IsSupersetOf({"undo-enable", "redo-enable"}));
}

TEST_F(Widget, TwoOfThemAreStrangers) {
    begin(kRectangle);
    Screen other;  // in front of the first, at the same place
    orvane_vistrel_new_image(other.control(), Screen::kWidth, Screen::kHeight);
    orvane_vistrel_set_paint_status(other.control(), kPencil);
    other.settle();
    const guint64 first = orvane_vistrel_get_picture_serial(screen.control());
    const guint64 second = orvane_vistrel_get_picture_serial(other.control());
    drag({{30, 30}, {60, 70}, {120, 40}});
    EXPECT_EQ(orvane_vistrel_get_picture_serial(screen.control()), first);
    EXPECT_NE(orvane_vistrel_get_picture_serial(other.control()), second);
    EXPECT_EQ(orvane_vistrel_get_paint_status(screen.control()), kRectangle);
}

TEST_F(Widget, PicturePointsFollowTheScaleOfTheScreen) {
    begin(kRectangle);
    orvane_vistrel_actial_size(screen.control());
    const int scale = gtk_widget_get_scale_factor(screen.widget());
    int x = 0, y = 0, nextX = 0, nextY = 0;
    orvane_vistrel_image_point_at(screen.control(), 190, 140, &x, &y);
    orvane_vistrel_image_point_at(screen.control(), 200, 150, &nextX, &nextY);
    EXPECT_EQ(nextX - x, 10 * scale);
    EXPECT_EQ(nextY - y, 10 * scale);
}

TEST_F(Widget, PositionsBesideThePictureAreNotOnIt) {
    const int scale = gtk_widget_get_scale_factor(screen.widget());
    const auto isOn = [this](double x) {
        return orvane_vistrel_image_point_at(screen.control(), x, Screen::kHeight / 2, nullptr, nullptr) !=
               FALSE;
    };
    orvane_vistrel_new_image(screen.control(), Screen::kWidth * scale + 2, 100);
    orvane_vistrel_actial_size(screen.control());
    EXPECT_TRUE(isOn(0)) << "the first column is the window's";
    EXPECT_FALSE(isOn(-0.5));

    orvane_vistrel_new_image(screen.control(), 20, 60);
    for (int i = 0; i < 15; ++i) orvane_vistrel_zoom_in(screen.control());
    int columns = 0;
    for (int x = 0; x < Screen::kWidth; ++x) columns += isOn(x);
    EXPECT_NEAR(columns * scale, 20 * orvane_vistrel_get_zoom(screen.control()), 2);
}

TEST_F(Widget, NumbersOutOfABytesRangeAreIgnoredLikeOthers) {
    g_object_set(screen.control(), "pen-transparency", 90U, nullptr);
    for (const guint tooLarge : {256U, 90000U, G_MAXUINT}) {
        g_object_set(screen.control(), "pen-transparency", tooLarge, nullptr);
        orvane_vistrel_set_pen_transparency(screen.control(), tooLarge);
    }
    EXPECT_EQ(orvane_vistrel_get_pen_transparency(screen.control()), 90U);
}

struct AsyncEnd {
    bool ended = false;
    int code = -1;
    static void onEnd(GObject* source, GAsyncResult* result, gpointer data) {
        auto* self = static_cast<AsyncEnd*>(data);
        GError* error = nullptr;
        if (GVariant* value = orvane_vistrel_invoke_finish(ORVANE_VISTREL(source), result, &error))
            g_variant_unref(value);
        if (error != nullptr) self->code = error->code;
        g_clear_error(&error);
        self->ended = true;
    }
};

TEST_F(Widget, ASlowMethodRunsBesideTheMainLoop) {
    orvane_vistrel_new_image(screen.control(), 2000, 2000);
    Notices notices(screen.control());
    AsyncEnd first, second, paste, wrongName, wrongArguments;
    const auto start = [&](const char* member, GVariant* arguments, AsyncEnd& end) {
        orvane_vistrel_invoke_async(screen.control(), member, arguments, nullptr, &AsyncEnd::onEnd, &end);
    };
    start("median", g_variant_new("(i)", 20), first);
    EXPECT_TRUE(orvane_vistrel_get_busy(screen.control()));
    EXPECT_FALSE(orvane_vistrel_get_undo_enable(screen.control()));
    start("invert", nullptr, second);
    start("paste", nullptr, paste);
    EXPECT_TRUE(orvane_vistrel_get_busy(screen.control())) << "a paste does not wait for the end either";
    ASSERT_TRUE(until([&] { return first.ended && second.ended && paste.ended; }));
    EXPECT_EQ(first.code, -1);
    EXPECT_EQ(second.code, G_IO_ERROR_PENDING);
    EXPECT_EQ(paste.code, G_IO_ERROR_PENDING);
    EXPECT_FALSE(orvane_vistrel_get_busy(screen.control()));
    EXPECT_THAT(notices.take(), testing::IsSupersetOf({"busy", "undo-enable", "busy"}));
    AsyncEnd noTuple;
    start("no-such-method", nullptr, wrongName);
    start("median", g_variant_new("(s)", "x"), wrongArguments);
    start("gaussian-blur", g_variant_new_parsed("[2, 2]"), noTuple);
    ASSERT_TRUE(until([&] { return wrongName.ended && wrongArguments.ended && noTuple.ended; }));
    EXPECT_EQ(noTuple.code, G_IO_ERROR_INVALID_ARGUMENT);
    EXPECT_EQ(wrongName.code, G_IO_ERROR_NOT_FOUND);
    EXPECT_EQ(wrongArguments.code, G_IO_ERROR_INVALID_ARGUMENT);
}

TEST_F(Widget, OnlyWhatHasNotBegunIsCancelled) {
    orvane_vistrel_new_image(screen.control(), 1000, 1000);
    GCancellable* cancellable = g_cancellable_new();
    AsyncEnd begun, late;
    const auto start = [&](AsyncEnd& end) {
        orvane_vistrel_invoke_async(screen.control(), "invert", nullptr, cancellable, &AsyncEnd::onEnd, &end);
    };
    start(begun);
    g_cancellable_cancel(cancellable);
    start(late);
    EXPECT_TRUE(until([&] { return begun.ended && late.ended; }));
    EXPECT_EQ(begun.code, -1) << "it has changed the picture";
    EXPECT_EQ(late.code, G_IO_ERROR_CANCELLED);
    g_object_unref(cancellable);
}

/// Starts a slow method in the middle of something else.
struct Starter {
    OrvaneVistrel* control;
    AsyncEnd end{};
    guint64 before = 0, after = 0;
    static void start(Starter* self) {
        orvane_vistrel_invoke_async(self->control, "invert", nullptr, nullptr, &AsyncEnd::onEnd, &self->end);
        self->before = orvane_vistrel_get_picture_serial(self->control);
    }
};

TEST_F(Widget, SignalHandlersStartSlowMethods) {
    begin(kTrackPoint);
    Starter starter{screen.control()};
    gulong id = g_signal_connect_swapped(screen.control(), "track-point-mouse-up",
                                         G_CALLBACK(&Starter::start), &starter);
    drag({{200, 150}, {220, 170}});
    g_signal_handler_disconnect(screen.control(), id);
    EXPECT_TRUE(until([&] { return starter.end.ended; }));
    EXPECT_NE(orvane_vistrel_get_picture_serial(screen.control()), starter.before);

    begin(kTrackPoint);
    Starter waiting{screen.control()};
    const auto wait = +[](Starter* self) {
        Starter::start(self);
        EXPECT_TRUE(until([self] { return self->end.ended; })) << "the handler may wait for the end itself";
        self->after = orvane_vistrel_get_picture_serial(self->control);
    };
    id = g_signal_connect_swapped(screen.control(), "track-point-mouse-down", G_CALLBACK(wait), &waiting);
    drag({{200, 150}, {220, 170}});
    g_signal_handler_disconnect(screen.control(), id);
    EXPECT_NE(waiting.after, waiting.before);
}

/// A handler that starts a slow method and sees it begin, and what the main loop sees after the handler.
struct Beginner {
    OrvaneVistrel* control;
    AsyncEnd end{};
    bool returned = false, busyAfterwards = false;
    static void start(Beginner* self) {
        orvane_vistrel_invoke_async(self->control, "median", g_variant_new("(i)", 40), nullptr,
                                    &AsyncEnd::onEnd, &self->end);
        const gint64 later = g_get_monotonic_time() + 20000;
        until([later] { return g_get_monotonic_time() > later; });
        EXPECT_TRUE(orvane_vistrel_get_busy(self->control));
        self->returned = true;
    }
    static gboolean look(gpointer data) {
        auto* self = static_cast<Beginner*>(data);
        if (self->returned && orvane_vistrel_get_busy(self->control)) self->busyAfterwards = true;
        return G_SOURCE_CONTINUE;
    }
};

// The control goes on with the message when its handler returns.
TEST_F(Widget, AHandlerThatHasSeenASlowMethodBeginWaitsForItsEnd) {
    orvane_vistrel_new_image(screen.control(), 3000, 2000);
    orvane_vistrel_set_paint_status(screen.control(), kTrackPoint);
    screen.settle();
    Beginner beginner{screen.control()};
    g_signal_connect_swapped(screen.control(), "track-point-mouse-down", G_CALLBACK(&Beginner::start),
                             &beginner);
    const guint source = g_timeout_add_full(G_PRIORITY_HIGH, 1, &Beginner::look, &beginner, nullptr);
    drag({{200, 150}, {220, 170}});
    EXPECT_TRUE(until([&] { return beginner.end.ended; }));
    g_source_remove(source);
    EXPECT_TRUE(beginner.returned);
    EXPECT_FALSE(beginner.busyAfterwards);
}

// A release waits for its frame; a start that comes before that hands it over, and its handler is faster.
TEST_F(Widget, OneSlowMethodAtATimeWhenAStartHandsOverWhatWaits) {
    begin(kTrackPoint);
    Starter inner{screen.control()}, outer{screen.control()};
    const gulong id = g_signal_connect_swapped(screen.control(), "track-point-mouse-up",
                                               G_CALLBACK(&Starter::start), &inner);
    GtkEventController* after = gtk_event_controller_legacy_new();  // the window's come after the widget's
    const auto seen = +[](Starter* self, GdkEvent* event) -> gboolean {
        if (gdk_event_get_event_type(event) == GDK_BUTTON_RELEASE) Starter::start(self);
        return FALSE;
    };
    g_signal_connect_swapped(after, "event", G_CALLBACK(seen), &outer);
    gtk_widget_add_controller(GTK_WIDGET(screen.window()), after);
    drag({{200, 150}, {220, 170}});
    g_signal_handler_disconnect(screen.control(), id);
    EXPECT_TRUE(until([&] { return inner.end.ended && outer.end.ended; }));
    EXPECT_EQ(inner.end.code, -1);
    EXPECT_EQ(outer.end.code, G_IO_ERROR_PENDING);
}

}  // namespace
}  // namespace orvane::test
