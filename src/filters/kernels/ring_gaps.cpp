#include "filters/kernels/ring_means.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "filters/kernels/ring_gaps.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <vector>

HWY_BEFORE_NAMESPACE();
namespace orvane {
namespace HWY_NAMESPACE {
namespace {

namespace hn = hwy::HWY_NAMESPACE;

// Sums of 5 x 5 pixels, and their channels, are taken in 16 bits: the even bytes of a pixel (blue and red)
// and the odd ones (green and alpha) side by side in a word each. No sum leaves its 16 bits.
constexpr Argb kEvenBytes = 0x00FF00FFu;

// 73 = 24 * 3 + 1 parts, by a multiplication that is exact for every sum of 73 bytes.
constexpr std::uint16_t kPerPart = 57457;
constexpr int kPartShift = 6;

class RingGaps {
 public:
    RingGaps(PixelView source, MutablePixelView target, IntPoint centre)
        : source_(source), target_(target), centre_(centre), width_(std::size_t(source.width)) {
        for (auto& row : rows_) row.resize(width_ + kVectorRoom);
        for (auto& row : gaps_) row.resize(width_ + kVectorRoom);
        even_.resize(width_ + 2 * kReach + kVectorRoom);
        odd_.resize(width_ + 2 * kReach + kVectorRoom);
        half_.resize(std::size_t(std::max(centre.x, source.width - 1 - centre.x)) + 1 + kVectorRoom);
    }

    void run() {
        for (int y = 0; y < std::min(kReach, source_.height); ++y) takeRow(y);
        for (int y = 0; y < source_.height; ++y) {
            if (y + kReach < source_.height) takeRow(y + kReach);
            addColumns(y);
            fillRow(y);
        }
    }

 private:
    static constexpr int kReach = 2, kRows = 2 * kReach + 1;
    static constexpr std::size_t kVectorRoom = HWY_LANES(Argb);

    // Rows are kept as they are before any gap is filled.
    [[nodiscard]] std::vector<Argb>& rowOf(int y) { return rows_[y % kRows]; }
    [[nodiscard]] std::vector<Argb>& gapsOf(int y) { return gaps_[y % kRows]; }

    void takeRow(int y) {
        findGaps(y);
        const Argb* HWY_RESTRICT source = source_.row(y);
        const Argb* HWY_RESTRICT target = target_.row(y);
        const Argb* HWY_RESTRICT gaps = gapsOf(y).data();
        Argb* HWY_RESTRICT row = rowOf(y).data();
        for (std::size_t x = 0; x < width_; ++x) row[x] = (source[x] & gaps[x]) | (target[x] & ~gaps[x]);
    }

    // All bits set where a pixel of the row is on no ring.
    void findGaps(int y) {
        findHalf(std::abs(y - centre_.y));
        const auto half = half_.begin();
        Argb* const gaps = gapsOf(y).data();
        std::reverse_copy(half, half + centre_.x + 1, gaps);
        std::copy(half, half + (source_.width - centre_.x), gaps + centre_.x);
        if (std::abs(y - centre_.y) > 1) return;
        // The first ring lies about the pixel to the left of the centre and leaves only that one out.
        for (int x = std::max(centre_.x - 2, 0); x <= centre_.x; ++x) {
            if (y != centre_.y || x != centre_.x - 1) gaps[x] = 0;
        }
    }

    // The gaps of a row to one side of the centre. A pixel at the distances m >= t along the axes is on the
    // ring of a radius r when m * m - m < r * r - t * t <= m * m + m, which holds for one radius at most.
    HWY_NOINLINE void findHalf(int up) {
        const hn::ScalableTag<double> d;
        const hn::Rebind<std::int32_t, decltype(d)> d32;
        const auto away = hn::Set(d, double(up));
        for (std::size_t i = 0; i + hn::Lanes(d) <= half_.size(); i += hn::Lanes(d)) {
            const auto across = hn::Iota(d, double(i));
            const auto longer = hn::Max(across, away), shorter = hn::Min(across, away);
            const auto squares = hn::Add(hn::Mul(longer, longer), hn::Mul(shorter, shorter));
            const auto radius = hn::Floor(hn::Sqrt(hn::Add(squares, longer)));
            const auto covered = hn::And(hn::Ge(radius, hn::Set(d, 2.0)),
                                         hn::Gt(hn::Mul(radius, radius), hn::Sub(squares, longer)));
            const auto gaps = hn::IfThenElseZero(hn::Not(covered), hn::Set(d, -1.0));
            hn::StoreU(hn::DemoteTo(d32, gaps), d32, half_.data() + i);
        }
    }

