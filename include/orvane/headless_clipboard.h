#pragma once

#include <orvane/clipboard_services.h>
#include <orvane/export.h>

namespace orvane {

/// A clipboard in memory, for hosts without a display, and for tests. Controls that share one exchange
/// pictures through it.
class ORVANE_EXPORT HeadlessClipboard final : public ClipboardServices {
 public:
    /// While it refuses it cannot be opened, as if another program held it; what it offers can still be
    /// asked.
    void refuse(bool refusing) { refusing_ = refusing; }
    /// Takes the bitmap away, as if another program had copied something else.
    void clear() { block_.reset(); }
    /// How often it was opened, to read or to write, whether or not it refused.
    [[nodiscard]] long openings() const { return openings_; }

    [[nodiscard]] bool offersBitmap() const override { return block_.has_value(); }
    [[nodiscard]] std::optional<std::vector<std::uint8_t>> readBitmap() override;
    bool writeBitmap(std::vector<std::uint8_t> block) override;

 private:
    std::optional<std::vector<std::uint8_t>> block_;
    bool refusing_ = false;
    long openings_ = 0;
};

}  // namespace orvane
