#include "gtk/gtk_clipboard.h"

#include <string_view>
#include <utility>

#include <orvane/clipboard_pictures.h>

#include "gtk/clipboard_fetch.h"
#include "gtk/clipboard_offer.h"

namespace orvane::gtk {
namespace {

/// What a picture loses on its way in each format.
enum class Loss { None, Pages, Colours, Unreadable };

// Without image/x-MS-bmp, which the toolkit cannot ask for: it turns every type into small letters.
constexpr struct {
    std::string_view mimeType;
    Loss loss;
} kReadable[] = {
    {"image/png", Loss::None},    {"image/bmp", Loss::None},     {"image/x-bmp", Loss::None},
    {"image/tiff", Loss::Pages},  {"image/webp", Loss::Colours}, {"image/jpeg", Loss::Colours},
    {"image/jpg", Loss::Colours}, {"image/gif", Loss::Colours},
};

Loss lossOf(std::string_view mimeType) {
    for (const auto& readable : kReadable) {
        if (mimeType == readable.mimeType) return readable.loss;
    }
    return Loss::Unreadable;
}

/// The format that loses least; of equal ones that which the owner names first, since it knows which of them
/// comes easiest. Null when no picture is offered. The text is valid for good.
const char* bestPictureType(GdkContentFormats* formats) {
    gsize count = 0;
    const char* const* offered = gdk_content_formats_get_mime_types(formats, &count);
    const char* best = nullptr;
    Loss leastLoss = Loss::Unreadable;
    for (gsize i = 0; i < count; ++i) {
        const Loss loss = lossOf(offered[i]);
        if (loss >= leastLoss) continue;
        leastLoss = loss;
        best = g_intern_string(offered[i]);
    }
    return best;
}

}  // namespace

void GtkClipboard::cancelRead() noexcept {
    if (fetch_ != nullptr) fetch_->cancel();
}

// A texture of this program counts as well: the toolkit offers it in the formats that it can write.
bool GtkClipboard::offersBitmap() const {
    return bestPictureType(gdk_clipboard_get_formats(gtk_widget_get_clipboard(widget_))) != nullptr;
}

std::optional<std::vector<std::uint8_t>> GtkClipboard::readBitmap() try {
    GdkClipboard* clipboard = gtk_widget_get_clipboard(widget_);
    if (auto block = blockOfOffer(gdk_clipboard_get_content(clipboard))) return block;
    const char* mimeType = bestPictureType(gdk_clipboard_get_formats(clipboard));
    if (mimeType == nullptr || isWaiting()) return std::nullopt;
    const auto file = fetchFile(mimeType);
    if (!file) return std::nullopt;
    auto block = clipboardBlockFromFile(*file);
    return block.empty() ? std::nullopt : std::optional(std::move(block));
} catch (...) {
    return std::nullopt;  // without memory
}

std::optional<std::vector<std::uint8_t>> GtkClipboard::fetchFile(const char* mimeType) {
    ClipboardFetch fetch;
    fetch_ = &fetch;
    auto file = fetch.run(gtk_widget_get_clipboard(widget_), mimeType);
    fetch_ = nullptr;
    return file;
}

bool GtkClipboard::writeBitmap(std::vector<std::uint8_t> block) try {
    GdkContentProvider* offer = newClipboardOffer(std::move(block));
    const bool taken = gdk_clipboard_set_content(gtk_widget_get_clipboard(widget_), offer);
    g_object_unref(offer);
    return taken;
} catch (...) {
    return false;  // without memory
}

}  // namespace orvane::gtk
