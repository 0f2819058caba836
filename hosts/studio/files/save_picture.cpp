#include "studio/files/save_picture.h"

#include <unistd.h>

#include <glib/gstdio.h>

#include "studio/files/pages_guard.h"
#include "studio/files/picture_format.h"
#include "studio/files/recent_files.h"
#include "studio/support/answers.h"
#include "studio/support/message.h"
#include "studio/support/question.h"
#include "studio/window.h"

namespace orvane::studio {
namespace {

using Saved = std::function<void()>;

std::string whyNotSaved(const std::string& path) {
    if (!g_utf8_validate(path.c_str(), -1, nullptr)) return "Its name is not text in UTF-8.";
    const std::unique_ptr<char, FreeText> folder(g_path_get_dirname(path.c_str()));
    if (!g_file_test(folder.get(), G_FILE_TEST_IS_DIR)) return "The folder does not exist.";
    if (g_access(folder.get(), W_OK) != 0) return "You may not write into this folder.";
    if (g_file_test(path.c_str(), G_FILE_TEST_EXISTS) && g_access(path.c_str(), W_OK) != 0)
        return "You may not write this file.";
    return "The disk may be full, or the picture too large for the format. An existing file is as it was.";
}

void tellNotSaved(StudioWindow& window, const std::string& path) {
    window.keepOpen();
    const std::unique_ptr<char, FreeText> name(g_filename_display_basename(path.c_str()));
    showMessage(window.window(), std::string("“") + name.get() + "” was not saved", whyNotSaved(path));
}

void write(StudioWindow& window, const std::string& path, const PictureFormat& format, const Saved& saved) {
    if (!g_utf8_validate(path.c_str(), -1, nullptr)) return tellNotSaved(window, path);
    const std::function<void(GVariant*)> done = [&window, path, saved](GVariant* result) {
        if (result == nullptr || !g_variant_get_boolean(result)) return tellNotSaved(window, path);
        window.picture().setWrittenFile(path);
        rememberRecent(path);
        if (saved) saved();
    };
    // People save what they see. A frame of the crop is no part of it.
    if (orvane_vistrel_get_pending(window.control())) orvane_vistrel_accept(window.control());
    window.picture().runSlow("save-image", g_variant_new("(si)", path.c_str(), format.type), "Saving",
                             window.whileOpen(done));
}

/// What the chooser shows below the files. Its parts go with it.
struct SaveOptions {
    GtkWidget* format;
    GtkWidget* quality;
    GtkWidget* qualityLabel;
};

const PictureFormat& chosenFormat(const SaveOptions& options) {
    return saveFormats()[gtk_drop_down_get_selected(GTK_DROP_DOWN(options.format))];
}

void showQuality(const SaveOptions& options) {
    const bool jpeg = chosenFormat(options).type == kJpegType;
    gtk_widget_set_visible(options.quality, jpeg);
    gtk_widget_set_visible(options.qualityLabel, jpeg);
}

void chooseFormat(const SaveOptions& options, const PictureFormat& format) {
    gtk_drop_down_set_selected(GTK_DROP_DOWN(options.format), guint(&format - saveFormats().data()));
}

/// The format follows the name that is typed, and the name the format that is chosen.
class SaveDialog {
 public:
    SaveDialog(StudioWindow& window, Saved saved) : studio_(window), saved_(std::move(saved)) {}

    static void show(StudioWindow& window, Saved saved) {
        auto* dialog = new SaveDialog(window, std::move(saved));
        dialog->build();
        gtk_window_present(GTK_WINDOW(dialog->chooser_));
    }

 private:
    void build() {
        chooser_ = gtk_file_chooser_dialog_new("Save Picture As", studio_.window(),
                                               GTK_FILE_CHOOSER_ACTION_SAVE, "_Cancel", GTK_RESPONSE_CANCEL,
                                               "_Save", GTK_RESPONSE_ACCEPT, nullptr);
        gtk_window_set_modal(GTK_WINDOW(chooser_), TRUE);
        gtk_window_set_destroy_with_parent(GTK_WINDOW(chooser_), TRUE);
        gtk_dialog_set_default_response(GTK_DIALOG(chooser_), GTK_RESPONSE_ACCEPT);
        nameByLabels(GTK_DIALOG(chooser_), {GTK_RESPONSE_CANCEL, GTK_RESPONSE_ACCEPT});
        gtk_box_append(GTK_BOX(gtk_dialog_get_content_area(GTK_DIALOG(chooser_))), newOptions());
        proposeName();
        // The dialog's own object goes with it.
        g_object_set_data_full(G_OBJECT(chooser_), "save-dialog", this,
                               [](gpointer self) { delete static_cast<SaveDialog*>(self); });
        g_signal_connect(chooser_, "response", G_CALLBACK(+[](GtkDialog*, int response, gpointer self) {
                             static_cast<SaveDialog*>(self)->answer(response);
                         }),
                         this);
    }

