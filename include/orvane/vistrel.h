#pragma once

// Made from the member table by orvane_generate; do not edit.
// clang-format off

#include <orvane/control_base.h>

namespace orvane {

/// The photo-editing control with one typed function for every member of `IVistrel`. No member fails: what it could
/// not do shows as a false or empty result, or as unchanged state. A put outside the stated range is ignored.
class Vistrel : public ControlBase {
 public:
    using ControlBase::ControlBase;

    /// Loads a BMP, JPEG, PNG, GIF, TIFF or WebP file; false leaves the control empty.
    /// FileName: path of the file.
    bool LoadImage(std::u16string_view FileName) { return call(0x01, {FileName}).boolean(); }

    /// Turns the picture grey by luminance.
    void Desaturate() { call(0x02, {}); }

    /// Pushes colours away from grey or towards it.
    /// nValue: percent; 100 keeps the colours, 0 gives grey.
    void Saturate(std::int32_t nValue) { call(0x03, {nValue}); }

    /// Takes the last change back.
    void Undo() { call(0x04, {}); }

    /// Makes a change again that was taken back.
    void Redo() { call(0x05, {}); }

    /// Stretches each channel to span 5 to 250.
    void Autocolor() { call(0x06, {}); }

    /// Scales every channel about the grey 127.
    /// nValue: percent; 100 keeps the picture, 0 gives plain grey.
    void Contrast(std::int32_t nValue) { call(0x07, {nValue}); }

    /// Shows the picture as a relief lit from one side.
    /// nValue: distance in pixels, -10 to 10.
    /// Direction: 0 above, then clockwise in eighths to 7 above left.
    void Emboss(std::int32_t nValue, std::int32_t Direction) { call(0x08, {nValue, Direction}); }

    /// Adds to the channels.
    /// nRed: levels added to red.
    /// nGreen: levels added to green.
    /// nBlue: levels added to blue.
    void Brightness(std::int32_t nRed, std::int32_t nGreen, std::int32_t nBlue) { call(0x09, {nRed, nGreen, nBlue}); }

    /// Multiplies the channels.
    /// nRedVal: percent of red, from 0.
    /// nGreenVal: percent of green, from 0.
    /// nBlueVal: percent of blue, from 0.
    void Lightness(std::int32_t nRedVal, std::int32_t nGreenVal, std::int32_t nBlueVal) { call(0x0A, {nRedVal, nGreenVal, nBlueVal}); }

    /// Adds random noise.
    /// nType: 0 grey noise, anything else colour noise.
    /// nVal: largest change in levels.
    void Noise(std::int32_t nType, std::int32_t nVal) { call(0x0B, {nType, nVal}); }

    /// Replaces pixels by random neighbours, as through frosted glass.
    /// nVal: reach in pixels, from 1.
    void Diffuse(std::int32_t nVal) { call(0x0C, {nVal}); }

    /// Replaces every pixel by the mean of the square around it.
    /// nVal: radius in pixels, from 1.
    void Blur(std::int32_t nVal) { call(0x0D, {nVal}); }

    /// Turns the picture into its negative.
    void Invert() { call(0x0E, {}); }

    /// Divides the picture into square tiles of one colour each.
    /// nType: 0 takes a tile's centre colour, anything else its mean.
    /// nVal: from 1; tiles are 2 nVal + 1 pixels square.
    void Mosaic(std::int32_t nType, std::int32_t nVal) { call(0x0F, {nType, nVal}); }

    /// Turns bright pixels into one colour and all others into another.
    /// nLevel: grey level; brighter pixels count as bright.
    /// Color1: colour of the bright pixels.
    /// Color2: colour of the others.
    void Monochrome(std::int32_t nLevel, ColorValue Color1, ColorValue Color2) { call(0x10, {nLevel, Color1, Color2}); }

    /// Mean of the square around every pixel with a centre of its own weight.
    /// nAverage: weight of the centre; the others weigh 1.
    /// nVal: radius in pixels, from -8; below 0 gives black.
    void Average(std::int32_t nAverage, std::int32_t nVal) { call(0x11, {nAverage, nVal}); }

