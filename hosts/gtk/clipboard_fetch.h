#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include <gtk/gtk.h>

namespace orvane::gtk {

/// One read of the clipboard's bytes for a caller that waits: the main loop goes on meanwhile, because this
/// process may be the one that has to answer. Ends by itself when the owner has sent nothing for a while or
/// does not come to an end.
///
/// The owner's answer may come long after the caller has given up, or never; what it needs then lives on.
class ClipboardFetch {
 public:
    ClipboardFetch() = default;
    ~ClipboardFetch() { cancel(); }
    ClipboardFetch(const ClipboardFetch&) = delete;
    ClipboardFetch& operator=(const ClipboardFetch&) = delete;

    /// Nothing when it failed, was cancelled or took too long, and without memory. Once only.
    [[nodiscard]] std::optional<std::vector<std::uint8_t>> run(GdkClipboard* clipboard,
                                                               const char* mimeType) noexcept;
    /// Has a run end with nothing.
    void cancel() noexcept;

 private:
    struct Transfer;
    std::shared_ptr<Transfer> transfer_;
};

}  // namespace orvane::gtk
