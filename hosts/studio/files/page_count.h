#pragma once

#include <string>

namespace orvane::studio {

/// What a picture file holds besides the picture that is shown of it.
enum class FileParts { OnePicture, Pages, Frames };

/// Whether a TIFF file has a second page, or a GIF file a second frame. Every other file, one that cannot be
/// read, and one that ends before its second part has begun, is of one picture.
///
/// Reads to where the second part begins and no further.
[[nodiscard]] FileParts partsOfFile(const std::string& path);

}  // namespace orvane::studio
