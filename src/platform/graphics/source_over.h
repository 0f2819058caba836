#pragma once

#include <orvane/pixels.h>

#include <cstddef>
#include <cstdint>

/// Straight-alpha source-over, the one way in which anything partly transparent meets a picture.
///
/// With alphas in 0..1, the result's alpha is a = sa + da (1 - sa) and each channel is
/// (sc sa + dc da (1 - sa)) / a. Both are computed as exact fractions and rounded once, to nearest, halves
/// up. So a source of alpha 255 replaces, one of alpha 0 leaves the destination word as it is (also where the
/// result is wholly transparent), and an opaque destination stays opaque.
namespace orvane {

/// One pixel over another.
[[nodiscard]] Argb sourceOver(Argb source, Argb destination) noexcept;

/// `count` pixels. The target may be the source or the destination itself; other overlaps are not allowed.
void sourceOver(const Argb* source, const Argb* destination, Argb* target, std::size_t count) noexcept;

/// The same for a destination known to be opaque; what stands in its alpha bytes does not count.
void sourceOverOpaque(const Argb* source, const Argb* destination, Argb* target, std::size_t count) noexcept;

/// One colour through a mask, in place. Coverage 0..255 scales the colour's alpha; their product enters as an
/// exact fraction of 255 * 255, so nothing is rounded twice.
void sourceOverMasked(Argb colour, const std::uint8_t* coverage, Argb* target, std::size_t count) noexcept;

/// The same with one colour per pixel. Colours and target must not overlap.
void sourceOverMasked(const Argb* colours, const std::uint8_t* coverage, Argb* target,
                      std::size_t count) noexcept;

}  // namespace orvane
