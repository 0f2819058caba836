#pragma once

#include <orvane/pixels.h>

#include <cstddef>

namespace orvane {

enum class Extreme { Minimum, Maximum };

/// The vectorised inner loops of the windows' minima and maxima, each over one row of words, byte by byte.
namespace extreme_rows {

/// Words that scratch rows must have beyond their last one.
inline constexpr std::size_t kSlack = 64;

/// target[i] = the extreme of a[i] and b[i]. The target may be a or b itself.
void combine(Extreme extreme, const Argb* a, const Argb* b, Argb* target, std::size_t count) noexcept;

/// Both at once: newRunning[i] = the extreme of running[i] and row[i], which may be the same memory as
/// running, and target[i] = the extreme of newRunning[i] and other[i].
void combineTwice(Extreme extreme, const Argb* row, const Argb* running, Argb* newRunning, const Argb* other,
                  Argb* target, std::size_t count) noexcept;

/// target[i] = the extreme of row[i] .. row[i + window - 1], opaque, for i < count. `row` holds count +
/// window
/// - 1 words, `scratch` as many; both have kSlack more. `streamed` targets bypass the caches.
/// `ahead`, unless null, is a row of `count` words to be fetched meanwhile.
void slide(Extreme extreme, const Argb* row, Argb* scratch, std::size_t window, Argb* target,
           std::size_t count, bool streamed, const Argb* ahead) noexcept;

/// target[i] = a[i] - b[i] in every channel, where no channel of b exceeds that of a. The target is neither.
void subtract(const Argb* a, const Argb* b, Argb* target, std::size_t count) noexcept;

}  // namespace extreme_rows
}  // namespace orvane
