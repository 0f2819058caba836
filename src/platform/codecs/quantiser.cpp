#include "platform/codecs/quantiser.h"

#include <algorithm>
#include <array>

#include "platform/codecs/nearest_colour.h"
#include "platform/codecs/palette_builder.h"

namespace orvane {
namespace {

bool isTransparent(Argb pixel) { return alphaOf(pixel) < kLeastOpaqueAlpha; }

bool hasTransparentPixels(PixelView picture) {
    for (int y = 0; y < picture.height; ++y) {
        if (std::any_of(picture.row(y), picture.row(y) + picture.width, isTransparent)) return true;
    }
    return false;
}

/// Numbers colours in the order of their first appearance.
class ColourTable {
 public:
    /// The colour's number, or -1 when it would be one too many.
    int indexOf(Argb colour, std::vector<Argb>& palette, std::size_t limit) {
        for (std::size_t slot = (colour * 0x9e3779b1u) >> 22;; slot = (slot + 1) % kSlots) {
            if (numbers_[slot] == 0) {
                if (palette.size() == limit) return -1;
                palette.push_back(colour);
                colours_[slot] = colour;
                numbers_[slot] = int(palette.size());
            }
            if (colours_[slot] == colour) return numbers_[slot] - 1;
        }
    }

 private:
    static constexpr std::size_t kSlots = 1024;
    std::array<Argb, kSlots> colours_{};
    std::array<int, kSlots> numbers_{};
};

/// Fills palette and indices as long as the colours suffice; the transparent entry is there already.
bool indexExactly(PixelView picture, std::size_t maximumColours, IndexedPicture& result) {
    ColourTable table;
    std::size_t at = 0;
    Argb previous = 0;  // no opaque colour
    int index = 0;
    for (int y = 0; y < picture.height; ++y) {
        for (int x = 0; x < picture.width; ++x, ++at) {
            const Argb pixel = picture.at(x, y);
            if (isTransparent(pixel)) {
                result.indices[at] = std::uint8_t(result.transparentIndex);
                continue;
            }
            const Argb colour = pixel | 0xff000000u;
            if (colour != previous) {
                index = table.indexOf(colour, result.palette, maximumColours);
                if (index < 0) return false;
                previous = colour;
            }
            result.indices[at] = std::uint8_t(index);
        }
    }
    return true;
}

/// Floyd and Steinberg's error diffusion. Every other row runs leftward, which breaks up the diagonal worms
/// of rows that all run one way. Errors are kept in sixteenths; nothing flows into or out of transparent
/// pixels.
class ErrorDiffusion {
 public:
    explicit ErrorDiffusion(int width) : errors_(std::size_t(width) + 2), nextErrors_(errors_.size()) {}

    void indexRow(const Argb* row, int width, bool leftward, int firstIndex, NearestColour& nearest,
                  IndexedPicture& result, std::uint8_t* out) {
        const int step = leftward ? -1 : 1;
        std::fill(nextErrors_.begin(), nextErrors_.end(), Error{});
        for (int i = 0, x = leftward ? width - 1 : 0; i < width; ++i, x += step) {
            if (isTransparent(row[x])) {
                out[x] = std::uint8_t(result.transparentIndex);
                continue;
            }
            const std::array<int, 3> wanted = corrected(row[x], errorAt(errors_, x));
            const int index = firstIndex + nearest.find(wanted[0], wanted[1], wanted[2]);
            out[x] = std::uint8_t(index);
            const Argb chosen = result.palette[std::size_t(index)];
            const Error error = {wanted[0] - int(redOf(chosen)), wanted[1] - int(greenOf(chosen)),
                                 wanted[2] - int(blueOf(chosen))};
            for (std::size_t c = 0; c < 3; ++c) {
                errorAt(errors_, x + step)[c] += 7 * error[c];
                errorAt(nextErrors_, x - step)[c] += 3 * error[c];
                errorAt(nextErrors_, x)[c] += 5 * error[c];
                errorAt(nextErrors_, x + step)[c] += error[c];
            }
        }
        errors_.swap(nextErrors_);
    }

 private:
    using Error = std::array<int, 3>;

    /// One column beyond each edge takes what falls off.
    static Error& errorAt(std::vector<Error>& errors, int x) { return errors[std::size_t(x + 1)]; }

    static std::array<int, 3> corrected(Argb pixel, const Error& error) {
        const auto channel = [](unsigned value, int sixteenths) {
            return std::clamp(int(value) + ((sixteenths + 8) >> 4), 0, 255);
        };
        return {channel(redOf(pixel), error[0]), channel(greenOf(pixel), error[1]),
                channel(blueOf(pixel), error[2])};
    }

    std::vector<Error> errors_, nextErrors_;
};

}  // namespace

IndexedPicture quantise(PixelView picture, int maximumColours) {
    IndexedPicture result;
    result.indices.resize(picture.pixelCount());
    if (hasTransparentPixels(picture)) {
        result.transparentIndex = 0;
        result.palette.push_back(0x00000000u);
    }
    const int firstIndex = int(result.palette.size());
    if (indexExactly(picture, std::size_t(maximumColours), result)) return result;

    const std::vector<Argb> colours = buildPalette(picture, maximumColours - firstIndex, kLeastOpaqueAlpha);
    result.palette.resize(std::size_t(firstIndex));
    result.palette.insert(result.palette.end(), colours.begin(), colours.end());
    NearestColour nearest(colours);
    ErrorDiffusion diffusion(picture.width);
    for (int y = 0; y < picture.height; ++y) {
        diffusion.indexRow(picture.row(y), picture.width, y % 2 == 1, firstIndex, nearest, result,
                           result.indices.data() + std::size_t(y) * std::size_t(picture.width));
    }
    return result;
}

}  // namespace orvane
