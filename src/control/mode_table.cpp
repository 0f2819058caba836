#include "control/mode_table.h"

#include <array>

#include "control/paint_mode.h"
#include "control/vistrel_control.h"
#include "geometry/free_rotation.h"
#include "view/view_mapping.h"

namespace orvane {
namespace {

using Control = VistrelControl;

PaintTool& activeTool(Control& control) { return *control.tools.ofMode(control.paintStatus); }

bool isInClientArea(const Control& control, IntPoint mouse) {
    return IntRect{0, 0, control.document.view.viewWidth, control.document.view.viewHeight}.contains(mouse);
}

// --- the left button goes down ---

void pressTool(Control& control, IntPoint mouse) {
    activeTool(control).OnMouseDown(MouseButton::Left, mouse);
}

// A new figure follows the mouse outside the window too.
void pressFigure(Control& control, IntPoint mouse) {
    pressTool(control, mouse);
    if (activeTool(control).awaitsSecondPoint()) control.captureMouse();
}

void extendStroke(Control& control, IntPoint mouse) { activeTool(control).AppendPoint(mouse); }

void extendStrokeAndShow(Control& control, IntPoint mouse) {
    extendStroke(control, mouse);
    control.refresh();
}

void pressTrackPoint(Control& control, IntPoint mouse) {
    pressTool(control, mouse);
    if (control.tools.trackPoint.isGrabbed()) control.fireAt(EventId::OnTrackPointMouseDown, mouse);
}

void pressRightOnTool(Control& control, IntPoint mouse) {
    activeTool(control).OnMouseDown(MouseButton::Right, mouse);
    control.refresh();
}

// --- the mouse moves with the left button held ---

void dragTool(Control& control, IntPoint mouse) {
    if (activeTool(control).OnMouseMove(mouse)) control.refresh();
}

void dragSpray(Control& control, IntPoint mouse) {
    control.tools.spray.OnMouseMove(mouse);
    control.tools.spray.burst();
    control.refresh();
}

void dragTrackPoint(Control& control, IntPoint mouse) {
    if (!control.tools.trackPoint.OnMouseMove(mouse)) return;
    control.fireAt(EventId::OnTrackPointMouseMove, mouse);
    control.refresh();
}

// --- free rotation: the bar has it all ---

void pressRotationBar(Control& control, IntPoint mouse) {
    RotationBar& bar = control.rotationBar;
    bar.press(mouse);
    const bool applies = bar.applyHit(mouse);
    if (!applies && !bar.cancelHit(mouse)) return;
    if (applies) applyRotation(control.document);
    control.SetPaintStatus(PaintMode::None);
    control.updateToolBounds();
    control.refresh();
    control.fire(applies ? EventId::OnHitApplyRotate : EventId::OnHitCancelRotate);
}

void dragRotationBar(Control& control, IntPoint mouse) {
    if (!control.rotationBar.drag(mouse)) return;
    control.document.rotationAngle = float(control.rotationBar.angle());
    control.refresh();
}

void releaseRotationBar(Control& control, IntPoint) { control.rotationBar.release(); }

void hoverRotationBar(Control& control, IntPoint mouse) {
    if (control.rotationBar.hover(mouse)) control.refresh();
}

void drawRotationBar(Control& control, MutablePixelView view) { control.rotationBar.draw(view); }

// --- the left button goes up ---

void releaseTool(Control& control, IntPoint mouse) { activeTool(control).OnMouseUp(mouse); }

void releaseFigure(Control& control, IntPoint mouse) {
    if (!activeTool(control).placed) control.releaseMouse();
    releaseTool(control, mouse);
}

void releaseStroke(Control& control, IntPoint) {
    control.commit(activeTool(control));
    activeTool(control).Reset();
}

void releaseRedEye(Control& control, IntPoint mouse) {
    releaseTool(control, mouse);
    releaseStroke(control, mouse);
}

void releaseSpray(Control& control, IntPoint mouse) {
    releaseTool(control, mouse);
    control.commit(activeTool(control));
}

void releaseTrackPoint(Control& control, IntPoint mouse) {
    TrackPointTool& tool = control.tools.trackPoint;
    if (tool.isGrabbed()) control.fireAt(EventId::OnTrackPointMouseUp, mouse);
    tool.OnMouseUp(mouse);
}

// --- the mouse moves over the window ---

void hoverTool(Control& control, IntPoint mouse) {
    control.setToolCursor(activeTool(control).HitCursor(mouse));
}

template <CursorId Cursor>
void hoverClientArea(Control& control, IntPoint mouse) {
    control.setToolCursor(isInClientArea(control, mouse) ? Cursor : CursorId::Arrow);
}

// The nib's marker follows the mouse.
void hoverNib(Control& control, IntPoint mouse) {
    hoverClientArea<CursorId::Brush>(control, mouse);
    control.refresh();
}

// --- what a redraw shows over the picture ---

void drawTool(Control& control, MutablePixelView view) { activeTool(control).Draw(view); }

void drawStamp(Control& control, MutablePixelView view) {
    ImageStampTool& stamp = control.tools.imageStamp;
    control.showsActualSize() ? stamp.Draw(view) : stamp.DrawScaled(view);
}

// What the stroke has drawn for good lies in the view already.
void drawNib(Control& control, MutablePixelView view) {
    StrokeTool& stroke = *control.tools.strokeOfMode(control.paintStatus);
    stroke.drawBeyondTrail(view);
    stroke.drawMarker(view, control.window->pointerPosition());
}

// --- the modes, in families ---

constexpr ModeRules figure(int mode) {
    return {.mode = mode,
            .leftDown = pressFigure,
            .drag = dragTool,
            .leftUp = releaseFigure,
            .hoverNoButton = hoverTool,
            .overlay = drawTool,
            .acceptCommits = true};
}

constexpr ModeRules vertexList(int mode) {
    return {.mode = mode,
            .leftDown = pressTool,
            .drag = dragTool,
            .leftUp = releaseTool,
            .hoverNoButton = hoverTool,
            .rightDown = pressRightOnTool,
            .overlay = drawTool,
            .acceptCommits = true};
}

constexpr ModeRules draggedBox(int mode, ModeRules::Overlay overlay) {
    return {.mode = mode,
            .leftDown = pressTool,
            .drag = dragTool,
            .leftUp = releaseTool,
            .hoverNoButton = hoverTool,
            .overlay = overlay,
            .acceptCommits = true};
}

constexpr ModeRules withoutCommit(ModeRules rules) {
    rules.acceptCommits = false;
    return rules;
}

constexpr ModeRules withoutRightButton(ModeRules rules) {
    rules.rightDown = nullptr;
    return rules;
}

constexpr ModeRules nib(int mode) {
    return {.mode = mode,
            .leftDown = extendStrokeAndShow,
            .drag = extendStrokeAndShow,
            .leftUp = releaseStroke,
            .hover = hoverNib,
            .overlay = drawNib};
}

constexpr std::array<ModeRules, 22> kModes{{
    {.mode = PaintMode::None},
    figure(PaintMode::Line),
    vertexList(PaintMode::Polyline),
    {.mode = PaintMode::Pencil,
     .leftDown = extendStroke,
     .drag = extendStrokeAndShow,
     .leftUp = releaseStroke,
     .hover = hoverClientArea<CursorId::Pencil>,
     .overlay = drawTool},
    vertexList(PaintMode::Curve),
    vertexList(PaintMode::ClosedCurve),
    figure(PaintMode::Arc),
    {.mode = PaintMode::Spray,
     .leftDown = pressTool,
     .drag = dragSpray,
     .leftUp = releaseSpray,
     .hover = hoverClientArea<CursorId::Spray>,
     .overlay = drawTool},
    figure(PaintMode::Ellipse),
    figure(PaintMode::Pie),
    vertexList(PaintMode::Polygon),
    figure(PaintMode::Rectangle),
    nib(PaintMode::Brush),
    withoutRightButton(vertexList(PaintMode::Bezier)),
    draggedBox(PaintMode::Text, drawTool),
    nib(PaintMode::Eraser),
    draggedBox(PaintMode::ImageStamp, drawStamp),
    figure(PaintMode::Crop),
    withoutCommit(figure(PaintMode::Selection)),
    {.mode = PaintMode::RedEye,
     .leftDown = pressTool,
     .drag = dragTool,
     .leftUp = releaseRedEye,
     .overlay = drawTool},
    {.mode = PaintMode::Rotation,
     .leftDown = pressRotationBar,
     .drag = dragRotationBar,
     .leftUp = releaseRotationBar,
     .hover = hoverRotationBar,
     .overlay = drawRotationBar},
    {.mode = PaintMode::TrackPoint,
     .leftDown = pressTrackPoint,
     .drag = dragTrackPoint,
     .leftUp = releaseTrackPoint,
     .overlay = drawTool},
}};

constexpr bool isInOrder() {
    for (int mode = 0; mode < int(kModes.size()); ++mode) {
        if (kModes[std::size_t(mode)].mode != mode) return false;
    }
    return true;
}
static_assert(isInOrder());

constexpr ModeRules kNoRules{.mode = -1};

}  // namespace

const ModeRules& rulesOf(int mode) noexcept {
    return mode >= 0 && mode < int(kModes.size()) ? kModes[std::size_t(mode)] : kNoRules;
}

}  // namespace orvane
