#include "studio/commands/image_commands.h"

#include "studio/commands/scale_dialog.h"
#include "studio/files/picture_check.h"
#include "studio/files/picture_chooser_dialog.h"
#include "studio/window.h"

namespace orvane::studio {
namespace {

/// The codes of RotateFlip: quarter turns clockwise, and a mirror to add.
constexpr int kQuarter = 1, kHalf = 2, kThreeQuarters = 3, kMirror = 4;

void turn(StudioWindow& window, int code, const char* title) {
    window.picture().runSlow("rotate-flip", g_variant_new("(i)", code), title);
}

// What is placed already stays until there is something in its place.
void place(StudioWindow& window, const std::string& path) {
    checkPicture(window, path, [&window, path] {
        window.picture().runSlow("draw-image", g_variant_new("(s)", path.c_str()), "Opening");
    });
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