    /// Blurs along a line, as a moving camera does.
    /// nVal: half length in pixels.
    /// Direction: 0 horizontal, 1 diagonal, 2 vertical, anything else the other diagonal.
    void BlurMotion(std::int32_t nVal, std::int32_t Direction) { call(0x12, {nVal, Direction}); }

    /// Shows edges: four times the pixel less its four neighbours.
    void Laplas() { call(0x13, {}); }

    /// Sharpens by a fixed 3 x 3 kernel.
    void Sharpen() { call(0x14, {}); }

    /// Makes a picture painted in water colours.
    /// nVal: brush radius in pixels, from 0.
    void Aquarelle(std::int32_t nVal) { call(0x15, {nVal}); }

    /// Stretches all channels by one joint statistic.
    void Autocontrast() { call(0x16, {}); }

    /// Stretches each channel by its own statistics.
    void Autolevels() { call(0x17, {}); }

    /// The darkest value of the square around every pixel, channel by channel.
    /// nVal: radius in pixels, from 0.
    void Minimal(std::int32_t nVal) { call(0x18, {nVal}); }

    /// The brightest value of the square around every pixel, channel by channel.
    /// nVal: radius in pixels, from 0.
    void Maximal(std::int32_t nVal) { call(0x19, {nVal}); }

    /// The middle value of the square around every pixel, channel by channel.
    /// nVal: radius in pixels, from 0.
    void Median(std::int32_t nVal) { call(0x1A, {nVal}); }

    /// Writes the picture to a file; false leaves an existing file as it was.
    /// FileName: path of the file; its extension is not looked at.
    /// nType: 0 BMP, 1 JPEG, 2 GIF, 3 TIFF, 4 PNG.
    bool SaveImage(std::u16string_view FileName, std::int32_t nType) { return call(0x1B, {FileName, nType}).boolean(); }

    /// Quality of saved JPEG files. (0 to 100, clamped; initially 90)
    std::int32_t get_JpegQuality() const { return getProperty(0x1C).number(); }
    void put_JpegQuality(std::int32_t value) { putProperty(0x1C, value); }

    /// Blurs along the rays from a centre, as a zooming lens does.
    /// nVal: strength in pixels at the farthest corner.
    /// X: centre in image pixels.
    /// Y: centre in image pixels.
    void BlurZoom(std::int32_t nVal, std::int32_t X, std::int32_t Y) { call(0x1D, {nVal, X, Y}); }

    /// Blurs with weights that fall off from the centre.
    /// nVal: radius in pixels, from 1.
    /// B: fall-off, from 1; larger values favour the centre.
    void GaussianBlur(std::int32_t nVal, std::int32_t B) { call(0x1E, {nVal, B}); }

    /// Raises every channel to a power.
    /// Level: exponent, from 0.02; above 1 darkens.
    void Gamma(double Level) { call(0x1F, {Level}); }

    /// Enlarges the view by a tenth.
    void ZoomIn() { call(0x22, {}); }

    /// Shrinks the view by the same step.
    void ZoomOut() { call(0x23, {}); }

    /// Window pixels per image pixel. (initially 1)
    double get_Zoom() const { return getProperty(0x24).real(); }

    /// Shows one image pixel per window pixel.
    void ActialSize() { call(0x25, {}); }

    /// Fits the picture into the window.
    void ZoomToFit() { call(0x26, {}); }

    /// Blurs along circles about a centre, as a turning camera does.
    /// X: centre in image pixels.
    /// Y: centre in image pixels.
    /// Angle: arc in degrees.
    void BlurRadial(std::int32_t X, std::int32_t Y, std::int32_t Angle) { call(0x27, {X, Y, Angle}); }

    /// Shows where brightness rises in one direction.
    /// nType: 0 to the right, 1 left, 2 down, anything else up.
    void Sobel(std::int32_t nType) { call(0x28, {nType}); }

