#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include <gtk/gtk.h>

namespace orvane::gtk {

/// A block of `ClipboardServices` as what a GTK clipboard holds: it offers image/bmp and image/png and makes
/// the file when somebody asks for it, on a thread of its own. The block lives as long as the clipboard, or
/// whoever is just reading it, holds the offer. It does not depend on the widget that made it.
[[nodiscard]] GdkContentProvider* newClipboardOffer(std::vector<std::uint8_t> block);

/// The block again. Nothing when the content (which may be null) is no such offer.
[[nodiscard]] std::optional<std::vector<std::uint8_t>> blockOfOffer(GdkContentProvider* content);

}  // namespace orvane::gtk
