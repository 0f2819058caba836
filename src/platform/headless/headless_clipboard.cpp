#include <orvane/headless_clipboard.h>

#include <new>
#include <utility>

namespace orvane {

std::optional<std::vector<std::uint8_t>> HeadlessClipboard::readBitmap() {
    ++openings_;
    if (refusing_) return std::nullopt;
    try {
        return block_;
    } catch (const std::bad_alloc&) {
        return std::nullopt;
    }
}

bool HeadlessClipboard::writeBitmap(std::vector<std::uint8_t> block) {
    ++openings_;
    if (refusing_) return false;
    block_ = std::move(block);
    return true;
}

}  // namespace orvane
