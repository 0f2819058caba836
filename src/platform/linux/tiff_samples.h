#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include <orvane/pixels.h>

/// Rows of TIFF samples to pixels.
namespace orvane {

struct TiffSamples {
    enum class Colours { Grey, Palette, Rgb, Cmyk };
    enum class Alpha { None, Straight, Premultiplied };

    Colours colours = Colours::Grey;
    bool isInverted = false;  ///< grey: 0 is white
    int bits = 8;             ///< 1..16, or 32
    bool isFloat = false;     ///< of 32 bits, 0..1
    int samplesPerPixel = 1;  ///< all of them, used or not
    bool isPlanar = false;    ///< each sample in a plane of its own
    Alpha alpha = Alpha::None;
    int alphaSample = 0;
    std::vector<Argb> palette;  ///< 1 << bits entries, where the colours are a palette's

    [[nodiscard]] int colourSamples() const {
        return colours == Colours::Cmyk ? 4 : colours == Colours::Rgb ? 3 : 1;
    }
    /// The sample numbers that make up a pixel: the colours, then alpha where there is one.
    [[nodiscard]] std::vector<int> usedSamples() const;
    /// Bytes of a row of this width in one plane.
    [[nodiscard]] std::uint64_t rowBytes(int width) const {
        return (std::uint64_t(width) * unsigned(isPlanar ? 1 : samplesPerPixel) * unsigned(bits) + 7) / 8;
    }
};

/// A reader of rows, with the memory that it needs for up to `maxWidth` pixels. May throw std::bad_alloc.
class TiffRowConverter {
 public:
    /// Bytes that must be readable behind the last row: packed samples are fetched three bytes at a time.
    static constexpr std::size_t kReadAhead = 2;

    TiffRowConverter(TiffSamples samples, int maxWidth);

    /// rows: per used sample the row that holds it; the same row throughout when the planes are not apart.
    void convert(const std::array<const std::uint8_t*, 5>& rows, int width, Argb* out);

 private:
    void unpack(const std::uint8_t* row, std::size_t first, std::size_t step, int width,
                std::uint16_t* out) const;
    void convertBytes(const std::uint8_t* row, int width, Argb* out) const;
    void combine(int width, Argb* out) const;

    TiffSamples samples_;
    std::vector<int> used_;
    std::array<std::vector<std::uint16_t>, 5> channels_;  ///< 0..65535, or indices of the palette
};

}  // namespace orvane
