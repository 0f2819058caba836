#pragma once

#include <gtk/gtk.h>

#include "studio/picture.h"

namespace orvane::studio {

/// The line below the picture: its size, the zoom, the pixel under the pointer, how the tool is used, and
/// what is being done when that takes long.
class StatusBar {
 public:
    explicit StatusBar(StudioPicture& picture);
    ~StatusBar();
    StatusBar(const StatusBar&) = delete;
    StatusBar& operator=(const StatusBar&) = delete;

    [[nodiscard]] GtkWidget* widget() const { return bar_; }
    void update();

 private:
    void updateProgress();
    void showProgress();
    void showPoint(double x, double y);
    GtkWidget* addLabel(const char* name, int widthInCharacters);
    static gboolean onProgressDue(gpointer self);
    static gboolean onPulse(gpointer self);

    StudioPicture& picture_;
    GtkWidget *bar_, *hint_, *point_, *size_, *zoom_, *progress_;
    guint progressSource_ = 0;
};

}  // namespace orvane::studio