    /// Makes the picture warmer or cooler.
    /// nVal: percent, -100 to 100; above 0 is warmer.
    void Temperature(std::int32_t nVal) { call(0x29, {nVal}); }

    /// Turns the picture by quarters and mirrors it.
    /// nType: 0 to 3 quarter turns clockwise, plus 4 mirrors left and right.
    void RotateFlip(std::int32_t nType) { call(0x2A, {nType}); }

    /// Draws what the active tool has placed into the picture.
    void Accept() { call(0x2B, {}); }

    /// Convolves the picture with a kernel of the caller's.
    /// ppArray: 9 or 25 weights, column by column from the left, each from the top.
    void UserEffect(std::span<const std::int32_t> ppArray) { call(0x2C, {ppArray}); }

    /// The active paint mode; ignored while there is no picture. (0 no tool, 1 line, 2 polyline, 3 pencil, 4 curve, 5 closed curve, 6 arc, 7 spray, 8 ellipse, 9 pie, 10 polygon, 11 rectangle, 12 brush, 13 Bezier, 14 text, 15 eraser, 16 image stamp, 17 crop, 18 selection, 19 red-eye, 20 free rotation, 21 track point)
    std::int32_t get_PaintStatus() const { return getProperty(0x2D).number(); }
    void put_PaintStatus(std::int32_t value) { putProperty(0x2D, value); }

    /// Width of the pen. (1 to 8 pixels; initially 1)
    std::int32_t get_PenWidth() const { return getProperty(0x2E).number(); }
    void put_PenWidth(std::int32_t value) { putProperty(0x2E, value); }

    /// Dash style of the pen. (0 solid, 1 dash, 2 dot, 3 dash dot, 4 dash dot dot; anything else draws no outlines)
    std::int32_t get_PenStyle() const { return getProperty(0x2F).number(); }
    void put_PenStyle(std::int32_t value) { putProperty(0x2F, value); }

    /// Colour of the pen. (initially red)
    ColorValue get_PenColor() const { return getProperty(0x30).color(); }
    void put_PenColor(ColorValue value) { putProperty(0x30, value); }

    /// Alpha of the pen. (0 transparent to 255 opaque; initially 255)
    std::uint8_t get_PenTransparency() const { return getProperty(0x32).byte(); }
    void put_PenTransparency(std::uint8_t value) { putProperty(0x32, value); }

    /// Blurs flat areas and keeps edges.
    /// nVal: radius in pixels, from 1.
    /// Level: largest contrast that counts as flat, 0 to 255.
    void SmartBlur(std::int32_t nVal, std::int32_t Level) { call(0x34, {nVal, Level}); }

    /// Picture file of the texture brush. (initially "No texture")
    std::u16string get_TextureFileName() const { return getProperty(0x35).takeString(); }
    void put_TextureFileName(std::u16string_view value) { putProperty(0x35, value); }

    /// Alpha of both brush colours. (0 transparent to 255 opaque; initially 255)
    std::uint8_t get_BrushTransparency() const { return getProperty(0x36).byte(); }
    void put_BrushTransparency(std::uint8_t value) { putProperty(0x36, value); }

    /// Sharpens where there is contrast.
    /// Level: smallest contrast that is sharpened, 0 to 255.
    void SharpenEdge(std::int32_t Level) { call(0x37, {Level}); }

    /// Number of installed font families.
    std::int32_t get_FontCount() const { return getProperty(0x39).number(); }

    /// The font family of text. (0 to FontCount - 1, not checked; initially that of Arial, or 0)
    std::int32_t get_FontIndex() const { return getProperty(0x3A).number(); }
    void put_FontIndex(std::int32_t value) { putProperty(0x3A, value); }

    /// Name of the font family at FontIndex; null when there is none.
    std::u16string get_FontName() const { return getProperty(0x3B).takeString(); }

    /// Places a text to be dragged and accepted.
    /// strValue: the text.
    void DrawString(std::u16string_view strValue) { call(0x3C, {strValue}); }

