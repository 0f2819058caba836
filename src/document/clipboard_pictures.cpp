#include <orvane/clipboard_pictures.h>

#include "document/clipboard_picture.h"
#include "document/surface_target.h"
#include "platform/codecs/clipboard_bitmap.h"

namespace orvane {
namespace {

std::vector<std::uint8_t> fileFromBlock(std::span<const std::uint8_t> block, ImageFormat format) noexcept {
    constexpr int kQualityOfNoMatter = 100;
    const PixelSurface picture = pictureFromClipboardBlock(block);
    return picture ? encodeImage(picture.read(), format, kQualityOfNoMatter) : std::vector<std::uint8_t>();
}

}  // namespace

std::vector<std::uint8_t> clipboardBlockFromFile(std::span<const std::uint8_t> file) noexcept {
    SurfaceTarget target;
    if (!decodeImage(file, target)) return {};
    const PixelSurface& picture = target.surface;
    return picture.isOpaque() ? encodeClipboardBitmap(picture.read())
                              : encodeClipboardBitmapWithAlpha(picture.read());
}

std::vector<std::uint8_t> bmpFromClipboardBlock(std::span<const std::uint8_t> block) noexcept {
    return fileFromBlock(block, ImageFormat::Bmp);
}

std::vector<std::uint8_t> pngFromClipboardBlock(std::span<const std::uint8_t> block) noexcept {
    return fileFromBlock(block, ImageFormat::Png);
}

}  // namespace orvane
