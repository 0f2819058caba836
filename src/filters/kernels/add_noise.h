#pragma once

#include <orvane/pixels.h>

#include <cstddef>

#include "base/random_stream.h"

namespace orvane {

/// Which noise is added: one value for all channels of a pixel, or one for each.
enum class NoiseKind { Grey, Colour };

/// Adds noise of up to `level` (any integer; negative only swaps the signs) to the colour channels, held
/// within 0..255; every target pixel gets alpha 255.
///
/// One noise value takes two draws from `stream`: magnitude trunc(draw x level / 32767), then the sign,
/// negative above 16383. Pixels draw in address order, the channels of one in the order red, green, blue, so
/// 2 or 6 draws per pixel, and the stream ends where drawing one by one would leave it.
/// source, target: `count` words each, not overlapping. Levels beyond +-255 take the slow road.
void addNoise(const Argb* source, Argb* target, std::size_t count, NoiseKind kind, int level,
              RandomStream& stream) noexcept;

}  // namespace orvane