    /// Drops what the tools have placed.
    void ResetTrack() { call(0x3D, {}); }

    /// Lets bright pixels shine over their surroundings.
    /// Level: level, from 1, that R, G and B of a shining pixel reach.
    /// Radius: reach in pixels, from 1.
    /// Intensity: strength, from 1; larger values also fall off faster.
    void Glow(std::int32_t Level, std::int32_t Radius, std::int32_t Intensity) { call(0x3E, {Level, Radius, Intensity}); }

    /// Colours the picture: black through one colour to white.
    /// R: red, 0 to 255.
    /// G: green, 0 to 255.
    /// B: blue, 0 to 255.
    void Hue(std::int32_t R, std::int32_t G, std::int32_t B) { call(0x3F, {R, G, B}); }

    /// Colours the picture brown like an old photograph.
    void Sepia() { call(0x40, {}); }

    /// Places a picture file as an image stamp to be dragged and accepted.
    /// FileName: path of the file.
    void DrawImage(std::u16string_view FileName) { call(0x41, {FileName}); }

    /// Shows edges as glowing lines.
    /// Level: level, from 1, that R, G and B of a shining edge reach.
    /// Radius: reach in pixels, from 1.
    /// Intensity: strength, from 1; larger values also fall off faster.
    void GlowingEdge(std::int32_t Level, std::int32_t Radius, std::int32_t Intensity) { call(0x42, {Level, Radius, Intensity}); }

    /// Copies the selection to the clipboard.
    void Copy() { call(0x43, {}); }

    /// Places the clipboard's picture as an image stamp.
    void Paste() { call(0x44, {}); }

    /// Copies the selection to the clipboard and fills it.
    void Cut() { call(0x45, {}); }

    /// Selects the whole picture.
    void SelectAll() { call(0x46, {}); }

    /// Blurs everything outside a circle, softly from its rim.
    /// nVal: number of passes, from 1.
    /// R1: radius of the sharp circle in pixels.
    /// R2: width in pixels of the rim where blur sets in.
    /// X: centre in image pixels.
    /// Y: centre in image pixels.
    void SoftFocus(std::int32_t nVal, std::int32_t R1, std::int32_t R2, std::int32_t X, std::int32_t Y) { call(0x47, {nVal, R1, R2, X, Y}); }

    /// Keeps colour inside a circle and turns the rest grey.
    /// R1: radius of full colour in pixels.
    /// R2: width in pixels of the rim where colour fades.
    /// X: centre in image pixels.
    /// Y: centre in image pixels.
    void FocalBW(std::int32_t R1, std::int32_t R2, std::int32_t X, std::int32_t Y) { call(0x48, {R1, R2, X, Y}); }

    /// Scales the picture.
    /// ScaleX: factor in width.
    /// ScaleY: factor in height.
    void ScaleImage(double ScaleX, double ScaleY) { call(0x49, {ScaleX, ScaleY}); }

    /// Holds redraws back until EndUpdate.
    void BeginUpdate() { call(0x4A, {}); }

    /// Ends BeginUpdate and redraws once.
    void EndUpdate() { call(0x4B, {}); }

    /// Drops the picture and its history.
    void Empty() { call(0x4C, {}); }

    /// Twists the picture about its centre.
    /// nVal: strength; the sign gives the direction.
    void Twirl(std::int32_t nVal) { call(0x4D, {nVal}); }

    /// Whether the overview panel shows when the picture does not fit. (initially true)
    bool get_ScrollWindowVisible() const { return getProperty(0x4E).boolean(); }
    void put_ScrollWindowVisible(bool value) { putProperty(0x4E, value); }

    /// Colour of the overview panel. (drawn half transparent; initially grey)
    ColorValue get_ScrollWindowColor() const { return getProperty(0x4F).color(); }
    void put_ScrollWindowColor(ColorValue value) { putProperty(0x4F, value); }

    /// What the brush fills with. (0 solid, 1 gradient, 2 hatch, 3 texture, more fills nothing; below 0 is ignored)
    std::int32_t get_BrushStyle() const { return getProperty(0x50).number(); }
    void put_BrushStyle(std::int32_t value) { putProperty(0x50, value); }

