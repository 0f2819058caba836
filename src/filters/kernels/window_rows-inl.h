// The loop of small fixed windows, edges included; compiled once per instruction set.
#if defined(ORVANE_FILTERS_KERNELS_WINDOW_ROWS_INL_H) == defined(HWY_TARGET_TOGGLE)
#ifdef ORVANE_FILTERS_KERNELS_WINDOW_ROWS_INL_H
#undef ORVANE_FILTERS_KERNELS_WINDOW_ROWS_INL_H
#else
#define ORVANE_FILTERS_KERNELS_WINDOW_ROWS_INL_H
#endif

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "filters/kernels/map_pixels-inl.h"

HWY_BEFORE_NAMESPACE();
namespace orvane {
namespace HWY_NAMESPACE {

/// Channels of neighbouring pixels, widened for arithmetic, and the same as bytes.
using ShortTag = hn::ScalableTag<std::int16_t>;
using ShortVector = hn::Vec<ShortTag>;
using LevelTag = hn::Rebind<std::uint8_t, ShortTag>;
using LevelVector = hn::Vec<LevelTag>;

constexpr int kPixelBytes = 4;

/// What a kernel sees: the source around the pixels at hand, up to kReach pixels away in each direction.
template <int kReach>
struct Window {
    static constexpr int kRows = 2 * kReach + 1;
    const std::uint8_t* rows[kRows];  ///< at the first pixel at hand; the middle one is its own row

    [[nodiscard]] HWY_INLINE const std::uint8_t* at(int dx, int dy) const {
        return rows[dy + kReach] + dx * kPixelBytes;
    }
    [[nodiscard]] HWY_INLINE LevelVector levels(int dx, int dy) const {
        return hn::LoadU(LevelTag(), at(dx, dy));
    }
    [[nodiscard]] HWY_INLINE ShortVector shorts(int dx, int dy) const {
        return hn::PromoteTo(ShortTag(), levels(dx, dy));
    }
    [[nodiscard]] HWY_INLINE Window movedBy(std::size_t bytes) const {
        Window moved;
        for (int row = 0; row < kRows; ++row) moved.rows[row] = rows[row] + bytes;
        return moved;
    }
};

/// The levels with every alpha set to 255. `firstByte` counts from the start of the row.
HWY_INLINE LevelVector withOpaqueAlpha(LevelVector levels, [[maybe_unused]] std::size_t firstByte) {
    const LevelTag d;
#if HWY_TARGET == HWY_SCALAR
    return firstByte % kPixelBytes == 3 ? hn::Set(d, std::uint8_t{255}) : levels;
#else
    const hn::Repartition<Argb, LevelTag> pixels;
    return hn::Or(levels, hn::BitCast(d, hn::Set(pixels, kOpaque)));
#endif
}

/// Runs kernel(window, firstByte) -> LevelVector over a row of a picture.
template <int kReach, class Kernel>
class WindowRow {
    static constexpr std::size_t kMargin = kReach * kPixelBytes;
    static constexpr std::size_t kMaxStep = HWY_LANES(std::int16_t);

 public:
    explicit WindowRow(const Kernel& kernel) : kernel_(kernel) {}

    template <bool kStreamed>
    HWY_INLINE void run(const Window<kReach>& window, std::uint8_t* HWY_RESTRICT target,
                        std::size_t rowBytes) const {
        const std::size_t pair = 2 * hn::Lanes(LevelTag());
        const std::size_t misaligned = reinterpret_cast<std::uintptr_t>(target + kMargin) % pair;
        std::size_t i = kMargin + (misaligned == 0 ? 0 : pair - misaligned);
        if (rowBytes < i + pair + kMargin) {
            runWithEdges(window, target, 0, rowBytes, rowBytes);
            return;
        }
        runWithEdges(window, target, 0, i, rowBytes);
        for (; i + pair + kMargin <= rowBytes; i += pair) runPair<kStreamed>(window, target, i);
        runWithEdges(window, target, i, rowBytes, rowBytes);
    }

