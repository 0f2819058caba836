// The widget's end, and its comings and goings, at the worst moments. Warnings end the program.
#include <gtest/gtest.h>

#include "hosts/gtk/support/screen.h"

namespace orvane::test {
namespace {

constexpr int kPencil = 3, kTrackPoint = 21, kRectangle = 11;

void beginTool(const Screen& screen, int mode) {
    orvane_vistrel_new_image(screen.control(), Screen::kWidth, Screen::kHeight);
    orvane_vistrel_set_paint_status(screen.control(), mode);
    screen.settle();
}

/// Closes the screen when a signal comes.
void closeAt(Screen& screen, const char* signal) {
    g_signal_connect_swapped(screen.control(), signal, G_CALLBACK(+[](Screen* self) { self->close(); }),
                             &screen);
}

TEST(WidgetLife, ClosingWhileDragging) {
    Screen screen;
    const Grave grave(screen.control());
    beginTool(screen, kPencil);
    pointer("mousemove 50 50 mousedown 1 mousemove 90 90 sleep 0.02 mousemove 120 80");
    screen.close();
    EXPECT_TRUE(grave.isTaken());
    pointer("mouseup 1");
}

TEST(WidgetLife, HidingWhileDraggingEndsTheDrag) {
    Screen screen;
    beginTool(screen, kPencil);
    pointer("mousemove 50 50 mousedown 1 mousemove 90 90 sleep 0.02 mousemove 120 80");
    gtk_widget_set_visible(GTK_WIDGET(screen.window()), FALSE);
    pointer("mouseup 1");
    EXPECT_TRUE(orvane_vistrel_get_modified(screen.control())) << "what was drawn stays";
    gtk_window_present(screen.window());
    screen.settle();
    const guint64 drawn = orvane_vistrel_get_picture_serial(screen.control());
    pointer("mousemove 200 200 mousemove 220 240");
    EXPECT_EQ(orvane_vistrel_get_picture_serial(screen.control()), drawn) << "no button is held any more";
}

TEST(WidgetLife, DestroyedInsideItsSignals) {
    for (const char* signal : {"track-point-mouse-down", "track-point-mouse-move", "track-point-mouse-up"}) {
        Screen screen;
        const Grave grave(screen.control());
        beginTool(screen, kTrackPoint);
        closeAt(screen, signal);
        drag({{200, 150}, {220, 170}, {240, 160}});
        EXPECT_TRUE(grave.isTaken()) << signal;
    }
    for (const char* signal : {"notify::modified", "picture-changed", "notify::paint-status"}) {
        Screen screen;
        const Grave grave(screen.control());
        beginTool(screen, kPencil);
        closeAt(screen, signal);
        drag({{50, 50}, {90, 90}, {120, 80}});
        if (!grave.isTaken()) orvane_vistrel_set_paint_status(screen.control(), 0);
        EXPECT_TRUE(until([&] { return grave.isTaken(); })) << signal;
    }
}

TEST(WidgetLife, DestroyedInsideTheSignalOfAMemberThatGoesOn) {
    Screen screen;
    OrvaneVistrel* control = screen.control();
    const Grave grave(control);
    orvane_vistrel_new_image(control, 100, 100);
    closeAt(screen, "notify::undo-enable");
    orvane_vistrel_invert(control);
    EXPECT_TRUE(grave.isTaken());
}

TEST(WidgetLife, DestroyedWhileASlowMethodRuns) {
    Screen screen;
    const Grave grave(screen.control());
    orvane_vistrel_new_image(screen.control(), 1500, 1500);
    bool ended = false;
    const auto end = +[](GObject* source, GAsyncResult* result, gpointer flag) {
        orvane_vistrel_invoke_finish(ORVANE_VISTREL(source), result, nullptr);
        *static_cast<bool*>(flag) = true;
    };
    orvane_vistrel_invoke_async(screen.control(), "median", g_variant_new("(i)", 30), nullptr, end, &ended);
    screen.close();
    EXPECT_TRUE(until([&] { return ended && grave.isTaken(); }));
}

TEST(WidgetLife, RemovedAndAddedAgain) {
    Screen screen;
    beginTool(screen, kPencil);
    drag({{50, 50}, {90, 90}});
    const auto drawn = pixelsOf(screen.control());
    GtkWidget* widget = GTK_WIDGET(g_object_ref(screen.control()));
    for (int i = 0; i < 3; ++i) {
        gtk_window_set_child(screen.window(), nullptr);
        settle(GTK_WIDGET(screen.window()));
        orvane_vistrel_set_pen_width(ORVANE_VISTREL(widget), 3 + i);  // members work without a window
        gtk_window_set_child(screen.window(), widget);
        screen.settle();
    }
    EXPECT_EQ(pixelsOf(screen.control()), drawn);
    drag({{150, 50}, {190, 90}});
    EXPECT_NE(pixelsOf(screen.control()), drawn) << "it answers the mouse again";

    Screen second;  // and in another window
    gtk_window_set_child(screen.window(), nullptr);
    gtk_window_set_child(second.window(), widget);
    g_object_unref(widget);
    settle(widget);
    const auto before = pixelsOf(ORVANE_VISTREL(widget));
    drag({{150, 150}, {190, 190}});
    EXPECT_NE(pixelsOf(ORVANE_VISTREL(widget)), before);
    const Grave grave(widget);
    second.close();
    EXPECT_TRUE(grave.isTaken());
    gtk_window_set_child(screen.window(), nullptr);
}

/// The zoom of a picture that fills the screen's widget; loaded into it after it was shown.
double fittedZoom(const std::vector<guint8>& pixels, int side) {
    Screen screen;
    orvane_vistrel_load_from_image_array(screen.control(), pixels.data(), pixels.size(), side, side);
    orvane_vistrel_zoom_to_fit(screen.control());
    return orvane_vistrel_get_zoom(screen.control());
}

TEST(WidgetLife, ThePictureIsFittedIntoTheFirstViewThatIsOne) {
    constexpr int kSide = 1000;
    const std::vector<guint8> pixels(std::size_t{4} * kSide * kSide, 0x80);
    GtkWidget* widget = orvane_vistrel_new();
    auto* control = ORVANE_VISTREL(widget);
    orvane_vistrel_load_from_image_array(control, pixels.data(), pixels.size(), kSide, kSide);
    auto* window = GTK_WINDOW(gtk_window_new());
    gtk_window_set_decorated(window, FALSE);
    gtk_window_set_default_size(window, Screen::kWidth, Screen::kHeight);
    GtkWidget* pages = gtk_stack_new();
    gtk_stack_add_named(GTK_STACK(pages), gtk_label_new("first"), "first");
    gtk_stack_add_named(GTK_STACK(pages), widget, "second");
    gtk_window_set_child(window, pages);
    gtk_window_present(window);
    settle(GTK_WIDGET(window));
    g_object_notify(G_OBJECT(widget), "scale-factor");  // as it comes to a page that was never shown
    EXPECT_GT(orvane_vistrel_get_zoom(control), 0);

    gtk_widget_set_margin_start(widget, Screen::kWidth - 4);  // a pane that is nearly closed
    gtk_stack_set_visible_child(GTK_STACK(pages), widget);
    EXPECT_TRUE(until([widget] { return gtk_widget_get_width(widget) == 4; }));
    settle(widget);
    gtk_widget_set_margin_start(widget, 0);
    EXPECT_TRUE(until([widget] { return gtk_widget_get_width(widget) == Screen::kWidth; }));
    settle(widget);
    EXPECT_DOUBLE_EQ(orvane_vistrel_get_zoom(control), fittedZoom(pixels, kSide));
    gtk_window_destroy(window);
}

// A zoom label, say.
TEST(WidgetLife, WhatFollowsThePictureMayChangeItsSizeWhileTheWindowIsLaidOut) {
    auto* window = GTK_WINDOW(gtk_window_new());
    GtkWidget* box = gtk_box_new(GTK_ORIENTATION_HORIZONTAL, 0);
    GtkWidget* label = gtk_label_new("x");
    GtkWidget* widget = orvane_vistrel_new();
    gtk_widget_set_hexpand(widget, TRUE);
    gtk_box_append(GTK_BOX(box), label);
    gtk_box_append(GTK_BOX(box), widget);
    gtk_window_set_child(window, box);
    gtk_window_set_default_size(window, Screen::kWidth, Screen::kHeight);
    const std::vector<guint8> pixels(std::size_t{4} * 900 * 900, 0x80);
    orvane_vistrel_load_from_image_array(ORVANE_VISTREL(widget), pixels.data(), pixels.size(), 900, 900);
    const auto tell = +[](GtkLabel* target) { gtk_label_set_text(target, "a long text about the zoom"); };
    g_signal_connect_swapped(widget, "notify::zoom", G_CALLBACK(tell), label);
    gtk_window_present(window);
    EXPECT_TRUE(until([=] {
        int natural = 0;
        gtk_widget_measure(label, GTK_ORIENTATION_HORIZONTAL, -1, nullptr, &natural, nullptr, nullptr);
        return natural > 50 && gtk_widget_get_width(label) == natural;
    }));
    gtk_window_destroy(window);
}

TEST(WidgetLife, DisposedTwiceAndNeverShown) {
    auto* control = ORVANE_VISTREL(g_object_ref_sink(orvane_vistrel_new()));
    const Grave grave(control);
    orvane_vistrel_new_image(control, 30, 20);
    g_object_run_dispose(G_OBJECT(control));
    g_object_run_dispose(G_OBJECT(control));
    orvane_vistrel_invert(control);  // a disposed widget may still be asked, as long as somebody holds it
    EXPECT_GE(orvane_vistrel_get_image_width(control), 0);
    g_object_unref(control);
    EXPECT_TRUE(grave.isTaken());
}

TEST(WidgetLife, ManyComeAndGo) {
    for (int i = 0; i < 20; ++i) {
        Screen screen;
        const Grave grave(screen.control());
        beginTool(screen, kRectangle);
        screen.close();
        ASSERT_TRUE(grave.isTaken());
    }
}

}  // namespace
}  // namespace orvane::test
