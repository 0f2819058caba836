#pragma once

#include <orvane/pixels.h>

#include <cstdint>

/// Colours at the interface are OLE_COLOR words 0x00BBGGRR whose top byte is ignored; inside they are Argb.
namespace orvane {

using OleColor = std::uint32_t;

/// The colour with a given alpha byte in place of the top byte.
constexpr Argb argbFromOle(OleColor colour, unsigned alpha) {
    return makeArgb(alpha, colour & 255u, (colour >> 8) & 255u, (colour >> 16) & 255u);
}
/// Rule A: forced opaque.
constexpr Argb opaqueFromOle(OleColor colour) { return argbFromOle(colour, 255u); }
/// Rules B and C: red, green and blue are replaced, the alpha byte of `alphaSource` is kept.
constexpr Argb argbFromOleKeepingAlpha(OleColor colour, Argb alphaSource) {
    return argbFromOle(colour, alphaOf(alphaSource));
}
/// Rule D: the fixed alpha of the scroll window's panel.
inline constexpr unsigned kPanelAlpha = 140;
constexpr Argb panelFromOle(OleColor colour) { return argbFromOle(colour, kPanelAlpha); }

/// What every colour get answers: the alpha byte never reaches the host through a colour property.
constexpr OleColor oleFromArgb(Argb colour) {
    return (blueOf(colour) << 16) | (greenOf(colour) << 8) | redOf(colour);
}

}  // namespace orvane
