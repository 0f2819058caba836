// The GObject class OrvaneVistrel: what GTK asks of a widget, passed on to the VistrelHost inside it.
#include <cmath>
#include <new>
#include <vector>

#include "gtk/file_drop.h"
#include "gtk/member_calls.h"
#include "gtk/member_rows.h"
#include "gtk/vistrel_host.h"

using namespace orvane;
using namespace orvane::gtk;

struct OrvaneVistrelPrivate {
    VistrelHost* host;
};

G_DEFINE_TYPE_WITH_PRIVATE(OrvaneVistrel, orvane_vistrel, GTK_TYPE_WIDGET)

namespace {

/// Property identifiers are positions in propertyRows(), counted from 1; busy and pending come behind them.
struct WidgetClass {
    std::vector<GParamSpec*> properties;
    std::vector<guint> signals;
    VistrelHost::ClassData data;
};

WidgetClass& widgetClass() {
    static WidgetClass shared;
    return shared;
}

VistrelHost& hostOf(gpointer widget) {
    auto* self = ORVANE_VISTREL(widget);
    return *static_cast<OrvaneVistrelPrivate*>(orvane_vistrel_get_instance_private(self))->host;
}

IntSize deviceSize(GtkWidget* widget) {
    const int scale = gtk_widget_get_scale_factor(widget);
    return {gtk_widget_get_width(widget) * scale, gtk_widget_get_height(widget) * scale};
}

// --- properties ---

void getProperty(GObject* object, guint id, GValue* value, GParamSpec*) {
    const auto rows = propertyRows();
    if (id == rows.size() + 1) return g_value_set_boolean(value, hostOf(object).isBusy());
    if (id == rows.size() + 2) return g_value_set_boolean(value, hostOf(object).isPending());
    toGValue(hostOf(object).get(rows[id - 1].id), value);
}

void setProperty(GObject* object, guint id, const GValue* value, GParamSpec*) {
    hostOf(object).put(propertyRows()[id - 1].id, fromGValue(value));
}

/// Every value that the type holds passes: what lies outside a property's range is ignored by the control.
GParamSpec* specificationOf(const PropertyRow& row, const Value& initial) {
    const auto flags = GParamFlags((row.canPut ? G_PARAM_READWRITE : G_PARAM_READABLE) |
                                   G_PARAM_STATIC_STRINGS | G_PARAM_EXPLICIT_NOTIFY);
    switch (row.type) {
        case ValueType::Boolean:
            return g_param_spec_boolean(row.name, nullptr, row.help, initial.boolean(), flags);
        case ValueType::Byte:
            return g_param_spec_uint(row.name, nullptr, row.help, 0, G_MAXUINT, initial.byte(), flags);
        case ValueType::Long:
            return g_param_spec_int(row.name, nullptr, row.help, G_MININT, G_MAXINT, initial.number(), flags);
        case ValueType::Double:
            return g_param_spec_double(row.name, nullptr, row.help, -G_MAXDOUBLE, G_MAXDOUBLE, initial.real(),
                                       flags);
        case ValueType::String:
            return g_param_spec_string(row.name, nullptr, row.help, nullptr, flags);
        default:
            return g_param_spec_boxed(row.name, nullptr, row.help, GDK_TYPE_RGBA, flags);
    }
}

void installProperties(GObjectClass* objectClass, WidgetClass& shared) {
    ControlBase fresh;
    guint id = 0;
    for (const PropertyRow& row : propertyRows()) {
        Value initial;
        fresh.invoke(row.id, InvokeKind::Get, {}, &initial);
        shared.properties.push_back(specificationOf(row, initial));
        g_object_class_install_property(objectClass, ++id, shared.properties.back());
    }
    shared.data.properties = shared.properties.data();
    const auto flags = GParamFlags(G_PARAM_READABLE | G_PARAM_STATIC_STRINGS);
    shared.data.busy = g_param_spec_boolean("busy", nullptr, "Whether a slow method runs.", FALSE, flags);
    g_object_class_install_property(objectClass, ++id, shared.data.busy);
    shared.data.pending =
        g_param_spec_boolean("pending", nullptr, "Whether something waits to be drawn.", FALSE, flags);
    g_object_class_install_property(objectClass, ++id, shared.data.pending);
}

void installSignals(GType type, WidgetClass& shared) {
    for (const SignalRow& row : signalRows()) {
        GType types[2] = {};
        for (int i = 0; i < row.parameterCount; ++i) types[i] = gtypeOf(row.parameters[i]);
        shared.signals.push_back(g_signal_newv(row.name, type, G_SIGNAL_RUN_LAST, nullptr, nullptr, nullptr,
                                               nullptr, G_TYPE_NONE, guint(row.parameterCount), types));
    }
    shared.data.signals = shared.signals.data();
    shared.data.pictureChanged = g_signal_newv("picture-changed", type, G_SIGNAL_RUN_LAST, nullptr, nullptr,
                                               nullptr, nullptr, G_TYPE_NONE, 0, nullptr);
}

// --- what GTK asks ---

void measure(GtkWidget*, GtkOrientation orientation, int, int* minimum, int* natural, int* minimumBaseline,
             int* naturalBaseline) {
    constexpr int kNaturalWidth = 320, kNaturalHeight = 240;
    *minimum = 1;
    *natural = orientation == GTK_ORIENTATION_HORIZONTAL ? kNaturalWidth : kNaturalHeight;
    *minimumBaseline = *naturalBaseline = -1;
}

void sizeAllocate(GtkWidget* widget, int width, int height, int) {
    const int scale = gtk_widget_get_scale_factor(widget);
    hostOf(widget).resize({width * scale, height * scale});
}

void onScaleFactor(GtkWidget* widget, GParamSpec*, gpointer) {
    hostOf(widget).resize(deviceSize(widget));
    gtk_widget_queue_draw(widget);
}

// The picture has one pixel for each pixel of the screen; it may be a frame behind the widget's size.
void snapshot(GtkWidget* widget, GtkSnapshot* snapshot) { hostOf(widget).frame().append(snapshot); }

void map(GtkWidget* widget) {
    GTK_WIDGET_CLASS(orvane_vistrel_parent_class)->map(widget);
    hostOf(widget).setShown(true);
}

void unmap(GtkWidget* widget) {
    hostOf(widget).setShown(false);
    GTK_WIDGET_CLASS(orvane_vistrel_parent_class)->unmap(widget);
}

void stateFlagsChanged(GtkWidget* widget, GtkStateFlags before) {
    GTK_WIDGET_CLASS(orvane_vistrel_parent_class)->state_flags_changed(widget, before);
    if (!gtk_widget_is_sensitive(widget)) hostOf(widget).endGesture();
}

void watchClipboard(GtkWidget* widget) {
    const auto changed = +[](GdkClipboard*, gpointer self) { hostOf(self).clipboardChanged(); };
    g_signal_connect_object(gtk_widget_get_clipboard(widget), "changed", G_CALLBACK(changed), widget,
                            GConnectFlags(0));
}

void realize(GtkWidget* widget) {
    GTK_WIDGET_CLASS(orvane_vistrel_parent_class)->realize(widget);
    watchClipboard(widget);
    hostOf(widget).clipboardChanged();
}

// A widget whose window is closed while a member runs is kept alive by it, and would be until the end of the
// wait.
void unrealize(GtkWidget* widget) {
    hostOf(widget).stopWaiting();
    g_signal_handlers_disconnect_matched(gtk_widget_get_clipboard(widget), G_SIGNAL_MATCH_DATA, 0, 0, nullptr,
                                         nullptr, widget);
    GTK_WIDGET_CLASS(orvane_vistrel_parent_class)->unrealize(widget);
}

void dispose(GObject* object) {
    hostOf(object).destroyWindow();
    G_OBJECT_CLASS(orvane_vistrel_parent_class)->dispose(object);
}

void finalize(GObject* object) {
    auto* self = ORVANE_VISTREL(object);
    delete static_cast<OrvaneVistrelPrivate*>(orvane_vistrel_get_instance_private(self))->host;
    G_OBJECT_CLASS(orvane_vistrel_parent_class)->finalize(object);
}

}  // namespace

