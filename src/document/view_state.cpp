#include "document/view_state.h"

#include "base/truncate.h"

namespace orvane {

IntRect ViewState::imageRect(IntSize image) const noexcept {
    return {truncateToCoordinate(viewCentreX - image.width * zoom * 0.5) + 1,
            truncateToCoordinate(viewCentreY - image.height * zoom * 0.5) + 1,
            truncateToCoordinate(image.width * zoom), truncateToCoordinate(image.height * zoom)};
}

void ViewState::updateOverflow(IntSize image) noexcept {
    const IntRect r = imageRect(image);
    overflowX = !(r.x >= 0 && r.right() < viewWidth);
    overflowY = !(r.y >= 0 && r.bottom() < viewHeight);
}

void ViewState::centreView() noexcept {
    viewCentreX = viewWidth / 2;
    viewCentreY = viewHeight / 2;
}

void ViewState::zoomToFit(IntSize image) noexcept {
    if (image.width < 1 || image.height < 1) return;
    centreView();
    previousZoom = zoom;
    zoom = double(viewWidth - 8) / image.width;
    if (viewCentreY - image.height * zoom * 0.5 < 4.0) zoom = double(viewHeight - 8) / image.height;
    updateOverflow(image);
}

void ViewState::setViewSize(IntSize newView, IntSize image) noexcept {
    viewWidth = newView.width;
    viewHeight = newView.height;
    centreView();
    updateOverflow(image);
}

void ViewState::showLoadedImage(IntSize image) noexcept {
    centreView();
    zoom = 1.0;
    if (image.width >= viewWidth || image.height >= viewHeight) {
        zoomToFit(image);
    } else {
        updateOverflow(image);
    }
}

}  // namespace orvane