    // Sums of five rows, for all columns and two more at each end. Rows and sums have room for whole vectors.
    HWY_NOINLINE void addColumns(int y) {
        const Argb* rows[kRows];
        for (int i = 0; i < kRows; ++i) {
            rows[i] = rowOf(std::clamp(y + i - kReach, 0, source_.height - 1)).data();
        }
        Argb* HWY_RESTRICT const even = even_.data() + kReach;
        Argb* HWY_RESTRICT const odd = odd_.data() + kReach;
        const hn::ScalableTag<Argb> d;
        const auto bytes = hn::Set(d, kEvenBytes);
        for (std::size_t x = 0; x < width_; x += hn::Lanes(d)) {
            auto evenSum = hn::Zero(d), oddSum = hn::Zero(d);
            for (const Argb* const row : rows) {
                const auto pixels = hn::LoadU(d, row + x);
                evenSum = hn::Add(evenSum, hn::And(pixels, bytes));
                oddSum = hn::Add(oddSum, hn::And(hn::ShiftRight<8>(pixels), bytes));
            }
            hn::StoreU(evenSum, d, even + x);
            hn::StoreU(oddSum, d, odd + x);
        }
        for (Argb* const sums : {even, odd}) {
            std::fill_n(sums - kReach, kReach, sums[0]);
            std::fill_n(sums + width_, kReach, sums[width_ - 1]);
        }
    }

    void fillRow(int y) {
        const Argb* HWY_RESTRICT row = rowOf(y).data();
        const Argb* HWY_RESTRICT gaps = gapsOf(y).data();
        const Argb* HWY_RESTRICT even = even_.data();
        const Argb* HWY_RESTRICT odd = odd_.data();
        Argb* HWY_RESTRICT target = target_.row(y);
        const hn::ScalableTag<Argb> d;
        const std::size_t lanes = hn::Lanes(d);
        std::size_t x = 0;
        for (; x + lanes <= width_; x += lanes) {
            hn::StoreU(filled(row + x, gaps + x, even + x, odd + x), d, target + x);
        }
        if (x == width_) return;
        HWY_ALIGN Argb last[HWY_LANES(Argb)];
        hn::Store(filled(row + x, gaps + x, even + x, odd + x), d, last);
        std::copy(last, last + (width_ - x), target + x);
    }

    static HWY_INLINE hn::Vec<hn::ScalableTag<Argb>> filled(const Argb* row, const Argb* gaps,
                                                            const Argb* even, const Argb* odd) {
        const hn::ScalableTag<Argb> d;
        const auto pixel = hn::LoadU(d, row), gap = hn::LoadU(d, gaps);
        const auto bytes = hn::Set(d, kEvenBytes);
        const auto lower = weighted(even, hn::And(pixel, bytes));
        const auto upper = weighted(odd, hn::And(hn::ShiftRight<8>(pixel), bytes));
        const auto mean = hn::Or(hn::Or(lower, hn::ShiftLeft<8>(upper)), hn::Set(d, 0xFF000000u));
        return hn::Or(hn::And(gap, mean), hn::AndNot(gap, pixel));
    }

    static HWY_INLINE hn::Vec<hn::ScalableTag<Argb>> weighted(const Argb* columns,
                                                              hn::Vec<hn::ScalableTag<Argb>> middle) {
        const hn::ScalableTag<Argb> d;
        auto sum = hn::LoadU(d, columns);
        for (int i = 1; i < kRows; ++i) sum = hn::Add(sum, hn::LoadU(d, columns + i));
        sum = hn::Sub(hn::Add(sum, hn::Add(sum, sum)), hn::Add(middle, middle));
#if HWY_TARGET == HWY_SCALAR
        const Argb both = hn::GetLane(sum);
        return hn::Set(d, ((both & 0xFFFFu) * kPerPart >> (16 + kPartShift)) |
                              (((both >> 16) * kPerPart >> (16 + kPartShift)) << 16));
#else
        const hn::Repartition<std::uint16_t, decltype(d)> d16;
        const auto parts = hn::MulHigh(hn::BitCast(d16, sum), hn::Set(d16, kPerPart));
        return hn::BitCast(d, hn::ShiftRight<kPartShift>(parts));
#endif
    }

    PixelView source_;
    MutablePixelView target_;
    IntPoint centre_;
    std::size_t width_;
    std::vector<Argb> rows_[kRows], gaps_[kRows];
    std::vector<Argb> even_, odd_;    // sums of columns, kReach before the first one
    std::vector<std::int32_t> half_;  // gaps to one side of the centre
};

}  // namespace

void fillRingGaps(PixelView source, MutablePixelView target, IntPoint centre) {
    RingGaps(source, target, centre).run();
}

}  // namespace HWY_NAMESPACE
}  // namespace orvane
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace orvane {

HWY_EXPORT(fillRingGaps);

void fillRingGaps(PixelView source, MutablePixelView target, IntPoint centre) {
    HWY_DYNAMIC_DISPATCH(fillRingGaps)(source, target, centre);
}

}  // namespace orvane
#endif
