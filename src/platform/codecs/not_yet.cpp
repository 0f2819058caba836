// Stand-ins until the codecs and files land: every load and save fails.
#include "platform/files.h"
#include "platform/image_codecs.h"

namespace orvane {

__attribute__((weak)) bool decodeImage(std::span<const std::uint8_t>, DecodeTarget&) noexcept {
    return false;
}
__attribute__((weak)) std::vector<std::uint8_t> encodeImage(PixelView, ImageFormat, int) noexcept {
    return {};
}
__attribute__((weak)) bool isReadableFile(std::string_view) noexcept { return false; }
__attribute__((weak)) std::optional<std::vector<std::uint8_t>> readWholeFile(std::string_view) noexcept {
    return std::nullopt;
}
__attribute__((weak)) bool replaceFile(std::string_view, std::span<const std::uint8_t>) noexcept {
    return false;
}

}  // namespace orvane