 private:
    /// Two vectors, so that a store fills a whole one.
    template <bool kStreamed>
    HWY_INLINE void runPair(const Window<kReach>& window, std::uint8_t* HWY_RESTRICT target,
                            std::size_t i) const {
        const LevelTag d;
        const std::size_t step = hn::Lanes(d);
        const auto first = kernel_(window.movedBy(i), i);
        const auto second = kernel_(window.movedBy(i + step), i + step);
#if HWY_TARGET == HWY_SCALAR
        hn::StoreU(first, d, target + i);
        hn::StoreU(second, d, target + i + step);
#else
        const hn::Twice<LevelTag> whole;
        const auto both = hn::Combine(whole, second, first);
        if constexpr (kStreamed) {
            hn::Stream(both, whole, target + i);
        } else {
            hn::Store(both, whole, target + i);
        }
#endif
    }

    /// Bytes [first, last) by way of copies whose pixels beyond the picture repeat its edge.
    HWY_NOINLINE void runWithEdges(const Window<kReach>& window, std::uint8_t* target, std::size_t first,
                                   std::size_t last, std::size_t rowBytes) const {
        const LevelTag d;
        const std::size_t step = hn::Lanes(d);
        std::uint8_t copies[Window<kReach>::kRows][2 * kMargin + 2 * kMaxStep + kPixelBytes];
        std::uint8_t results[kMaxStep + kPixelBytes];
        const std::size_t block = std::max<std::size_t>(step, kPixelBytes);
        for (; first < last; first += block) {
            const std::size_t length = std::min(block, last - first);
            Window<kReach> padded;
            for (int row = 0; row < Window<kReach>::kRows; ++row) {
                copyAround(window.rows[row], rowBytes, first, length, copies[row]);
                padded.rows[row] = copies[row] + kMargin;
            }
            for (std::size_t i = 0; i < block; i += step) {
                hn::StoreU(kernel_(padded.movedBy(i), first + i), d, results + i);
            }
            std::memcpy(target + first, results, length);
        }
    }

    static void copyAround(const std::uint8_t* row, std::size_t rowBytes, std::size_t first,
                           std::size_t length, std::uint8_t* copy) {
        const auto lastPixel = static_cast<std::ptrdiff_t>(rowBytes) - kPixelBytes;
        const auto begin = static_cast<std::ptrdiff_t>(first) - static_cast<std::ptrdiff_t>(kMargin);
        const auto end = static_cast<std::ptrdiff_t>(first + length + kMargin);
        for (std::ptrdiff_t at = begin; at < end; at += kPixelBytes, copy += kPixelBytes) {
            std::memcpy(copy, row + std::clamp<std::ptrdiff_t>(at, 0, lastPixel), kPixelBytes);
        }
    }

    const Kernel& kernel_;
};

/// Writes every target pixel from the window of source pixels around it; pixels beyond an edge repeat the
/// edge pixel. kernel(const Window<kReach>&, std::size_t firstByte) returns the bytes to store for a vector
/// of channels, of which firstByte is the first one's place in the row. It may read past the last pixel asked
/// for only within the window. source, target: equal sizes, not overlapping.
template <int kReach, class Kernel>
HWY_INLINE void forEachWindow(PixelView source, MutablePixelView target, const Kernel& kernel) {
    const WindowRow<kReach, Kernel> row(kernel);
    const std::size_t rowBytes = std::size_t(source.width) * kPixelBytes;
#if HWY_TARGET == HWY_SCALAR
    const bool streamed = false;
#else
    const bool streamed = source.pixelCount() >= kStreamedPixels;
#endif
    for (int y = 0; y < source.height; ++y) {
        Window<kReach> window;
        for (int dy = -kReach; dy <= kReach; ++dy) {
            const int clamped = std::clamp(y + dy, 0, source.height - 1);
            window.rows[dy + kReach] = reinterpret_cast<const std::uint8_t*>(source.row(clamped));
        }
        auto* bytes = reinterpret_cast<std::uint8_t*>(target.row(y));
        if (streamed) {
            row.template run<true>(window, bytes, rowBytes);
        } else {
            row.template run<false>(window, bytes, rowBytes);
        }
    }
    if (streamed) hwy::FlushStream();
}

}  // namespace HWY_NAMESPACE
}  // namespace orvane
HWY_AFTER_NAMESPACE();

#endif  // include guard per instruction set
