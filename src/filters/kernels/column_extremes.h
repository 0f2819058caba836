#pragma once

#include <orvane/pixels.h>

#include "filters/kernels/extreme_rows.h"
#include "filters/kernels/scratch.h"

namespace orvane {

/// The minimum or maximum over the 2 * radius + 1 rows around each row, column by column and byte by byte;
/// rows beyond the picture do not count, which is as if its first and last rows went on.
///
/// By the method of van Herk, Gil and Werman: the rows are cut into blocks of the window's length, so that a
/// window meets at most two. It is then the end of one and the beginning of the other,
///
///     rows     | a  b [c  d  e | f  g] h  i | ...      window [c .. g], blocks of five
///                      `------'  `--'
///                      suffix    running
///
/// and three operations per pixel do, whatever the radius. Scratch: one block of rows, never more than the
/// source has.
class ColumnExtremes {
 public:
    /// The source must outlive this object. radius >= 0, any size.
    ColumnExtremes(Extreme extreme, PixelView source, int radius);

    /// The extremes around the next row, from row 0 on; at most as often as there are rows.
    void nextRow(Argb* target) noexcept;
    /// The source row that the next call will be the first to read; null after the last one.
    [[nodiscard]] const Argb* rowAhead() const noexcept {
        return reached_ + 1 < source_.height ? source_.row(reached_ + 1) : nullptr;
    }

 private:
    [[nodiscard]] const Argb* suffix(int row) noexcept;
    void buildSuffixes(int block) noexcept;
    void extendTo(int row) noexcept;

    Extreme extreme_;
    PixelView source_;
    int radius_, blockLength_;
    std::size_t count_, rowLength_;
    Scratch<Argb> suffixes_, runningRow_;
    const Argb* running_ = nullptr;  // the extreme from the start of reached_'s block to reached_
    int reached_ = -1;
    int suffixBlock_ = -1;  // the block whose suffixes are at hand
    int next_ = 0;
};

}  // namespace orvane
