// Rows of results on their way to the target; compiled once per instruction set.
#if defined(ORVANE_FILTERS_KERNELS_ROW_WRITER_INL_H) == defined(HWY_TARGET_TOGGLE)
#ifdef ORVANE_FILTERS_KERNELS_ROW_WRITER_INL_H
#undef ORVANE_FILTERS_KERNELS_ROW_WRITER_INL_H
#else
#define ORVANE_FILTERS_KERNELS_ROW_WRITER_INL_H
#endif

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <vector>

#include "filters/kernels/map_pixels-inl.h"

HWY_BEFORE_NAMESPACE();
namespace orvane {
namespace HWY_NAMESPACE {

/// A row that a kernel may fill beyond its end, by up to 64 bytes, and that then goes to the target, around
/// the caches when the picture is larger than they are.
class RowWriter {
 public:
    explicit RowWriter(MutablePixelView target)
        : target_(target), bytes_(std::size_t(target.width) * sizeof(Argb) + 64) {
#if HWY_TARGET != HWY_SCALAR
        streamed_ = target.pixelCount() >= kStreamedPixels;
#endif
    }
    ~RowWriter() {
        if (streamed_) hwy::FlushStream();
    }
    RowWriter(const RowWriter&) = delete;
    RowWriter& operator=(const RowWriter&) = delete;

    [[nodiscard]] std::uint8_t* bytes() { return bytes_.data(); }

    void writeTo(int y) const {
        auto* row = reinterpret_cast<std::uint8_t*>(target_.row(y));
        const std::size_t length = std::size_t(target_.width) * sizeof(Argb);
        std::size_t done = 0;
#if HWY_TARGET != HWY_SCALAR
        if (streamed_) {
            const ByteTag d;
            done = pixelsBeforeAlignment(target_.row(y), std::size_t(target_.width)) * sizeof(Argb);
            std::memcpy(row, bytes_.data(), done);
            for (; done + hn::Lanes(d) <= length; done += hn::Lanes(d)) {
                hn::Stream(hn::LoadU(d, bytes_.data() + done), d, row + done);
            }
        }
#endif
        std::memcpy(row + done, bytes_.data() + done, length - done);
    }

 private:
    MutablePixelView target_;
    std::vector<std::uint8_t> bytes_;
    bool streamed_ = false;
};

}  // namespace HWY_NAMESPACE
}  // namespace orvane
HWY_AFTER_NAMESPACE();

#endif  // include guard per instruction set
