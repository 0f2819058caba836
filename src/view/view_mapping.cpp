#include "view/view_mapping.h"

#include <cmath>

#include "base/truncate.h"

namespace orvane {
namespace {

constexpr double kZoomStep = 1.1;
constexpr double kInverseZoomStep = 0.9090909090909091;
constexpr double kSmallestZoom = 0.1;
constexpr double kLargestZoom = 8.0;

void changeZoom(ImageDocument& document, double zoom) noexcept {
    ViewState& view = document.view;
    view.centreView();
    view.previousZoom = view.zoom;
    view.zoom = zoom;
    document.updateOverflow();
}

/// Near 1.0 the mappings use whole pixels only; the three different halvings below are deliberate.
bool isActualSize(double zoom) noexcept { return std::fabs(zoom - 1.0) < 0.01; }

int windowToImageAxis(double zoom, int window, int viewCentre, int imageSide) noexcept {
    if (isActualSize(zoom))
        return wrappingAdd(window, -truncateToCoordinate(viewCentre - 0.5 * imageSide) - 1);
    const double halfSide = (imageSide / 2) * zoom;
    const double left = viewCentre - halfSide - 0.5;
    const double span = 2 * halfSide + 1;
    return truncateToCoordinate(imageSide / span * (window - left) + 0.5);
}

int imageToWindowAxis(double zoom, int image, int viewCentre, int imageSide, int outerSide) noexcept {
    if (isActualSize(zoom)) {
        int origin = truncateToCoordinate(viewCentre - imageSide * zoom * 0.5) + 1;
        if (outerSide % 2 == 0) --origin;
        return wrappingAdd(origin + 1, image);
    }
    return truncateToCoordinate(viewCentre - (imageSide / 2) * zoom + image * zoom);
}

/// Moves one coordinate of the view centre if the image then still covers the axis.
void panAxis(ImageDocument& document, bool overflows, int& viewCentre, int distance, int IntRect::*origin,
             int IntRect::*extent, int viewSide) noexcept {
    if (!overflows) return;
    const int before = viewCentre;
    viewCentre += distance;
    const IntRect r = document.imageRect();
    if (!(r.*origin < 1 && r.*origin + r.*extent > viewSide)) viewCentre = before;
}

}  // namespace

void zoomIn(ImageDocument& document) noexcept {
    if (document.view.zoom < kLargestZoom) changeZoom(document, document.view.zoom * kZoomStep);
}

void zoomOut(ImageDocument& document) noexcept {
    if (document.view.zoom > kSmallestZoom) changeZoom(document, document.view.zoom * kInverseZoomStep);
}

void setZoom(ImageDocument& document, double requested) noexcept {
    const double inForce = document.view.zoom;
    changeZoom(document, inForce < kSmallestZoom  ? kSmallestZoom
                         : inForce > kLargestZoom ? kLargestZoom
                                                  : requested);
}

void zoomToFit(ImageDocument& document) noexcept { document.view.zoomToFit(document.size()); }

IntPoint windowToImage(const ImageDocument& document, double zoom, IntPoint window) noexcept {
    const ViewState& view = document.view;
    return {windowToImageAxis(zoom, window.x, view.viewCentreX, document.width()),
            windowToImageAxis(zoom, window.y, view.viewCentreY, document.height())};
}

IntPoint imageToWindow(const ImageDocument& document, double zoom, IntPoint image,
                       IntSize outerSize) noexcept {
    const ViewState& view = document.view;
    return {imageToWindowAxis(zoom, image.x, view.viewCentreX, document.width(), outerSize.width),
            imageToWindowAxis(zoom, image.y, view.viewCentreY, document.height(), outerSize.height)};
}

void beginPan(ImageDocument& document, IntPoint mouse) noexcept {
    if (document.isEmpty()) return;
    ViewState& view = document.view;
    document.updateOverflow();
    if (!view.overflowX && !view.overflowY) return;
    view.panAnchorX = mouse.x;
    view.panAnchorY = mouse.y;
}

bool panTo(ImageDocument& document, IntPoint mouse) noexcept {
    ViewState& view = document.view;
    const bool dragging = view.panAnchorX >= 0 && view.panAnchorY >= 0;
    if ((!view.overflowX && !view.overflowY) || !dragging) return dragging;
    panAxis(document, view.overflowX, view.viewCentreX, mouse.x - view.panAnchorX, &IntRect::x,
            &IntRect::width, view.viewWidth);
    panAxis(document, view.overflowY, view.viewCentreY, mouse.y - view.panAnchorY, &IntRect::y,
            &IntRect::height, view.viewHeight);
    view.panAnchorX = mouse.x;
    view.panAnchorY = mouse.y;
    return view.panAnchorX >= 0 && view.panAnchorY >= 0;
}

void endPan(ImageDocument& document) noexcept { document.view.panAnchorX = document.view.panAnchorY = -1; }

void scrollTo(ImageDocument& document, IntPoint image) noexcept {
    ViewState& view = document.view;
    const int centreX = truncateToCoordinate((double(document.width() / 2) - image.x) * view.zoom);
    const int centreY = truncateToCoordinate((double(document.height() / 2) - image.y) * view.zoom);
    if (view.overflowX || !view.overflowY) view.viewCentreX = centreX;
    if (view.overflowY) view.viewCentreY = centreY;
}

}  // namespace orvane
