// Stand-ins until these codecs land: every load and save fails.
#include "platform/linux/tiff_codec.h"

namespace orvane {

__attribute__((weak)) bool decodeTiff(std::span<const std::uint8_t>, DecodeTarget&) noexcept { return false; }
__attribute__((weak)) std::vector<std::uint8_t> encodeTiff(PixelView) noexcept { return {}; }

}  // namespace orvane
