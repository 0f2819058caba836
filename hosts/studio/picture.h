#pragma once

#include <functional>
#include <memory>
#include <string>

#include <orvane-gtk.h>

#include "studio/filters/preview_record.h"
#include "studio/support/object_ref.h"

namespace orvane::studio {

/// The picture of one window: the widget, and what a host knows besides: its file, whether that has all
/// changes, and the one slow method that may be running.
class StudioPicture {
 public:
    /// What is told when a slow method has ended; the result may be null.
    using Done = std::function<void(GVariant* result)>;

    StudioPicture();
    ~StudioPicture();
    StudioPicture(const StudioPicture&) = delete;
    StudioPicture& operator=(const StudioPicture&) = delete;

    [[nodiscard]] OrvaneVistrel* control() const { return control_.get(); }
    [[nodiscard]] GtkWidget* widget() const { return GTK_WIDGET(control_.get()); }
    [[nodiscard]] bool isEmpty() const { return orvane_vistrel_get_is_empty(control()) != FALSE; }
    /// Whether anything runs for this picture, in its control or beside it.
    [[nodiscard]] bool isBusy() const {
        return running_ || pasting_ || orvane_vistrel_get_busy(control()) != FALSE;
    }
    /// Whether the file lacks something that is seen: a change, or what is placed and not drawn yet.
    [[nodiscard]] bool isUnsaved() const;
    [[nodiscard]] bool canUndo() const { return orvane_vistrel_get_undo_enable(control()) != FALSE; }
    [[nodiscard]] bool canRedo() const;

    /// The file's path; empty for a picture that has none yet.
    [[nodiscard]] const std::string& path() const { return path_; }
    /// What the window is called after: the file's name, or "Untitled".
    [[nodiscard]] std::string name() const;
    /// The picture was loaded from this file; with an empty path it is new.
    void setFile(std::string path);
    /// The picture was saved in this file.
    void setWrittenFile(std::string path);
    /// Whether the file is as it was saved from here, and not as it was opened.
    [[nodiscard]] bool hasWrittenFile() const { return hasWrittenFile_; }

    void undo();
    void redo();
    /// A preview's step goes into the history and out again until endPreview.
    void beginPreview();
    void notePreviewStep() { preview_.noteStep(); }
    void endPreview(bool kept);

    /// Runs a method while the window stays alive; false when one is running already. `title` is what people
    /// are told that is being done. `done` is not called any more when the picture has gone.
    bool runSlow(const char* member, GVariant* arguments, const char* title, Done done = {});
    /// The same with a control of its own, which nobody sees and which goes at the end. This one stays as it
    /// is.
    bool runAside(const char* member, GVariant* arguments, const char* title, Done done);
    /// Places the clipboard's picture. The main loop runs inside while another program's clipboard is waited
    /// for, and whoever closes the window then ends the wait.
    void paste();
    /// Calls the function now, or when a paste that waits has ended. Of several the last is called.
    void afterPaste(std::function<void()> function);
    /// Whether a method of runSlow or runAside runs whose end has not been told yet.
    [[nodiscard]] bool isRunning() const { return running_; }
    /// What is being done; null when nothing is.
    [[nodiscard]] const char* runningTitle() const { return isBusy() ? title_.c_str() : nullptr; }

    /// Called whenever any of the answers above may have changed.
    void onChange(std::function<void()> listener) { changed_ = std::move(listener); }
    /// Called when a method has ended and everything that follows from it has been done.
    void onRunEnded(std::function<void()> listener) { runEnded_ = std::move(listener); }

 private:
    struct Run;
    bool run(OrvaneVistrel* control, const char* member, GVariant* arguments, const char* title, Done done);
    static void onNotify(StudioPicture* self, GParamSpec* property);
    static void onDone(GObject* source, GAsyncResult* result, gpointer data);
    void tellChange() const;

    ObjectRef<OrvaneVistrel> control_;
    std::string path_, title_;
    guint64 inFile_ = 0;  ///< the picture that the file has, by its serial: undo may lead back to it
    PreviewRecord preview_;
    std::function<void()> changed_, runEnded_, afterPaste_;
    bool hasWrittenFile_ = false, running_ = false, pasting_ = false;
    std::shared_ptr<bool> alive_;  ///< false for the ends of runs that come too late
};

}  // namespace orvane::studio
