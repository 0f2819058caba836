#include "platform/graphics/turn.h"

#include <algorithm>
#include <cstring>

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "platform/graphics/turn.cpp"
#include <hwy/cache_control.h>
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace orvane::HWY_NAMESPACE {
namespace {

namespace hn = hwy::HWY_NAMESPACE;

using Words = hn::ScalableTag<std::uint32_t>;
using FourWords = hn::CappedTag<std::uint32_t, 4>;

/// Writes a row from read(i), a whole vector of what comes to word i on. `streamed`: past the caches,
/// wherever whole vectors are aligned.
template <class ReadVector, class ReadWord>
HWY_INLINE void writeRow(const ReadVector& read, const ReadWord& readWord, Argb* target, std::size_t count,
                         bool streamed) {
    const Words d;
    const std::size_t lanes = hn::Lanes(d);
    std::size_t i = 0;
    if (streamed && count >= 2 * lanes) {
        const std::size_t past = reinterpret_cast<std::uintptr_t>(target) / sizeof(Argb) % lanes;
        hn::StoreU(read(0), d, target);
        for (i = lanes - past; i + lanes <= count; i += lanes) hn::Stream(read(i), d, target + i);
    } else {
        for (; i + lanes <= count; i += lanes) hn::StoreU(read(i), d, target + i);
    }
    for (; i < count; ++i) target[i] = readWord(i);
}

HWY_INLINE void copyRow(const Argb* source, Argb* target, std::size_t count, bool streamed) {
    writeRow([=](std::size_t i) HWY_ATTR { return hn::LoadU(Words(), source + i); },
             [=](std::size_t i) { return source[i]; }, target, count, streamed);
}

HWY_INLINE void reverseRow(const Argb* source, Argb* target, std::size_t count, bool streamed) {
    const Argb* const end = source + count;
    writeRow([=](std::size_t i)
                 HWY_ATTR { return hn::Reverse(Words(), hn::LoadU(Words(), end - i - hn::Lanes(Words()))); },
             [=](std::size_t i) { return *(end - 1 - i); }, target, count, streamed);
}

// A tile is so many rows of the source, which become as long a piece of target rows, and so many columns. It
// is turned into near memory first, so that the target is written in whole cache lines whatever its rows'
// length.
constexpr int kTileRows = 256, kTileColumns = 64;
constexpr std::ptrdiff_t kTileStride = kTileRows + 16;  // rows apart that do not fall into the same cache set

#if HWY_TARGET != HWY_SCALAR
/// Rows become columns in a square of 4 x 4 words.
HWY_INLINE void transposeSquare(const Argb* source, std::ptrdiff_t sourceStride, Argb* target,
                                std::ptrdiff_t targetStride) {
    const FourWords d;
    const hn::Repartition<std::uint64_t, FourWords> pairs;
    const auto row0 = hn::LoadU(d, source), row1 = hn::LoadU(d, source + sourceStride);
    const auto row2 = hn::LoadU(d, source + 2 * sourceStride), row3 = hn::LoadU(d, source + 3 * sourceStride);
    const auto low01 = hn::BitCast(pairs, hn::InterleaveLower(d, row0, row1));
    const auto low23 = hn::BitCast(pairs, hn::InterleaveLower(d, row2, row3));
    const auto high01 = hn::BitCast(pairs, hn::InterleaveUpper(d, row0, row1));
    const auto high23 = hn::BitCast(pairs, hn::InterleaveUpper(d, row2, row3));
    hn::StoreU(hn::BitCast(d, hn::InterleaveLower(pairs, low01, low23)), d, target);
    hn::StoreU(hn::BitCast(d, hn::InterleaveUpper(pairs, low01, low23)), d, target + targetStride);
    hn::StoreU(hn::BitCast(d, hn::InterleaveLower(pairs, high01, high23)), d, target + 2 * targetStride);
    hn::StoreU(hn::BitCast(d, hn::InterleaveUpper(pairs, high01, high23)), d, target + 3 * targetStride);
}
#endif

/// Rows of the tile become columns.
HWY_INLINE void transposeTile(const Argb* source, std::ptrdiff_t sourceStride, int columns, int rows,
                              Argb* target) {
    int y = 0;
#if HWY_TARGET != HWY_SCALAR
    for (; y + 4 <= rows; y += 4) {
        const Argb* const from = source + y * sourceStride;
        int x = 0;
        for (; x + 4 <= columns; x += 4) {
            transposeSquare(from + x, sourceStride, target + x * kTileStride + y, kTileStride);
        }
        for (; x < columns; ++x) {
            for (int i = 0; i < 4; ++i) target[x * kTileStride + y + i] = from[i * sourceStride + x];
        }
    }
#endif
    for (; y < rows; ++y) {
        for (int x = 0; x < columns; ++x) target[x * kTileStride + y] = source[y * sourceStride + x];
    }
}

void transpose(PixelView source, MutablePixelView target, bool streamed) {
    alignas(64) Argb tile[kTileColumns * kTileStride];
    for (int y = 0; y < source.height; y += kTileRows) {
        const int rows = std::min(kTileRows, source.height - y);
        for (int x = 0; x < source.width; x += kTileColumns) {
            const int columns = std::min(kTileColumns, source.width - x);
            transposeTile(source.row(y) + x, source.stridePixels, columns, rows, tile);
            for (int i = 0; i < columns; ++i) {
                copyRow(tile + i * kTileStride, target.row(x + i) + y, std::size_t(rows), streamed);
            }
        }
    }
}

// The same rows, from the last to the first.
template <class View>
View fromBelow(View view) {
    view.pixels += view.stridePixels * (view.height - 1);
    view.stridePixels = -view.stridePixels;
    return view;
}

// Pictures from this size on leave the caches anyway before anyone reads them.
constexpr std::size_t kStreamedBytes = std::size_t{24} << 20;

}  // namespace

void CopyTurned(PixelView source, MutablePixelView target, Turn turn) {
    const bool streamed = source.pixelCount() * sizeof(Argb) >= kStreamedBytes;
    // A quarter turn makes columns of rows and reads or writes the rows from below.
    const bool sourceFromBelow = turn == Turn::Clockwise || turn == Turn::CounterClockwiseMirrored ||
                                 turn == Turn::Half || turn == Turn::HalfMirrored;
    if (sourceFromBelow) source = fromBelow(source);
    if (exchangesSides(turn)) {
        const bool targetFromBelow = turn == Turn::CounterClockwise || turn == Turn::CounterClockwiseMirrored;
        transpose(source, targetFromBelow ? fromBelow(target) : target, streamed);
    } else {
        const bool reversed = turn == Turn::Half || turn == Turn::Mirrored;
        for (int y = 0; y < source.height; ++y) {
            (reversed ? reverseRow : copyRow)(source.row(y), target.row(y), std::size_t(source.width),
                                              streamed);
        }
    }
    if (streamed) hwy::FlushStream();
}

}  // namespace orvane::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace orvane {

HWY_EXPORT(CopyTurned);

void copyTurned(PixelView source, MutablePixelView target, Turn turn) noexcept {
    HWY_DYNAMIC_DISPATCH(CopyTurned)(source, target, turn);
}

}  // namespace orvane
#endif  // HWY_ONCE
