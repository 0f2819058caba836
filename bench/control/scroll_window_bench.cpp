// A redraw while the scroll window's rectangle is dragged over a large picture, against a plain redraw at the
// same zoom without the panel; and the panel of a picture that changes each time.
#include <cstdio>
#include <string>

#include <orvane/headless_window.h>

#include "control/vistrel_control.h"
#include "support/photograph.h"
#include "support/ratio_timer.h"
#include "view/view_mapping.h"

namespace {

using namespace orvane;
using namespace orvane::bench;

constexpr IntSize kPicture{6000, 4000}, kView{1600, 1000};

void measureAt(VistrelControl& control, double zoom) {
    control.document.view.zoom = zoom;
    control.document.view.centreView();
    control.document.updateOverflow();
    control.refresh();
    const auto plainRefresh = [&] {
        control.scrollWindow.visible = false;
        control.refresh();
        control.scrollWindow.visible = true;
    };
    const std::string where = "zoom " + std::to_string(zoom).substr(0, 5) + ": ";
    printRatioRow((where + "panel shown / hidden").c_str(),
                  measureRatio([&] { control.refresh(); }, plainRefresh));

    // The middle of the thumbnail, of 108 x 72 pixels in the lower right corner.
    const IntPoint grip{kView.width - 65, kView.height - 67};
    control.onLeftDown(grip.x, grip.y);
    if (!control.scrollWindow.isDragging()) std::puts("no drag");
    int count = 0;
    const auto drag = [&] {
        ++count;
        control.onMouseMove(grip.x + count % 9, grip.y + count % 5, {.left = true});
    };
    printRatioRow((where + "drag / plain redraw").c_str(), measureRatio(drag, plainRefresh));
    control.onLeftUp(grip.x, grip.y);

    const auto change = [&] {
        *control.document.lockCurrent().pixels ^= 1u;
        control.refresh();
    };
    printRatioRow((where + "changed picture / plain").c_str(), measureRatio(change, plainRefresh));
}

}  // namespace

int main() {
    HeadlessWindow window(kView.width, kView.height);
    VistrelControl control(&window);
    control.onSize(kView.width, kView.height);
    const auto photo = photograph(kPicture.width, kPicture.height);
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(photo.data());
    if (!control.document.loadPixels({bytes, photo.size() * 4}, kPicture.width, kPicture.height)) return 1;
    std::printf("%d x %d in a window of %d x %d\n", kPicture.width, kPicture.height, kView.width,
                kView.height);
    printRatioHeader();
    for (const double zoom : {0.5, 1.0, 2.144}) measureAt(control, zoom);
}
