#include "filters/kernels/median_networks.h"

#include <algorithm>
#include <utility>

#include "filters/kernels/scratch.h"
#include "filters/kernels/sorting_network.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "filters/kernels/median_networks.cpp"
#include <hwy/cache_control.h>
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

// Every value is compared as a byte of a row of words, so that a vector carries all channels of its pixels.
//
// The columns of the window are sorted, and each such column serves all windows that contain it. So do
// sorted pairs of neighbouring columns, and pairs of pairs:
//
//     column[x]              2r + 1 values
//     pair[x]                column[x] and column[x + 1]
//     quad[x]                pair[x] and pair[x + 2]
//     window at x, r = 3     quad[x], pair[x + 4], column[x + 6]
//
// From a part of the window that is sorted, values go as soon as too many others are known to be smaller, or
// greater, for them to be the median.

HWY_BEFORE_NAMESPACE();
namespace orvane::HWY_NAMESPACE {
namespace {

namespace hn = hwy::HWY_NAMESPACE;

using Bytes = hn::ScalableTag<std::uint8_t>;
using ByteVector = hn::Vec<Bytes>;

/// The rows of one kind of sorted list: rank k of the list at column x is at(k)[x].
struct RankRows {
    Argb* rows;
    std::size_t rowLength;
    [[nodiscard]] const std::uint8_t* at(std::size_t rank) const {
        return reinterpret_cast<const std::uint8_t*>(rows + rank * rowLength);
    }
    [[nodiscard]] std::uint8_t* at(std::size_t rank) {
        return reinterpret_cast<std::uint8_t*>(rows + rank * rowLength);
    }
};

template <const auto& kNetwork, std::size_t kStep>
HWY_INLINE void compareStep(ByteVector* HWY_RESTRICT wires) {
    constexpr Comparator c = kNetwork.comparators[kStep];
    const ByteVector low = wires[c.low], high = wires[c.high];
    if constexpr (c.keepsMinimum) wires[c.low] = hn::Min(low, high);
    if constexpr (c.keepsMaximum) wires[c.high] = hn::Max(low, high);
}

template <const auto& kNetwork, std::size_t... kSteps>
HWY_INLINE void compareAll(ByteVector* HWY_RESTRICT wires, std::index_sequence<kSteps...>) {
    (compareStep<kNetwork, kSteps>(wires), ...);
}

template <const auto& kNetwork>
HWY_INLINE void compareAll(ByteVector* HWY_RESTRICT wires) {
    compareAll<kNetwork>(wires, std::make_index_sequence<kNetwork.size>());
}

template <std::size_t kSide>
inline constexpr auto kSort = sortingNetwork<kSide>();
template <std::size_t kA, std::size_t kB, std::size_t kFirst, std::size_t kCount>
inline constexpr auto kMerge = mergingNetwork<kA, kB, kFirst, kCount>();

/// Merges the sorted values that `wires` begins with and those of b at byte i, and leaves ranks kFirst on.
template <std::size_t kA, std::size_t kB, std::size_t kFirst, std::size_t kCount>
HWY_INLINE void mergeWith(ByteVector* HWY_RESTRICT wires, const RankRows& b, std::size_t i) {
    constexpr auto& kNetwork = kMerge<kA, kB, kFirst, kCount>;
    ByteVector all[kA + kB];
    for (std::size_t k = 0; k < kA; ++k) all[k] = wires[k];
    for (std::size_t k = 0; k < kB; ++k) all[kA + k] = hn::LoadU(Bytes(), b.at(k) + i);
    compareAll<kNetwork>(all);
    for (std::size_t k = 0; k < kCount; ++k) wires[k] = all[kNetwork.outputs[k]];
}

template <std::size_t kA>
HWY_INLINE void loadRanks(ByteVector* HWY_RESTRICT wires, const RankRows& a, std::size_t i) {
    for (std::size_t k = 0; k < kA; ++k) wires[k] = hn::LoadU(Bytes(), a.at(k) + i);
}

/// target[x] = ranks kFirst .. of source[x] and source[x + columnsApart].
template <std::size_t kA, std::size_t kFirst, std::size_t kCount>
void mergeNeighbours(const RankRows& source, std::size_t columnsApart, RankRows target, std::size_t count) {
    const Bytes d;
    for (std::size_t i = 0; i < count * sizeof(Argb); i += hn::Lanes(d)) {
        ByteVector wires[2 * kA];
        loadRanks<kA>(wires, source, i);
        mergeWith<kA, kA, kFirst, kCount>(wires, source, i + columnsApart * sizeof(Argb));
        for (std::size_t k = 0; k < kCount; ++k) hn::StoreU(wires[k], d, target.at(k) + i);
    }
}

template <std::size_t kSide>
void sortColumns(const Argb* const* rows, RankRows columns, std::size_t count) {
    const Bytes d;
    constexpr auto& kNetwork = kSort<kSide>;
    for (std::size_t i = 0; i < count * sizeof(Argb); i += hn::Lanes(d)) {
        ByteVector wires[kSide];
        for (std::size_t k = 0; k < kSide; ++k) {
            wires[k] = hn::LoadU(d, reinterpret_cast<const std::uint8_t*>(rows[k]) + i);
        }
        compareAll<kNetwork>(wires);
        for (std::size_t k = 0; k < kSide; ++k) hn::StoreU(wires[kNetwork.outputs[k]], d, columns.at(k) + i);
    }
}

/// How a radius puts its windows together. Ranks are those among the values merged so far.
template <int kRadius>
struct Windows;

template <>
struct Windows<1> {
    static constexpr std::size_t kPairRanks = 0, kQuadRanks = 0;
    static HWY_INLINE void prepare(const RankRows&, RankRows, RankRows, std::size_t) {}
    // The greatest of the least, the median of the middle ones and the least of the greatest suffice.
    static HWY_INLINE ByteVector median(const RankRows& columns, const RankRows&, const RankRows&,
                                        std::size_t i) {
        const auto rank = [&](std::size_t k, std::size_t column) HWY_ATTR {
            return hn::LoadU(Bytes(), columns.at(k) + i + column * sizeof(Argb));
        };
        const auto low = hn::Max(hn::Max(rank(0, 0), rank(0, 1)), rank(0, 2));
        const auto high = hn::Min(hn::Min(rank(2, 0), rank(2, 1)), rank(2, 2));
        return middle(low, middle(rank(1, 0), rank(1, 1), rank(1, 2)), high);
    }
    static HWY_INLINE ByteVector middle(ByteVector a, ByteVector b, ByteVector c) {
        return hn::Max(hn::Min(a, b), hn::Min(hn::Max(a, b), c));
    }
};

template <>
struct Windows<2> {
    static constexpr std::size_t kPairRanks = 10, kQuadRanks = 0;
    static HWY_INLINE void prepare(const RankRows& columns, RankRows pairs, RankRows, std::size_t count) {
        mergeNeighbours<5, 0, 10>(columns, 1, pairs, count + 2);
    }
    static HWY_INLINE ByteVector median(const RankRows& columns, const RankRows& pairs, const RankRows&,
                                        std::size_t i) {
        ByteVector wires[10];
        loadRanks<10>(wires, pairs, i);
        mergeWith<10, 10, 7, 6>(wires, pairs, i + 2 * sizeof(Argb));
        mergeWith<6, 5, 5, 1>(wires, columns, i + 4 * sizeof(Argb));
        return wires[0];
    }
};

template <>
struct Windows<3> {
    static constexpr std::size_t kPairRanks = 14, kQuadRanks = 22;
    static HWY_INLINE void prepare(const RankRows& columns, RankRows pairs, RankRows quads,
                                   std::size_t count) {
        mergeNeighbours<7, 0, 14>(columns, 1, pairs, count + 4);
        mergeNeighbours<14, 3, 22>(pairs, 2, quads, count);
    }
    static HWY_INLINE ByteVector median(const RankRows& columns, const RankRows& pairs, const RankRows& quads,
                                        std::size_t i) {
        ByteVector wires[22];
        loadRanks<22>(wires, quads, i);
        mergeWith<22, 14, 14, 8>(wires, pairs, i + 4 * sizeof(Argb));
        mergeWith<8, 7, 7, 1>(wires, columns, i + 6 * sizeof(Argb));
        return wires[0];
    }
};

template <>
struct Windows<4> {
    static constexpr std::size_t kPairRanks = 18, kQuadRanks = 36;
    static HWY_INLINE void prepare(const RankRows& columns, RankRows pairs, RankRows quads,
                                   std::size_t count) {
        mergeNeighbours<9, 0, 18>(columns, 1, pairs, count + 6);
        mergeNeighbours<18, 0, 36>(pairs, 2, quads, count + 4);
    }
    static HWY_INLINE ByteVector median(const RankRows& columns, const RankRows&, const RankRows& quads,
                                        std::size_t i) {
        ByteVector wires[36];
        loadRanks<36>(wires, quads, i);
        mergeWith<36, 36, 31, 10>(wires, quads, i + 4 * sizeof(Argb));
        mergeWith<10, 9, 9, 1>(wires, columns, i + 8 * sizeof(Argb));
        return wires[0];
    }
};

// What all rows of a tile take together should stay in the nearest cache.
constexpr std::size_t kTileBytes = std::size_t{40} << 10;

// Results from this size on leave the caches anyway before anyone reads them. Around the caches pays only
// where the arithmetic is so short that memory is what a pass waits for.
constexpr std::size_t kStreamedBytes = std::size_t{24} << 20;
constexpr int kLargestStreamedRadius = 2;

/// The medians of `count` columns from `first` on, for all rows.
template <int kRadius>
class MedianTile {
 public:
    static constexpr std::size_t kSide = 2 * kRadius + 1;
    static constexpr std::size_t kPairRanks = Windows<kRadius>::kPairRanks;
    static constexpr std::size_t kQuadRanks = Windows<kRadius>::kQuadRanks;
    static constexpr std::size_t kRows = 2 * kSide + kPairRanks + kQuadRanks;