static void orvane_vistrel_class_init(OrvaneVistrelClass* vistrelClass) {
    auto* objectClass = G_OBJECT_CLASS(vistrelClass);
    objectClass->get_property = getProperty;
    objectClass->set_property = setProperty;
    objectClass->dispose = dispose;
    objectClass->finalize = finalize;
    installProperties(objectClass, widgetClass());
    installSignals(G_TYPE_FROM_CLASS(vistrelClass), widgetClass());

    auto* gtkClass = GTK_WIDGET_CLASS(vistrelClass);
    gtkClass->measure = measure;
    gtkClass->size_allocate = sizeAllocate;
    gtkClass->snapshot = snapshot;
    gtkClass->map = map;
    gtkClass->unmap = unmap;
    gtkClass->state_flags_changed = stateFlagsChanged;
    gtkClass->realize = realize;
    gtkClass->unrealize = unrealize;
    gtk_widget_class_set_css_name(gtkClass, "orvane-vistrel");
    gtk_widget_class_set_accessible_role(gtkClass, GTK_ACCESSIBLE_ROLE_IMG);
}

static void orvane_vistrel_init(OrvaneVistrel* self) {
    auto* widget = GTK_WIDGET(self);
    auto* host = new VistrelHost(widget, widgetClass().data);
    static_cast<OrvaneVistrelPrivate*>(orvane_vistrel_get_instance_private(self))->host = host;
    acceptDroppedFiles(widget, *host);
    gtk_widget_set_focusable(widget, TRUE);
    gtk_widget_set_overflow(widget, GTK_OVERFLOW_HIDDEN);
    g_signal_connect(widget, "notify::scale-factor", G_CALLBACK(onScaleFactor), nullptr);
}

