// Filters: operations on the whole picture, each one history step.
#include "control/members/access.h"
#include "filters/aquarelle.h"
#include "filters/autocolor.h"
#include "filters/autocontrast.h"
#include "filters/autolevels.h"
#include "filters/average.h"
#include "filters/blur.h"
#include "filters/blur_motion.h"
#include "filters/blur_radial.h"
#include "filters/blur_zoom.h"
#include "filters/brightness.h"
#include "filters/contrast.h"
#include "filters/desaturate.h"
#include "filters/diffuse.h"
#include "filters/emboss.h"
#include "filters/focal_bw.h"
#include "filters/gamma.h"
#include "filters/gaussian_blur.h"
#include "filters/glow.h"
#include "filters/glowing_edge.h"
#include "filters/histograms.h"
#include "filters/hue.h"
#include "filters/invert.h"
#include "filters/laplas.h"
#include "filters/lightness.h"
#include "filters/maximal.h"
#include "filters/median.h"
#include "filters/minimal.h"
#include "filters/monochrome.h"
#include "filters/mosaic.h"
#include "filters/noise.h"
#include "filters/saturate.h"
#include "filters/sharpen.h"
#include "filters/sharpen_edge.h"
#include "filters/smart_blur.h"
#include "filters/sobel.h"
#include "filters/soft_focus.h"
#include "filters/temperature.h"
#include "filters/twirl.h"
#include "filters/user_effect.h"

