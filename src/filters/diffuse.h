#pragma once

namespace orvane {

class ImageDocument;

/// Replaces every pixel by one in its random neighbourhood, as through frosted glass.
///
/// reach: from 1 (below: nothing happens). Both offsets are whole numbers from -reach to reach, and once in
/// 32768 draws reach + 1; beyond an edge the edge pixel is taken. The whole word is moved and drawn over the
/// pixel that was there, so that a partly transparent one blends. The random numbers come from the stream
/// that all controls of the process share, two per pixel, column by column from the left, each from the top.
/// One history step; an empty document, or one that finds no memory for the step, stays as it is, and so does
/// the stream.
void diffuse(ImageDocument& document, int reach) noexcept;

}  // namespace orvane
