#pragma once

#include <orvane/geometry.h>
#include <orvane/pixels.h>

namespace orvane {

/// A picture to draw stretched. `isOpaque` says that every alpha is 255; it opens quicker roads and is never
/// checked.
struct StretchSource {
    PixelView pixels;
    bool isOpaque = false;
};

enum class StretchMode {
    Over,     ///< source-over what the target holds
    Replace,  ///< the stretched pixels as they are, alpha included
};

/// Draws the whole picture into `destination`, of which only the part inside `clip` and the target is
/// touched.
///
/// Each axis goes by itself. Shrinking: the average of the source pixels that a destination pixel covers,
/// edge pixels by the part that is covered, so that nothing aliases. Enlarging: linear interpolation between
/// pixel centres, constant beyond the outermost ones, so that edges do not fade. Same length: copied exactly.
/// Pixels count by their alpha, so that transparent ones lend no colour to their neighbours; an average that
/// is wholly transparent is the word 0.
///
/// What a destination pixel becomes does not depend on the clip. Empty or far-away rectangles draw nothing.
/// Cost follows the visible part: the source rows and columns under it, and no memory.
void drawStretched(const StretchSource& source, IntRect destination, IntRect clip, MutablePixelView target,
                   StretchMode mode) noexcept;

/// The same without a clip but the target's edges.
void drawStretched(const StretchSource& source, IntRect destination, MutablePixelView target,
                   StretchMode mode) noexcept;

}  // namespace orvane
