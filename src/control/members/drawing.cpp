// Painting: modes, pen and brush, the tools' settings, text and stamps.
#include "control/members/access.h"

#include <optional>
#include <string>
#include <utility>

#include "base/unicode.h"
#include "document/surface_file.h"

namespace orvane::members {
namespace {

using enum ValueType;
using Kind = Member::Kind;

void putPaintStatus(VistrelControl& control, const Value& value) {
    if (control.document.isEmpty()) return;
    control.SetPaintStatus(value.number());
    control.ResetAllTools();
    control.refresh();
}

Value accept(VistrelControl& control, Arguments) {
    control.CommitPending();
    control.updateToolBounds();
    if (control.paintStatus != 0) control.refresh();
    return {};
}

Value resetTrack(VistrelControl& control, Arguments) {
    control.ResetAllTools();
    control.refresh();
    return {};
}

Value drawString(VistrelControl& control, Arguments arguments) {
    if (!control.document.isEmpty()) {
        control.placeText(arguments[0].string());
    }
    return {};
}

// A file that is there and is no picture is placed all the same, as a stamp that shows nothing.
Value drawImage(VistrelControl& control, Arguments arguments) {
    if (control.document.isEmpty()) return {};
    if (const auto path = readablePath(arguments[0].string())) control.placeStamp(loadSurface(*path));
    return {};
}

void putTransparency(Argb& colour, std::uint8_t alpha) {
    colour = (colour & 0x00FFFFFFu) | (Argb(alpha) << 24);
}
Value transparencyOf(Argb colour) { return Value(static_cast<std::uint8_t>(alphaOf(colour))); }

Value getTextureFileName(const VistrelControl& control) {
    return Value(control.brush.textureFileName ? std::u16string_view(*control.brush.textureFileName)
                                               : std::u16string_view(u"No texture"));
}

void putTextureFileName(VistrelControl& control, const Value& value) {
    std::optional<std::u16string> name;
    if (!value.isNone()) name.emplace(value.string());
    control.brush.textureFileName = std::move(name);
    control.brush.textureFileChanged();
}

/// Its alpha follows the first colour's.
void putBrushColour2(VistrelControl& control, const Value& value) {
    control.brush.colour2 = argbFromOleKeepingAlpha(value.color().bgr, control.brush.colour1);
    control.brush.rebuild();
}

void putBrushTransparency(VistrelControl& control, const Value& value) {
    putTransparency(control.brush.colour1, value.byte());
    putTransparency(control.brush.colour2, value.byte());
    control.brush.transparencyChanged();
}

Value getFontName(const VistrelControl& control) {
    const auto name = control.text.fontName();
    return name ? Value(*name) : Value();
}

Value setupFontByName(VistrelControl& control, Arguments arguments) {
    return Value(control.text.chooseByName(arguments[0].string()));
}

template <TextSettings::StyleBit Bit>
struct FontStyle {
    static Value get(const VistrelControl& control) { return Value((control.text.fontStyleBits & Bit) != 0); }
    static void put(VistrelControl& control, const Value& value) {
        const int others = control.text.fontStyleBits & ~Bit;
        control.text.fontStyleBits = static_cast<std::uint8_t>(value.boolean() ? others | Bit : others);
    }
};

template <auto Field>
using Freehand = Stored<&VistrelControl::freehand, Field>;
/// A setting of the stamp, whose pattern follows it.
template <class Property>
struct StampSetting {
    static Value get(const VistrelControl& control) { return Property::get(control); }
    static void put(VistrelControl& control, const Value& value) {
        Property::put(control, value);
        control.tools.imageStamp.applyPattern();
    }
};
template <auto Field>
using Stamp = StampSetting<Stored<&VistrelControl::stamp, Field>>;
using StampMaskColour = StampSetting<OpaqueColour<&VistrelControl::stamp, &StampSettings::maskColour>>;

/// A property of the brush, which is made anew from its properties.
template <class Property>
struct OfBrush : Property {
    static void put(VistrelControl& control, const Value& value) {
        Property::put(control, value);
        control.brush.rebuild();
    }
};
template <auto Field>
using Brush = OfBrush<Stored<&VistrelControl::brush, Field>>;
using BrushColour1 = OfBrush<TranslucentColour<&VistrelControl::brush, &BrushSettings::colour1>>;

constexpr Member kRows[] = {
    {.id = 0x2B,
     .name = "Accept",
     .help = "Draws what the active tool has placed into the picture.",
     .call = accept},
    {.id = 0x2D,
     .name = "PaintStatus",
     .kind = Kind::Property,
     .type = Long,
     .help = "The active paint mode; ignored while there is no picture.",
     .range = "0 no tool, 1 line, 2 polyline, 3 pencil, 4 curve, 5 closed curve, 6 arc, 7 spray, 8 ellipse, "
              "9 pie, "
              "10 polygon, 11 rectangle, 12 brush, 13 Bezier, 14 text, 15 eraser, 16 image stamp, 17 crop, "
              "18 selection, 19 red-eye, 20 free rotation, 21 track point",
     .get = [](const VistrelControl& control) { return Value(control.paintStatus); },
     .put = putPaintStatus,
     .rule = {.refresh = Refresh::Never}},
    {.id = 0x2E,
     .name = "PenWidth",
     .kind = Kind::Property,
     .type = Long,
     .help = "Width of the pen.",
     .range = "1 to 8 pixels; initially 1",
     .get = [](const VistrelControl& control) { return Value(static_cast<std::int32_t>(control.pen.width)); },
     .put = [](VistrelControl& control,
               const Value& v) { control.pen.width = static_cast<float>(v.number()); },
     .rule = {1, 8}},
    {.id = 0x2F,
     .name = "PenStyle",
     .kind = Kind::Property,
     .type = Long,
     .help = "Dash style of the pen.",
     .range = "0 solid, 1 dash, 2 dot, 3 dash dot, 4 dash dot dot; anything else draws no outlines",
     .get = Stored<&VistrelControl::pen, &PenSettings::dashStyle>::get,
     .put = Stored<&VistrelControl::pen, &PenSettings::dashStyle>::put},
    {.id = 0x30,
     .name = "PenColor",
     .kind = Kind::Property,
     .type = Color,
     .help = "Colour of the pen.",
     .range = "initially red",
     .get = TranslucentColour<&VistrelControl::pen, &PenSettings::colour>::get,
     .put = TranslucentColour<&VistrelControl::pen, &PenSettings::colour>::put},
    {.id = 0x32,
     .name = "PenTransparency",
     .kind = Kind::Property,
     .type = Byte,
     .help = "Alpha of the pen.",
     .range = "0 transparent to 255 opaque; initially 255",
     .get = [](const VistrelControl& control) { return transparencyOf(control.pen.colour); },
     .put = [](VistrelControl& control, const Value& v) { putTransparency(control.pen.colour, v.byte()); }},
    {.id = 0x35,
     .name = "TextureFileName",
     .kind = Kind::Property,
     .type = String,
     .help = "Picture file of the texture brush.",
     .range = "initially \"No texture\"",
     .get = getTextureFileName,
     .put = putTextureFileName},
    {.id = 0x36,
     .name = "BrushTransparency",
     .kind = Kind::Property,
     .type = Byte,
     .help = "Alpha of both brush colours.",
     .range = "0 transparent to 255 opaque; initially 255",
     .get = [](const VistrelControl& control) { return transparencyOf(control.brush.colour1); },
     .put = putBrushTransparency},
    {.id = 0x39,
     .name = "FontCount",
     .kind = Kind::ReadOnlyProperty,
     .type = Long,
     .help = "Number of installed font families.",
     .get = [](const VistrelControl&) { return Value(int(fontFamilies().size())); }},
    {.id = 0x3A,
     .name = "FontIndex",
     .kind = Kind::Property,
     .type = Long,
     .help = "The font family of text.",
     .range = "0 to FontCount - 1, not checked; initially that of Arial, or 0",
     .get = [](const VistrelControl& control) { return Value(control.text.fontIndex()); },
     .put = [](VistrelControl& control, const Value& v) { control.text.chosenIndex = v.number(); }},
    {.id = 0x3B,
     .name = "FontName",
     .kind = Kind::ReadOnlyProperty,
     .type = String,
     .help = "Name of the font family at FontIndex; null when there is none.",
     .get = getFontName},
    {.id = 0x3C,
     .name = "DrawString",
     .help = "Places a text to be dragged and accepted.",
     .parameters = {{"strValue", String, "the text"}},
     .call = drawString},
    {.id = 0x3D, .name = "ResetTrack", .help = "Drops what the tools have placed.", .call = resetTrack},
    {.id = 0x41,
     .name = "DrawImage",
     .help = "Places a picture file as an image stamp to be dragged and accepted.",
     .parameters = {{"FileName", String, "path of the file"}},
     .call = drawImage},
    {.id = 0x50,
     .name = "BrushStyle",
     .kind = Kind::Property,
     .type = Long,
     .help = "What the brush fills with.",
     .range = "0 solid, 1 gradient, 2 hatch, 3 texture, more fills nothing; below 0 is ignored",
     .get = Brush<&BrushSettings::style>::get,
     .put = Brush<&BrushSettings::style>::put,
     .rule = {.minimum = 0, .refresh = Refresh::InAnyTool}},
    {.id = 0x51,
     .name = "BrushHatchStyle",
     .kind = Kind::Property,
     .type = Long,
     .help = "Pattern of the hatch brush.",
     .range = "0 to 52; initially 4",
     .get = Brush<&BrushSettings::hatchStyle>::get,
     .put = Brush<&BrushSettings::hatchStyle>::put,
     .rule = {0, 52, OutOfRange::Ignore, Refresh::InAnyTool}},
    {.id = 0x52,
     .name = "BrushTextureStyle",
     .kind = Kind::Property,
     .type = Long,
     .help = "How the texture brush repeats.",
     .range = "0 tiles, 1 mirrored in x, 2 in y, 3 in both",
     .get = Brush<&BrushSettings::textureWrap>::get,
     .put = Brush<&BrushSettings::textureWrap>::put,
     .rule = {0, 3, OutOfRange::Ignore, Refresh::InAnyTool}},
    {.id = 0x53,
     .name = "BrushGradientStyle",
     .kind = Kind::Property,
     .type = Long,
     .help = "Direction of the gradient brush.",
     .range = "0 horizontal, 1 vertical, 2 forward diagonal, 3 backward diagonal",
     .get = Brush<&BrushSettings::gradientMode>::get,
     .put = Brush<&BrushSettings::gradientMode>::put,
     .rule = {0, 3, OutOfRange::Ignore, Refresh::InAnyTool}},
    {.id = 0x5C,
     .name = "SprayRadius",
     .kind = Kind::Property,
     .type = Long,
     .help = "Radius of the spray.",
     .range = "8 to 50 pixels; initially 16",
     .get = Freehand<&FreehandSettings::sprayRadius>::get,
     .put = Freehand<&FreehandSettings::sprayRadius>::put,
     .rule = {8, 50, OutOfRange::Ignore, Refresh::Never}},
    {.id = 0x5D,
     .name = "ToolBrushSize",
     .kind = Kind::Property,
     .type = Long,
     .help = "Size of the brush tool.",
     .range = "1 to 11; initially 4",
     .get = Freehand<&FreehandSettings::brushSize>::get,
     .put = Freehand<&FreehandSettings::brushSize>::put,
     .rule = {1, 11, OutOfRange::Ignore, Refresh::Always}},
    {.id = 0x5E,
     .name = "ToolBrushStyle",
     .kind = Kind::Property,
     .type = Long,
     .help = "Nib of the brush tool.",
     .range = "0 to 5; initially 3",
     .get = Freehand<&FreehandSettings::brushStyle>::get,
     .put = Freehand<&FreehandSettings::brushStyle>::put,
     .rule = {0, 5, OutOfRange::Ignore, Refresh::Always}},
    {.id = 0x5F,
     .name = "EraserSize",
     .kind = Kind::Property,
     .type = Long,
     .help = "Size of the eraser.",
     .range = "1 to 11; initially 3",
     .get = Freehand<&FreehandSettings::eraserSize>::get,
     .put = Freehand<&FreehandSettings::eraserSize>::put,
     .rule = {1, 11, OutOfRange::Ignore, Refresh::Always}},
    {.id = 0x60,
     .name = "ImageStyle",
     .kind = Kind::Property,
     .type = Long,
     .help = "Transparency pattern of the image stamp.",
     .range = "0 to 6",
     .get = Stamp<&StampSettings::style>::get,
     .put = Stamp<&StampSettings::style>::put,
     .rule = {0, 6, OutOfRange::Ignore, Refresh::InStampMode}},
    {.id = 0x61,
     .name = "ImageTransparency1",
     .kind = Kind::Property,
     .type = Byte,
     .help = "First alpha of the image stamp.",
     .range = "0 to 255; initially 255",
     .get = Stamp<&StampSettings::transparency1>::get,
     .put = Stamp<&StampSettings::transparency1>::put,
     .rule = {.refresh = Refresh::InStampMode}},
    {.id = 0x62,
     .name = "ImageTransparency2",
     .kind = Kind::Property,
     .type = Byte,
     .help = "Second alpha of the image stamp.",
     .range = "0 to 255; initially 10",
     .get = Stamp<&StampSettings::transparency2>::get,
     .put = Stamp<&StampSettings::transparency2>::put,
     .rule = {.refresh = Refresh::InStampMode}},
    {.id = 0x63,
     .name = "SetupFontByName",
     .type = Boolean,
     .help = "Chooses the font family by name; false when it is not installed.",
     .parameters = {{"FontName", String, "name of the family, in upper or lower case"}},
     .call = setupFontByName},
    {.id = 0x64,
     .name = "ImageMaskColor",
     .kind = Kind::Property,
     .type = Color,
     .help = "Colour of the image stamp that is left out.",
     .range = "initially white",
     .get = StampMaskColour::get,
     .put = StampMaskColour::put,
     .rule = {.refresh = Refresh::InStampMode}},
    {.id = 0x65,
     .name = "UseImageMaskColor",
     .kind = Kind::Property,
     .type = Boolean,
     .help = "Whether ImageMaskColor is left out of the image stamp.",
     .range = "initially false",
     .get = Stamp<&StampSettings::useMaskColour>::get,
     .put = Stamp<&StampSettings::useMaskColour>::put,
     .rule = {.refresh = Refresh::InStampMode}},
    {.id = 0x6F,
     .name = "BrushColor1",
     .kind = Kind::Property,
     .type = Color,
     .help = "First colour of the brush.",
     .range = "initially brown",
     .get = BrushColour1::get,
     .put = BrushColour1::put},
    {.id = 0x70,
     .name = "BrushColor2",
     .kind = Kind::Property,
     .type = Color,
     .help = "Second colour of the brush.",
     .range = "initially green",
     .get = TranslucentColour<&VistrelControl::brush, &BrushSettings::colour2>::get,
     .put = putBrushColour2},
    {.id = 0x71,
     .name = "FontStyleItalic",
     .kind = Kind::Property,
     .type = Boolean,
     .help = "Slanted text.",
     .range = "initially false",
     .get = FontStyle<TextSettings::Italic>::get,
     .put = FontStyle<TextSettings::Italic>::put,
     .rule = {.refresh = Refresh::InTextMode}},
    {.id = 0x72,
     .name = "FontStyleBold",
     .kind = Kind::Property,
     .type = Boolean,
     .help = "Bold text.",
     .range = "initially false",
     .get = FontStyle<TextSettings::Bold>::get,
     .put = FontStyle<TextSettings::Bold>::put,
     .rule = {.refresh = Refresh::InTextMode}},
    {.id = 0x73,
     .name = "FontStyleUnderline",
     .kind = Kind::Property,
     .type = Boolean,
     .help = "Underlined text.",
     .range = "initially false",
     .get = FontStyle<TextSettings::Underline>::get,
     .put = FontStyle<TextSettings::Underline>::put,
     .rule = {.refresh = Refresh::InTextMode}},
    {.id = 0x74,
     .name = "FontStyleStrikeout",
     .kind = Kind::Property,
     .type = Boolean,
     .help = "Text struck through.",
     .range = "initially false",
     .get = FontStyle<TextSettings::Strikeout>::get,
     .put = FontStyle<TextSettings::Strikeout>::put,
     .rule = {.refresh = Refresh::InTextMode}},
    {.id = 0x75,
     .name = "FontSize",
     .kind = Kind::Property,
     .type = Byte,
     .help = "Size of text.",
     .range = "8 to 128 pixels; initially 20",
     .get = Stored<&VistrelControl::text, &TextSettings::fontSize>::get,
     .put = Stored<&VistrelControl::text, &TextSettings::fontSize>::put,
     .rule = {8, 128, OutOfRange::Ignore, Refresh::InTextMode}},
};

}  // namespace

std::span<const Member> drawingMembers() noexcept { return kRows; }

}  // namespace orvane::members
