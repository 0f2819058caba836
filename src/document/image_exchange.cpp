// The document's exchange with files and raw arrays.
#include <algorithm>
#include <cstring>
#include <utility>

#include "document/image_document.h"
#include "document/surface_file.h"
#include "platform/files.h"
#include "platform/image_codecs.h"

namespace orvane {
namespace {

constexpr int kSmallestLoadedSide = 2;

bool isLoadable(const PixelSurface& surface) {
    return surface.width() >= kSmallestLoadedSide && surface.height() >= kSmallestLoadedSide;
}

}  // namespace

bool ImageDocument::loadImage(std::string_view path) noexcept {
    clearDocument();
    PixelSurface surface = loadSurface(path);
    if (!isLoadable(surface)) return false;
    history.start(std::move(surface));
    view.showLoadedImage(size());
    return true;
}

bool ImageDocument::saveImage(std::string_view path, int type) noexcept {
    if (isEmpty() || type < int(ImageFormat::Bmp) || type > int(ImageFormat::Png)) return false;
    const auto bytes = encodeImage(currentPixels(), ImageFormat(type), jpegQuality);
    if (bytes.empty() || !replaceFile(path, bytes)) return false;
    modified = false;
    return true;
}

bool ImageDocument::loadPixels(std::span<const std::uint8_t> bytes, int newWidth, int newHeight) noexcept {
    clearDocument();
    if (newWidth < kSmallestLoadedSide || newHeight < kSmallestLoadedSide ||
        bytes.size() / 4 / std::size_t(newWidth) < std::size_t(newHeight)) {
        return false;
    }
    PixelSurface surface = PixelSurface::create(newWidth, newHeight);
    if (surface.isNull()) return false;
    const MutablePixelView pixels = surface.overwrite();
    std::memcpy(pixels.pixels, bytes.data(), pixels.pixelCount() * sizeof(Argb));
    history.start(std::move(surface));
    view.showLoadedImage(size());
    return true;
}

std::optional<std::vector<std::uint8_t>> ImageDocument::imageArray() noexcept {
    if (!pushSnapshot()) return std::nullopt;
    std::optional<std::vector<std::uint8_t>> array;
    try {
        const PixelView pixels = currentPixels();
        const auto* bytes = reinterpret_cast<const std::uint8_t*>(pixels.pixels);
        array.emplace(bytes, bytes + pixels.pixelCount() * sizeof(Argb));
    } catch (const std::exception&) {
        // No memory for the array: the answer is none, and the step is taken back all the same.
    }
    undo();
    return array;
}

void ImageDocument::setJpegQuality(int quality) noexcept { jpegQuality = std::clamp(quality, 0, 100); }

}  // namespace orvane
