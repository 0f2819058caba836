#include "studio/commands/image_commands.h"

#include "studio/commands/scale_dialog.h"
#include "studio/files/open_picture.h"
#include "studio/files/picture_chooser_dialog.h"
#include "studio/window.h"

namespace orvane::studio {
namespace {

/// The codes of RotateFlip: quarter turns clockwise, and a mirror to add.
constexpr int kQuarter = 1, kHalf = 2, kThreeQuarters = 3, kMirror = 4;

void turn(StudioWindow& window, int code, const char* title) {
    window.picture().runSlow("rotate-flip", g_variant_new("(i)", code), title);
}

// The control tells by its mode alone whether it took the picture.
void place(StudioWindow& window, const std::string& path) {
    constexpr int kNoTool = 0, kStamp = 16;
    OrvaneVistrel* control = window.control();
    const int mode = orvane_vistrel_get_paint_status(control);
    orvane_vistrel_set_paint_status(control, kNoTool);
    const bool isText = g_utf8_validate(path.c_str(), -1, nullptr) != FALSE;
    if (isText) orvane_vistrel_draw_image(control, path.c_str());
    if (orvane_vistrel_get_paint_status(control) == kStamp) return;
    orvane_vistrel_set_paint_status(control, mode);
    tellNotOpened(window, path);
}

}  // namespace

void rotateLeft(StudioWindow& window) { turn(window, kThreeQuarters, "Rotating"); }
void rotateRight(StudioWindow& window) { turn(window, kQuarter, "Rotating"); }
void rotateHalf(StudioWindow& window) { turn(window, kHalf, "Rotating"); }
void mirror(StudioWindow& window) { turn(window, kMirror, "Mirroring"); }
void flip(StudioWindow& window) { turn(window, kMirror + kHalf, "Turning upside down"); }

void scalePicture(StudioWindow& window) { showScaleDialog(window); }

void placePicture(StudioWindow& window) {
    choosePictures(window, "Place a Picture", false,
                   [&window](const std::string& path) { place(window, path); });
}

}  // namespace orvane::studio
