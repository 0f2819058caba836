#include "platform/linux/tiff_samples.h"

#include <algorithm>
#include <cstring>

namespace orvane {
namespace {

constexpr unsigned kFull = 65535;

unsigned toByte(unsigned value) { return (value * 255u + kFull / 2) / kFull; }
unsigned multiply(unsigned a, unsigned b) { return unsigned((std::uint64_t(a) * b + kFull / 2) / kFull); }

/// A value of a given alpha, both up to 65535, as the byte that it would be without it.
unsigned divideOut(unsigned value, unsigned alpha) {
    return alpha == 0 ? 0 : std::min(255u, (value * 255u + alpha / 2) / alpha);
}

std::uint16_t fromFloat(float value) {
    if (!(value > 0.0f)) return 0;  // neither is what is not a number
    return value >= 1.0f ? std::uint16_t(kFull) : std::uint16_t(value * float(kFull) + 0.5f);
}

}  // namespace

std::vector<int> TiffSamples::usedSamples() const {
    std::vector<int> used;
    for (int i = 0; i < colourSamples(); ++i) used.push_back(i);
    if (alpha != Alpha::None) used.push_back(alphaSample);
    return used;
}

TiffRowConverter::TiffRowConverter(TiffSamples samples, int maxWidth)
    : samples_(std::move(samples)), used_(samples_.usedSamples()) {
    for (std::size_t i = 0; i < used_.size(); ++i) channels_[i].resize(std::size_t(maxWidth));
}

void TiffRowConverter::convert(const std::array<const std::uint8_t*, 5>& rows, int width, Argb* out) {
    if (samples_.colours == TiffSamples::Colours::Rgb && samples_.bits == 8 && !samples_.isPlanar &&
        samples_.alpha != TiffSamples::Alpha::Premultiplied) {
        convertBytes(rows[0], width, out);
        return;
    }
    for (std::size_t i = 0; i < used_.size(); ++i) {
        const std::size_t first = samples_.isPlanar ? 0 : std::size_t(used_[i]);
        const std::size_t step = samples_.isPlanar ? 1 : std::size_t(samples_.samplesPerPixel);
        unpack(rows[i], first, step, width, channels_[i].data());
    }
    combine(width, out);
}

void TiffRowConverter::convertBytes(const std::uint8_t* row, int width, Argb* out) const {
    const std::size_t step = std::size_t(samples_.samplesPerPixel);
    if (samples_.alpha == TiffSamples::Alpha::None) {
        for (int x = 0; x < width; ++x, row += step) out[x] = makeOpaque(row[0], row[1], row[2]);
    } else {
        const std::size_t alpha = std::size_t(samples_.alphaSample);
        for (int x = 0; x < width; ++x, row += step) out[x] = makeArgb(row[alpha], row[0], row[1], row[2]);
    }
}

void TiffRowConverter::unpack(const std::uint8_t* row, std::size_t first, std::size_t step, int width,
                              std::uint16_t* out) const {
    const int bits = samples_.bits;
    const bool isIndex = samples_.colours == TiffSamples::Colours::Palette;
    if (bits == 8) {
        const unsigned scale = isIndex ? 1 : 257;
        for (int x = 0; x < width; ++x) out[x] = std::uint16_t(row[first + std::size_t(x) * step] * scale);
    } else if (bits == 16) {
        for (int x = 0; x < width; ++x) std::memcpy(&out[x], row + 2 * (first + std::size_t(x) * step), 2);
    } else if (bits == 32) {
        for (int x = 0; x < width; ++x) {
            const std::uint8_t* sample = row + 4 * (first + std::size_t(x) * step);
            float real = 0;
            std::uint32_t whole = 0;
            std::memcpy(&real, sample, 4);
            std::memcpy(&whole, sample, 4);
            out[x] = samples_.isFloat ? fromFloat(real) : std::uint16_t(whole >> 16);
        }
    } else {
        const unsigned maximum = (1u << bits) - 1;
        for (int x = 0; x < width; ++x) {
            const std::size_t bit = (first + std::size_t(x) * step) * std::size_t(bits);
            const std::uint8_t* at = row + bit / 8;
            const unsigned word = unsigned(at[0]) << 16 | unsigned(at[1]) << 8 | at[2];
            const unsigned value = word >> (24 - bits - int(bit % 8)) & maximum;
            out[x] = std::uint16_t(isIndex ? value : (value * kFull + maximum / 2) / maximum);
        }
    }
}

void TiffRowConverter::combine(int width, Argb* out) const {
    using Colours = TiffSamples::Colours;
    const std::vector<std::uint16_t>* alphas =
        samples_.alpha == TiffSamples::Alpha::None ? nullptr : &channels_[used_.size() - 1];
    const unsigned flip = samples_.isInverted ? kFull : 0;
    for (int x = 0; x < width; ++x) {
        const auto channel = [&](std::size_t i) { return unsigned(channels_[i][std::size_t(x)]); };
        const unsigned alpha = alphas != nullptr ? (*alphas)[std::size_t(x)] : kFull;
        if (samples_.colours == Colours::Palette) {
            out[x] = (samples_.palette[channel(0)] & 0xffffffu) | toByte(alpha) << 24;
            continue;
        }
        unsigned red = channel(0) ^ flip, green = red, blue = red;
        if (samples_.colours == Colours::Rgb) {
            green = channel(1);
            blue = channel(2);
        } else if (samples_.colours == Colours::Cmyk) {
            const unsigned light = kFull - channel(3);
            red = multiply(kFull - channel(0), light);
            green = multiply(kFull - channel(1), light);
            blue = multiply(kFull - channel(2), light);
        }
        if (samples_.alpha == TiffSamples::Alpha::Premultiplied) {
            // Nothing is left of the colour below the least alpha.
            out[x] = toByte(alpha) == 0 ? 0
                                        : makeArgb(toByte(alpha), divideOut(red, alpha),
                                                   divideOut(green, alpha), divideOut(blue, alpha));
        } else {
            out[x] = makeArgb(toByte(alpha), toByte(red), toByte(green), toByte(blue));
        }
    }
}

}  // namespace orvane
