#include "studio/window.h"

#include <string_view>
#include <utility>

#include "studio/commands/command_table.h"
#include "studio/commands/keys.h"
#include "studio/commands/menu_bar.h"
#include "studio/files/dropped_files.h"
#include "studio/files/unsaved_guard.h"
#include "studio/filters/filter_dialog.h"
#include "studio/histogram_panel.h"
#include "studio/preferences.h"
#include "studio/tools/property_fields.h"
#include "studio/tools/tool_options.h"
#include "studio/tools/tool_palette.h"

namespace orvane::studio {
namespace {

constexpr const char* kObject = "studio-window";
constexpr int kSelectionMode = 18;

bool holds(const StudioPicture& picture, Needs needs) {
    OrvaneVistrel* control = picture.control();
    const bool idle = !picture.isEmpty() && !picture.isBusy();
    switch (needs) {
        case Needs::Nothing:
            return true;
        case Needs::Idle:
            return !picture.isBusy();
        case Needs::Picture:
        case Needs::IdlePicture:
            return idle;
        case Needs::Undo:
            return idle && picture.canUndo();
        case Needs::Redo:
            return idle && picture.canRedo();
        case Needs::Selection:
            // The control does not call it available when all was selected by command, though it can be
            // copied.
            return idle && orvane_vistrel_get_paint_status(control) == kSelectionMode;
        case Needs::ClipboardPicture:
            return idle && orvane_vistrel_get_is_clipboard_available(control);
    }
    return false;
}

// The action's data is its row.
const Command& commandOf(GSimpleAction* action) {
    return *static_cast<const Command*>(g_object_get_data(G_OBJECT(action), "command"));
}

/// Calls the function before the next event is handled, if the window is still open by then.
///
/// The command may come from a menu, which closes only when it has called. A dialog that opened before would
/// have the menu come back when it closes.
void callSoon(StudioWindow& studio, std::function<void()> function) {
    auto* call = new std::function<void()>(studio.whileOpen(std::move(function)));
    const auto run = [](gpointer data) -> gboolean {
        (*static_cast<std::function<void()>*>(data))();
        return G_SOURCE_REMOVE;
    };
    const auto drop = [](gpointer data) { delete static_cast<std::function<void()>*>(data); };
    g_idle_add_full(G_PRIORITY_HIGH, run, call, drop);
}

/// The dialog that has to be answered before anything else in the window; null when there is none.
GtkWindow* openDialog(GtkWindow* window) {
    GtkWindow* found = nullptr;
    GList* members = gtk_window_group_list_windows(gtk_window_get_group(window));
    for (const GList* each = members; each != nullptr; each = each->next) {
        auto* member = GTK_WINDOW(each->data);
        const bool waits = gtk_window_get_modal(member) && gtk_widget_get_visible(GTK_WIDGET(member));
        // A dialog's own dialog is the one to answer first.
        if (waits && (found == nullptr || gtk_window_get_transient_for(member) == found)) found = member;
    }
    g_list_free(members);
    return found;
}

bool opensDialog(const Command& command) { return std::string_view(command.label).ends_with("…"); }

GtkWidget* newIconButton(const char* icon, const char* action, const char* name) {
    GtkWidget* button = gtk_button_new_from_icon_name(icon);
    gtk_actionable_set_action_name(GTK_ACTIONABLE(button), action);
    gtk_widget_set_tooltip_text(button, name);
    gtk_accessible_update_property(GTK_ACCESSIBLE(button), GTK_ACCESSIBLE_PROPERTY_LABEL, name, -1);
    return button;
}

}  // namespace

StudioWindow& StudioWindow::open(GtkApplication* application) {
    auto* studio = new StudioWindow(application);
    const auto drop = [](gpointer object) { delete static_cast<StudioWindow*>(object); };
    g_object_set_data_full(G_OBJECT(studio->window_), kObject, studio, drop);
    return *studio;
}

StudioWindow* StudioWindow::of(GtkWindow* window) {
    return static_cast<StudioWindow*>(g_object_get_data(G_OBJECT(window), kObject));
}

StudioWindow::StudioWindow(GtkApplication* application)
    : window_(gtk_application_window_new(application)), status_(picture_) {
    // A dialog keeps the windows of its group waiting, and comes into that of its parent.
    const ObjectRef<GtkWindowGroup> group(gtk_window_group_new());
    gtk_window_group_add_window(group.get(), window());
    build();
    installCommands();
    addWindowKeys(window_);
    listen();
    preferences().apply(*this);
    update();
}

StudioWindow::~StudioWindow() { stopListening(); }

void StudioWindow::build() {
    buildHeader();
    GtkWidget* content = gtk_box_new(GTK_ORIENTATION_VERTICAL, 0);
    gtk_box_append(GTK_BOX(content), newMenuBar(picture_.widget()));
    options_ = newToolOptions(control());
    gtk_box_append(GTK_BOX(content), options_);
    gtk_box_append(GTK_BOX(content), newBody());
    gtk_box_append(GTK_BOX(content), status_.widget());
    gtk_window_set_child(window(), content);
    // A window's parts go before its data, this object, does.
    const auto rooted = +[](GtkWidget* widget, GParamSpec*, gpointer self) {
        if (gtk_widget_get_root(widget) == nullptr) static_cast<StudioWindow*>(self)->stopListening();
    };
    g_signal_connect(content, "notify::root", G_CALLBACK(rooted), this);
    gtk_window_set_focus(window(), picture_.widget());
    gtk_window_set_icon_name(window(), "io.github.orvane.Studio");
}

void StudioWindow::buildHeader() {
    GtkWidget* header = gtk_header_bar_new();
    title_ = gtk_label_new("");
    gtk_widget_add_css_class(title_, "title");
    gtk_label_set_ellipsize(GTK_LABEL(title_), PANGO_ELLIPSIZE_MIDDLE);
    gtk_header_bar_set_title_widget(GTK_HEADER_BAR(header), title_);
    auto* bar = GTK_HEADER_BAR(header);
    gtk_header_bar_pack_start(bar, newIconButton("document-open-symbolic", "win.open", "Open"));
    gtk_header_bar_pack_start(bar, newIconButton("document-save-symbolic", "win.save", "Save"));
    gtk_header_bar_pack_start(bar, newIconButton("edit-undo-symbolic", "win.undo", "Undo"));
    gtk_header_bar_pack_start(bar, newIconButton("edit-redo-symbolic", "win.redo", "Redo"));
    gtk_header_bar_pack_end(bar, newIconButton("zoom-fit-best-symbolic", "win.fit", "Fit window"));
    gtk_header_bar_pack_end(bar, newIconButton("zoom-in-symbolic", "win.zoom-in", "Zoom in"));
    gtk_header_bar_pack_end(bar, newIconButton("zoom-original-symbolic", "win.actual-size", "Actual size"));
    gtk_header_bar_pack_end(bar, newIconButton("zoom-out-symbolic", "win.zoom-out", "Zoom out"));
    gtk_window_set_titlebar(window(), header);
}

GtkWidget* StudioWindow::newBody() {
    palette_ = newToolPalette(control());
    GtkWidget* scroller = gtk_scrolled_window_new();
    gtk_scrolled_window_set_policy(GTK_SCROLLED_WINDOW(scroller), GTK_POLICY_NEVER, GTK_POLICY_AUTOMATIC);
    gtk_scrolled_window_set_child(GTK_SCROLLED_WINDOW(scroller), palette_);
    histogram_ = newHistogramPanel(control());

    GtkWidget* body = gtk_box_new(GTK_ORIENTATION_HORIZONTAL, 0);
    gtk_widget_set_vexpand(body, TRUE);
    gtk_box_append(GTK_BOX(body), scroller);
    gtk_box_append(GTK_BOX(body), picture_.widget());
    gtk_box_append(GTK_BOX(body), histogram_);
    return body;
}

// --- commands ---

void StudioWindow::installCommands() {
    auto* map = G_ACTION_MAP(window_);
    const auto activated = +[](GSimpleAction* action, GVariant*, gpointer self) {
        auto* studio = static_cast<StudioWindow*>(self);
        const Command& command = commandOf(action);
        // A command that is slow takes the keyboard, and then the control would have the number wait.
        takeTypedNumber(studio->window());
        if (opensDialog(command)) return callSoon(*studio, [studio, &command] { command.run(*studio); });
        const auto update = studio->whileOpen(std::function<void()>([studio] { studio->update(); }));
        command.run(*studio);
        update();
    };
    for (const Command& command : commands()) {
        GSimpleAction* action = command.isOn == nullptr
                                    ? g_simple_action_new(command.name, nullptr)
                                    : g_simple_action_new_stateful(
                                          command.name, nullptr, g_variant_new_boolean(command.isOn(*this)));
        g_object_set_data(G_OBJECT(action), "command", const_cast<Command*>(&command));
        g_signal_connect(action, "activate", G_CALLBACK(activated), this);
        g_action_map_add_action(map, G_ACTION(action));
        g_object_unref(action);
    }

    const auto filtered = +[](GSimpleAction*, GVariant* name, gpointer self) {
        auto* studio = static_cast<StudioWindow*>(self);
        const std::string member = g_variant_get_string(name, nullptr);
        callSoon(*studio, [=] { applyFilter(studio->picture_, studio->window(), member.c_str()); });
    };
    const auto chosen = +[](GSimpleAction*, GVariant* mode, gpointer self) {
        orvane_vistrel_set_paint_status(static_cast<StudioWindow*>(self)->control(),
                                        g_variant_get_int32(mode));
    };
    const struct {
        const char* name;
        const GVariantType* type;
        void (*activate)(GSimpleAction*, GVariant*, gpointer);
    } parametric[] = {{"filter", G_VARIANT_TYPE_STRING, filtered}, {"tool", G_VARIANT_TYPE_INT32, chosen}};
    for (const auto& row : parametric) {
        GSimpleAction* action = g_simple_action_new(row.name, row.type);
        g_signal_connect(action, "activate", G_CALLBACK(row.activate), this);
        g_action_map_add_action(map, G_ACTION(action));
        g_object_unref(action);
    }
}

void StudioWindow::updateCommands() {
    auto* map = G_ACTION_MAP(window_);
    const auto enable = [map](const char* name, bool enabled) {
        auto* action = G_SIMPLE_ACTION(g_action_map_lookup_action(map, name));
        g_simple_action_set_enabled(action, enabled);
        return action;
    };
    for (const Command& command : commands()) {
        GSimpleAction* action = enable(command.name, holds(picture_, command.needs));
        if (command.isOn != nullptr)
            g_simple_action_set_state(action, g_variant_new_boolean(command.isOn(*this)));
    }
    enable("filter", holds(picture_, Needs::IdlePicture));
    enable("tool", holds(picture_, Needs::IdlePicture));
}

void StudioWindow::updateTitle() {
    const std::string name =
        (picture_.isUnsaved() ? "• " : "") + (picture_.isEmpty() ? "Orvane Studio" : picture_.name());
    if (name == gtk_label_get_text(GTK_LABEL(title_))) return;
    gtk_label_set_text(GTK_LABEL(title_), name.c_str());
    gtk_window_set_title(window(), picture_.isEmpty() ? name.c_str() : (name + " – Orvane Studio").c_str());
}

void StudioWindow::update() {
    updateTitle();
    updateCommands();
    status_.update();
}

// --- what the window hears ---

void StudioWindow::listen() {
    picture_.onChange([this] { update(); });

    openDroppedFiles(*this);

    picture_.onRunEnded([this] {
        if (std::exchange(closesAfterRun_, false)) gtk_window_close(window());
    });
    const auto close = +[](GtkWindow*, gpointer self) -> gboolean {
        auto* studio = static_cast<StudioWindow*>(self);
        if (!studio->mayClose()) return TRUE;
        preferences().remember(*studio);
        return FALSE;
    };
    g_signal_connect(window_, "close-request", G_CALLBACK(close), this);

    // A touchpad reports many small parts of what is one step of a wheel.
    GtkEventController* wheel = gtk_event_controller_scroll_new(GtkEventControllerScrollFlags(
        GTK_EVENT_CONTROLLER_SCROLL_VERTICAL | GTK_EVENT_CONTROLLER_SCROLL_DISCRETE));
    const auto scrolled =
        +[](GtkEventControllerScroll* controller, double, double dy, gpointer self) -> gboolean {
        const GdkModifierType held =
            gtk_event_controller_get_current_event_state(GTK_EVENT_CONTROLLER(controller));
        auto* studio = static_cast<StudioWindow*>(self);
        if ((held & GDK_CONTROL_MASK) == 0 || studio->picture_.isBusy()) return FALSE;
        if (dy < 0) orvane_vistrel_zoom_in(studio->control());
        if (dy > 0) orvane_vistrel_zoom_out(studio->control());
        return TRUE;
    };
    g_signal_connect(wheel, "scroll", G_CALLBACK(scrolled), this);
    gtk_widget_add_controller(picture_.widget(), wheel);
}

void StudioWindow::stopListening() {
    alive_.reset();
    picture_.onChange({});
    picture_.onRunEnded({});
    g_signal_handlers_disconnect_by_data(control(), this);
}

// A picture that is being saved is not saved yet, and one that is being changed not asked about: neither
// while a method runs nor while a dialog may still take its preview back.
bool StudioWindow::mayClose() {
    if (closing_) return true;
    if (GtkWindow* dialog = openDialog(window())) {
        gtk_window_present(dialog);
        return false;
    }
    if (picture_.isEmpty()) return true;
    closesAfterRun_ = picture_.isRunning();
    if (closesAfterRun_) return false;
    if (!picture_.isUnsaved()) return true;
    guardUnsaved(*this, [this] { closeAnyway(); });
    return false;
}

void StudioWindow::closeAnyway() {
    closing_ = true;
    gtk_window_close(window());
}

}  // namespace orvane::studio
