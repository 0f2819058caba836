// The picture itself: files, arrays, blank pictures, history, geometry, clipboard.
#include "base/unicode.h"
#include "control/clipboard_exchange.h"
#include "control/members/access.h"
#include "control/paint_mode.h"
#include "geometry/rotate_flip.h"
#include "geometry/scale_image.h"

namespace orvane::members {
namespace {

using enum ValueType;
using Kind = Member::Kind;

Value loadImage(VistrelControl& control, Arguments arguments) {
    const auto path = utf8FromUtf16(arguments[0].string());
    // A path that no file can have is a file that is not there: the document ends up empty.
    if (!control.document.loadImage(path.value_or(std::string()))) return false;
    control.updateToolBounds();
    control.ResetAllTools();
    control.refresh();
    return true;
}

Value saveImage(VistrelControl& control, Arguments arguments) {
    const auto path = utf8FromUtf16(arguments[0].string());
    return path && control.document.saveImage(*path, arguments[1].number());
}

Value getImageArray(VistrelControl& control, Arguments) {
    auto array = control.document.imageArray();
    return array ? Value(std::move(*array)) : Value();
}

Value loadFromImageArray(VistrelControl& control, Arguments arguments) {
    if (arguments[0].isNone()) return false;
    const bool loaded =
        control.document.loadPixels(arguments[0].bytes(), arguments[1].number(), arguments[2].number());
    control.refresh();
    return loaded;
}

Value newImage(VistrelControl& control, Arguments arguments) {
    control.document.newImage(arguments[0].number(), arguments[1].number());
    control.updateToolBounds();
    control.ResetAllTools();
    control.refresh();
    return {};
}

Value empty(VistrelControl& control, Arguments) {
    control.document.clearDocument();
    control.refresh();
    return {};
}

template <void (ImageDocument::*Step)() noexcept>
Value historyStep(VistrelControl& control, Arguments) {
    (control.document.*Step)();
    control.updateToolBounds();
    control.refresh();
    return {};
}

Value turn(VistrelControl& control, Arguments arguments) {
    rotateFlip(control.document, arguments[0].number());
    control.updateToolBounds();
    control.refresh();
    return {};
}

Value scale(VistrelControl& control, Arguments arguments) {
    scaleImage(control.document, arguments[0].real(), arguments[1].real());
    control.updateToolBounds();
    control.refresh();
    return {};
}

Value selectAll(VistrelControl& control, Arguments) {
    if (control.document.isEmpty()) return {};
    control.SetPaintStatus(PaintMode::Selection);
    const IntRect shown = control.document.imageRect();
    control.tools.selection.corner1 = {shown.x, shown.y};
    control.tools.selection.corner2 = {shown.right(), shown.bottom()};
    return {};
}

Value copy(VistrelControl& control, Arguments) {
    const SelectionTool& selection = control.tools.selection;
    if (selection.isUnset()) return {};
    copySelection(control, selection.corner1, selection.corner2);
    return {};
}

Value cut(VistrelControl& control, Arguments) {
    SelectionTool& selection = control.tools.selection;
    if (selection.isUnset()) return {};
    if (cutSelection(control, selection.corner1, selection.corner2)) selection.Reset();
    return {};
}

Value paste(VistrelControl& control, Arguments) {
    if (control.document.isEmpty()) return {};
    PixelSurface picture = pictureOnClipboard(control);
    // While the clipboard's owner was waited for, the host may have dropped the image.
    if (!picture.isNull() && !control.document.isEmpty()) control.placeStamp(std::move(picture));
    return {};
}

constexpr Member kRows[] = {
    {.id = 0x01,
     .name = "LoadImage",
     .type = Boolean,
     .help = "Loads a BMP, JPEG, PNG, GIF, TIFF or WebP file; false leaves the control empty.",
     .parameters = {{"FileName", String, "path of the file"}},
     .call = loadImage},
    {.id = 0x04,
     .name = "Undo",
     .help = "Takes the last change back.",
     .call = historyStep<&ImageDocument::undo>},
    {.id = 0x05,
     .name = "Redo",
     .help = "Makes a change again that was taken back.",
     .call = historyStep<&ImageDocument::redo>},
    {.id = 0x1B,
     .name = "SaveImage",
     .type = Boolean,
     .help = "Writes the picture to a file; false leaves an existing file as it was.",
     .parameters = {{"FileName", String, "path of the file; its extension is not looked at"},
                    {"nType", Long, "0 BMP, 1 JPEG, 2 GIF, 3 TIFF, 4 PNG"}},
     .call = saveImage},
    {.id = 0x1C,
     .name = "JpegQuality",
     .kind = Kind::Property,
     .type = Long,
     .help = "Quality of saved JPEG files.",
     .range = "0 to 100, clamped; initially 90",
     .get = [](const VistrelControl& control) { return Value(control.document.jpegQuality); },
     .put = [](VistrelControl& control, const Value& v) { control.document.setJpegQuality(v.number()); },
     .rule = {0, 100, OutOfRange::Clamp, Refresh::Never}},
    {.id = 0x2A,
     .name = "RotateFlip",
     .help = "Turns the picture by quarters and mirrors it.",
     .parameters = {{"nType", Long, "0 to 3 quarter turns clockwise, plus 4 mirrors left and right"}},
     .call = turn},
    {.id = 0x43, .name = "Copy", .help = "Copies the selection to the clipboard.", .call = copy},
    {.id = 0x44, .name = "Paste", .help = "Places the clipboard's picture as an image stamp.", .call = paste},
    {.id = 0x45, .name = "Cut", .help = "Copies the selection to the clipboard and fills it.", .call = cut},
    {.id = 0x46, .name = "SelectAll", .help = "Selects the whole picture.", .call = selectAll},
    {.id = 0x49,
     .name = "ScaleImage",
     .help = "Scales the picture.",
     .parameters = {{"ScaleX", Double, "factor in width"}, {"ScaleY", Double, "factor in height"}},
     .call = scale},
    {.id = 0x4C, .name = "Empty", .help = "Drops the picture and its history.", .call = empty},
    {.id = 0x58,
     .name = "NewImage",
     .help = "Starts a blank picture in BitmapBackColor.",
     .parameters = {{"Width", Long, "pixels, from 4"}, {"Height", Long, "pixels, from 4"}},
     .call = newImage},
    {.id = 0x59,
     .name = "BitmapBackColor",
     .kind = Kind::Property,
     .type = Color,
     .help = "Colour of blank pictures.",
     .range = "initially white",
     .get = OpaqueColour<&VistrelControl::document, &ImageDocument::bitmapBackColor>::get,
     .put = OpaqueColour<&VistrelControl::document, &ImageDocument::bitmapBackColor>::put},
    {.id = 0x66,
     .name = "Modified",
     .kind = Kind::ReadOnlyProperty,
     .type = Boolean,
     .help = "Whether the picture has changed since it was made, loaded or saved.",
     .get = [](const VistrelControl& control) { return Value(control.document.modified); }},
    {.id = 0x67,
     .name = "IsClipboardAvailable",
     .kind = Kind::ReadOnlyProperty,
     .type = Boolean,
     .help = "Whether the clipboard offers a picture.",
     .get = [](const VistrelControl& control) { return Value(isPictureOnClipboard(control)); }},
    {.id = 0x68,
     .name = "IsEmpty",
     .kind = Kind::ReadOnlyProperty,
     .type = Boolean,
     .help = "Whether there is no picture.",
     .get = [](const VistrelControl& control) { return Value(control.document.isEmpty()); }},
    {.id = 0x69,
     .name = "ImageWidth",
     .kind = Kind::ReadOnlyProperty,
     .type = Long,
     .help = "Width of the picture.",
     .range = "pixels; 0 when empty",
     .get = [](const VistrelControl& control) { return Value(control.document.width()); }},
    {.id = 0x6A,
     .name = "ImageHeight",
     .kind = Kind::ReadOnlyProperty,
     .type = Long,
     .help = "Height of the picture.",
     .range = "pixels; 0 when empty",
     .get = [](const VistrelControl& control) { return Value(control.document.height()); }},
    {.id = 0x6B,
     .name = "UndoEnable",
     .kind = Kind::ReadOnlyProperty,
     .type = Boolean,
     .help = "Whether there is a change to take back.",
     .get = [](const VistrelControl& control) { return Value(control.document.undoEnabled()); }},
    {.id = 0x6C,
     .name = "RedoEnable",
     .kind = Kind::ReadOnlyProperty,
     .type = Boolean,
     .help = "Whether there is a change to make again.",
     .get = [](const VistrelControl& control) { return Value(control.document.redoEnabled()); }},
    {.id = 0x6D,
     .name = "CopyCutAvailable",
     .kind = Kind::ReadOnlyProperty,
     .type = Boolean,
     .help = "Whether there is a selection to copy or cut.",
     .get =
         [](const VistrelControl& control) {
             return Value(control.paintStatus == PaintMode::Selection && control.tools.selection.placed);
         }},
    {.id = 0x76,
     .name = "GetImageArray",
     .type = ByteArray,
     .help = "The pixels as bytes B, G, R, A, top row first; null when empty. Costs one step, undone again.",
     .call = getImageArray},
    {.id = 0x77,
     .name = "LoadFromImageArray",
     .type = Boolean,
     .help = "Takes over pixels given as bytes B, G, R, A, top row first.",
     .parameters = {{"pArray", ByteArray, "at least Width x Height x 4 bytes"},
                    {"Width", Long, "pixels, from 2"},
                    {"Height", Long, "pixels, from 2"}},
     .call = loadFromImageArray},
};

}  // namespace

std::span<const Member> pictureMembers() noexcept { return kRows; }

}  // namespace orvane::members
