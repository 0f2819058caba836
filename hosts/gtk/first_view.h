#pragma once

#include <orvane/geometry.h>

namespace orvane::gtk {

/// A picture that is loaded is fitted into the view. A widget has no view before it is shown for the first
/// time, so what was loaded until then is fitted when it gets one, unless the host has chosen a zoom
/// meanwhile.
class FirstView {
 public:
    /// The view that counts until there is one; as large as that of a control in memory.
    static constexpr int kAssumedWidth = 640, kAssumedHeight = 480;

    /// A method was called, by its dispatch identifier.
    void noteCall(int id) noexcept {
        switch (id) {
            case kLoadImage:
            case kLoadFromImageArray:
                fitPending_ = true;
                break;
            case kNewImage:
            case kZoomIn:
            case kZoomOut:
            case kActialSize:
            case kZoomToFit:
                fitPending_ = false;
                break;
            default:
                break;
        }
    }
    [[nodiscard]] bool hasBegun() const noexcept { return begun_; }
    /// The widget has a view: whether the picture is to be fitted as by a load. True at most once. A view too
    /// small to fit anything into, such as that of a closed pane, does not count.
    [[nodiscard]] bool begin(IntSize view) noexcept {
        if (begun_ || view.width <= kFitMargin || view.height <= kFitMargin) return false;
        begun_ = true;
        return fitPending_;
    }

    static constexpr int kActialSize = 0x25, kZoomToFit = 0x26;

 private:
    static constexpr int kFitMargin = 8;  ///< what a fit leaves free in each direction
    static constexpr int kLoadImage = 0x01, kZoomIn = 0x22, kZoomOut = 0x23, kNewImage = 0x58,
                         kLoadFromImageArray = 0x77;

    bool fitPending_ = false, begun_ = false;
};

}  // namespace orvane::gtk
