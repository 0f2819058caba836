#include "platform/image_codecs.h"

#include <algorithm>
#include <string_view>

#include "platform/codecs/bmp_codec.h"
#include "platform/linux/gif_codec.h"
#include "platform/linux/jpeg_codec.h"
#include "platform/linux/png_codec.h"
#include "platform/linux/tiff_codec.h"
#include "platform/linux/webp_codec.h"

namespace orvane {
namespace {

using namespace std::string_view_literals;

using Decoder = bool (*)(std::span<const std::uint8_t>, DecodeTarget&) noexcept;

/// How a file of each format begins. WebP shares its first word with other containers; its decoder looks at
/// the rest.
constexpr struct {
    std::string_view beginning;
    Decoder decode;
} kFormats[] = {
    {"\xff\xd8\xff"sv, decodeJpeg},
    {"\x89PNG\r\n\x1a\n"sv, decodePng},
    {"BM"sv, decodeBmp},
    {"GIF8"sv, decodeGif},
    {"II*\0"sv, decodeTiff},
    {"MM\0*"sv, decodeTiff},
    {"RIFF"sv, decodeWebp},
};

bool beginsWith(std::span<const std::uint8_t> bytes, std::string_view beginning) {
    return bytes.size() >= beginning.size() &&
           std::equal(beginning.begin(), beginning.end(), bytes.begin(),
                      [](char expected, std::uint8_t byte) { return std::uint8_t(expected) == byte; });
}

}  // namespace

bool decodeImage(std::span<const std::uint8_t> bytes, DecodeTarget& target) noexcept {
    for (const auto& format : kFormats)
        if (beginsWith(bytes, format.beginning)) return format.decode(bytes, target);
    return false;
}

std::vector<std::uint8_t> encodeImage(PixelView picture, ImageFormat format, int quality) noexcept {
    switch (format) {
        case ImageFormat::Bmp:
            return encodeBmp(picture);
        case ImageFormat::Jpeg:
            return encodeJpeg(picture, quality);
        case ImageFormat::Gif:
            return encodeGif(picture);
        case ImageFormat::Tiff:
            return encodeTiff(picture);
        case ImageFormat::Png:
            return encodePng(picture);
    }
    return {};
}

}  // namespace orvane
