#include "filters/kernels/add_noise.h"

#include <algorithm>

#include "base/truncate.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "filters/kernels/add_noise.cpp"
#include <hwy/foreach_target.h>

#include "filters/kernels/map_pixels-inl.h"

HWY_BEFORE_NAMESPACE();
namespace orvane {
namespace HWY_NAMESPACE {
namespace {

constexpr int kLastPositiveSign = 16383;
constexpr std::size_t drawsPerPixel(NoiseKind kind) { return kind == NoiseKind::Grey ? 2 : 6; }

int drawNoise(RandomStream& stream, double scale) {
    const int magnitude = std::clamp(truncateToInt(stream.next() * scale), -255, 255);
    return stream.next() > kLastPositiveSign ? -magnitude : magnitude;
}

template <NoiseKind kKind>
void addNoiseOneByOne(const Argb* source, Argb* target, std::size_t count, int level, RandomStream& stream) {
    const double scale = level * (1.0 / RandomStream::kMaximum);
    for (std::size_t i = 0; i < count; ++i) {
        const int red = drawNoise(stream, scale);
        const int green = kKind == NoiseKind::Grey ? red : drawNoise(stream, scale);
        const int blue = kKind == NoiseKind::Grey ? red : drawNoise(stream, scale);
        const auto sum = [](unsigned channel, int noise) {
            return static_cast<unsigned>(clampToByte(static_cast<int>(channel) + noise));
        };
        const Argb p = source[i];
        target[i] = makeOpaque(sum(redOf(p), red), sum(greenOf(p), green), sum(blueOf(p), blue));
    }
}

#if HWY_TARGET != HWY_SCALAR

/// The states after draw number `draw` of this pixel and of the pixels that follow, one per lane.
template <NoiseKind kKind>
HWY_INLINE PixelVector firstStates(const RandomStream& stream, std::size_t draw) {
    const PixelTag d;
    HWY_ALIGN std::uint32_t states[HWY_LANES(std::uint32_t)];
    RandomStream lane = stream;
    lane.skip(draw);
    for (std::size_t i = 0; i < hn::Lanes(d); ++i) {
        states[i] = lane.state();
        lane.skip(drawsPerPixel(kKind));
    }
    return hn::Load(d, states);
}

/// trunc(draw x level / 32767) for level 0..255: whole numbers give what double precision gives.
HWY_INLINE PixelVector magnitudeFrom(PixelVector states, std::uint32_t level) {
    const PixelTag d;
    const auto draw = hn::And(hn::ShiftRight<16>(states), hn::Set(d, 0x7FFFu));
    const auto product = hn::Mul(draw, hn::Set(d, level));
    // Division by 2^15 - 1.
    return hn::ShiftRight<15>(hn::Add(hn::Add(product, hn::ShiftRight<15>(product)), hn::Set(d, 1u)));
}

/// All bits of the lanes whose draw is above 16383: its highest bit is bit 30 of the state.
HWY_INLINE PixelVector negativeFrom(PixelVector states) {
    const PixelTag d;
    const hn::RebindToSigned<PixelTag> di;
    return hn::BitCast(d, hn::BroadcastSignBit(hn::BitCast(di, hn::ShiftLeft<1>(states))));
}

/// Pixels plus noise; `negative` marks the bytes to be subtracted.
HWY_INLINE PixelVector withNoise(PixelVector pixels, PixelVector magnitude, PixelVector negative) {
    const PixelTag d;
    const ByteTag d8;
    const auto increase = hn::BitCast(d8, hn::AndNot(negative, magnitude));
    const auto decrease = hn::BitCast(d8, hn::And(negative, magnitude));
    const auto sum = hn::SaturatedSub(hn::SaturatedAdd(hn::BitCast(d8, pixels), increase), decrease);
    return hn::Or(hn::BitCast(d, sum), hn::Set(d, kOpaque));
}

/// Each lane leapfrogs: its next draw lies a whole vector of pixels further on in the stream.
template <NoiseKind kKind, bool kStreamed>
std::size_t addNoiseByVectors(const Argb* HWY_RESTRICT source, Argb* HWY_RESTRICT target, std::size_t done,
                              std::size_t count, int level, RandomStream& stream) {
    const PixelTag d;
    const std::size_t lanes = hn::Lanes(d), start = done;
    const auto magnitudeLevel = static_cast<std::uint32_t>(level < 0 ? -level : level);
    const auto swapSigns = hn::Set(d, level < 0 ? 0xFFFFFFFFu : 0u);
    const RandomStream::Jump jump = RandomStream::jump(lanes * drawsPerPixel(kKind));
    const auto next = [&](PixelVector states) HWY_ATTR {
        return hn::Add(hn::Mul(states, hn::Set(d, jump.multiplier)), hn::Set(d, jump.increment));
    };

    if constexpr (kKind == NoiseKind::Grey) {
        auto size = firstStates<kKind>(stream, 1), sign = firstStates<kKind>(stream, 2);
        for (; count - done >= lanes; done += lanes) {
            const auto value = magnitudeFrom(size, magnitudeLevel);
            const auto twice = hn::Or(value, hn::ShiftLeft<8>(value));
            const auto magnitude = hn::Or(twice, hn::ShiftLeft<16>(value));
            const auto negative = hn::Xor(negativeFrom(sign), swapSigns);
            storePixels<kStreamed>(withNoise(hn::LoadU(d, source + done), magnitude, negative),
                                   target + done);
            size = next(size);
            sign = next(sign);
        }
    } else {
        auto redSize = firstStates<kKind>(stream, 1), redSign = firstStates<kKind>(stream, 2);
        auto greenSize = firstStates<kKind>(stream, 3), greenSign = firstStates<kKind>(stream, 4);
        auto blueSize = firstStates<kKind>(stream, 5), blueSign = firstStates<kKind>(stream, 6);
        for (; count - done >= lanes; done += lanes) {
            const auto red = hn::ShiftLeft<16>(magnitudeFrom(redSize, magnitudeLevel));
            const auto green = hn::ShiftLeft<8>(magnitudeFrom(greenSize, magnitudeLevel));
            const auto magnitude = hn::Or(hn::Or(red, green), magnitudeFrom(blueSize, magnitudeLevel));
            const auto redNegative = hn::And(negativeFrom(redSign), hn::Set(d, 0x00FF0000u));
            const auto greenNegative = hn::And(negativeFrom(greenSign), hn::Set(d, 0x0000FF00u));
            const auto blueNegative = hn::And(negativeFrom(blueSign), hn::Set(d, 0x000000FFu));
            const auto negative =
                hn::Xor(hn::Or(hn::Or(redNegative, greenNegative), blueNegative), swapSigns);
            storePixels<kStreamed>(withNoise(hn::LoadU(d, source + done), magnitude, negative),
                                   target + done);
            redSize = next(redSize);
            redSign = next(redSign);
            greenSize = next(greenSize);
            greenSign = next(greenSign);
            blueSize = next(blueSize);
            blueSign = next(blueSign);
        }
    }
    if (kStreamed) hwy::FlushStream();
    stream.skip((done - start) * drawsPerPixel(kKind));
    return done;
}

#endif  // HWY_TARGET != HWY_SCALAR

template <NoiseKind kKind>
void addNoiseOf(const Argb* source, Argb* target, std::size_t count, int level, RandomStream& stream) {
    std::size_t done = 0;
#if HWY_TARGET != HWY_SCALAR
    if (level >= -255 && level <= 255) {
        done = pixelsBeforeAlignment(target, count);
        addNoiseOneByOne<kKind>(source, target, done, level, stream);
        done = count >= kStreamedPixels
                   ? addNoiseByVectors<kKind, true>(source, target, done, count, level, stream)
                   : addNoiseByVectors<kKind, false>(source, target, done, count, level, stream);
    }
#endif
    addNoiseOneByOne<kKind>(source + done, target + done, count - done, level, stream);
}

}  // namespace

void addNoise(const Argb* source, Argb* target, std::size_t count, NoiseKind kind, int level,
              RandomStream& stream) {
    if (kind == NoiseKind::Grey) {
        addNoiseOf<NoiseKind::Grey>(source, target, count, level, stream);
    } else {
        addNoiseOf<NoiseKind::Colour>(source, target, count, level, stream);
    }
}

}  // namespace HWY_NAMESPACE
}  // namespace orvane
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace orvane {

HWY_EXPORT(addNoise);

void addNoise(const Argb* source, Argb* target, std::size_t count, NoiseKind kind, int level,
              RandomStream& stream) noexcept {
    HWY_DYNAMIC_DISPATCH(addNoise)(source, target, count, kind, level, stream);
}

}  // namespace orvane
#endif
