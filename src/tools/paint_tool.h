#pragma once

#include <orvane/geometry.h>
#include <orvane/pixels.h>
#include <orvane/window_services.h>

#include "document/image_document.h"
#include "tools/brush_settings.h"
#include "tools/pen_settings.h"
#include "tools/point_map.h"

namespace orvane {

/// Which button a press came from, with the numbers that the tools are told.
enum class MouseButton { Left = 0, Right = 2 };

/// An unset coordinate, and no handle.
inline constexpr int kUnset = -1;
inline constexpr IntPoint kUnsetPoint{kUnset, kUnset};

/// One interactive paint mode: collects a gesture in window pixels, shows the pending result over the view,
/// and draws it into the image when it is committed. A tool lives as long as its control, whose pen and brush
/// it uses. Nothing throws; what memory does not suffice for is left out.
///
///     Reset -> OnMouseDown -> OnMouseMove ... -> OnMouseUp (placed) -> edits -> commit -> Reset
class PaintTool {
 public:
    PaintTool(const PenSettings& sharedPen, BrushSettings& sharedBrush) noexcept
        : pen(sharedPen), brush(sharedBrush) {}
    virtual ~PaintTool() = default;
    PaintTool(const PaintTool&) = delete;
    PaintTool& operator=(const PaintTool&) = delete;

    /// Forgets the pending gesture. Overriders call this one first.
    virtual void Reset() noexcept {
        activeHandle = kUnset;
        placed = false;
    }
    virtual void OnMouseDown(MouseButton button, IntPoint mouse) noexcept = 0;
    /// Answers whether the overlay changed.
    virtual bool OnMouseMove(IntPoint mouse) noexcept = 0;
    virtual void OnMouseUp(IntPoint mouse) noexcept = 0;
    /// Draws the pending result and its handles over a picture of the client area.
    virtual void Draw(MutablePixelView view) noexcept = 0;

    /// The cursor over this point while no button is held.
    [[nodiscard]] virtual CursorId HitCursor(IntPoint /*mouse*/) const noexcept { return CursorId::Arrow; }
    /// Asked after a press: whether a new figure is being laid out, whose drag is followed outside the window
    /// too.
    [[nodiscard]] virtual bool awaitsSecondPoint() const noexcept { return false; }
    /// Adds a point to a stroke; answers whether the stroke changed.
    virtual bool AppendPoint(IntPoint /*point*/) noexcept { return false; }

    /// Whether there is a pending result that a commit on the host's command would draw.
    [[nodiscard]] virtual bool holdsResult() const noexcept { return false; }
    /// Draws the pending result into the image as one history step and resets the tool; a result that is
    /// not complete stays pending and the image as it is.
    virtual void commit(ImageDocument& /*document*/, PointMap /*toImage*/) noexcept {}
    /// Moves what is pending to where it belongs after a zoom change.
    virtual void reproject(PointMap /*toNewZoom*/) noexcept {}

    int activeHandle = kUnset;  ///< the handle or vertex being dragged
    bool placed = false;        ///< the first gesture is complete; drags now edit its result
    const PenSettings& pen;
    BrushSettings& brush;
    IntRect bounds;           ///< the client area: where points are accepted
    bool showHandles = true;  ///< draw grab handles
};

}  // namespace orvane