namespace orvane::members {
namespace {

using enum ValueType;

/// 256 counts, or null when there is no image.
template <auto Histogram>
Value histogram(VistrelControl& control, Arguments) {
    const std::optional<LevelCounts> counts = Histogram(control.document);
    if (!counts) return {};
    return Value::Longs(counts->begin(), counts->end());
}

// The member names the strength first.
void blurZoomAt(ImageDocument& document, int strength, int x, int y) noexcept {
    blurZoom(document, x, y, strength);
}

/// A null array is not even redrawn for.
Value applyUserEffect(VistrelControl& control, Arguments arguments) {
    if (arguments[0].isNone()) return {};
    userEffect(control.document, arguments[0].longs());
    control.refresh();
    return {};
}

constexpr Member kRows[] = {
    {.id = 0x02,
     .name = "Desaturate",
     .help = "Turns the picture grey by luminance.",
     .call = filter<&desaturate>},
    {.id = 0x03,
     .name = "Saturate",
     .help = "Pushes colours away from grey or towards it.",
     .parameters = {{"nValue", Long, "percent; 100 keeps the colours, 0 gives grey"}},
     .call = filter<&saturate>},
    {.id = 0x06,
     .name = "Autocolor",
     .help = "Stretches each channel to span 5 to 250.",
     .call = filter<&autocolor>},
    {.id = 0x07,
     .name = "Contrast",
     .help = "Scales every channel about the grey 127.",
     .parameters = {{"nValue", Long, "percent; 100 keeps the picture, 0 gives plain grey"}},
     .call = filter<&contrast>},
    {.id = 0x08,
     .name = "Emboss",
     .help = "Shows the picture as a relief lit from one side.",
     .parameters = {{"nValue", Long, "distance in pixels, -10 to 10"},
                    {"Direction", Long, "0 above, then clockwise in eighths to 7 above left"}},
     .call = filter<&emboss>},
    {.id = 0x09,
     .name = "Brightness",
     .help = "Adds to the channels.",
     .parameters = {{"nRed", Long, "levels added to red"},
                    {"nGreen", Long, "levels added to green"},
                    {"nBlue", Long, "levels added to blue"}},
     .call = filter<&brightness>},
    {.id = 0x0A,
     .name = "Lightness",
     .help = "Multiplies the channels.",
     .parameters = {{"nRedVal", Long, "percent of red, from 0"},
                    {"nGreenVal", Long, "percent of green, from 0"},
                    {"nBlueVal", Long, "percent of blue, from 0"}},
     .call = filter<&lightness>},
    {.id = 0x0B,
     .name = "Noise",
     .help = "Adds random noise.",
     .parameters = {{"nType", Long, "0 grey noise, anything else colour noise"},
                    {"nVal", Long, "largest change in levels"}},
     .call = filter<&noise>},
    {.id = 0x0C,
     .name = "Diffuse",
     .help = "Replaces pixels by random neighbours, as through frosted glass.",
     .parameters = {{"nVal", Long, "reach in pixels, from 1"}},
     .call = filter<&diffuse>},
    {.id = 0x0D,
     .name = "Blur",
     .help = "Replaces every pixel by the mean of the square around it.",
     .parameters = {{"nVal", Long, "radius in pixels, from 1"}},
     .call = filter<&blur>},
    {.id = 0x0E, .name = "Invert", .help = "Turns the picture into its negative.", .call = filter<&invert>},
    {.id = 0x0F,
     .name = "Mosaic",
     .help = "Divides the picture into square tiles of one colour each.",
     .parameters = {{"nType", Long, "0 takes a tile's centre colour, anything else its mean"},
                    {"nVal", Long, "from 1; tiles are 2 nVal + 1 pixels square"}},
     .call = filter<&mosaic>},
    {.id = 0x10,
     .name = "Monochrome",
     .help = "Turns bright pixels into one colour and all others into another.",
     .parameters = {{"nLevel", Long, "grey level; brighter pixels count as bright"},
                    {"Color1", Color, "colour of the bright pixels"},
                    {"Color2", Color, "colour of the others"}},
     .call = filter<&monochrome>},
    {.id = 0x11,
     .name = "Average",
     .help = "Mean of the square around every pixel with a centre of its own weight.",
     .parameters = {{"nAverage", Long, "weight of the centre; the others weigh 1"},
                    {"nVal", Long, "radius in pixels, from -8; below 0 gives black"}},
     .call = filter<&average>},
    {.id = 0x12,
     .name = "BlurMotion",
     .help = "Blurs along a line, as a moving camera does.",
     .parameters = {{"nVal", Long, "half length in pixels"},
                    {"Direction", Long,
                     "0 horizontal, 1 diagonal, 2 vertical, anything else the other diagonal"}},
     .call = filter<&blurMotion>},
    {.id = 0x13,
     .name = "Laplas",
     .help = "Shows edges: four times the pixel less its four neighbours.",
     .call = filter<&laplas>},
    {.id = 0x14, .name = "Sharpen", .help = "Sharpens by a fixed 3 x 3 kernel.", .call = filter<&sharpen>},
    {.id = 0x15,
     .name = "Aquarelle",
     .help = "Makes a picture painted in water colours.",
     .parameters = {{"nVal", Long, "brush radius in pixels, from 0"}},
     .call = filter<&aquarelle>},
    {.id = 0x16,
     .name = "Autocontrast",
     .help = "Stretches all channels by one joint statistic.",
     .call = filter<&autocontrast>},
    {.id = 0x17,
     .name = "Autolevels",
     .help = "Stretches each channel by its own statistics.",
     .call = filter<&autolevels>},
    {.id = 0x18,
     .name = "Minimal",
     .help = "The darkest value of the square around every pixel, channel by channel.",
     .parameters = {{"nVal", Long, "radius in pixels, from 0"}},
     .call = filter<&minimal>},
    {.id = 0x19,
     .name = "Maximal",
     .help = "The brightest value of the square around every pixel, channel by channel.",
     .parameters = {{"nVal", Long, "radius in pixels, from 0"}},
     .call = filter<&maximal>},
    {.id = 0x1A,
     .name = "Median",
     .help = "The middle value of the square around every pixel, channel by channel.",
     .parameters = {{"nVal", Long, "radius in pixels, from 0"}},
     .call = filter<&median>},
    {.id = 0x1D,
     .name = "BlurZoom",
     .help = "Blurs along the rays from a centre, as a zooming lens does.",
     .parameters = {{"nVal", Long, "strength in pixels at the farthest corner"},
                    {"X", Long, "centre in image pixels"},
                    {"Y", Long, "centre in image pixels"}},
     .call = filter<&blurZoomAt>},
    {.id = 0x1E,
     .name = "GaussianBlur",
     .help = "Blurs with weights that fall off from the centre.",
     .parameters = {{"nVal", Long, "radius in pixels, from 1"},
                    {"B", Long, "fall-off, from 1; larger values favour the centre"}},
     .call = filter<&gaussianBlur>},
    {.id = 0x1F,
     .name = "Gamma",
     .help = "Raises every channel to a power.",
     .parameters = {{"Level", Double, "exponent, from 0.02; above 1 darkens"}},
     .call = filter<&gamma>},
    {.id = 0x27,
     .name = "BlurRadial",
     .help = "Blurs along circles about a centre, as a turning camera does.",
     .parameters = {{"X", Long, "centre in image pixels"},
                    {"Y", Long, "centre in image pixels"},
                    {"Angle", Long, "arc in degrees"}},
     .call = filter<&blurRadial>},
    {.id = 0x28,
     .name = "Sobel",
     .help = "Shows where brightness rises in one direction.",
     .parameters = {{"nType", Long, "0 to the right, 1 left, 2 down, anything else up"}},
     .call = filter<&sobel>},
    {.id = 0x29,
     .name = "Temperature",
     .help = "Makes the picture warmer or cooler.",
     .parameters = {{"nVal", Long, "percent, -100 to 100; above 0 is warmer"}},
     .call = filter<&temperature>},
    {.id = 0x2C,
     .name = "UserEffect",
     .help = "Convolves the picture with a kernel of the caller's.",
     .parameters = {{"ppArray", LongArray,
                     "9 or 25 weights, column by column from the left, each from the top"}},
     .call = applyUserEffect},
    {.id = 0x34,
     .name = "SmartBlur",
     .help = "Blurs flat areas and keeps edges.",
     .parameters = {{"nVal", Long, "radius in pixels, from 1"},
                    {"Level", Long, "largest contrast that counts as flat, 0 to 255"}},
     .call = filter<&smartBlur>},
    {.id = 0x37,
     .name = "SharpenEdge",
     .help = "Sharpens where there is contrast.",
     .parameters = {{"Level", Long, "smallest contrast that is sharpened, 0 to 255"}},
     .call = filter<&sharpenEdge>},
    {.id = 0x3E,
     .name = "Glow",
     .help = "Lets bright pixels shine over their surroundings.",
     .parameters = {{"Level", Long, "level, from 1, that R, G and B of a shining pixel reach"},
                    {"Radius", Long, "reach in pixels, from 1"},
                    {"Intensity", Long, "strength, from 1; larger values also fall off faster"}},
     .call = filter<&glow>},
    {.id = 0x3F,
     .name = "Hue",
     .help = "Colours the picture: black through one colour to white.",
     .parameters = {{"R", Long, "red, 0 to 255"},
                    {"G", Long, "green, 0 to 255"},
                    {"B", Long, "blue, 0 to 255"}},
     .call = filter<&hue>},
    {.id = 0x40,
     .name = "Sepia",
     .help = "Colours the picture brown like an old photograph.",
     .call = filter<&sepia>},
    {.id = 0x42,
     .name = "GlowingEdge",
     .help = "Shows edges as glowing lines.",
     .parameters = {{"Level", Long, "level, from 1, that R, G and B of a shining edge reach"},
                    {"Radius", Long, "reach in pixels, from 1"},
                    {"Intensity", Long, "strength, from 1; larger values also fall off faster"}},
     .call = filter<&glowingEdge>},
    {.id = 0x47,
     .name = "SoftFocus",
     .help = "Blurs everything outside a circle, softly from its rim.",
     .parameters = {{"nVal", Long, "number of passes, from 1"},
                    {"R1", Long, "radius of the sharp circle in pixels"},
                    {"R2", Long, "width in pixels of the rim where blur sets in"},
                    {"X", Long, "centre in image pixels"},
                    {"Y", Long, "centre in image pixels"}},
     .call = filter<&softFocus>},
    {.id = 0x48,
     .name = "FocalBW",
     .help = "Keeps colour inside a circle and turns the rest grey.",
     .parameters = {{"R1", Long, "radius of full colour in pixels"},
                    {"R2", Long, "width in pixels of the rim where colour fades"},
                    {"X", Long, "centre in image pixels"},
                    {"Y", Long, "centre in image pixels"}},
     .call = filter<&focalBW>},
    {.id = 0x4D,
     .name = "Twirl",
     .help = "Twists the picture about its centre.",
     .parameters = {{"nVal", Long, "strength; the sign gives the direction"}},
     .call = filter<&twirl>},
    {.id = 0x54,
     .name = "GetRHistogram",
     .type = LongArray,
     .help = "How many pixels have each red level: 256 counts.",
     .call = histogram<&redHistogram>},
    {.id = 0x55,
     .name = "GetGHistogram",
     .type = LongArray,
     .help = "How many pixels have each green level: 256 counts.",
     .call = histogram<&greenHistogram>},
    {.id = 0x56,
     .name = "GetBHistogram",
     .type = LongArray,
     .help = "How many pixels have each blue level: 256 counts.",
     .call = histogram<&blueHistogram>},
    {.id = 0x57,
     .name = "GetLHistogram",
     .type = LongArray,
     .help = "How many pixels have each luminance: 256 counts.",
     .call = histogram<&lumaHistogram>},
};

}  // namespace

std::span<const Member> filterMembers() noexcept { return kRows; }

}  // namespace orvane::members
