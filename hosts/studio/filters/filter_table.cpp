#include "studio/filters/filter_table.h"

#include <string_view>

namespace orvane::studio {
namespace {

using P = FilterParameter;

constexpr P whole(const char* label, double lowest, double highest, double initial) {
    return {label, ParameterKind::Whole, lowest, highest, initial, nullptr};
}
constexpr P choice(const char* label, const char* names) {
    return {label, ParameterKind::Choice, 0, 0, 0, names};
}
constexpr P length(const char* label, double lowest, double share) {
    return {label, ParameterKind::Length, lowest, 0, share, nullptr};
}
constexpr P colour(const char* label, double rgb, ParameterKind kind = ParameterKind::Colour) {
    return {label, kind, 0, 0, rgb, nullptr};
}

constexpr P kCentreX{"Centre _X", ParameterKind::CentreX, 0, 0, 0, nullptr};
constexpr P kCentreY{"Centre _Y", ParameterKind::CentreY, 0, 0, 0, nullptr};

// Numbers that the control does not bound end where more of them shows no difference worth looking for.
constexpr P kSaturate[] = {whole("_Saturation in %", -200, 400, 140)};
constexpr P kTemperature[] = {whole("_Warmth in %", -100, 100, 15)};
constexpr P kHue[] = {colour("_Colour", 0x3c6e8c, ParameterKind::ColourChannels)};
constexpr P kMonochrome[] = {whole("_Level", 0, 254, 127), colour("_Bright pixels", 0xffffff),
                             colour("_Dark pixels", 0x000000)};
constexpr P kBrightness[] = {whole("_Red", -255, 255, 20), whole("_Green", -255, 255, 20),
                             whole("_Blue", -255, 255, 20)};
constexpr P kLightness[] = {whole("_Red in %", 0, 400, 120), whole("_Green in %", 0, 400, 120),
                            whole("_Blue in %", 0, 400, 120)};
constexpr P kContrast[] = {whole("_Contrast in %", -200, 400, 130)};
constexpr P kGamma[] = {{"_Exponent", ParameterKind::Real, 0.02, 5, 0.8, nullptr}};
constexpr P kNoise[] = {choice("_Kind", "Grey|Coloured"), whole("_Strength", 0, 255, 30)};
constexpr P kBlur[] = {whole("_Radius", 1, 200, 3)};
constexpr P kGaussianBlur[] = {whole("_Radius", 1, 200, 5), whole("_Fall-off", 1, 100, 2)};
constexpr P kAverage[] = {whole("_Weight of the centre", -500, 500, 10), whole("_Radius", 0, 200, 2)};
constexpr P kSmartBlur[] = {whole("_Radius", 1, 200, 5), whole("_Contrast kept", 0, 255, 40)};
constexpr P kBlurMotion[] = {whole("_Length", 1, 500, 15),
                             choice("_Direction", "Horizontal|Falling|Vertical|Rising")};
constexpr P kBlurZoom[] = {whole("_Strength", -500, 500, 40), kCentreX, kCentreY};
constexpr P kBlurRadial[] = {kCentreX, kCentreY, whole("_Arc in degrees", 0, 360, 10)};
constexpr P kSharpenEdge[] = {whole("_Smallest contrast", 0, 255, 30)};
constexpr P kSobel[] = {choice("_Brighter", "To the right|To the left|Downward|Upward")};
constexpr P kEmboss[] = {
    whole("_Distance", -10, 10, 2),
    choice("_Light from", "Above|Above right|Right|Below right|Below|Below left|Left|Above left")};
constexpr P kUserEffect[] = {{"_Weights", ParameterKind::Kernel, -100, 100, 0, nullptr}};
constexpr P kRank[] = {whole("_Radius", 0, 100, 2)};
constexpr P kMosaic[] = {choice("_Colour of a tile", "Its centre's|Its mean"),
                         whole("_Half side", 1, 200, 6)};
constexpr P kFocalBw[] = {length("_Radius", 0, 0.25), length("Ri_m", 0, 0.15), kCentreX, kCentreY};
constexpr P kSoftFocus[] = {whole("_Passes", 1, 50, 8), length("_Radius", 1, 0.25), length("Ri_m", 1, 0.15),
                            kCentreX, kCentreY};
constexpr P kAquarelle[] = {whole("_Brush", 0, 50, 3)};
constexpr P kDiffuse[] = {whole("_Reach", 1, 200, 4)};
constexpr P kGlow[] = {whole("_Level", 1, 256, 220), whole("_Radius", 1, 200, 20),
                       whole("_Intensity", 1, 100, 3)};
constexpr P kGlowingEdge[] = {whole("_Level", 0, 256, 200), whole("_Radius", 0, 200, 6),
                              whole("_Intensity", 0, 100, 3)};
constexpr P kTwirl[] = {whole("_Turn in degrees", -1440, 1440, 90)};

constexpr Filter kFilters[] = {
    {"desaturate", "_Desaturate", FilterGroup::Colour, {}},
    {"saturate", "_Saturate", FilterGroup::Colour, kSaturate},
    {"temperature", "_Temperature", FilterGroup::Colour, kTemperature},
    {"hue", "_Hue", FilterGroup::Colour, kHue},
    {"sepia", "Se_pia", FilterGroup::Colour, {}},
    {"invert", "_Invert", FilterGroup::Colour, {}},
    {"monochrome", "_Monochrome", FilterGroup::Colour, kMonochrome},

    {"brightness", "_Brightness", FilterGroup::Light, kBrightness},
    {"lightness", "_Lightness", FilterGroup::Light, kLightness},
    {"contrast", "_Contrast", FilterGroup::Light, kContrast},
    {"gamma", "_Gamma", FilterGroup::Light, kGamma},
    {"autocolor", "Auto C_olour", FilterGroup::Light, {}},
    {"autolevels", "Auto L_evels", FilterGroup::Light, {}},
    {"autocontrast", "Auto Co_ntrast", FilterGroup::Light, {}},

    {"blur", "_Blur", FilterGroup::Blur, kBlur},
    {"gaussian-blur", "_Gaussian Blur", FilterGroup::Blur, kGaussianBlur},
    {"smart-blur", "_Smart Blur", FilterGroup::Blur, kSmartBlur},
    {"average", "_Average", FilterGroup::Blur, kAverage},
    {"blur-motion", "_Motion Blur", FilterGroup::Blur, kBlurMotion},
    {"blur-zoom", "_Zoom Blur", FilterGroup::Blur, kBlurZoom},
    {"blur-radial", "_Radial Blur", FilterGroup::Blur, kBlurRadial},
    {"noise", "_Noise", FilterGroup::Blur, kNoise},

    {"sharpen", "_Sharpen", FilterGroup::Detail, {}},
    {"sharpen-edge", "Sharpen _Edges", FilterGroup::Detail, kSharpenEdge},
    {"laplas", "_Laplace", FilterGroup::Detail, {}},
    {"sobel", "So_bel", FilterGroup::Detail, kSobel},
    {"emboss", "E_mboss", FilterGroup::Detail, kEmboss},
    {"user-effect", "_Own Kernel", FilterGroup::Detail, kUserEffect},

    {"minimal", "_Darkest", FilterGroup::Rank, kRank},
    {"maximal", "_Brightest", FilterGroup::Rank, kRank},
    {"median", "_Median", FilterGroup::Rank, kRank},

    {"mosaic", "_Mosaic", FilterGroup::Artistic, kMosaic},
    {"focal-bw", "_Focal Black and White", FilterGroup::Artistic, kFocalBw},
    {"soft-focus", "_Soft Focus", FilterGroup::Artistic, kSoftFocus},
    {"aquarelle", "_Aquarelle", FilterGroup::Artistic, kAquarelle},
    {"diffuse", "_Diffuse", FilterGroup::Artistic, kDiffuse},
    {"glow", "_Glow", FilterGroup::Artistic, kGlow},
    {"glowing-edge", "Glowing _Edges", FilterGroup::Artistic, kGlowingEdge},
    {"twirl", "_Twirl", FilterGroup::Artistic, kTwirl},
};

}  // namespace

std::span<const Filter> filters() { return kFilters; }

const Filter* filterOfMember(const char* member) {
    for (const Filter& filter : kFilters) {
        if (std::string_view(filter.member) == member) return &filter;
    }
    return nullptr;
}

const char* groupLabel(FilterGroup group) {
    switch (group) {
        case FilterGroup::Colour:
            return "_Colour";
        case FilterGroup::Light:
            return "_Light";
        case FilterGroup::Blur:
            return "_Blur and Noise";
        case FilterGroup::Detail:
            return "_Sharpness and Edges";
        case FilterGroup::Rank:
            return "_Darkest, Brightest, Middle";
        case FilterGroup::Artistic:
            return "_Artistic";
    }
    return "";
}

}  // namespace orvane::studio
