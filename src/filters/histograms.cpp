#include "filters/histograms.h"

#include "document/image_document.h"

namespace orvane {

namespace {

std::optional<LevelCounts> channelHistogram(const ImageDocument& document, int shift) noexcept {
    const PixelView image = document.currentPixels();
    if (!image) return std::nullopt;
    return countChannel(image.pixels, image.pixelCount(), shift);
}

}  // namespace

std::optional<LevelCounts> redHistogram(const ImageDocument& document) noexcept {
    return channelHistogram(document, 16);
}

std::optional<LevelCounts> greenHistogram(const ImageDocument& document) noexcept {
    return channelHistogram(document, 8);
}

std::optional<LevelCounts> blueHistogram(const ImageDocument& document) noexcept {
    return channelHistogram(document, 0);
}

std::optional<LevelCounts> lumaHistogram(const ImageDocument& document) noexcept {
    const PixelView image = document.currentPixels();
    if (!image) return std::nullopt;
    return countLuma(image.pixels, image.pixelCount());
}

}  // namespace orvane