    /// Pattern of the hatch brush. (0 to 52; initially 4)
    std::int32_t get_BrushHatchStyle() const { return getProperty(0x51).number(); }
    void put_BrushHatchStyle(std::int32_t value) { putProperty(0x51, value); }

    /// How the texture brush repeats. (0 tiles, 1 mirrored in x, 2 in y, 3 in both)
    std::int32_t get_BrushTextureStyle() const { return getProperty(0x52).number(); }
    void put_BrushTextureStyle(std::int32_t value) { putProperty(0x52, value); }

    /// Direction of the gradient brush. (0 horizontal, 1 vertical, 2 forward diagonal, 3 backward diagonal)
    std::int32_t get_BrushGradientStyle() const { return getProperty(0x53).number(); }
    void put_BrushGradientStyle(std::int32_t value) { putProperty(0x53, value); }

    /// How many pixels have each red level: 256 counts.
    std::vector<std::int32_t> GetRHistogram() { return call(0x54, {}).takeLongs(); }

    /// How many pixels have each green level: 256 counts.
    std::vector<std::int32_t> GetGHistogram() { return call(0x55, {}).takeLongs(); }

    /// How many pixels have each blue level: 256 counts.
    std::vector<std::int32_t> GetBHistogram() { return call(0x56, {}).takeLongs(); }

    /// How many pixels have each luminance: 256 counts.
    std::vector<std::int32_t> GetLHistogram() { return call(0x57, {}).takeLongs(); }

    /// Starts a blank picture in BitmapBackColor.
    /// Width: pixels, from 4.
    /// Height: pixels, from 4.
    void NewImage(std::int32_t Width, std::int32_t Height) { call(0x58, {Width, Height}); }

    /// Colour of blank pictures. (initially white)
    ColorValue get_BitmapBackColor() const { return getProperty(0x59).color(); }
    void put_BitmapBackColor(ColorValue value) { putProperty(0x59, value); }

    /// Colour of the frame around the picture. (initially light grey)
    ColorValue get_FrameColor() const { return getProperty(0x5A).color(); }
    void put_FrameColor(ColorValue value) { putProperty(0x5A, value); }

    /// Colour of the area around the picture. (initially dark blue)
    ColorValue get_BackColor1() const { return getProperty(0x5B).color(); }
    void put_BackColor1(ColorValue value) { putProperty(0x5B, value); }

    /// Radius of the spray. (8 to 50 pixels; initially 16)
    std::int32_t get_SprayRadius() const { return getProperty(0x5C).number(); }
    void put_SprayRadius(std::int32_t value) { putProperty(0x5C, value); }

    /// Size of the brush tool. (1 to 11; initially 4)
    std::int32_t get_ToolBrushSize() const { return getProperty(0x5D).number(); }
    void put_ToolBrushSize(std::int32_t value) { putProperty(0x5D, value); }

    /// Nib of the brush tool. (0 to 5; initially 3)
    std::int32_t get_ToolBrushStyle() const { return getProperty(0x5E).number(); }
    void put_ToolBrushStyle(std::int32_t value) { putProperty(0x5E, value); }

    /// Size of the eraser. (1 to 11; initially 3)
    std::int32_t get_EraserSize() const { return getProperty(0x5F).number(); }
    void put_EraserSize(std::int32_t value) { putProperty(0x5F, value); }

    /// Transparency pattern of the image stamp. (0 to 6)
    std::int32_t get_ImageStyle() const { return getProperty(0x60).number(); }
    void put_ImageStyle(std::int32_t value) { putProperty(0x60, value); }

    /// First alpha of the image stamp. (0 to 255; initially 255)
    std::uint8_t get_ImageTransparency1() const { return getProperty(0x61).byte(); }
    void put_ImageTransparency1(std::uint8_t value) { putProperty(0x61, value); }