    GtkWidget* newOptions() {
        GtkWidget* box = gtk_box_new(GTK_ORIENTATION_HORIZONTAL, 12);
        gtk_widget_add_css_class(box, "save-options");
        GtkStringList* names = gtk_string_list_new(nullptr);
        for (const PictureFormat& format : saveFormats()) gtk_string_list_append(names, format.label);
        options_.format = gtk_drop_down_new(G_LIST_MODEL(names), nullptr);
        options_.quality = gtk_scale_new_with_range(GTK_ORIENTATION_HORIZONTAL, 0, 100, 1);
        gtk_scale_set_draw_value(GTK_SCALE(options_.quality), TRUE);
        gtk_scale_set_value_pos(GTK_SCALE(options_.quality), GTK_POS_RIGHT);
        gtk_range_set_value(GTK_RANGE(options_.quality), orvane_vistrel_get_jpeg_quality(studio_.control()));
        gtk_widget_set_hexpand(options_.quality, TRUE);
        gtk_box_append(GTK_BOX(box), newLabel("_Format", options_.format));
        gtk_box_append(GTK_BOX(box), options_.format);
        options_.qualityLabel = newLabel("_Quality", options_.quality);
        gtk_box_append(GTK_BOX(box), options_.qualityLabel);
        gtk_box_append(GTK_BOX(box), options_.quality);
        const auto chosen = +[](SaveDialog* self) { self->formatChosen(); };
        g_signal_connect_swapped(options_.format, "notify::selected", G_CALLBACK(chosen), this);
        return box;
    }

    static GtkWidget* newLabel(const char* text, GtkWidget* target) {
        GtkWidget* label = gtk_label_new_with_mnemonic(text);
        gtk_label_set_mnemonic_widget(GTK_LABEL(label), target);
        gtk_accessible_update_relation(GTK_ACCESSIBLE(target), GTK_ACCESSIBLE_RELATION_LABELLED_BY, label,
                                       nullptr, -1);
        return label;
    }

    void proposeName() {
        auto* chooser = GTK_FILE_CHOOSER(chooser_);
        const std::string& path = studio_.picture().path();
        const PictureFormat* present = formatOfName(path);
        const PictureFormat& format = present != nullptr ? *present : saveFormats().front();
        chooseFormat(options_, format);
        showQuality(options_);
        gtk_file_chooser_set_current_name(chooser, nameInFormat(studio_.picture().name(), format).c_str());
        if (path.empty()) return;
        GFile* file = g_file_new_for_path(path.c_str());
        GFile* folder = g_file_get_parent(file);
        gtk_file_chooser_set_current_folder(chooser, folder, nullptr);
        g_object_unref(folder);
        g_object_unref(file);
    }

    void formatChosen() {
        showQuality(options_);
        const std::unique_ptr<char, FreeText> name(
            gtk_file_chooser_get_current_name(GTK_FILE_CHOOSER(chooser_)));
        if (name == nullptr || *name == '\0') return;
        const std::string renamed = nameInFormat(name.get(), chosenFormat(options_));
        if (renamed != name.get())
            gtk_file_chooser_set_current_name(GTK_FILE_CHOOSER(chooser_), renamed.c_str());
    }

    void answer(int response) {
        if (response != GTK_RESPONSE_ACCEPT) return gtk_window_destroy(GTK_WINDOW(chooser_));
        GFile* file = gtk_file_chooser_get_file(GTK_FILE_CHOOSER(chooser_));
        const std::unique_ptr<char, FreeText> chosen(file != nullptr ? g_file_get_path(file) : nullptr);
        g_clear_object(&file);
        if (chosen == nullptr) return;
        // A typed extension says more than the list, which may not have been looked at.
        const PictureFormat* typed = formatOfName(chosen.get());
        format_ = typed != nullptr ? typed : &chosenFormat(options_);
        path_ = nameInFormat(chosen.get(), *format_);
        // The chooser has asked for the name that was typed.
        if (path_ != chosen.get() && g_file_test(path_.c_str(), G_FILE_TEST_EXISTS)) return askToOverwrite();
        finish();
    }

    void askToOverwrite() {
        const std::unique_ptr<char, FreeText> name(g_filename_display_basename(path_.c_str()));
        GtkDialog* question = newQuestion(
            GTK_WINDOW(chooser_), "Replace file", std::string("Replace “") + name.get() + "”?",
            "There is a file of that name already.",
            {{"_Cancel", GTK_RESPONSE_CANCEL}, {"_Replace", GTK_RESPONSE_ACCEPT, Choice::Kind::Destructive}});
        whenAnswered(question, [this](int response) {
            if (response == GTK_RESPONSE_ACCEPT) finish();
        });
        gtk_window_present(GTK_WINDOW(question));
    }

    void finish() {
        StudioWindow& studio = studio_;
        const PictureFormat& format = *format_;
        const std::string path = path_;
        const Saved saved = saved_;
        orvane_vistrel_set_jpeg_quality(studio.control(),
                                        int(gtk_range_get_value(GTK_RANGE(options_.quality))));
        gtk_window_destroy(GTK_WINDOW(chooser_));  // and this with it
        write(studio, path, format, saved);
    }

    StudioWindow& studio_;
    Saved saved_;
    GtkWidget* chooser_ = nullptr;
    SaveOptions options_{};
    const PictureFormat* format_ = nullptr;
    std::string path_;
};

void saveIdle(StudioWindow& window, const Saved& saved) {
    const PictureFormat* format = formatOfName(window.picture().path());
    if (format == nullptr) return saveAs(window, saved);
    guardPages(window, {[&window, format, saved] { write(window, window.picture().path(), *format, saved); },
                        [&window, saved] { saveAs(window, saved); }});
}

}  // namespace

// Who closes a window that waits for the clipboard may have asked for it.
void save(StudioWindow& window, Saved saved) {
    window.picture().afterPaste([&window, saved = std::move(saved)] { saveIdle(window, saved); });
}

void saveAs(StudioWindow& window, Saved saved) { SaveDialog::show(window, std::move(saved)); }

}  // namespace orvane::studio
