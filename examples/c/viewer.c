/* A small picture viewer that can also draw: opens a picture, has a few tools, and saves.
 *
 *     viewer [PICTURE]
 *
 * The control does the work. The window around it is plain GTK: actions, buttons that name them, and keys. */

#include <string.h>

#include <orvane-gtk.h>

typedef struct {
    GtkWindow* window;
    OrvaneVistrel* picture;
    GFile* file; /* what was opened last, and where it is saved */
} Viewer;

/* The tools: what their buttons say, and their values of the property "paint-status". */
static const struct {
    const char* name;
    int value;
} tools[] = {{"None", 0}, {"Line", 1}, {"Pencil", 3}, {"Ellipse", 8}, {"Rectangle", 11}};

/* The kind of file that orvane_vistrel_save_image() writes, by the name's end; -1 for one that it does not.
 */
static int file_kind(const char* name) {
    static const struct {
        const char* end;
        int kind;
    } rows[] = {{".bmp", 0}, {".jpg", 1}, {".jpeg", 1}, {".gif", 2}, {".tif", 3}, {".tiff", 3}, {".png", 4}};
    const char* end = strrchr(name, '.');
    for (size_t i = 0; end && i < G_N_ELEMENTS(rows); ++i)
        if (g_ascii_strcasecmp(end, rows[i].end) == 0) return rows[i].kind;
    return -1;
}

/* The title is the file's name, with a star before it while there is something to save. */
static void update_title(Viewer* viewer) {
    char* name = viewer->file ? g_file_get_basename(viewer->file) : g_strdup("Viewer");
    char* title = g_strconcat(orvane_vistrel_get_modified(viewer->picture) ? "*" : "", name, NULL);
    gtk_window_set_title(viewer->window, title);
    g_free(title);
    g_free(name);
}

static void open_file(Viewer* viewer, GFile* file) {
    char* path = g_file_get_path(file);
    if (path && orvane_vistrel_load_image(viewer->picture, path))
        g_set_object(&viewer->file, file);
    else
        g_clear_object(&viewer->file); /* a failed load leaves the control empty */
    g_free(path);
    update_title(viewer);
}

static void on_chosen(GtkNativeDialog* dialog, int response, Viewer* viewer) {
    if (response == GTK_RESPONSE_ACCEPT) {
        GFile* file = gtk_file_chooser_get_file(GTK_FILE_CHOOSER(dialog));
        open_file(viewer, file);
        g_object_unref(file);
    }
    g_object_unref(dialog);
}

static void on_open(GSimpleAction* action, GVariant* parameter, gpointer data) {
    (void)action, (void)parameter;
    Viewer* viewer = data;
    GtkFileChooserNative* dialog = gtk_file_chooser_native_new("Open a picture", viewer->window,
                                                               GTK_FILE_CHOOSER_ACTION_OPEN, NULL, NULL);
    g_signal_connect(dialog, "response", G_CALLBACK(on_chosen), viewer);
    gtk_native_dialog_set_modal(GTK_NATIVE_DIALOG(dialog), TRUE);
    gtk_native_dialog_show(GTK_NATIVE_DIALOG(dialog));
}

static void on_save(GSimpleAction* action, GVariant* parameter, gpointer data) {
    (void)action, (void)parameter;
    Viewer* viewer = data;
    if (!viewer->file) return;
    char* path = g_file_get_path(viewer->file);
    const int kind = file_kind(path);
    orvane_vistrel_accept(viewer->picture); /* what is still being dragged belongs to the picture, too */
    if (kind < 0 || !orvane_vistrel_save_image(viewer->picture, path, kind))
        gtk_window_set_title(viewer->window, "The picture could not be saved");
    g_free(path);
}

static void on_undo(GSimpleAction* action, GVariant* parameter, gpointer data) {
    (void)action, (void)parameter;
    orvane_vistrel_undo(((Viewer*)data)->picture);
}

static void on_accept(GSimpleAction* action, GVariant* parameter, gpointer data) {
    (void)action, (void)parameter;
    orvane_vistrel_accept(((Viewer*)data)->picture);
}

/* The action has a state, the tool's value. The buttons that name it show by themselves which one is pressed.
 */
static void on_tool(GSimpleAction* action, GVariant* value, gpointer data) {
    orvane_vistrel_set_paint_status(((Viewer*)data)->picture, g_variant_get_int32(value));
    g_simple_action_set_state(action, value);
}

