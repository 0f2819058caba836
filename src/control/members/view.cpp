// How the picture is shown: zoom, colours around it, redraws.
#include "control/members/access.h"
#include "view/view_mapping.h"

namespace orvane::members {
namespace {

using enum ValueType;
using Kind = Member::Kind;

void zoomToActualSize(ImageDocument& document) noexcept { setZoom(document, 1.0); }

template <void (*Operation)(ImageDocument&) noexcept>
Value zoom(VistrelControl& control, Arguments) {
    Operation(control.document);
    if (control.paintStatus != 0) control.reprojectToolGeometry();
    control.updateToolBounds();
    control.refresh();
    return {};
}

Value beginUpdate(VistrelControl& control, Arguments) {
    control.updateLocked = true;
    return {};
}

Value endUpdate(VistrelControl& control, Arguments) {
    control.updateLocked = false;
    control.refresh();
    return {};
}

constexpr Member kRows[] = {
    {.id = 0x22, .name = "ZoomIn", .help = "Enlarges the view by a tenth.", .call = zoom<&zoomIn>},
    {.id = 0x23, .name = "ZoomOut", .help = "Shrinks the view by the same step.", .call = zoom<&zoomOut>},
    {.id = 0x24,
     .name = "Zoom",
     .kind = Kind::ReadOnlyProperty,
     .type = Double,
     .help = "Window pixels per image pixel.",
     .range = "initially 1",
     .get = [](const VistrelControl& control) { return Value(control.document.view.zoom); }},
    {.id = 0x25,
     .name = "ActialSize",
     .help = "Shows one image pixel per window pixel.",
     .call = zoom<&zoomToActualSize>},
    {.id = 0x26, .name = "ZoomToFit", .help = "Fits the picture into the window.", .call = zoom<&zoomToFit>},
    {.id = 0x4A, .name = "BeginUpdate", .help = "Holds redraws back until EndUpdate.", .call = beginUpdate},
    {.id = 0x4B, .name = "EndUpdate", .help = "Ends BeginUpdate and redraws once.", .call = endUpdate},
    {.id = 0x4E,
     .name = "ScrollWindowVisible",
     .kind = Kind::Property,
     .type = Boolean,
     .help = "Whether the overview panel shows when the picture does not fit.",
     .range = "initially true",
     .get = Stored<&VistrelControl::scrollWindow, &ScrollWindow::visible>::get,
     .put = Stored<&VistrelControl::scrollWindow, &ScrollWindow::visible>::put},
    {.id = 0x4F,
     .name = "ScrollWindowColor",
     .kind = Kind::Property,
     .type = Color,
     .help = "Colour of the overview panel.",
     .range = "drawn half transparent; initially grey",
     .get = TranslucentColour<&VistrelControl::scrollWindow, &ScrollWindow::colour>::get,
     .put = [](VistrelControl& control,
               const Value& v) { control.scrollWindow.colour = panelFromOle(v.color().bgr); },
     .rule = {.refresh = Refresh::WhenScrollWindowShows}},
    {.id = 0x5A,
     .name = "FrameColor",
     .kind = Kind::Property,
     .type = Color,
     .help = "Colour of the frame around the picture.",
     .range = "initially light grey",
     .get = OpaqueColour<&VistrelControl::document, &ImageDocument::frameColor>::get,
     .put = OpaqueColour<&VistrelControl::document, &ImageDocument::frameColor>::put},
    {.id = 0x5B,
     .name = "BackColor1",
     .kind = Kind::Property,
     .type = Color,
     .help = "Colour of the area around the picture.",
     .range = "initially dark blue",
     .get =
         [](const VistrelControl& control) {
             return Value(ColorValue{oleFromArgb(control.backgroundColor)});
         },
     .put = [](VistrelControl& control,
               const Value& v) { control.backgroundColor = opaqueFromOle(v.color().bgr); }},
};

}  // namespace

std::span<const Member> viewMembers() noexcept { return kRows; }

}  // namespace orvane::members
