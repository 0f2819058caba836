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

/// Runs kernel(window, firstByte) -> LevelVector over a row of a picture, two vectors at a time, so that a
/// store fills a whole one.
template <int kReach, class Kernel>
class WindowRow {
    static constexpr std::size_t kMargin = kReach * kPixelBytes;
    static constexpr std::size_t kMaxPair = std::max<std::size_t>(2 * HWY_LANES(std::int16_t), kPixelBytes);

 public:
    explicit WindowRow(const Kernel& kernel) : kernel_(kernel) {}

    /// All full vectors go to aligned places. Those whose windows leave the row, and what is left at its
    /// ends, are computed from copies.
    template <bool kStreamed>
    HWY_INLINE void run(const Window<kReach>& window, std::uint8_t* HWY_RESTRICT target,
                        std::size_t rowBytes) const {
        const std::size_t pair = pairBytes();
        const std::size_t past = reinterpret_cast<std::uintptr_t>(target) % pair;
        std::size_t i = 0;
        if (past != 0) i = runPart(window, target, 0, std::min(pair - past, rowBytes), rowBytes);
        for (; i < kMargin && i + pair <= rowBytes; i += pair) {
            runEdge<kStreamed>(window, target, i, rowBytes);
        }
        for (; i + pair + kMargin <= rowBytes; i += pair) {
            for (int row = 0; row < Window<kReach>::kRows; ++row)
                hwy::Prefetch(window.rows[row] + std::min<std::size_t>(i + 2048, rowBytes - 1));
            runPair<kStreamed>(window.movedBy(i), i, target + i);
        }
        for (; i + pair <= rowBytes; i += pair) runEdge<kStreamed>(window, target, i, rowBytes);
        if (i < rowBytes) runPart(window, target, i, rowBytes - i, rowBytes);
    }

 private:
    /// The scalar fallback takes a pixel at a time.
    static HWY_INLINE std::size_t pairBytes() {
        return std::max<std::size_t>(2 * hn::Lanes(LevelTag()), kPixelBytes);
    }

    /// Computes two vectors for an aligned place.
    template <bool kStreamed>
    HWY_INLINE void runPair(const Window<kReach>& window, std::size_t firstByte,
                            std::uint8_t* HWY_RESTRICT target) const {
        const LevelTag d;
#if HWY_TARGET == HWY_SCALAR
        for (std::size_t i = 0; i < pairBytes(); ++i) {
            hn::Store(kernel_(window.movedBy(i), firstByte + i), d, target + i);
        }
#else
        const std::size_t step = hn::Lanes(d);
        const hn::Twice<LevelTag> whole;
        const auto first = kernel_(window, firstByte);
        const auto second = kernel_(window.movedBy(step), firstByte + step);
        const auto both = hn::Combine(whole, second, first);
        if constexpr (kStreamed) {
            hn::Stream(both, whole, target);
        } else {
            hn::Store(both, whole, target);
        }
#endif
    }

    /// The pair at byte i, whose window leaves the row.
    template <bool kStreamed>
    HWY_NOINLINE void runEdge(const Window<kReach>& window, std::uint8_t* target, std::size_t i,
                              std::size_t rowBytes) const {
        const PaddedCopy copy(window, i, pairBytes(), rowBytes);
        runPair<kStreamed>(copy.window(), i, target + i);
    }

    /// `length` bytes from byte i on, at most a pair. Returns their end.
    HWY_NOINLINE std::size_t runPart(const Window<kReach>& window, std::uint8_t* target, std::size_t i,
                                     std::size_t length, std::size_t rowBytes) const {
        const PaddedCopy copy(window, i, length, rowBytes);
        alignas(64) std::uint8_t results[kMaxPair];
        runPair<false>(copy.window(), i, results);
        std::memcpy(target + i, results, length);
        return i + length;
    }

    /// Part of a window's rows, in which the pixels beyond the picture repeat its edge.
    class PaddedCopy {
     public:
        PaddedCopy(const Window<kReach>& window, std::size_t first, std::size_t length,
                   std::size_t rowBytes) {
            const std::size_t before = std::min(first, kMargin), begin = first - before;
            const std::size_t end = std::min(first + length + kMargin, rowBytes);
            for (int row = 0; row < Window<kReach>::kRows; ++row) {
                const std::uint8_t* const source = window.rows[row];
                std::uint8_t* const copy = bytes_[row];
                for (std::size_t i = before; i < kMargin; i += kPixelBytes) {
                    std::memcpy(copy + i - before, source, kPixelBytes);
                }
                std::memcpy(copy + kMargin - before, source + begin, end - begin);
                for (std::size_t i = end; i < first + length + kMargin; i += kPixelBytes) {
                    std::memcpy(copy + i - first + kMargin, source + rowBytes - kPixelBytes, kPixelBytes);
                }
            }
        }

        [[nodiscard]] Window<kReach> window() const {
            Window<kReach> window;
            for (int row = 0; row < Window<kReach>::kRows; ++row) window.rows[row] = bytes_[row] + kMargin;
            return window;
        }

     private:
        std::uint8_t bytes_[Window<kReach>::kRows][kMaxPair + 2 * kMargin] = {};
    };

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