    /// Second alpha of the image stamp. (0 to 255; initially 10)
    std::uint8_t get_ImageTransparency2() const { return getProperty(0x62).byte(); }
    void put_ImageTransparency2(std::uint8_t value) { putProperty(0x62, value); }

    /// Chooses the font family by name; false when it is not installed.
    /// FontName: name of the family, in upper or lower case.
    bool SetupFontByName(std::u16string_view FontName) { return call(0x63, {FontName}).boolean(); }

    /// Colour of the image stamp that is left out. (initially white)
    ColorValue get_ImageMaskColor() const { return getProperty(0x64).color(); }
    void put_ImageMaskColor(ColorValue value) { putProperty(0x64, value); }

    /// Whether ImageMaskColor is left out of the image stamp. (initially false)
    bool get_UseImageMaskColor() const { return getProperty(0x65).boolean(); }
    void put_UseImageMaskColor(bool value) { putProperty(0x65, value); }

    /// Whether the picture has changed since it was made, loaded or saved.
    bool get_Modified() const { return getProperty(0x66).boolean(); }

    /// Whether the clipboard offers a picture.
    bool get_IsClipboardAvailable() const { return getProperty(0x67).boolean(); }

    /// Whether there is no picture.
    bool get_IsEmpty() const { return getProperty(0x68).boolean(); }

    /// Width of the picture. (pixels; 0 when empty)
    std::int32_t get_ImageWidth() const { return getProperty(0x69).number(); }

    /// Height of the picture. (pixels; 0 when empty)
    std::int32_t get_ImageHeight() const { return getProperty(0x6A).number(); }

    /// Whether there is a change to take back.
    bool get_UndoEnable() const { return getProperty(0x6B).boolean(); }

    /// Whether there is a change to make again.
    bool get_RedoEnable() const { return getProperty(0x6C).boolean(); }

    /// Whether there is a selection to copy or cut.
    bool get_CopyCutAvailable() const { return getProperty(0x6D).boolean(); }

    /// First colour of the brush. (initially brown)
    ColorValue get_BrushColor1() const { return getProperty(0x6F).color(); }
    void put_BrushColor1(ColorValue value) { putProperty(0x6F, value); }

    /// Second colour of the brush. (initially green)
    ColorValue get_BrushColor2() const { return getProperty(0x70).color(); }
    void put_BrushColor2(ColorValue value) { putProperty(0x70, value); }

    /// Slanted text. (initially false)
    bool get_FontStyleItalic() const { return getProperty(0x71).boolean(); }
    void put_FontStyleItalic(bool value) { putProperty(0x71, value); }

    /// Bold text. (initially false)
    bool get_FontStyleBold() const { return getProperty(0x72).boolean(); }
    void put_FontStyleBold(bool value) { putProperty(0x72, value); }

    /// Underlined text. (initially false)
    bool get_FontStyleUnderline() const { return getProperty(0x73).boolean(); }
    void put_FontStyleUnderline(bool value) { putProperty(0x73, value); }

    /// Text struck through. (initially false)
    bool get_FontStyleStrikeout() const { return getProperty(0x74).boolean(); }
    void put_FontStyleStrikeout(bool value) { putProperty(0x74, value); }

    /// Size of text. (8 to 128 pixels; initially 20)
    std::uint8_t get_FontSize() const { return getProperty(0x75).byte(); }
    void put_FontSize(std::uint8_t value) { putProperty(0x75, value); }

    /// The pixels as bytes B, G, R, A, top row first; null when empty. Costs one step, undone again.
    std::vector<std::uint8_t> GetImageArray() { return call(0x76, {}).takeBytes(); }

    /// Takes over pixels given as bytes B, G, R, A, top row first.
    /// pArray: at least Width x Height x 4 bytes.
    /// Width: pixels, from 2.
    /// Height: pixels, from 2.
    bool LoadFromImageArray(std::span<const std::uint8_t> pArray, std::int32_t Width, std::int32_t Height) { return call(0x77, {pArray, Width, Height}).boolean(); }
};

}  // namespace orvane
