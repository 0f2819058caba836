#pragma once

namespace orvane {

class ImageDocument;

/// Blurs (see blur) the pixels whose window of 2 * radius + 1 pixels square is flat: in at least one of R, G
/// and B, maximum less minimum is at most `level`. All other pixels stay as they are, alpha included; so do
/// all with a level below 0, while 255 blurs everything. Sums wrap at 32 bits, which radii beyond 1450 reach.
/// radius: from 1; below is refused. Beyond kMaxKernelRadius there is no memory for the kernel. The cost
/// grows with the logarithm of the radius. One history step, even when nothing changes; an empty document, or
/// one that finds no memory for the step, stays as it is.
void smartBlur(ImageDocument& document, int radius, int level) noexcept;

}  // namespace orvane
