#pragma once

#include "platform/graphics/filler.h"
#include "platform/graphics/path.h"
#include "platform/graphics/pen.h"

namespace orvane {

/// How far from its path, at most, a pen leaves colour: the tip of the longest mitre.
[[nodiscard]] double reachOf(const Pen& pen) noexcept;

/// The width that a pen draws with, 1 at least.
[[nodiscard]] double widthOf(const Pen& pen) noexcept;

/// Adds the outline of what a pen covers on its way along the path, to be filled by the winding rule: a
/// rectangle along each line, and at each corner the wedge between two of them, mitred up to ten times the
/// width and cut off beyond. Inside curves the wedges are round. Ends are flat, those of dashes too.
///
/// Dashes start with the path. Entries that are no positive numbers count as 0, a pattern without gaps or
/// shorter than a tenth of a pixel in total as solid; after an odd count, dashes and gaps change places.
/// Throws std::bad_alloc.
void addStroke(AreaFiller& filler, const Path& path, const Pen& pen);

}  // namespace orvane
