#pragma once

#include <functional>
#include <memory>
#include <string>

#include <gtk/gtk.h>

#include "studio/picture.h"
#include "studio/status_bar.h"

namespace orvane::studio {

/// One window with one picture. It belongs to its GtkApplicationWindow and goes with it.
class StudioWindow {
 public:
    /// A new window without a picture, not shown yet.
    static StudioWindow& open(GtkApplication* application);
    /// The window's object; null for a window that is none of the Studio's.
    static StudioWindow* of(GtkWindow* window);
    ~StudioWindow();
    StudioWindow(const StudioWindow&) = delete;
    StudioWindow& operator=(const StudioWindow&) = delete;

    [[nodiscard]] GtkWindow* window() const { return GTK_WINDOW(window_); }
    [[nodiscard]] GtkApplication* application() const { return gtk_window_get_application(window()); }
    [[nodiscard]] StudioPicture& picture() { return picture_; }
    [[nodiscard]] const StudioPicture& picture() const { return picture_; }
    [[nodiscard]] OrvaneVistrel* control() const { return picture_.control(); }
    [[nodiscard]] GtkWidget* histogram() const { return histogram_; }
    [[nodiscard]] GtkWidget* toolOptions() const { return options_; }

    /// Wraps what is called back later, when the window may have gone: then it is not called.
    template <class... Arguments>
    std::function<void(Arguments...)> whileOpen(std::function<void(Arguments...)> callback) {
        return [callback = std::move(callback), alive = std::weak_ptr<bool>(alive_)](Arguments... arguments) {
            if (!alive.expired()) callback(arguments...);
        };
    }

    /// Brings title, commands and status up to date.
    void update();
    /// Has the window closed, unsaved changes or not.
    void closeAnyway();
    /// Has the window stay if it was to close at the end of what is running.
    void keepOpen() { closesAfterRun_ = false; }

 private:
    explicit StudioWindow(GtkApplication* application);
    void build();
    void buildHeader();
    GtkWidget* newBody();
    void installCommands();
    void updateCommands();
    void updateTitle();
    void listen();
    void stopListening();
    /// Whether the window may close now; if not, it asks or waits.
    bool mayClose();

    GtkWidget* window_;
    StudioPicture picture_;
    StatusBar status_;
    GtkWidget *histogram_ = nullptr, *options_ = nullptr, *palette_ = nullptr, *title_ = nullptr;
    bool closing_ = false, closesAfterRun_ = false;
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

}  // namespace orvane::studio