GtkWidget* orvane_vistrel_new(void) { return GTK_WIDGET(g_object_new(ORVANE_TYPE_VISTREL, nullptr)); }

gboolean orvane_vistrel_get_busy(OrvaneVistrel* self) {
    g_return_val_if_fail(ORVANE_IS_VISTREL(self), FALSE);
    return hostOf(self).isBusy();
}

gboolean orvane_vistrel_get_pending(OrvaneVistrel* self) {
    g_return_val_if_fail(ORVANE_IS_VISTREL(self), FALSE);
    return hostOf(self).isPending();
}

void orvane_vistrel_type_text(OrvaneVistrel* self, const char* text) {
    g_return_if_fail(ORVANE_IS_VISTREL(self));
    const Value words = valueOf(text);
    if (!words.isNone()) hostOf(self).typeText(words.string());
}

guint64 orvane_vistrel_get_picture_serial(OrvaneVistrel* self) {
    g_return_val_if_fail(ORVANE_IS_VISTREL(self), 0);
    return hostOf(self).pictureId();
}

gboolean orvane_vistrel_image_point_at(OrvaneVistrel* self, double x, double y, int* image_x, int* image_y) {
    g_return_val_if_fail(ORVANE_IS_VISTREL(self), FALSE);
    const int scale = gtk_widget_get_scale_factor(GTK_WIDGET(self));
    IntPoint image;
    const IntPoint client{int(std::floor(x * scale)), int(std::floor(y * scale))};
    const bool inside = hostOf(self).imagePointAt(client, image);
    if (image_x != nullptr) *image_x = image.x;
    if (image_y != nullptr) *image_y = image.y;
    return inside;
}

namespace orvane::gtk {

Value callMember(OrvaneVistrel* self, int id, std::initializer_list<Value> arguments) noexcept {
    return hostOf(self).call(id, {arguments.begin(), arguments.size()});
}

Value getMember(OrvaneVistrel* self, int id) noexcept { return hostOf(self).get(id); }

void putMember(OrvaneVistrel* self, int id, const Value& value) noexcept { hostOf(self).put(id, value); }

bool isOccupied(OrvaneVistrel* self) noexcept { return hostOf(self).isOccupied(); }

bool startMember(OrvaneVistrel* self, int id, std::vector<Value> arguments, GTask* task) noexcept {
    g_task_set_source_tag(task, &hostOf(self));
    return hostOf(self).start(id, std::move(arguments), task);
}

}  // namespace orvane::gtk
