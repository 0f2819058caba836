#pragma once

#include <span>
#include <string>
#include <string_view>

namespace orvane::studio {

/// A file format that pictures are saved in.
struct PictureFormat {
    int type;           ///< nType of SaveImage
    const char* label;  ///< "JPEG"
    const char* mimeType;
    const char* extension;  ///< without the dot
    const char* aliases;    ///< further extensions, each with a space before and after
};

[[nodiscard]] std::span<const PictureFormat> saveFormats();
/// The format that a file name's extension stands for; null when pictures are not saved in it.
[[nodiscard]] const PictureFormat* formatOfName(std::string_view fileName);
/// The name with the format's extension in place of another format's, or behind a name without one.
[[nodiscard]] std::string nameInFormat(std::string_view fileName, const PictureFormat& format);
/// The MIME types of what can be opened.
[[nodiscard]] std::span<const char* const> openableTypes();

inline constexpr int kJpegType = 1;

}  // namespace orvane::studio