    static int columns() {
        const std::size_t words = kTileBytes / (kRows * sizeof(Argb));
        return int((words - 2 * kRadius) / 16 * 16);  // tiles begin where cache lines do
    }

    MedianTile(PixelView source, int widest)
        : source_(source),
          streamed_(kRadius <= kLargestStreamedRadius &&
                    source.pixelCount() * sizeof(Argb) >= kStreamedBytes),
          // Each stage runs in whole vectors and reads what lies to the right of where it writes.
          rowLength_(std::size_t(widest) + 2 * kRadius + 2 * hn::Lanes(Bytes()) + 2 * kSide),
          memory_(rowLength_ * kRows) {
        std::fill_n(memory_.data(), rowLength_ * kRows, Argb{0});
    }

    void run(MutablePixelView target, int first, int count) {
        const std::size_t width = std::size_t(count);
        RankRows columns = rankRows(kSide), pairs = rankRows(2 * kSide),
                 quads = rankRows(2 * kSide + kPairRanks);
        for (int y = 0; y <= std::min(kRadius - 1, source_.height - 1); ++y) takeRow(y, first, count);
        for (int y = 0; y < source_.height; ++y) {
            if (y + kRadius < source_.height) takeRow(y + kRadius, first, count);
            const Argb* rows[kSide];
            for (int k = 0; k < int(kSide); ++k) {
                rows[k] = windowRow(std::clamp(y - kRadius + k, 0, source_.height - 1));
            }
            sortColumns<kSide>(rows, columns, width + 2 * kRadius);
            Windows<kRadius>::prepare(columns, pairs, quads, width);
            writeRow(columns, pairs, quads, target.row(y) + first, width);
        }
        if (streamed_) hwy::FlushStream();
    }

