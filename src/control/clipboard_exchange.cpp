#include "control/clipboard_exchange.h"

#include <algorithm>
#include <utility>

#include "control/vistrel_control.h"
#include "document/clipboard_picture.h"
#include "tools/image_commit.h"
#include "view/view_mapping.h"

namespace orvane {
namespace {

IntRect selectedPixels(const ImageDocument& document, IntPoint corner, IntPoint opposite) {
    if (document.isEmpty()) return {};
    const IntPoint topLeft{std::min(corner.x, opposite.x), std::min(corner.y, opposite.y)};
    const IntPoint bottomRight{std::max(corner.x, opposite.x), std::max(corner.y, opposite.y)};

    // The mapping rounds: of a photograph at zoom 0.25 it would leave out the first and last few columns.
    // Whoever selects all that is shown means the whole image.
    const IntRect shown = document.imageRect();
    if (topLeft == IntPoint{shown.x, shown.y} && bottomRight == IntPoint{shown.right(), shown.bottom()}) {
        return {0, 0, document.width(), document.height()};
    }
    const double zoom = document.view.zoom;
    return pixelsBetween(document, windowToImage(document, zoom, topLeft),
                         windowToImage(document, zoom, bottomRight));
}

void fillArea(ImageDocument& document, IntRect area, Argb colour) {
    drawIntoImage(document, [&](MutablePixelView image) {
        for (int y = area.y; y < area.bottom(); ++y) std::fill_n(image.row(y) + area.x, area.width, colour);
    });
}

void offer(const VistrelControl& control, std::vector<std::uint8_t> block) {
    if (control.clipboard != nullptr) control.clipboard->writeBitmap(std::move(block));
}

}  // namespace

bool isPictureOnClipboard(const VistrelControl& control) noexcept {
    return control.clipboard != nullptr && control.clipboard->offersBitmap();
}

void copySelection(const VistrelControl& control, IntPoint corner, IntPoint opposite) noexcept {
    const ImageDocument& document = control.document;
    auto block = clipboardBlockOf(document, selectedPixels(document, corner, opposite));
    if (!block.empty()) offer(control, std::move(block));
}

bool cutSelection(VistrelControl& control, IntPoint corner, IntPoint opposite) noexcept {
    ImageDocument& document = control.document;
    const IntRect area = selectedPixels(document, corner, opposite);
    auto block = clipboardBlockOf(document, area);
    if (block.empty()) return false;
    fillArea(document, area, document.bitmapBackColor);
    offer(control, std::move(block));
    return true;
}

PixelSurface pictureOnClipboard(const VistrelControl& control) noexcept {
    if (!isPictureOnClipboard(control)) return {};
    const auto block = control.clipboard->readBitmap();
    return block ? pictureFromClipboardBlock(*block) : PixelSurface();
}

}  // namespace orvane
