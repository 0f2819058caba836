#pragma once

#include <orvane/pixels.h>

#include "platform/codecs/dib_header.h"

/// The run-length codings of 4 and 8 bits.
namespace orvane {

/// Whether the data could reasonably describe so many pixels. Two bytes code at most 255 pixels, unless
/// pixels are left out, so a large picture from next to nothing is a lie.
[[nodiscard]] bool isPlausibleRunLengthSize(const DibHeader& header);

/// Writes every pixel: those that the data leave out are palette entry 0. False when the data end early.
[[nodiscard]] bool decodeDibRuns(const DibHeader& header, MutablePixelView picture);

}  // namespace orvane
