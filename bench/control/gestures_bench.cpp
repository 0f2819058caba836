// What a mouse move of a drawing gesture costs, with its whole redraw, against a plain redraw of the same
// view.
#include <cstdio>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include <orvane/headless_window.h>

#include "control/paint_mode.h"
#include "control/vistrel_control.h"
#include "support/photograph.h"
#include "support/ratio_timer.h"
#include "view/view_mapping.h"

namespace {

using namespace orvane;
using namespace orvane::bench;

constexpr IntSize kPicture{6000, 4000}, kView{1600, 1000};
constexpr IntPoint kCorner{500, 300};
constexpr IntSize kShape{300, 200};
constexpr MouseButtons kLeft{.left = true};

struct Gesture {
    const char* name;
    int mode;
    void (*start)(VistrelControl&);
};

void startBox(VistrelControl& control) { control.onLeftDown(kCorner.x, kCorner.y); }

// Vertices around the area of a shape; the last one is then dragged.
template <std::size_t N>
void click(VistrelControl& control, const IntPoint (&vertices)[N]) {
    for (const IntPoint vertex : vertices) {
        const IntPoint mouse{kCorner.x + vertex.x, kCorner.y + vertex.y};
        control.onLeftDown(mouse.x, mouse.y);
        control.onLeftUp(mouse.x, mouse.y);
    }
    control.onLeftDown(kCorner.x + kShape.width, kCorner.y + kShape.height);
}

void clickVertices(VistrelControl& control) {
    click(control, {{0, 60}, {90, 190}, {140, 0}, {260, 80}, {kShape.width, kShape.height}});
}

// As areas are outlined: without crossing.
void clickAround(VistrelControl& control) {
    click(control, {{20, 150}, {0, 40}, {120, 0}, {270, 30}, {kShape.width, kShape.height}});
}

constexpr int kStrokeLength = 500;

IntPoint strokePoint(int i) { return {kCorner.x + i % 300, kCorner.y + i / 3}; }

void startStroke(VistrelControl& control) {
    for (int i = 0; i <= kStrokeLength; ++i) {
        const IntPoint mouse = strokePoint(i);
        i == 0 ? control.onLeftDown(mouse.x, mouse.y) : control.onMouseMove(mouse.x, mouse.y, kLeft);
    }
}

const Gesture kGestures[] = {
    {"line", PaintMode::Line, startBox},
    {"polyline", PaintMode::Polyline, clickVertices},
    {"pencil, 500 points", PaintMode::Pencil, startStroke},
    {"curve", PaintMode::Curve, clickVertices},
    {"closed curve", PaintMode::ClosedCurve, clickAround},
    {"crossing closed curve", PaintMode::ClosedCurve, clickVertices},
    {"arc", PaintMode::Arc, startBox},
    {"ellipse", PaintMode::Ellipse, startBox},
    {"pie", PaintMode::Pie, startBox},
    {"polygon", PaintMode::Polygon, clickAround},
    {"crossing polygon", PaintMode::Polygon, clickVertices},
    {"rectangle", PaintMode::Rectangle, startBox},
    {"brush, 500 points", PaintMode::Brush, startStroke},
    {"Bezier", PaintMode::Bezier, clickVertices},
    {"eraser, 500 points", PaintMode::Eraser, startStroke},
};

// The far corner wanders, so that every move changes the shape.
IntPoint nextCorner(int& count) {
    ++count;
    return {kCorner.x + kShape.width + count % 7, kCorner.y + kShape.height + count % 5};
}

// What a control of its own redraws plainly meanwhile: the one that is drawn on keeps what it has of the
// gesture.
void measure(VistrelControl& control, VistrelControl& plain, const std::string& where,
             const Gesture& gesture) {
    control.SetPaintStatus(gesture.mode);
    control.ResetAllTools();
    gesture.start(control);
    const bool grows = gesture.start == startStroke;
    int count = 0;
    const auto move = [&] {
        const IntPoint mouse = grows ? strokePoint(kStrokeLength + ++count) : nextCorner(count);
        control.onMouseMove(mouse.x, mouse.y, kLeft);
    };
    const auto refresh = [&] { plain.refresh(); };
    // Samples are long enough for each control to warm its own caches, and few where a stroke grows with
    // each move.
    const RatioEffort effort = grows ? RatioEffort{3, 5, 5.0} : RatioEffort{5, 5, 15.0};
    printRatioRow((where + gesture.name).c_str(), measureRatio(move, refresh, effort));
    control.onLeftUp(0, 0);
    control.document.undo();
}

// The whole stroke, so that a cost that grows with its length would show.
void measureLongStrokes(VistrelControl& control) {
    std::puts("\nStrokes of 10,000 points, ms for each thousand of them and for the release");
    for (const int mode : {PaintMode::Brush, PaintMode::Eraser, PaintMode::Pencil}) {
        control.SetPaintStatus(mode);
        control.onLeftDown(100, 100);
        std::printf("mode %2d:", mode);
        int i = 0;
        auto move = [&] {
            ++i;
            control.onMouseMove(100 + (i * 7) % 1400, 100 + (i * 3) % 800 + i % 5, kLeft);
        };
        for (int thousand = 0; thousand < 10; ++thousand)
            std::printf(" %7.1f", 1000 * millisecondsPerCall(move, 1000));
        auto release = [&] { control.onLeftUp(100, 100); };
        std::printf(" | %7.1f\n", millisecondsPerCall(release, 1));
        control.document.undo();
    }
}

// A control in a window, with a photograph in it.
struct Editor {
    HeadlessWindow window{kView.width, kView.height};
    VistrelControl control{&window};

    [[nodiscard]] bool load(std::span<const Argb> photo) {
        control.onSize(kView.width, kView.height);
        const auto bytes = std::as_bytes(photo);
        const std::span pixels(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
        return control.document.loadPixels(pixels, kPicture.width, kPicture.height);
    }
    void zoomTo(double zoom) { zoom == 0.0 ? zoomToFit(control.document) : setZoom(control.document, zoom); }
};

/// What shapes are drawn with: as a control begins, and what takes longer.
struct Look {
    const char* name;
    float penWidth;
    int brushStyle;
};
constexpr Look kLooks[] = {{"pen 1, solid", 1, BrushSettings::Solid},
                           {"pen 3, gradient", 3, BrushSettings::Gradient}};

}  // namespace

// An argument picks the gestures whose names contain it, without the long strokes.
int main(int count, char** arguments) {
    const std::string_view wanted = count > 1 ? arguments[1] : "";
    Editor editor, plain;
    {
        const std::vector<Argb> photo = photograph(kPicture.width, kPicture.height);
        if (!editor.load(photo) || !plain.load(photo)) return 1;
    }
    std::puts("A move of a gesture and its redraw / a plain redraw");
    printRatioHeader();
    for (const Look& look : kLooks) {
        editor.control.pen.width = look.penWidth;
        editor.control.brush.style = look.brushStyle;
        for (const double zoom : {0.0, 1.0}) {
            editor.zoomTo(zoom);
            plain.zoomTo(zoom);
            const std::string where = look.name + std::string(zoom == 0.0 ? ", fit: " : ", zoom 1: ");
            for (const Gesture& gesture : kGestures) {
                if (std::string_view(gesture.name).find(wanted) == std::string_view::npos) continue;
                measure(editor.control, plain.control, where, gesture);
            }
        }
    }
    if (wanted.empty()) measureLongStrokes(editor.control);
    return 0;
}
