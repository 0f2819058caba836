#include "cli/picture_formats.h"

#include <algorithm>

namespace orvane::cli {
namespace {

struct ExtensionRow {
    std::string_view extension;
    ImageFormat format;
};
constexpr ExtensionRow kExtensions[] = {
    {"bmp", ImageFormat::Bmp},   {"jpg", ImageFormat::Jpeg}, {"jpeg", ImageFormat::Jpeg},
    {"jpe", ImageFormat::Jpeg},  {"gif", ImageFormat::Gif},  {"tif", ImageFormat::Tiff},
    {"tiff", ImageFormat::Tiff}, {"png", ImageFormat::Png},
};

}  // namespace

std::optional<ImageFormat> formatOfExtension(std::string_view extension) {
    const auto same = [](char a, char b) { return (a >= 'A' && a <= 'Z' ? a - 'A' + 'a' : a) == b; };
    for (const ExtensionRow& row : kExtensions) {
        if (std::equal(extension.begin(), extension.end(), row.extension.begin(), row.extension.end(),
                       same)) {
            return row.format;
        }
    }
    return std::nullopt;
}

std::optional<ImageFormat> formatOfPath(std::string_view path) {
    const std::string_view extension = extensionOf(path);
    return extension.empty() ? std::nullopt : formatOfExtension(extension.substr(1));
}

std::string knownExtensions() {
    std::string list;
    for (const ExtensionRow& row : kExtensions) {
        list += (list.empty() ? "." : " .") + std::string(row.extension);
    }
    return list;
}

std::string_view extensionOf(std::string_view path) {
    const std::size_t slash = path.rfind('/');
    const std::string_view name = slash == std::string_view::npos ? path : path.substr(slash + 1);
    const std::size_t dot = name.rfind('.');
    return dot == std::string_view::npos || dot == 0 ? std::string_view() : name.substr(dot);
}

}  // namespace orvane::cli
