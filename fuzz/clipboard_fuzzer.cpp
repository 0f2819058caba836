// A block from the clipboard, and what becomes of its picture when it is copied again: the same colours,
// opaque.
#include "platform/codecs/clipboard_bitmap.h"

#include <cstddef>

#include "bounded_target.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace orvane;
    fuzz::BoundedTarget pasted;
    if (!decodeClipboardBitmap({data, size}, pasted)) return 0;

    const PixelView picture = pasted.picture();
    fuzz::BoundedTarget again;
    if (!decodeClipboardBitmap(encodeClipboardBitmap(picture), again)) __builtin_trap();
    for (std::size_t i = 0; i < picture.pixelCount(); ++i) {
        if (again.picture().pixels[i] != (picture.pixels[i] | 0xff000000u)) __builtin_trap();
    }
    return 0;
}
