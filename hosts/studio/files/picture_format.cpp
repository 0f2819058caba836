#include "studio/files/picture_format.h"

#include <algorithm>
#include <cctype>

namespace orvane::studio {
namespace {

constexpr PictureFormat kFormats[] = {
    {4, "PNG", "image/png", "png", ""},         {1, "JPEG", "image/jpeg", "jpg", " jpeg jpe jfif "},
    {3, "TIFF", "image/tiff", "tif", " tiff "}, {0, "BMP", "image/bmp", "bmp", " dib "},
    {2, "GIF", "image/gif", "gif", ""},
};

constexpr const char* kOpenable[] = {"image/png", "image/jpeg", "image/tiff",
                                     "image/bmp", "image/gif",  "image/webp"};

/// Where the extension's dot stands; npos without one. A dot at the beginning hides a file and begins no
/// extension.
std::size_t dotOf(std::string_view name) {
    const std::size_t slash = name.rfind('/');
    const std::size_t first = slash == std::string_view::npos ? 0 : slash + 1;
    const std::size_t dot = name.rfind('.');
    return dot == std::string_view::npos || dot <= first ? std::string_view::npos : dot;
}

std::string extensionOf(std::string_view name) {
    const std::size_t dot = dotOf(name);
    std::string extension(dot == std::string_view::npos ? std::string_view() : name.substr(dot + 1));
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](unsigned char c) { return char(std::tolower(c)); });
    return extension;
}

bool isReadOnlyFormat(const std::string& extension) { return extension == "webp"; }

}  // namespace

std::span<const PictureFormat> saveFormats() { return kFormats; }

const PictureFormat* formatOfName(std::string_view fileName) {
    const std::string extension = extensionOf(fileName);
    if (extension.empty() || extension.find(' ') != std::string::npos) return nullptr;
    for (const PictureFormat& format : kFormats) {
        const bool alias =
            std::string_view(format.aliases).find(" " + extension + " ") != std::string_view::npos;
        if (extension == format.extension || alias) return &format;
    }
    return nullptr;
}

std::string nameInFormat(std::string_view fileName, const PictureFormat& format) {
    const PictureFormat* present = formatOfName(fileName);
    if (present == &format) return std::string(fileName);
    // An extension that stands for no format is part of the name: "holiday 3.5".
    const bool replaced = present != nullptr || isReadOnlyFormat(extensionOf(fileName));
    return std::string(replaced ? fileName.substr(0, dotOf(fileName)) : fileName) + "." + format.extension;
}

std::span<const char* const> openableTypes() { return kOpenable; }

}  // namespace orvane::studio
