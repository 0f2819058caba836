#pragma once

#include <orvane/pixels.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "base/random_stream.h"

/// The colour point operations by their definitions alone, one pixel after the other. They define the
/// results; the filters must give the same bytes.
namespace orvane::reference {

using Pixels = std::vector<Argb>;

inline Argb clampedPixel(double red, double green, double blue) {
    const auto byte = [](double value) { return static_cast<unsigned>(std::clamp(value, 0.0, 255.0)); };
    return makeOpaque(byte(red), byte(green), byte(blue));
}

template <class NewPixel>
Pixels eachPixel(Pixels image, NewPixel&& newPixel) {
    for (Argb& p : image) p = newPixel(int(redOf(p)), int(greenOf(p)), int(blueOf(p)));
    return image;
}

inline int luma(int r, int g, int b) { return static_cast<int>(0.2125 * r + 0.7154 * g + 0.0721 * b); }

inline Pixels desaturate(const Pixels& image) {
    return eachPixel(image, [](int r, int g, int b) {
        const unsigned grey = unsigned(luma(r, g, b));
        return makeOpaque(grey, grey, grey);
    });
}

inline Pixels saturate(const Pixels& image, int percent) {
    const double s = percent * 0.01, k = 1.0 - s;
    return eachPixel(image, [=](int r, int g, int b) {
        const double t = std::trunc(std::min(luma(r, g, b), 255) * k);
        return clampedPixel(std::trunc(r * s + t), std::trunc(g * s + t), std::trunc(b * s + t));
    });
}

inline Pixels autocolor(Pixels image) {
    for (int shift : {0, 8, 16}) {
        int minimum = 255, maximum = 0;
        for (Argb p : image) {
            const int value = (p >> shift) & 255;
            minimum = std::min(minimum, value);
            maximum = std::max(maximum, value);
        }
        if (minimum == maximum) continue;
        const double scale = 245.0 / (maximum - minimum);
        for (Argb& p : image) {
            const int value = (p >> shift) & 255;
            const unsigned stretched = static_cast<unsigned>((value - minimum) * scale + 5.0);
            p = (p & ~(Argb{255} << shift)) | (stretched << shift);
        }
    }
    for (Argb& p : image) p |= 0xFF000000u;
    return image;
}

inline Pixels contrast(const Pixels& image, int percent) {
    const double s = percent * 0.01, offset = std::trunc((1.0 - s) * 127.0);
    return eachPixel(image, [=](int r, int g, int b) {
        return clampedPixel(std::trunc(r * s) + offset, std::trunc(g * s) + offset,
                            std::trunc(b * s) + offset);
    });
}

inline Pixels brightness(const Pixels& image, int red, int green, int blue) {
    return eachPixel(image, [=](int r, int g, int b) {
        return clampedPixel(double(r) + red, double(g) + green, double(b) + blue);
    });
}

inline Pixels lightness(const Pixels& image, int red, int green, int blue) {
    return eachPixel(image, [kR = red * 0.01, kG = green * 0.01, kB = blue * 0.01](int r, int g, int b) {
        return clampedPixel(std::trunc(r * kR), std::trunc(g * kG), std::trunc(b * kB));
    });
}

inline Pixels noise(const Pixels& image, int type, int level, RandomStream& stream) {
    const double scale = level * (1.0 / 32767);
    const auto draw = [&] {
        const double magnitude = std::trunc(stream.next() * scale);
        return stream.next() > 16383 ? -magnitude : magnitude;
    };
    return eachPixel(image, [&](int r, int g, int b) {
        const double red = draw();
        const double green = type == 0 ? red : draw();
        const double blue = type == 0 ? red : draw();
        return clampedPixel(r + red, g + green, b + blue);
    });
}

inline Pixels invert(const Pixels& image) {
    return eachPixel(image, [](int r, int g, int b) { return clampedPixel(255 - r, 255 - g, 255 - b); });
}

inline Pixels monochrome(const Pixels& image, int level, Argb above, Argb notAbove) {
    return eachPixel(image, [=](int r, int g, int b) { return (r + g + b) / 3 > level ? above : notAbove; });
}

inline Pixels gamma(const Pixels& image, double level) {
    unsigned table[256] = {0};
    for (int i = 1; i < 256; ++i) {
        table[i] = unsigned(255.0 * std::exp2(level * std::log2(i * (1.0 / 255)))) & 255u;
    }
    return eachPixel(image, [&](int r, int g, int b) { return makeOpaque(table[r], table[g], table[b]); });
}

inline Pixels temperature(const Pixels& image, int percent) {
    const double t = percent * 0.01;
    return eachPixel(image, [=](int r, int g, int b) {
        return clampedPixel(std::trunc(r * (1.0 + t)), g, std::trunc(b * (1.0 - t)));
    });
}

inline Pixels hue(const Pixels& image, int red, int green, int blue) {
    const int m = (red + green + blue) / 3;
    Argb table[256];
    const double inv = m > 0 ? 1.0 / m : 0.0;
    for (int i = 0; m > 0 && i <= m; ++i) {
        const double u = i * inv;
        table[i] = clampedPixel(std::trunc(red * u), std::trunc(green * u), std::trunc(blue * u));
    }
    const double inv2 = 1.0 / (256 - m);
    for (int j = 0; m + j <= 255; ++j) {
        const double v = j * inv2;
        const auto mixed = [v](int channel) { return std::trunc((1.0 - v) * channel + v * 255.0); };
        table[m + j] = clampedPixel(mixed(red), mixed(green), mixed(blue));
    }
    return eachPixel(image, [&](int r, int g, int b) { return table[(r + g + b) / 3]; });
}

}  // namespace orvane::reference
