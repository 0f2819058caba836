#include "platform/graphics/source_over.h"

#include <algorithm>

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "platform/graphics/source_over.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace orvane::HWY_NAMESPACE {
namespace hn = hwy::HWY_NAMESPACE;

using Words = hn::ScalableTag<std::uint32_t>;
using Floats = hn::ScalableTag<float>;
using Integers = hn::ScalableTag<std::int32_t>;
using WordVector = hn::Vec<Words>;
using FloatVector = hn::Vec<Floats>;

HWY_INLINE FloatVector toFloat(WordVector v) { return hn::ConvertTo(Floats(), hn::BitCast(Integers(), v)); }

HWY_INLINE WordVector toWord(FloatVector v) { return hn::BitCast(Words(), hn::ConvertTo(Integers(), v)); }

template <int kShift>
HWY_INLINE WordVector channel(WordVector words) {
    return hn::And(hn::ShiftRight<kShift>(words), hn::Set(Words(), 255u));
}

// Numerator and denominator are integers below 2^24, the denominator at most 65025 and the quotient at most
// 255. The single division then decides every rounding: a quotient that misses a half misses it by at least
// 1 / 130050, more than the rounding error of 2^-17 that a quotient below 256 can have.
HWY_INLINE WordVector roundedQuotient(FloatVector numerator, FloatVector denominator) {
    return toWord(hn::Add(hn::Div(numerator, denominator), hn::Set(Floats(), 0.5f)));
}

HWY_INLINE WordVector joined(WordVector a, WordVector r, WordVector g, WordVector b) {
    return hn::Or(hn::Or(hn::ShiftLeft<24>(a), hn::ShiftLeft<16>(r)), hn::Or(hn::ShiftLeft<8>(g), b));
}

HWY_INLINE WordVector overAny(WordVector source, WordVector destination) {
    const auto full = hn::Set(Floats(), 255.0f);
    const auto sourceAlpha = toFloat(hn::ShiftRight<24>(source));
    const auto destinationAlpha = toFloat(hn::ShiftRight<24>(destination));
    const auto sourceWeight = hn::Mul(sourceAlpha, full);
    const auto destinationWeight = hn::Mul(destinationAlpha, hn::Sub(full, sourceAlpha));
    const auto total = hn::Add(sourceWeight, destinationWeight);
    const auto divisor = hn::Max(total, hn::Set(Floats(), 1.0f));
    const auto mixed = [&](WordVector s, WordVector d) HWY_ATTR {
        return roundedQuotient(
            hn::Add(hn::Mul(toFloat(s), sourceWeight), hn::Mul(toFloat(d), destinationWeight)), divisor);
    };
    const auto result =
        joined(roundedQuotient(total, full), mixed(channel<16>(source), channel<16>(destination)),
               mixed(channel<8>(source), channel<8>(destination)),
               mixed(channel<0>(source), channel<0>(destination)));
    return hn::IfThenElse(hn::Lt(source, hn::Set(Words(), 0x01000000u)), destination, result);
}

#if HWY_TARGET == HWY_SCALAR  // no vectors to split into shorts
HWY_INLINE WordVector overOpaque(WordVector source, WordVector destination) {
    return overAny(source, hn::Or(destination, hn::Set(Words(), 0xFF000000u)));
}
#else
// For an opaque destination each channel is (sc sa + dc (255 - sa)) / 255, which fits 16 bits; the alpha byte
// takes the same road with both its values at 255.
HWY_INLINE WordVector overOpaque(WordVector source, WordVector destination) {
    const hn::Repartition<std::uint8_t, Words> bytes;
    const hn::Repartition<std::uint16_t, Words> shorts;
    const auto opaque = hn::Set(Words(), 0xFF000000u);
    const auto ones = hn::Set(shorts, std::uint16_t{0x00FF});

    const auto alpha = hn::ShiftRight<24>(source);
    const auto alphas = hn::BitCast(shorts, hn::Or(alpha, hn::ShiftLeft<16>(alpha)));
    const auto rest = hn::Sub(ones, alphas);
    const auto blended = [&](auto s, auto d) HWY_ATTR {
        const auto sum =
            hn::Add(hn::Add(hn::Mul(s, alphas), hn::Mul(d, rest)), hn::Set(shorts, std::uint16_t{128}));
        return hn::Add(sum, hn::ShiftRight<8>(sum));  // its upper byte is the sum / 255, rounded
    };
    const auto s = hn::BitCast(shorts, hn::Or(source, opaque));
    const auto d = hn::BitCast(shorts, hn::Or(destination, opaque));
    const auto even = blended(hn::And(s, ones), hn::And(d, ones));
    const auto odd = blended(hn::ShiftRight<8>(s), hn::ShiftRight<8>(d));
    return hn::BitCast(Words(),
                       hn::OddEven(hn::BitCast(bytes, odd), hn::BitCast(bytes, hn::ShiftRight<8>(even))));
}
#endif

