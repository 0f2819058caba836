// What another program hands over, as a picture file and as a block; and what becomes of its picture when it
// is handed on: the same pixels as a PNG file, the same colours as a BMP file.
#include <orvane/clipboard_pictures.h>

#include <cstddef>
#include <span>

#include "bounded_target.h"
#include "platform/codecs/clipboard_bitmap.h"

namespace {

using namespace orvane;
using Decode = bool (*)(std::span<const std::uint8_t>, DecodeTarget&) noexcept;

void expectPicture(Decode decode, std::span<const std::uint8_t> bytes, PixelView expected, Argb added) {
    fuzz::BoundedTarget target;
    if (!decode(bytes, target)) __builtin_trap();
    const PixelView picture = target.picture();
    if (picture.width != expected.width || picture.height != expected.height) __builtin_trap();
    for (std::size_t i = 0; i < picture.pixelCount(); ++i) {
        if (picture.pixels[i] != (expected.pixels[i] | added)) __builtin_trap();
    }
}

void takeFile(std::span<const std::uint8_t> file) {
    fuzz::BoundedTarget target;
    if (!decodeImage(file, target)) {
        // A picture that is only too large for this search need not be decoded a second time.
        if (!target.wasRefused() && !clipboardBlockFromFile(file).empty()) __builtin_trap();
        return;
    }
    expectPicture(decodeClipboardBitmap, clipboardBlockFromFile(file), target.picture(), 0);
}

void takeBlock(std::span<const std::uint8_t> block) {
    fuzz::BoundedTarget target;
    if (!decodeClipboardBitmap(block, target)) return;
    expectPicture(decodeImage, pngFromClipboardBlock(block), target.picture(), 0);
    expectPicture(decodeImage, bmpFromClipboardBlock(block), target.picture(), 0xff000000u);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    takeFile({data, size});
    takeBlock({data, size});
    return 0;
}
