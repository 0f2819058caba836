#pragma once
#include <gtk/gtk.h>
#include <orvane/clipboard_services.h>
namespace orvane::gtk {
class GtkClipboard final : public ClipboardServices {
 public:
    explicit GtkClipboard(GtkWidget*) noexcept {}
    [[nodiscard]] bool isWaiting() const noexcept { return false; }
    [[nodiscard]] bool offersBitmap() const override { return false; }
    [[nodiscard]] std::optional<std::vector<std::uint8_t>> readBitmap() override { return std::nullopt; }
    bool writeBitmap(std::vector<std::uint8_t>) override { return false; }
};
}  // namespace orvane::gtk
