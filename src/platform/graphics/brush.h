#pragma once

#include <cstddef>
#include <variant>

#include <orvane/geometry.h>
#include <orvane/pixels.h>

/// What areas are filled with: plain values that give every pixel of the plane a colour.
namespace orvane {

struct SolidBrush {
    Argb colour = 0;
};

/// One of 53 patterns of 8 x 8 pixels, laid from the target's top-left pixel on.
struct HatchBrush {
    static constexpr int kStyles = 53;
    static constexpr int kForwardDiagonal = 2;  ///< the style of frames around texts and stamps

    int style = 0;  ///< 0..52; anything else is all background
    Argb foreground = 0, background = 0;
};

/// Left to right, top to bottom, upper left to lower right, upper right to lower left.
enum class GradientMode { Horizontal, Vertical, ForwardDiagonal, BackwardDiagonal };

/// A linear run of colours across a rectangle, repeated in both directions beyond it, never mirrored. A pixel
/// has the colour of its centre; along a diagonal, colours are the same on lines parallel to the other
/// diagonal, so the corners that are not the ends lie halfway. Positions are whole 65536ths of the run,
/// rounded down; straight channels and alpha follow them linearly, rounded to nearest.
struct GradientBrush {
    IntRect area;  ///< an empty one gives the first colour everywhere
    Argb from = 0, to = 0;
    GradientMode mode = GradientMode::Horizontal;
};

enum class WrapMode { Tile, FlipX, FlipY, FlipXY };

/// A picture repeated from the target's top-left pixel on. The pixels belong to somebody who outlives the
/// brush; a null picture colours nothing (alpha 0).
struct TextureBrush {
    PixelView picture;
    WrapMode wrap = WrapMode::Tile;
};

using Brush = std::variant<SolidBrush, HatchBrush, GradientBrush, TextureBrush>;

/// Writes the colours of the `count` pixels (x, y), (x + 1, y), ... Coordinates may be negative.
void brushRow(const Brush& brush, int x, int y, std::size_t count, Argb* colours) noexcept;

}  // namespace orvane