template <bool kOpaqueDestination>
HWY_INLINE WordVector over(WordVector source, WordVector destination) {
    const auto opaque = hn::Set(Words(), 0xFF000000u);
    if (hn::AllTrue(Words(), hn::Eq(hn::And(source, opaque), opaque))) return source;
    if (kOpaqueDestination || hn::AllTrue(Words(), hn::Eq(hn::And(destination, opaque), opaque))) {
        return overOpaque(source, destination);
    }
    return overAny(source, destination);
}

// Source alpha times coverage is a fraction of 65025. Over an opaque destination everything stays within the
// bounds of roundedQuotient; else the numerators grow to 32 bits, and the approximate quotient, off by at
// most one, is put right by its remainder.
HWY_INLINE WordVector overMasked(WordVector source, WordVector coverage, WordVector destination) {
    const Words words;
    const auto whole = hn::Set(words, 65025u);
    const auto sourceAlpha = hn::Mul(hn::ShiftRight<24>(source), coverage);
    const auto destinationAlpha = hn::ShiftRight<24>(destination);
    const auto sourceWeight = hn::Mul(sourceAlpha, hn::Set(words, 255u));
    const auto destinationWeight = hn::Mul(destinationAlpha, hn::Sub(whole, sourceAlpha));
    const auto total = hn::Add(sourceWeight, destinationWeight);
    const auto divisor = hn::Max(total, hn::Set(words, 1u));
    const auto sourcePart = toFloat(sourceWeight), destinationPart = toFloat(destinationWeight);
    const auto floatDivisor = toFloat(divisor);
    const auto mixed = [&](WordVector s, WordVector d) HWY_ATTR {
        const Integers integers;
        const auto guess = roundedQuotient(
            hn::Add(hn::Mul(toFloat(s), sourcePart), hn::Mul(toFloat(d), destinationPart)), floatDivisor);
        // remainder = 2 numerator + divisor - 2 divisor guess; right when in [0, 2 divisor).
        const auto numerator = hn::Add(hn::Mul(s, sourceWeight), hn::Mul(d, destinationWeight));
        const auto remainder = hn::BitCast(integers, hn::Sub(hn::Add(hn::Add(numerator, numerator), divisor),
                                                             hn::Mul(hn::Add(divisor, divisor), guess)));
        const auto twice = hn::BitCast(integers, hn::Add(divisor, divisor));
        const auto tooLarge = hn::VecFromMask(integers, hn::Lt(remainder, hn::Zero(integers)));
        const auto tooSmall = hn::VecFromMask(integers, hn::Not(hn::Lt(remainder, twice)));
        return hn::Sub(hn::Add(guess, hn::BitCast(words, tooLarge)), hn::BitCast(words, tooSmall));
    };
    const auto result = joined(roundedQuotient(toFloat(total), toFloat(whole)),
                               mixed(channel<16>(source), channel<16>(destination)),
                               mixed(channel<8>(source), channel<8>(destination)),
                               mixed(channel<0>(source), channel<0>(destination)));
    return hn::IfThenElse(hn::Eq(sourceAlpha, hn::Zero(words)), destination, result);
}

HWY_INLINE WordVector overThroughMask(WordVector source, WordVector coverage, WordVector destination) {
    const Words words;
    const auto opaque = hn::Set(words, 0xFF000000u), full = hn::Set(words, 255u);
    if (hn::AllTrue(words, hn::Eq(coverage, full))) return over<false>(source, destination);
    if (hn::AllTrue(words, hn::Eq(hn::And(source, opaque), opaque))) {
        return over<false>(hn::Or(hn::AndNot(opaque, source), hn::ShiftLeft<24>(coverage)), destination);
    }
    return overMasked(source, coverage, destination);
}

