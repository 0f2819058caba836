// The loop that all point kernels share; compiled once per instruction set.
#if defined(ORVANE_FILTERS_KERNELS_MAP_PIXELS_INL_H) == defined(HWY_TARGET_TOGGLE)
#ifdef ORVANE_FILTERS_KERNELS_MAP_PIXELS_INL_H
#undef ORVANE_FILTERS_KERNELS_MAP_PIXELS_INL_H
#else
#define ORVANE_FILTERS_KERNELS_MAP_PIXELS_INL_H
#endif

#include <hwy/cache_control.h>
#include <hwy/highway.h>
#include <orvane/pixels.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>

HWY_BEFORE_NAMESPACE();
namespace orvane {
namespace HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

constexpr Argb kOpaque = 0xFF000000u;

#if HWY_TARGET != HWY_SCALAR

using PixelTag = hn::ScalableTag<std::uint32_t>;
using ByteTag = hn::Repartition<std::uint8_t, PixelTag>;
using PixelVector = hn::Vec<PixelTag>;
using ByteVector = hn::Vec<ByteTag>;

/// Results from this size on (16 MiB) bypass the caches: the picture would have left them anyway before
/// anyone reads it, and a bypassing store spares the read of the old memory.
constexpr std::size_t kStreamedPixels = (std::size_t{16} << 20) / sizeof(Argb);

/// Stores to vector-aligned memory, through the caches or around them.
template <bool kStreamed>
HWY_INLINE void storePixels(PixelVector pixels, Argb* target) {
    const PixelTag d;
    if constexpr (kStreamed) {
        hn::Stream(pixels, d, target);
    } else {
        hn::Store(pixels, d, target);
    }
}

/// How many pixels come before the first vector-aligned one, at most `count`.
HWY_INLINE std::size_t pixelsBeforeAlignment(const Argb* target, std::size_t count) {
    const std::size_t vectorBytes = hn::Lanes(PixelTag()) * sizeof(Argb);
    const std::size_t past = reinterpret_cast<std::uintptr_t>(target) % vectorBytes;
    return past == 0 ? 0 : std::min(count, (vectorBytes - past) / sizeof(Argb));
}

constexpr std::size_t kBlockVectors = 4;

template <bool kStreamed, class Kernel>
HWY_INLINE std::size_t mapBlocks(const Argb* HWY_RESTRICT source, Argb* HWY_RESTRICT target, std::size_t done,
                                 std::size_t count, const Kernel& kernel) {
    const std::size_t blockPixels = kBlockVectors * hn::Lanes(PixelTag());
    for (; count - done >= blockPixels; done += blockPixels) {
        kernel.template block<kStreamed>(source + done, target + done);
    }
    if (kStreamed) hwy::FlushStream();
    return done;
}

/// Runs a kernel whose words(pixels) maps one vector of pixels.
template <class Kernel>
struct WordWise : Kernel {
    template <bool kStreamed>
    HWY_INLINE void block(const Argb* HWY_RESTRICT source, Argb* HWY_RESTRICT target) const {
        const PixelTag d;
        const std::size_t lanes = hn::Lanes(d);
        for (std::size_t i = 0; i < kBlockVectors; ++i) {
            storePixels<kStreamed>(Kernel::words(hn::LoadU(d, source + i * lanes)), target + i * lanes);
        }
    }
};

/// Runs a kernel whose planes(blue, green, red) changes four vectors of pixels, parted into channels.
template <class Kernel>
struct PlaneWise : Kernel {
    template <bool kStreamed>
    HWY_INLINE void block(const Argb* HWY_RESTRICT source, Argb* HWY_RESTRICT target) const {
        const PixelTag d;
        const hn::Repartition<std::uint64_t, PixelTag> d64;
        const hn::Repartition<std::uint16_t, PixelTag> d16;
        const ByteTag d8;
        const std::size_t lanes = hn::Lanes(d);

        // Within each 128-bit block: the bytes of four pixels by channel, then a transpose of four such
        // words.
        alignas(16) static constexpr std::uint8_t kByChannel[16] = {0, 4, 8,  12, 1, 5, 9,  13,
                                                                    2, 6, 10, 14, 3, 7, 11, 15};
        const auto byChannel = hn::LoadDup128(d8, kByChannel);
        const auto quads = [&](std::size_t i) HWY_ATTR {
            const auto bytes = hn::BitCast(d8, hn::LoadU(d, source + i * lanes));
            return hn::BitCast(d, hn::TableLookupBytes(bytes, byChannel));
        };
        const auto q0 = quads(0), q1 = quads(1), q2 = quads(2), q3 = quads(3);
        const auto blueGreen01 = hn::BitCast(d64, hn::InterleaveLower(d, q0, q1));
        const auto blueGreen23 = hn::BitCast(d64, hn::InterleaveLower(d, q2, q3));
        const auto redAlpha01 = hn::BitCast(d64, hn::InterleaveUpper(d, q0, q1));
        const auto redAlpha23 = hn::BitCast(d64, hn::InterleaveUpper(d, q2, q3));
        auto blue = hn::BitCast(d8, hn::InterleaveLower(d64, blueGreen01, blueGreen23));
        auto green = hn::BitCast(d8, hn::InterleaveUpper(d64, blueGreen01, blueGreen23));
        auto red = hn::BitCast(d8, hn::InterleaveLower(d64, redAlpha01, redAlpha23));

        Kernel::planes(blue, green, red);

        // Interleaving puts the pixels back in their order and adds the opaque alpha.
        const auto alpha = hn::Set(d8, std::uint8_t{255});
        const auto blueGreenLower = hn::BitCast(d16, hn::InterleaveLower(d8, blue, green));
        const auto blueGreenUpper = hn::BitCast(d16, hn::InterleaveUpper(d8, blue, green));
        const auto redAlphaLower = hn::BitCast(d16, hn::InterleaveLower(d8, red, alpha));
        const auto redAlphaUpper = hn::BitCast(d16, hn::InterleaveUpper(d8, red, alpha));
        const auto store = [&](std::size_t i, auto pixels) HWY_ATTR {
            storePixels<kStreamed>(hn::BitCast(d, pixels), target + i * lanes);
        };
        store(0, hn::InterleaveLower(d16, blueGreenLower, redAlphaLower));
        store(1, hn::InterleaveUpper(d16, blueGreenLower, redAlphaLower));
        store(2, hn::InterleaveLower(d16, blueGreenUpper, redAlphaUpper));
        store(3, hn::InterleaveUpper(d16, blueGreenUpper, redAlphaUpper));
    }
};

#else

template <class Kernel>
struct WordWise : Kernel {};
template <class Kernel>
struct PlaneWise : Kernel {};

#endif  // HWY_TARGET != HWY_SCALAR

/// Runs a kernel over `count` pixels: one by one with kernel.pixel(argb) up to the first aligned target word
/// and after the last full block, vectors in between. `kernel` is a WordWise or PlaneWise one, or has a
/// block() of its own.
template <class Kernel>
HWY_INLINE void mapPixels(const Argb* HWY_RESTRICT source, Argb* HWY_RESTRICT target, std::size_t count,
                          const Kernel& kernel) {
    std::size_t done = 0;
#if HWY_TARGET != HWY_SCALAR
    const std::size_t lead = pixelsBeforeAlignment(target, count);
    for (; done < lead; ++done) target[done] = kernel.pixel(source[done]);
    done = count >= kStreamedPixels ? mapBlocks<true>(source, target, done, count, kernel)
                                    : mapBlocks<false>(source, target, done, count, kernel);
#endif
    for (; done < count; ++done) target[done] = kernel.pixel(source[done]);
}

}  // namespace HWY_NAMESPACE
}  // namespace orvane
HWY_AFTER_NAMESPACE();

#endif  // include guard per instruction set
