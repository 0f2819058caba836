#include "filters/kernels/desaturate_pixels.h"

#include <cstdint>

#include "filters/kernels/luma.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "filters/kernels/desaturate_pixels.cpp"
#include <hwy/foreach_target.h>

#include "filters/kernels/luma-inl.h"
#include "filters/kernels/map_pixels-inl.h"

#ifndef ORVANE_FILTERS_KERNELS_DESATURATE_PIXELS_ONCE
#define ORVANE_FILTERS_KERNELS_DESATURATE_PIXELS_ONCE
namespace orvane {
namespace {

/// The few greys whose luma is not their own value but, by the rounding errors of the formula, one less. A
/// set of bytes for lookups by 16-byte shuffles: a byte is in it when the row of its high four bits and the
/// bit of its low four bits meet in one of the halves.
struct DarkenedGreys {
    alignas(16) std::uint8_t rows[2][16] = {};
    alignas(16) std::uint8_t bits[2][16] = {};

    constexpr DarkenedGreys() {
        for (unsigned low = 0; low < 16; ++low) bits[low / 8][low] = static_cast<std::uint8_t>(1u << low % 8);
        for (unsigned grey = 0; grey < 256; ++grey) {
            if (lumaOf(makeOpaque(grey, grey, grey)) == static_cast<int>(grey)) continue;
            std::uint8_t& row = rows[grey % 16 / 8][grey / 16];
            row = static_cast<std::uint8_t>(row | 1u << grey % 8);
        }
    }
};

constexpr DarkenedGreys kDarkenedGreys;

}  // namespace
}  // namespace orvane
#endif

HWY_BEFORE_NAMESPACE();
namespace orvane {
namespace HWY_NAMESPACE {
namespace {

struct Desaturation {
    Argb pixel(Argb p) const {
        const auto luma = static_cast<unsigned>(lumaOf(p));
        return makeOpaque(luma, luma, luma);
    }

#if HWY_TARGET != HWY_SCALAR
    template <bool kStreamed>
    HWY_INLINE void block(const Argb* HWY_RESTRICT source, Argb* HWY_RESTRICT target) const {
        const PixelTag d;
        const std::size_t lanes = hn::Lanes(d);
        // Greys are where the luma costs most, and white paper and scans are common.
        if (HWY_UNLIKELY(isGreyBlock(source))) {
            for (std::size_t i = 0; i < kBlockVectors; ++i) {
                const auto result = hn::Or(darkened(hn::LoadU(d, source + i * lanes)), hn::Set(d, kOpaque));
                storePixels<kStreamed>(result, target + i * lanes);
            }
            return;
        }
        for (std::size_t i = 0; i < kBlockVectors; ++i) {
            const auto result = hn::Or(greyOf(hn::LoadU(d, source + i * lanes)), hn::Set(d, kOpaque));
            storePixels<kStreamed>(result, target + i * lanes);
        }
    }

    static HWY_INLINE bool isGreyBlock(const Argb* HWY_RESTRICT source) {
        constexpr Argb kNeighbours = 0x0000FFFFu;  // of each channel and the next one
        if (((*source ^ *source >> 8) & kNeighbours) != 0) return false;
        const PixelTag d;
        auto differences = hn::Zero(d);
        for (std::size_t i = 0; i < kBlockVectors; ++i) {
            const auto pixels = hn::LoadU(d, source + i * hn::Lanes(d));
            differences = hn::Or(differences, hn::Xor(pixels, hn::ShiftRight<8>(pixels)));
        }
        return hn::AllTrue(d, hn::Eq(hn::And(differences, hn::Set(d, kNeighbours)), hn::Zero(d)));
    }

    /// The luma of pixels that are grey.
    static HWY_INLINE PixelVector darkened(PixelVector greys) {
        const PixelTag d;
        const ByteTag d8;
        const hn::Repartition<std::uint16_t, PixelTag> d16;
        const auto lowBits = hn::Set(d8, std::uint8_t{15});
        const auto bytes = hn::BitCast(d8, greys);
        const auto low = hn::And(bytes, lowBits);
        const auto high = hn::And(hn::BitCast(d8, hn::ShiftRight<4>(hn::BitCast(d16, greys))), lowBits);
        const auto meet = [&](std::size_t half) HWY_ATTR {
            return hn::And(hn::TableLookupBytes(hn::LoadDup128(d8, kDarkenedGreys.rows[half]), high),
                           hn::TableLookupBytes(hn::LoadDup128(d8, kDarkenedGreys.bits[half]), low));
        };
        const auto isIn = hn::Min(hn::Or(meet(0), meet(1)), hn::Set(d8, std::uint8_t{1}));
        return hn::BitCast(d, hn::Sub(bytes, isIn));
    }

    static HWY_INLINE PixelVector greyOf(PixelVector pixels) {
        const ByteTag d8;
        // The second byte of every lane of lumas is zero.
        alignas(16) static constexpr std::uint8_t kThrice[16] = {0, 0, 0, 1, 4,  4,  4,  5,
                                                                 8, 8, 8, 9, 12, 12, 12, 13};
        const auto luma = hn::BitCast(d8, lumaOf(pixels));
        return hn::BitCast(PixelTag(), hn::TableLookupBytes(luma, hn::LoadDup128(d8, kThrice)));
    }
#endif
};

}  // namespace

void desaturatePixels(const Argb* source, Argb* target, std::size_t count) {
    mapPixels(source, target, count, Desaturation{});
}

}  // namespace HWY_NAMESPACE
}  // namespace orvane
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace orvane {

HWY_EXPORT(desaturatePixels);

void desaturatePixels(const Argb* source, Argb* target, std::size_t count) noexcept {
    HWY_DYNAMIC_DISPATCH(desaturatePixels)(source, target, count);
}

}  // namespace orvane
#endif
