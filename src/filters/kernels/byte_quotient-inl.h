// Exact division of 32-bit sums to bytes; compiled once per instruction set.
#if defined(ORVANE_FILTERS_KERNELS_BYTE_QUOTIENT_INL_H) == defined(HWY_TARGET_TOGGLE)
#ifdef ORVANE_FILTERS_KERNELS_BYTE_QUOTIENT_INL_H
#undef ORVANE_FILTERS_KERNELS_BYTE_QUOTIENT_INL_H
#else
#define ORVANE_FILTERS_KERNELS_BYTE_QUOTIENT_INL_H
#endif

#include <hwy/highway.h>

#include <cstdint>

#include "filters/kernels/byte_quotient.h"

HWY_BEFORE_NAMESPACE();
namespace orvane {
namespace HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

/// At most four pixels.
using SumTag = hn::CappedTag<std::int32_t, 16>;
using SumVector = hn::Vec<SumTag>;

/// The quotients below turn sums into values that become the right byte when they are demoted with
/// saturation. This one is for a divisor of 0 or 1: the sums stand.
struct UndividedSums {
    HWY_INLINE SumVector operator()(SumVector sums) const { return sums; }
};

/// For divisors that pass singlePrecisionDivides. kMeans: the sums are 0..255 times the divisor.
template <bool kMeans>
class FloatQuotient {
 public:
    explicit FloatQuotient(std::int32_t divisor) : by_(divisor) {}

    HWY_INLINE SumVector operator()(SumVector sums) const {
        const SumTag d;
        const hn::RebindToFloat<SumTag> df;
        auto quotient =
            hn::Add(hn::Mul(hn::ConvertTo(df, sums), hn::Set(df, by_.reciprocal)), hn::Set(df, by_.bias));
        if (!kMeans) quotient = hn::Min(hn::Max(quotient, hn::Zero(df)), hn::Set(df, 255.0f));
        const auto rounded = hn::BitCast(d, hn::Add(quotient, hn::Set(df, kRoundingWeight)));
        return hn::And(rounded, hn::Set(d, 255));
    }

 private:
    ByteReciprocal<float> by_;
};

/// For every divisor but 0.
class DoubleQuotient {
 public:
    explicit DoubleQuotient(std::int32_t divisor) : by_(divisor) {}

    HWY_INLINE SumVector operator()(SumVector sums) const {
        const SumTag d;
#if HWY_TARGET != HWY_SCALAR && HWY_HAVE_FLOAT64
        const hn::Half<SumTag> half;
        return hn::Combine(d, divided(half, hn::UpperHalf(half, sums)),
                           divided(half, hn::LowerHalf(half, sums)));
#else
        std::int32_t lanes[16];
        hn::StoreU(sums, d, lanes);
        for (std::size_t i = 0; i < hn::Lanes(d); ++i) {
            const double quotient = lanes[i] * by_.reciprocal + (by_.bias + 0.5);
            lanes[i] = quotient > 255.0 ? 255 : static_cast<std::int32_t>(quotient);
        }
        return hn::LoadU(d, lanes);
#endif
    }

 private:
#if HWY_TARGET != HWY_SCALAR && HWY_HAVE_FLOAT64
    template <class Half>
    HWY_INLINE hn::Vec<Half> divided(Half half, hn::Vec<Half> sums) const {
        const hn::Rebind<double, Half> df;
        const auto quotient = hn::Add(hn::Mul(hn::PromoteTo(df, sums), hn::Set(df, by_.reciprocal)),
                                      hn::Set(df, by_.bias + 0.5));
        return hn::DemoteTo(half, quotient);
    }
#endif

    ByteReciprocal<double> by_;
};

/// Calls body(quotient) with the cheapest exact one for the divisor.
template <class Body>
HWY_INLINE void withByteQuotient(std::int32_t divisor, const Body& body) {
    if (divisor == 0 || divisor == 1) {
        body(UndividedSums());
    } else if (singlePrecisionDivides(divisor)) {
        body(FloatQuotient<false>(divisor));
    } else {
        body(DoubleQuotient(divisor));
    }
}

/// The same for means: every sum is between 0 and 255 times the divisor, which is positive.
template <class Body>
HWY_INLINE void withMeanQuotient(std::int32_t divisor, const Body& body) {
    if (singlePrecisionDivides(divisor)) {
        body(FloatQuotient<true>(divisor));
    } else {
        body(DoubleQuotient(divisor));
    }
}

}  // namespace HWY_NAMESPACE
}  // namespace orvane
HWY_AFTER_NAMESPACE();

#endif  // include guard per instruction set
