#pragma once

namespace orvane {

class ImageDocument;

/// Colours the image along a ramp from black through one colour to (nearly) white, by the grey level
/// (R + G + B) / 3 of each pixel; alpha becomes 255. The grey level of the colour itself maps to exactly that
/// colour; both parts of the ramp are linear, the upper one reaching white one step after the last level.
///
/// red, green, blue: 0..255; others are refused: nothing happens. Otherwise one history step, even when
/// nothing changes; an empty document, or one that finds no memory for the step, stays as it is.
void hue(ImageDocument& document, int red, int green, int blue) noexcept;

/// The brown of old photographs: `hue` with 160, 133, 107.
void sepia(ImageDocument& document) noexcept;

}  // namespace orvane