 private:
    RankRows rankRows(std::size_t firstRow) { return {memory_.data() + firstRow * rowLength_, rowLength_}; }
    Argb* windowRow(int y) { return memory_.data() + std::size_t(y) % kSide * rowLength_; }

    /// Copies a row's part under the windows to where it is needed kSide times, its edges going on.
    void takeRow(int y, int first, int count) {
        const int begin = std::max(first - kRadius, 0);
        const int end = std::min(first + count + kRadius, source_.width);
        const Argb* const from = source_.row(y);
        Argb* to = windowRow(y);
        for (int x = first - kRadius; x < begin; ++x) *to++ = from[0];
        to = std::copy(from + begin, from + end, to);
        for (int x = end; x < first + count + kRadius; ++x) *to++ = from[source_.width - 1];
        if (y + 1 >= source_.height) return;
        for (int x = begin; x < end; x += 16) hwy::Prefetch(source_.row(y + 1) + x);
    }

    void writeRow(const RankRows& columns, const RankRows& pairs, const RankRows& quads, Argb* target,
                  std::size_t count) const {
        const Bytes d;
        const std::size_t lanes = hn::Lanes(d), end = count * sizeof(Argb);
        auto* const bytes = reinterpret_cast<std::uint8_t*>(target);
        const auto medians = [&](std::size_t i) HWY_ATTR {
            return opaque(Windows<kRadius>::median(columns, pairs, quads, i), i);
        };
        std::size_t i = 0;
        if (kRadius <= kLargestStreamedRadius && streamed_ && end >= 2 * lanes) {
            const std::size_t past = reinterpret_cast<std::uintptr_t>(bytes) % lanes;
            if (past != 0) hn::StoreU(medians(0), d, bytes);
            for (i = (lanes - past) % lanes; i + lanes <= end; i += lanes)
                hn::Stream(medians(i), d, bytes + i);
        } else {
            for (; i + lanes <= end; i += lanes) hn::StoreU(medians(i), d, bytes + i);
        }
        if (i == end) return;
        HWY_ALIGN std::uint8_t rest[hn::MaxLanes(Bytes())];
        hn::Store(medians(i), d, rest);
        std::copy(rest, rest + (end - i), bytes + i);
    }