template <bool kOpaqueDestination>
HWY_INLINE void overRow(const Argb* source, const Argb* destination, Argb* target, std::size_t count) {
    const Words words;
    const std::size_t lanes = hn::Lanes(words);
    const auto opaque = hn::Set(words, 0xFF000000u);
    std::size_t i = 0;
    for (; i + lanes <= count; i += lanes) {
        const auto s = hn::LoadU(words, source + i);
        if (!kOpaqueDestination && hn::AllTrue(words, hn::Eq(hn::And(s, opaque), hn::Zero(words)))) {
            if (target != destination) hn::StoreU(hn::LoadU(words, destination + i), words, target + i);
            continue;
        }
        hn::StoreU(over<kOpaqueDestination>(s, hn::LoadU(words, destination + i)), words, target + i);
    }
    if (i == count) return;
    HWY_ALIGN Argb s[hn::MaxLanes(Words())] = {}, d[hn::MaxLanes(Words())] = {};
    std::copy(source + i, source + count, s);
    std::copy(destination + i, destination + count, d);
    hn::Store(over<kOpaqueDestination>(hn::Load(words, s), hn::Load(words, d)), words, d);
    std::copy(d, d + (count - i), target + i);
}

void OverRow(const Argb* source, const Argb* destination, Argb* target, std::size_t count) {
    overRow<false>(source, destination, target, count);
}

void OverOpaqueRow(const Argb* source, const Argb* destination, Argb* target, std::size_t count) {
    overRow<true>(source, destination, target, count);
}

// colourStep is 0 for one colour throughout, 1 for a colour per pixel.
void OverMaskedRow(const Argb* colours, std::size_t colourStep, const std::uint8_t* coverage, Argb* target,
                   std::size_t count) {
    const Words words;
    const hn::Rebind<std::uint8_t, Words> bytes;
    const std::size_t lanes = hn::Lanes(words);
    const auto oneColour = hn::Set(words, colours[0]);
    std::size_t i = 0;
    for (; i + lanes <= count; i += lanes) {
        const auto cover = hn::PromoteTo(words, hn::LoadU(bytes, coverage + i));
        if (hn::AllTrue(words, hn::Eq(cover, hn::Zero(words)))) continue;
        const auto source = colourStep == 0 ? oneColour : hn::LoadU(words, colours + i);
        hn::StoreU(overThroughMask(source, cover, hn::LoadU(words, target + i)), words, target + i);
    }
    if (i == count) return;
    HWY_ALIGN Argb s[hn::MaxLanes(Words())] = {}, c[hn::MaxLanes(Words())] = {},
                   d[hn::MaxLanes(Words())] = {};
    for (std::size_t k = 0; i + k < count; ++k) {
        s[k] = colours[(i + k) * colourStep];
        c[k] = coverage[i + k];
        d[k] = target[i + k];
    }
    hn::Store(overThroughMask(hn::Load(words, s), hn::Load(words, c), hn::Load(words, d)), words, d);
    std::copy(d, d + (count - i), target + i);
}

}  // namespace orvane::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace orvane {

HWY_EXPORT(OverRow);
HWY_EXPORT(OverOpaqueRow);
HWY_EXPORT(OverMaskedRow);

Argb sourceOver(Argb source, Argb destination) noexcept {
    sourceOver(&source, &destination, &destination, 1);
    return destination;
}

void sourceOver(const Argb* source, const Argb* destination, Argb* target, std::size_t count) noexcept {
    HWY_DYNAMIC_DISPATCH(OverRow)(source, destination, target, count);
}

void sourceOverOpaque(const Argb* source, const Argb* destination, Argb* target, std::size_t count) noexcept {
    HWY_DYNAMIC_DISPATCH(OverOpaqueRow)(source, destination, target, count);
}

void sourceOverMasked(Argb colour, const std::uint8_t* coverage, Argb* target, std::size_t count) noexcept {
    if (alphaOf(colour) != 0) HWY_DYNAMIC_DISPATCH(OverMaskedRow)(&colour, 0, coverage, target, count);
}

void sourceOverMasked(const Argb* colours, const std::uint8_t* coverage, Argb* target,
                      std::size_t count) noexcept {
    if (count != 0) HWY_DYNAMIC_DISPATCH(OverMaskedRow)(colours, 1, coverage, target, count);
}

}  // namespace orvane
#endif  // HWY_ONCE
