#include "filters/kernels/ring_means.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "filters/kernels/ring_gaps.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

#include <algorithm>
#include <cstdlib>
#include <vector>

#include "filters/kernels/digital_ring.h"

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
        half_.resize(std::size_t(std::max(centre.x, source.width - 1 - centre.x)) + 1);
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
        const double up = std::abs(y - centre_.y);
        Argb* HWY_RESTRICT half = half_.data();
        const int count = int(half_.size());
        for (int i = 0; i < count; ++i) half[i] = DigitalRing::covers(double(i), up) ? 0u : ~0u;
        Argb* const gaps = gapsOf(y).data();
        std::reverse_copy(half, half + centre_.x + 1, gaps);
        std::copy(half, half + (source_.width - centre_.x), gaps + centre_.x);
        if (std::abs(y - centre_.y) > 1) return;
        // The first ring lies about the pixel to the left of the centre and leaves only that one out.
        for (int x = std::max(centre_.x - 2, 0); x <= centre_.x; ++x) {
            if (y != centre_.y || x != centre_.x - 1) gaps[x] = 0;
        }
    }

    // Sums of five rows, for all columns and two more at each end.
    void addColumns(int y) {
        const Argb* rows[kRows];
        for (int i = 0; i < kRows; ++i) {
            rows[i] = rowOf(std::clamp(y + i - kReach, 0, source_.height - 1)).data();
        }
        Argb* HWY_RESTRICT even = even_.data() + kReach;
        Argb* HWY_RESTRICT odd = odd_.data() + kReach;
        const Argb *r0 = rows[0], *r1 = rows[1], *r2 = rows[2], *r3 = rows[3], *r4 = rows[4];
        for (std::size_t x = 0; x < width_; ++x) {
            const Argb a = r0[x], b = r1[x], c = r2[x], d = r3[x], e = r4[x];
            even[x] =
                (a & kEvenBytes) + (b & kEvenBytes) + (c & kEvenBytes) + (d & kEvenBytes) + (e & kEvenBytes);
            odd[x] = ((a >> 8) & kEvenBytes) + ((b >> 8) & kEvenBytes) + ((c >> 8) & kEvenBytes) +
                     ((d >> 8) & kEvenBytes) + ((e >> 8) & kEvenBytes);
        }
        for (Argb* sums : {even, odd}) {
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
    std::vector<Argb> even_, odd_;  // sums of columns, kReach before the first one
    std::vector<Argb> half_;        // gaps to one side of the centre
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
