#include "view/slider_thumb.h"

#include <array>
#include <cstddef>
#include <string_view>

namespace orvane {
namespace {

constexpr int kWidth = 14, kHeight = 23;

// A round-cornered button with three grooves, lit from the upper left.
constexpr std::array<std::string_view, kHeight> kRows = {
    "..oooooooooo..",  //
    ".owwwwwwwwwdo.",  //
    "owwwwwwwwwwldo",  //
    "owwwlllllllmdo",  //
    "owwlllllllmmdo",  //
    "owwlllllllmmdo",  //
    "owwlllllllmmdo",  //
    "owlgwlgwlgwmdo",  //
    "owlgwlgwlgwmdo",  //
    "owlgwlgwlgwmdo",  //
    "owlgwlgwlgwmdo",  //
    "owlgwlgwlgwmdo",  //
    "owlgwlgwlgwmdo",  //
    "owlgwlgwlgwmdo",  //
    "owlgwlgwlgwmdo",  //
    "owlllllllmmmdo",  //
    "owlllllllmmmdo",  //
    "owlllllllmmmdo",  //
    "owllllllmmmmdo",  //
    "owlllllmmmmmdo",  //
    "olmmmmmmmmmddo",  //
    ".oddddddddddo.",  //
    "..oooooooooo..",  //
};

constexpr Argb colourOf(char letter) noexcept {
    switch (letter) {
        case 'w':
            return 0xFAFAFA;
        case 'l':
            return 0xE4E4E4;
        case 'm':
            return 0xD2D2D2;
        case 'd':
            return 0xB9B9B9;
        case 'g':
            return 0xA0A0A0;
        case 'o':
            return 0x8E8E8E;
        default:
            return 0x000000;
    }
}

// Dark stands for transparent, in this picture and in any that takes its place.
constexpr Argb withDarkTransparent(Argb colour) noexcept {
    constexpr unsigned kDark = 140;
    const bool isDark = redOf(colour) < kDark && greenOf(colour) < kDark && blueOf(colour) < kDark;
    return isDark ? 0 : 0xFF000000u | colour;
}

constexpr auto kPixels = [] {
    std::array<Argb, std::size_t{kWidth} * kHeight> pixels{};
    for (std::size_t i = 0; i < pixels.size(); ++i) {
        pixels[i] = withDarkTransparent(colourOf(kRows[i / kWidth][i % kWidth]));
    }
    return pixels;
}();

}  // namespace

PixelView sliderThumb() noexcept { return {kPixels.data(), kWidth, kHeight, kWidth}; }

}  // namespace orvane
