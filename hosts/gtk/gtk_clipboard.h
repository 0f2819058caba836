#pragma once

#include <gtk/gtk.h>

#include <orvane/clipboard_services.h>

namespace orvane::gtk {

class ClipboardFetch;

/// The clipboard of a widget's display, which all widgets there share. Between this process's widgets a block
/// goes as it is; other programs are given image/bmp and image/png, and give any picture file that the
/// library reads.
class GtkClipboard final : public ClipboardServices {
 public:
    explicit GtkClipboard(GtkWidget* widget) noexcept : widget_(widget) {}

    /// Whether a read waits for another program. The main loop runs meanwhile, so anything may be called.
    [[nodiscard]] bool isWaiting() const noexcept { return fetch_ != nullptr; }
    /// Has a read that waits end with nothing.
    void cancelRead() noexcept;

    /// Answered from what the owner has announced.
    [[nodiscard]] bool offersBitmap() const override;
    /// Waits at most three seconds for the next byte. Nothing while another read waits.
    [[nodiscard]] std::optional<std::vector<std::uint8_t>> readBitmap() override;
    /// What is offered outlives the widget.
    bool writeBitmap(std::vector<std::uint8_t> block) override;

 private:
    [[nodiscard]] std::optional<std::vector<std::uint8_t>> fetchFile(const char* mimeType);

    GtkWidget* widget_;
    ClipboardFetch* fetch_ = nullptr;  ///< on the stack of readBitmap() while it waits
};

}  // namespace orvane::gtk