    static HWY_INLINE ByteVector opaque(ByteVector v, std::size_t i) {
#if HWY_TARGET == HWY_SCALAR
        return (i & 3) == 3 ? hn::Set(Bytes(), std::uint8_t{255}) : v;
#else
        (void)i;
        return hn::Or(v, hn::BitCast(Bytes(), hn::Set(hn::ScalableTag<std::uint32_t>(), 0xFF000000u)));
#endif
    }

    PixelView source_;
    bool streamed_;
    std::size_t rowLength_;
    Scratch<Argb> memory_;
};

template <int kRadius>
void medianOfTiles(PixelView source, MutablePixelView target) {
    const int tile = std::min(MedianTile<kRadius>::columns(), source.width);
    MedianTile<kRadius> medians(source, tile);
    for (int x = 0; x < source.width; x += tile) medians.run(target, x, std::min(tile, source.width - x));
}

}  // namespace

void MedianByNetworks(PixelView source, MutablePixelView target, int radius) {
    switch (radius) {
        case 1:
            return medianOfTiles<1>(source, target);
        case 2:
            return medianOfTiles<2>(source, target);
        case 3:
            return medianOfTiles<3>(source, target);
        default:
            return medianOfTiles<4>(source, target);
    }
}

}  // namespace orvane::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace orvane {

HWY_EXPORT(MedianByNetworks);

void medianByNetworks(PixelView source, MutablePixelView target, int radius) {
    HWY_DYNAMIC_DISPATCH(MedianByNetworks)(source, target, radius);
}

}  // namespace orvane
#endif  // HWY_ONCE
