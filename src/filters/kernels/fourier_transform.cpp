#include "filters/kernels/fourier_transform.h"

#include <cmath>

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "filters/kernels/fourier_transform.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace orvane {
namespace HWY_NAMESPACE {
namespace {

namespace hn = hwy::HWY_NAMESPACE;

/// Complex numbers, a vector of them at a time.
template <class D>
struct Complex {
    hn::Vec<D> real, imaginary;

    static HWY_INLINE Complex load(D d, const double* real, const double* imaginary) {
        return {hn::LoadU(d, real), hn::LoadU(d, imaginary)};
    }
    HWY_INLINE void store(D d, double* toReal, double* toImaginary) const {
        hn::StoreU(real, d, toReal);
        hn::StoreU(imaginary, d, toImaginary);
    }
    HWY_INLINE Complex plus(const Complex& other) const {
        return {hn::Add(real, other.real), hn::Add(imaginary, other.imaginary)};
    }
    HWY_INLINE Complex minus(const Complex& other) const {
        return {hn::Sub(real, other.real), hn::Sub(imaginary, other.imaginary)};
    }
    HWY_INLINE Complex times(const Complex& other) const {
        return {hn::NegMulAdd(imaginary, other.imaginary, hn::Mul(real, other.real)),
                hn::MulAdd(real, other.imaginary, hn::Mul(imaginary, other.real))};
    }
    HWY_INLINE Complex timesConjugate(const Complex& other) const {
        return {hn::MulAdd(imaginary, other.imaginary, hn::Mul(real, other.real)),
                hn::NegMulAdd(real, other.imaginary, hn::Mul(imaginary, other.real))};
    }
};

/// The numbers of a transform, and the roots of unity of all stages.
struct Numbers {
    double* HWY_RESTRICT real;
    double* HWY_RESTRICT imaginary;
    std::size_t length;
    const double* HWY_RESTRICT cosines;
    const double* HWY_RESTRICT sines;
};

/// Splits each pair of halves into its sums and its differences, turned.
template <class D>
HWY_INLINE void split(D d, const Numbers& numbers, std::size_t half) {
    for (std::size_t i = 0; i < numbers.length; i += 2 * half) {
        double *const real = numbers.real + i, *const imaginary = numbers.imaginary + i;
        for (std::size_t j = 0; j < half; j += hn::Lanes(d)) {
            const auto first = Complex<D>::load(d, real + j, imaginary + j);
            const auto second = Complex<D>::load(d, real + half + j, imaginary + half + j);
            const auto root = Complex<D>::load(d, numbers.cosines + half + j, numbers.sines + half + j);
            first.plus(second).store(d, real + j, imaginary + j);
            first.minus(second).timesConjugate(root).store(d, real + half + j, imaginary + half + j);
        }
    }
}

/// The reverse, but for a factor of 2.
template <class D>
HWY_INLINE void join(D d, const Numbers& numbers, std::size_t half) {
    for (std::size_t i = 0; i < numbers.length; i += 2 * half) {
        double *const real = numbers.real + i, *const imaginary = numbers.imaginary + i;
        for (std::size_t j = 0; j < half; j += hn::Lanes(d)) {
            const auto root = Complex<D>::load(d, numbers.cosines + half + j, numbers.sines + half + j);
            const auto first = Complex<D>::load(d, real + j, imaginary + j);
            const auto second = Complex<D>::load(d, real + half + j, imaginary + half + j).times(root);
            first.plus(second).store(d, real + j, imaginary + j);
            first.minus(second).store(d, real + half + j, imaginary + half + j);
        }
    }
}

/// Calls stage with vectors that fill a half, or the widest.
template <class Stage>
HWY_INLINE void withVectorsOf(std::size_t half, const Stage& stage) {
    if (half >= hn::Lanes(hn::ScalableTag<double>())) return stage(hn::ScalableTag<double>());
    if (half >= 4) return stage(hn::CappedTag<double, 4>());
    if (half == 2) return stage(hn::CappedTag<double, 2>());
    stage(hn::CappedTag<double, 1>());
}

}  // namespace

void transform(double* real, double* imaginary, std::size_t length, const double* cosines,
               const double* sines) {
    const Numbers numbers{real, imaginary, length, cosines, sines};
    for (std::size_t half = length / 2; half > 0; half /= 2) {
        withVectorsOf(half, [&](auto d) HWY_ATTR { split(d, numbers, half); });
    }
}

void restore(double* real, double* imaginary, std::size_t length, const double* cosines,
             const double* sines) {
    const Numbers numbers{real, imaginary, length, cosines, sines};
    for (std::size_t half = 1; half < length; half *= 2) {
        withVectorsOf(half, [&](auto d) HWY_ATTR { join(d, numbers, half); });
    }
}

}  // namespace HWY_NAMESPACE
}  // namespace orvane
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace orvane {

HWY_EXPORT(transform);
HWY_EXPORT(restore);

FourierTransform::FourierTransform(std::size_t length)
    : length_(length), stages_(0), cosines_(length), sines_(length) {
    constexpr double kPi = 3.14159265358979323846;
    for (std::size_t half = 1; half < length; half *= 2, ++stages_) {
        for (std::size_t i = 0; i < half; ++i) {
            const double angle = kPi * double(i) / double(half);
            cosines_[half + i] = std::cos(angle);
            sines_[half + i] = std::sin(angle);
        }
    }
}

std::size_t FourierTransform::lengthFor(std::size_t count) {
    std::size_t length = 1;
    while (length < count) length *= 2;
    return length;
}

void FourierTransform::transform(double* real, double* imaginary) const {
    HWY_DYNAMIC_DISPATCH(transform)(real, imaginary, length_, cosines_.data(), sines_.data());
}

void FourierTransform::restore(double* real, double* imaginary) const {
    HWY_DYNAMIC_DISPATCH(restore)(real, imaginary, length_, cosines_.data(), sines_.data());
}

}  // namespace orvane
#endif
