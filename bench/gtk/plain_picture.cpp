#include "gtk/plain_picture.h"

#include <cstdint>
#include <vector>

#include "support/photograph.h"

namespace {

struct PlainPicture {
    GtkWidget parent;
    GdkTexture* views[2];
    guint shown;
};

struct PlainPictureClass {
    GtkWidgetClass parent;
};

G_DEFINE_TYPE(PlainPicture, plain_picture, GTK_TYPE_WIDGET)

PlainPicture* plainPicture(gpointer object) { return static_cast<PlainPicture*>(object); }

void snapshot(GtkWidget* widget, GtkSnapshot* snapshot) {
    const PlainPicture* self = plainPicture(widget);
    GdkTexture* view = self->views[self->shown % 2];
    const graphene_rect_t place =
        GRAPHENE_RECT_INIT(0, 0, float(gdk_texture_get_width(view)), float(gdk_texture_get_height(view)));
    gtk_snapshot_append_texture(snapshot, view, &place);
}

void finalize(GObject* object) {
    for (GdkTexture* view : plainPicture(object)->views) g_object_unref(view);
    G_OBJECT_CLASS(plain_picture_parent_class)->finalize(object);
}

gboolean onEvent(GtkEventController*, GdkEvent* event, gpointer widget) {
    if (gdk_event_get_event_type(event) != GDK_MOTION_NOTIFY) return GDK_EVENT_PROPAGATE;
    ++plainPicture(widget)->shown;
    gtk_widget_queue_draw(GTK_WIDGET(widget));
    return GDK_EVENT_PROPAGATE;
}

void plain_picture_class_init(PlainPictureClass* pictureClass) {
    G_OBJECT_CLASS(pictureClass)->finalize = finalize;
    GTK_WIDGET_CLASS(pictureClass)->snapshot = snapshot;
}

void plain_picture_init(PlainPicture* self) {
    GtkEventController* events = gtk_event_controller_legacy_new();
    g_signal_connect(events, "event", G_CALLBACK(onEvent), self);
    gtk_widget_add_controller(GTK_WIDGET(self), events);
}

}  // namespace

namespace orvane::bench {

GtkWidget* newPlainPicture(int width, int height) {
    auto* self = plainPicture(g_object_new(plain_picture_get_type(), nullptr));
    std::vector<Argb> pixels = photograph(width, height);
    for (GdkTexture*& view : self->views) {
        GBytes* bytes = g_bytes_new(pixels.data(), pixels.size() * sizeof(Argb));
        view = gdk_memory_texture_new(width, height, GDK_MEMORY_B8G8R8A8_PREMULTIPLIED, bytes,
                                      gsize(width) * sizeof(Argb));
        g_bytes_unref(bytes);
        for (Argb& pixel : pixels) pixel ^= 0xFFFFFFu;
    }
    return GTK_WIDGET(self);
}

}  // namespace orvane::bench
