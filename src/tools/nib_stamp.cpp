#include "tools/nib_stamp.h"

#include <algorithm>

#include "platform/graphics/fill.h"
#include "platform/graphics/shapes.h"
#include "platform/graphics/source_over.h"

namespace orvane {

NibStamp::NibStamp(const Nib& nib) noexcept : nib_(nib) {
    nib_.size = std::clamp(nib.size, 0, Nib::kLargestSize);
    if (nib.shape == NibShape::Circle) {
        findCircle();
    } else {
        coverage_.fill(255);
    }
}

// Drawn opaquely on nothing, a shape leaves its coverage in the alpha bytes.
void NibStamp::findCircle() noexcept {
    std::array<Argb, kLargestSide * kLargestSide> pixels{};
    const IntRect box = nib_.boxAround({nib_.size, nib_.size});
    fillEllipse({pixels.data(), kLargestSide, kLargestSide, kLargestSide}, SolidBrush{0xFFFFFFFFu}, box);
    std::transform(pixels.begin(), pixels.end(), coverage_.begin(),
                   [](Argb pixel) { return std::uint8_t(alphaOf(pixel)); });
}

void NibStamp::draw(MutablePixelView target, IntPoint centre) const noexcept {
    const IntRect box = nib_.boxAround(centre);
    if (nib_.shape != NibShape::Circle && alphaOf(nib_.colour) == 255)
        return fillRect(target, box, nib_.colour);
    const IntRect part = clippedTo({target.width, target.height}, box);
    for (int y = part.y; y < part.bottom(); ++y) {
        const std::uint8_t* coverage = coverage_.data() + (y - box.y) * kLargestSide + (part.x - box.x);
        sourceOverMasked(nib_.colour, coverage, target.row(y) + part.x, std::size_t(part.width));
    }
}

}  // namespace orvane
