#pragma once

#include <orvane/pixels.h>

#include <atomic>
#include <cstdint>
#include <memory>

namespace orvane {

/// One raster of straight 32-bit pixels without row padding, behind a shared buffer with copy on write:
/// copying a surface shares its pixels, and the first write to either copy detaches it. Null when
/// default-constructed or when memory ran out. Views handed out are valid until the next non-const call.
class PixelSurface {
 public:
    PixelSurface() noexcept = default;

    /// A surface with undefined contents; null when a side is below 1, when the size exceeds
    /// kMaxImageBytes, or when memory ran out.
    [[nodiscard]] static PixelSurface create(int width, int height) noexcept;

    [[nodiscard]] bool isNull() const noexcept { return buffer_ == nullptr; }
    explicit operator bool() const noexcept { return !isNull(); }
    [[nodiscard]] int width() const noexcept { return buffer_ ? width_ : 0; }
    [[nodiscard]] int height() const noexcept { return buffer_ ? height_ : 0; }

    /// The pixels to read.
    [[nodiscard]] PixelView read() const noexcept;
    /// The pixels to change: detaches first, keeping the contents (a copy when they are shared). Null view
    /// when the copy cannot be made; the surface is then as before.
    [[nodiscard]] MutablePixelView write() noexcept;
    /// The pixels to replace as a whole: detaches without copying, contents undefined. Null view as for
    /// write().
    [[nodiscard]] MutablePixelView overwrite() noexcept;

    /// Whether both share one buffer (and so surely hold the same pixels).
    [[nodiscard]] bool sharesPixelsWith(const PixelSurface& other) const noexcept {
        return buffer_ == other.buffer_;
    }
    /// Names the contents: differs from every other contents that existed in this process, changes whenever
    /// write access is given. Copies that share pixels share it. 0 for a null surface.
    [[nodiscard]] std::uint64_t contentId() const noexcept;
    /// Whether every pixel has alpha 255: found by one pass at the first call after a change, then
    /// remembered.
    [[nodiscard]] bool isOpaque() const noexcept;
    /// Tells the surface that what was just written is opaque throughout, which spares it that pass.
    void markOpaque() noexcept;
    /// Tells the surface that what was just written are the other's pixels, rearranged: what is known of them
    /// holds here.
    void takeOpacityFrom(const PixelSurface& other) noexcept;

 private:
    struct Buffer;
    std::shared_ptr<Buffer> buffer_;
    int width_ = 0, height_ = 0;
};

}  // namespace orvane
