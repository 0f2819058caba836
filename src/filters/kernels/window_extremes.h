#pragma once

#include <orvane/pixels.h>

#include "filters/kernels/column_extremes.h"
#include "filters/kernels/extreme_rows.h"
#include "filters/kernels/scratch.h"

namespace orvane {

/// The minimum or maximum of each colour channel over the square window around every pixel.
///
/// source, target: equal sizes, memory not shared.
/// radius: from 0; the window is 2 * radius + 1 pixels square, and pixels beyond an edge repeat the edge
/// pixel. Reads R, G and B; writes every target pixel with alpha 255. Cost per pixel grows with the logarithm
/// of the radius. May throw std::bad_alloc.
void windowExtreme(Extreme extreme, PixelView source, MutablePixelView target, int radius);

/// The same row by row, for filters that need no picture of it.
class WindowExtremeRows {
 public:
    /// The pixels of columns firstColumn .. firstColumn + columnCount - 1 of the source, which must outlive
    /// this object. Their windows reach beyond these columns. May throw std::bad_alloc.
    WindowExtremeRows(Extreme extreme, PixelView source, int radius, int firstColumn, int columnCount);

    /// Writes the extremes of the next row, from row 0 on; at most as often as there are rows. `streamed`:
    /// past the caches.
    void nextRow(Argb* target, bool streamed = false) noexcept;

 private:
    /// The columns under the windows, and how many lie beyond the picture on either side.
    struct Reach {
        Reach(int width, int radius, int firstColumn, int columnCount) noexcept;
        [[nodiscard]] std::size_t rowLength() const noexcept;

        std::size_t window, leftMargin, inside, rightMargin;
        std::size_t inset;  ///< of the row in its memory, so that its inside is aligned
        int begin;
    };

    Extreme extreme_;
    Reach reach_;
    std::size_t columnCount_;
    ColumnExtremes columnExtremes_;
    Scratch<Argb> row_, scratch_;
};

/// Maximum less minimum over the window around each pixel, the measure of local contrast, row by row.
class LocalRangeRows {
 public:
    /// As for WindowExtremeRows.
    LocalRangeRows(PixelView source, int radius, int firstColumn, int columnCount);

    /// The ranges of the next row, from row 0 on: one word per column, with the range of each colour channel
    /// in its byte and 0 in alpha's. Good until the next call, which must not come after the last row.
    [[nodiscard]] const Argb* nextRow() noexcept;

 private:
    std::size_t columnCount_;
    WindowExtremeRows minimumRows_, maximumRows_;
    Scratch<Argb> minimum_, maximum_, range_;
};

}  // namespace orvane