static void add_button(GtkHeaderBar* bar, const char* label, const char* action) {
    GtkWidget* button = gtk_button_new_with_mnemonic(label);
    gtk_actionable_set_action_name(GTK_ACTIONABLE(button), action);
    gtk_header_bar_pack_start(bar, button);
}

static GtkWidget* make_tool_buttons(void) {
    GtkWidget* box = gtk_box_new(GTK_ORIENTATION_HORIZONTAL, 0);
    gtk_widget_add_css_class(box, "linked");
    for (size_t i = 0; i < G_N_ELEMENTS(tools); ++i) {
        GtkWidget* button = gtk_toggle_button_new_with_label(tools[i].name);
        gtk_actionable_set_action_name(GTK_ACTIONABLE(button), "win.tool");
        gtk_actionable_set_action_target(GTK_ACTIONABLE(button), "i", tools[i].value);
        gtk_box_append(GTK_BOX(box), button);
    }
    return box;
}

static GtkWidget* make_header_bar(void) {
    GtkHeaderBar* bar = GTK_HEADER_BAR(gtk_header_bar_new());
    add_button(bar, "_Open", "win.open");
    add_button(bar, "_Save", "win.save");
    gtk_header_bar_pack_start(bar, make_tool_buttons());
    add_button(bar, "_Draw", "win.accept");
    add_button(bar, "_Undo", "win.undo");
    return GTK_WIDGET(bar);
}

static void free_viewer(gpointer data) {
    Viewer* viewer = data;
    g_clear_object(&viewer->file);
    g_free(viewer);
}

static Viewer* make_window(GtkApplication* application) {
    static const GActionEntry actions[] = {
        {.name = "open", .activate = on_open},
        {.name = "save", .activate = on_save},
        {.name = "accept", .activate = on_accept},
        {.name = "undo", .activate = on_undo},
        {.name = "tool", .parameter_type = "i", .state = "0", .change_state = on_tool},
    };
    Viewer* viewer = g_new0(Viewer, 1);
    viewer->window = GTK_WINDOW(gtk_application_window_new(application));
    viewer->picture = ORVANE_VISTREL(orvane_vistrel_new());
    g_object_set_data_full(G_OBJECT(viewer->window), "viewer", viewer, free_viewer);
    /* Every property notifies, whatever changed it; here the mouse and the history do. */
    g_signal_connect_swapped(viewer->picture, "notify::modified", G_CALLBACK(update_title), viewer);
    g_action_map_add_action_entries(G_ACTION_MAP(viewer->window), actions, G_N_ELEMENTS(actions), viewer);
    gtk_window_set_titlebar(viewer->window, make_header_bar());
    gtk_window_set_child(viewer->window, GTK_WIDGET(viewer->picture));
    gtk_window_set_default_size(viewer->window, 960, 640);
    update_title(viewer);
    gtk_window_present(viewer->window);
    return viewer;
}

static void on_activate(GtkApplication* application, gpointer data) {
    (void)data;
    make_window(application);
}

static void on_files(GtkApplication* application, GFile** files, int count, const char* hint, gpointer data) {
    (void)hint, (void)data;
    for (int i = 0; i < count; ++i) open_file(make_window(application), files[i]);
}

int main(int argc, char** argv) {
    static const struct {
        const char* action;
        const char* keys[2];
    } keys[] = {
        {"win.open", {"<Control>o"}},   {"win.save", {"<Control>s"}},     {"win.undo", {"<Control>z"}},
        {"win.accept", {"<Control>d"}}, {"window.close", {"<Control>w"}},
    };
    GtkApplication* application =
        gtk_application_new("io.github.orvane.example.Viewer", G_APPLICATION_HANDLES_OPEN);
    for (size_t i = 0; i < G_N_ELEMENTS(keys); ++i)
        gtk_application_set_accels_for_action(application, keys[i].action, keys[i].keys);
    for (size_t i = 0; i < G_N_ELEMENTS(tools); ++i) { /* Ctrl+0 is no tool, Ctrl+1 the line, and so on */
        char* action = g_strdup_printf("win.tool(%d)", tools[i].value);
        char* key = g_strdup_printf("<Control>%d", (int)i);
        gtk_application_set_accels_for_action(application, action, (const char*[]){key, NULL});
        g_free(action);
        g_free(key);
    }
    g_signal_connect(application, "activate", G_CALLBACK(on_activate), NULL);
    g_signal_connect(application, "open", G_CALLBACK(on_files), NULL);
    const int status = g_application_run(G_APPLICATION(application), argc, argv);
    g_object_unref(application);
    return status;
}
