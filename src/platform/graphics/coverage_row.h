#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

/// How much of each pixel of one row a shape covers, summed up from the edges of the shape.
///
/// Every edge stands for the area to its right: positive where the shape begins, negative where it ends. What
/// is kept is the difference from each pixel to the next, so that an edge touches only the pixels that it
/// crosses; a pass from left to right then makes coverages of them. Pixels far from every edge are handed out
/// in runs, so a row costs as much as its edges, however wide the shape. Sums are whole numbers, which come
/// out the same wherever on the raster the shape lies.
namespace orvane {

/// Takes a shape's pixels row by row. What is not handed out is not covered.
class CoverageSink {
 public:
    virtual ~CoverageSink() = default;
    /// Pixels (x, y), (x + 1, y), ... with coverages 0..255 of their own.
    virtual void paint(int x, int y, const std::uint8_t* coverage, int count) noexcept = 0;
    /// Pixels that are wholly covered.
    virtual void paintWhole(int x, int y, int count) noexcept = 0;
};

class CoverageRow {
 public:
    /// For a raster of this width, at least 1. Throws std::bad_alloc; nothing else here does.
    explicit CoverageRow(int width);

    /// The area right of an edge from x = fromX to toX, both in 0..width, whose ends are |height| apart
    /// vertically; a negative height takes the area away.
    void add(double fromX, double toX, double height) noexcept;

    /// Gives the row to the sink as row y and is empty again. Sums are cut to 0..1.
    void handOut(int y, CoverageSink& sink) noexcept;

 private:
    static constexpr int kBlock = 16;  ///< pixels that share a mark of being touched by an edge

    void addInPixel(double across, std::uint32_t height, int pixel) noexcept;
    [[nodiscard]] std::uint32_t coverTouched(int x, int end, std::uint32_t sum) noexcept;
    void touch(int firstPixel, int lastPixel) noexcept;
    [[nodiscard]] bool isTouched(int block) const noexcept;
    [[nodiscard]] int nextTouched(int block) const noexcept;

    int width_, blocks_;
    /// In 2^-24 of a pixel, negative ones modulo 2^32; two to spare at the row's end.
    std::vector<std::uint32_t> differences_;
    std::vector<std::uint8_t> coverages_;
    std::vector<std::uint64_t> touched_;  ///< a bit for each block
};

}  // namespace orvane
