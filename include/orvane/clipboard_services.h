#pragma once

#include <cstdint>
#include <optional>
#include <vector>

namespace orvane {

/// What the control asks of the system's clipboard. A host implements this; one clipboard may serve several
/// controls. All calls come from the thread that drives the control. None may throw.
///
/// Pictures travel as device-independent bitmaps in one block: the bitmap's header, the colour masks or the
/// colour table that it announces, the pixel rows. Bytes may follow that belong to nothing.
class ClipboardServices {
 public:
    virtual ~ClipboardServices() = default;
    /// Whether the clipboard offers such a bitmap. Asked whenever a host updates its menus, so it should be
    /// answered without fetching the bitmap.
    [[nodiscard]] virtual bool offersBitmap() const = 0;
    /// The block; nothing when none is offered, when the clipboard cannot be opened, or without memory.
    [[nodiscard]] virtual std::optional<std::vector<std::uint8_t>> readBitmap() = 0;
    /// Puts the block in place of whatever the clipboard holds. False when the clipboard cannot be opened.
    virtual bool writeBitmap(std::vector<std::uint8_t> block) = 0;
};

}  // namespace orvane
