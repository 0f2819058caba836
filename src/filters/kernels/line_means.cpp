#include "filters/kernels/line_means.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "filters/kernels/line_means.cpp"
#include <hwy/foreach_target.h>

#include <algorithm>
#include <cstring>
#include <vector>

#include "filters/kernels/diagonal_sums.h"
#include "filters/kernels/map_pixels-inl.h"
#include "filters/kernels/mean_divisor.h"

HWY_BEFORE_NAMESPACE();
namespace orvane {
namespace HWY_NAMESPACE {
namespace {

// Sums of whole rows of windows. Both kinds below can do the same: add a row, start a sum, and advance all
// sums by one row (advanceRow) or one sum along a row (scanRow), writing the means of the advanced sums.

// The sums of any radius as doubles, four to a pixel; every sum is a whole number below 2^41, so they are
// exact.
class WideSums {
 public:
    WideSums(std::size_t places, int radius) : sums_(4 * places), reciprocal_(1.0 / (2.0 * radius + 1.0)) {}

    void start(std::size_t place, const ChannelSums& sums) {
        for (std::size_t c = 0; c < 3; ++c) sums_[4 * place + c] = double(sums[c]);
    }

    void addRow(const Argb* row, std::size_t count, std::int64_t times) {
        const auto* HWY_RESTRICT bytes = reinterpret_cast<const std::uint8_t*>(row);
        double* HWY_RESTRICT sums = sums_.data();
        for (std::size_t i = 0; i < 4 * count; ++i) sums[i] += bytes[i] * double(times);
    }

    void advanceRow(std::size_t place, const Argb* entering, const Argb* leaving, Argb* means,
                    std::size_t count) {
        const auto* HWY_RESTRICT more = reinterpret_cast<const std::uint8_t*>(entering);
        const auto* HWY_RESTRICT less = reinterpret_cast<const std::uint8_t*>(leaving);
        auto* HWY_RESTRICT bytes = reinterpret_cast<std::uint8_t*>(means);
        double* HWY_RESTRICT sums = sums_.data() + 4 * place;
        for (std::size_t i = 0; i < 4 * count; ++i) {
            sums[i] += more[i] - less[i];
            bytes[i] = meanOf(sums[i]);
        }
        for (std::size_t i = 0; i < count; ++i) means[i] |= kOpaque;
    }

    void scanRow(const ChannelSums& before, const Argb* entering, const Argb* leaving, Argb* means,
                 std::size_t count) {
        double running[4] = {double(before[0]), double(before[1]), double(before[2]), 0};
        for (std::size_t x = 0; x < count; x += kChunk) {
            scanChunk(running, entering + x, leaving + x, means + x, std::min(kChunk, count - x));
        }
    }

 private:
    // A quotient is never nearer to the next whole number than half a part of the divisor after the half is
    // added, and the product is wrong by far less.
    std::uint8_t meanOf(double sum) const {
        return static_cast<std::uint8_t>(static_cast<int>((sum + 0.5) * reciprocal_));
    }

    // Three loops, because only the middle one has to go from pixel to pixel.
    void scanChunk(double* HWY_RESTRICT running, const Argb* entering, const Argb* leaving, Argb* means,
                   std::size_t count) const {
        const auto* HWY_RESTRICT more = reinterpret_cast<const std::uint8_t*>(entering);
        const auto* HWY_RESTRICT less = reinterpret_cast<const std::uint8_t*>(leaving);
        auto* HWY_RESTRICT bytes = reinterpret_cast<std::uint8_t*>(means);
        double sums[4 * kChunk];
        for (std::size_t i = 0; i < 4 * count; ++i) sums[i] = more[i] - less[i];
        for (std::size_t x = 0; x < count; ++x) {
            for (std::size_t c = 0; c < 4; ++c) sums[4 * x + c] = running[c] += sums[4 * x + c];
        }
        for (std::size_t i = 0; i < 4 * count; ++i) bytes[i] = meanOf(sums[i]);
        for (std::size_t i = 0; i < count; ++i) means[i] |= kOpaque;
    }

    static constexpr std::size_t kChunk = 128;

    std::vector<double> sums_;
    double reciprocal_;
};

#if HWY_TARGET != HWY_SCALAR

using Tag16 = hn::Repartition<std::uint16_t, PixelTag>;

// The sums of 255 * (2 * radius + 1) or less as 16-bit lanes. The even bytes of a row of pixels (blue and
// red) and the odd ones (green and alpha) have a word of two lanes per pixel each, so that no byte moves on
// its way into a sum or out of a mean. Lanes may wrap on the way to a sum, as long as the sum itself fits.
template <bool kStreamed>
class NarrowSums {
 public:
    NarrowSums(std::size_t places, int radius)
        : even_(places + HWY_LANES(Argb)), odd_(places + HWY_LANES(Argb)), divisor_(2 * radius + 1) {
        const PixelTag d;
        const std::size_t lanes = hn::Lanes(d);
        // From the last lane of an earlier block of 128 bits to all lanes of a later one.
        for (std::size_t step = 0, blocks = 1; blocks < lanes / 4; ++step, blocks *= 2) {
            for (std::size_t i = 0; i < lanes; ++i) {
                const bool reaches = i / 4 >= blocks;
                fromBlock_[step][i] = reaches ? std::int32_t((i / 4 - blocks) * 4 + 3) : 0;
                reached_[step][i] = reaches ? ~0u : 0u;
            }
        }
    }

    void start(std::size_t place, const ChannelSums& sums) {
        even_[place] = biased(sums[0], sums[2]);
        odd_[place] = biased(sums[1], 0);
    }

    void addRow(const Argb* row, std::size_t count, std::int64_t times) {
        for (std::size_t x = 0; x < count; ++x) {
            even_[x] += (row[x] & 0x00FF00FFu) * Argb(times);
            odd_[x] += ((row[x] >> 8) & 0x000000FFu) * Argb(times);
        }
    }

    HWY_NOINLINE void advanceRow(std::size_t place, const Argb* entering, const Argb* leaving, Argb* means,
                                 std::size_t count) {
        const PixelTag d;
        const Tag16 d16;
        forVectors(entering, leaving, means, count, [&](std::size_t x, Difference change) HWY_ATTR {
            auto even = hn::BitCast(d16, hn::LoadU(d, even_.data() + place + x));
            auto odd = hn::BitCast(d16, hn::LoadU(d, odd_.data() + place + x));
            even = hn::Add(even, change.even);
            odd = hn::Add(odd, change.odd);
            hn::StoreU(hn::BitCast(d, even), d, even_.data() + place + x);
            hn::StoreU(hn::BitCast(d, odd), d, odd_.data() + place + x);
            return meansOf(even, odd);
        });
    }

    HWY_NOINLINE void scanRow(const ChannelSums& before, const Argb* entering, const Argb* leaving,
                              Argb* means, std::size_t count) {
        const PixelTag d;
        const Tag16 d16;
        const auto last = hn::SetTableIndices(d, lastLane().data());
        auto even = hn::BitCast(d16, hn::Set(d, biased(before[0], before[2])));
        auto odd = hn::BitCast(d16, hn::Set(d, biased(before[1], 0)));
        forVectors(entering, leaving, means, count, [&](std::size_t, Difference change) HWY_ATTR {
            const auto evenSums = hn::Add(even, runningSums(change.even));
            const auto oddSums = hn::Add(odd, runningSums(change.odd));
            even = hn::BitCast(d16, hn::TableLookupLanes(hn::BitCast(d, evenSums), last));
            odd = hn::BitCast(d16, hn::TableLookupLanes(hn::BitCast(d, oddSums), last));
            return meansOf(evenSums, oddSums);
        });
    }

 private:
    using Vector16 = hn::Vec<Tag16>;
    struct Difference {
        Vector16 even, odd;
    };
    using LaneNumbers = std::array<std::int32_t, HWY_LANES(Argb)>;

    [[nodiscard]] Argb biased(std::int64_t low, std::int64_t high) const {
        return Argb(low + divisor_.bias) | Argb(high + divisor_.bias) << 16;
    }

    [[nodiscard]] static LaneNumbers lastLane() {
        LaneNumbers all;
        all.fill(std::int32_t(hn::Lanes(PixelTag())) - 1);
        return all;
    }

    // Runs step(x, change) on each vector of differences entering - leaving and stores the means it returns.
    // A rest of less than a vector goes through a buffer; the step then sees pixels 0 beyond the end.
    template <class Step>
    HWY_INLINE void forVectors(const Argb* HWY_RESTRICT entering, const Argb* HWY_RESTRICT leaving,
                               Argb* HWY_RESTRICT means, std::size_t count, const Step& step) const {
        const PixelTag d;
        const std::size_t lanes = hn::Lanes(d);
        std::size_t x = 0;
        const bool aligned = reinterpret_cast<std::uintptr_t>(means) % (lanes * sizeof(Argb)) == 0;
        if (kStreamed && aligned) {
            for (; x + lanes <= count; x += lanes) {
                hn::Stream(step(x, difference(entering + x, leaving + x)), d, means + x);
            }
        }
        for (; x + lanes <= count; x += lanes) {
            hn::StoreU(step(x, difference(entering + x, leaving + x)), d, means + x);
        }
        if (x == count) return;
        HWY_ALIGN Argb more[HWY_LANES(Argb)] = {}, less[HWY_LANES(Argb)] = {}, rest[HWY_LANES(Argb)];
        std::copy(entering + x, entering + count, more);
        std::copy(leaving + x, leaving + count, less);
        hn::Store(step(x, difference(more, less)), d, rest);
        std::copy(rest, rest + (count - x), means + x);
    }

    static HWY_INLINE Difference difference(const Argb* entering, const Argb* leaving) {
        const PixelTag d;
        const Tag16 d16;
        const auto more = hn::BitCast(d16, hn::LoadU(d, entering));
        const auto less = hn::BitCast(d16, hn::LoadU(d, leaving));
        const auto low = hn::Set(d16, std::uint16_t{255});
        return {hn::Sub(hn::And(more, low), hn::And(less, low)),
                hn::Sub(hn::ShiftRight<8>(more), hn::ShiftRight<8>(less))};
    }

    // The sum of each pixel's lanes and those of all pixels before it in the vector.
    HWY_INLINE Vector16 runningSums(Vector16 values) const {
        const PixelTag d;
        const Tag16 d16;
        values = hn::Add(values, hn::BitCast(d16, hn::ShiftLeftLanes<1>(d, hn::BitCast(d, values))));
        values = hn::Add(values, hn::BitCast(d16, hn::ShiftLeftLanes<2>(d, hn::BitCast(d, values))));
        for (std::size_t step = 0, blocks = 1; blocks < hn::Lanes(d) / 4; ++step, blocks *= 2) {
            const auto earlier =
                hn::TableLookupLanes(hn::BitCast(d, values), hn::SetTableIndices(d, fromBlock_[step].data()));
            const auto reached = hn::Load(d, reached_[step]);
            values = hn::Add(values, hn::BitCast(d16, hn::And(earlier, reached)));
        }
        return values;
    }

    HWY_INLINE PixelVector meansOf(Vector16 even, Vector16 odd) const {
        const PixelTag d;
        const Tag16 d16;
        const auto factor = hn::Set(d16, divisor_.factor);
        even = hn::ShiftRightSame(hn::MulHigh(even, factor), divisor_.shift);
        odd = hn::ShiftRightSame(hn::MulHigh(odd, factor), divisor_.shift);
        const auto colours = hn::BitCast(d, hn::Or(even, hn::ShiftLeft<8>(odd)));
        return hn::Or(colours, hn::Set(d, kOpaque));
    }

    std::vector<Argb> even_, odd_;
    MeanDivisor divisor_;
    LaneNumbers fromBlock_[8];
    HWY_ALIGN Argb reached_[8][HWY_LANES(Argb)];
};

#endif  // HWY_TARGET != HWY_SCALAR

// Walks the windows of one call over the picture, row by row.
template <class Sums>
class LineMeans {
 public:
    LineMeans(PixelView source, MutablePixelView target, int radius)
        : source_(source), target_(target), width_(std::size_t(source.width)), radius_(radius) {}

    void horizontal() const {
        Sums sums(0, int(radius_));
        std::vector<Argb> entering(width_), leaving(width_);
        for (int y = 0; y < source_.height; ++y) {
            const Argb* const row = source_.row(y);
            copyShifted(row, radius_, entering.data());
            copyShifted(row, -radius_ - 1, leaving.data());
            sums.scanRow(sumBefore(row), entering.data(), leaving.data(), target_.row(y), width_);
        }
    }

    void vertical() const {
        Sums sums(width_, int(radius_));
        for (std::size_t x = 0; x < width_; ++x) sums.start(x, {});
        // The window above the first row, which the first step takes into it.
        sums.addRow(source_.row(0), width_, radius_ + 1);
        for (std::int64_t y = 0; y < std::min<std::int64_t>(radius_, source_.height); ++y) {
            sums.addRow(source_.row(int(y)), width_, 1);
        }
        const std::int64_t below = radius_ - source_.height;
        if (below > 0) sums.addRow(source_.row(source_.height - 1), width_, below);
        for (int y = 0; y < source_.height; ++y) {
            sums.advanceRow(0, rowAt(y + radius_), rowAt(y - radius_ - 1), target_.row(y), width_);
        }
    }

    // The window of a pixel is that of the pixel before it on its diagonal, advanced by one, so a row of
    // windows is the row above it moved by one place: place x - y (falling) or x + y (rising) stays.
    void diagonal(Slope slope) const {
        const bool falling = slope == Slope::Falling;
        const std::size_t height = std::size_t(source_.height), last = width_ - 1;
        const std::size_t entry = falling ? 0 : last;
        const std::int64_t step = falling ? 1 : -1;
        const DiagonalSums starts(source_, int(radius_), slope);
        Sums sums(width_ + height, int(radius_));
        std::vector<Argb> entering(width_), leaving(width_);
        for (std::size_t y = 0; y < height; ++y) {
            const std::size_t place = falling ? height - 1 - y : y;
            if (y == 0) {
                for (std::size_t x = 0; x < width_; ++x) sums.start(place + x, starts.at(int(x), 0));
            } else {
                copyShifted(rowAt(std::int64_t(y) + radius_), step * radius_, entering.data());
                copyShifted(rowAt(std::int64_t(y) - radius_ - 1), -step * (radius_ + 1), leaving.data());
                // Here a diagonal begins, and nothing is to be advanced.
                sums.start(place + entry, starts.at(int(entry), int(y)));
                entering[entry] = leaving[entry] = 0;
            }
            sums.advanceRow(place, entering.data(), leaving.data(), target_.row(int(y)), width_);
        }
    }

 private:
    [[nodiscard]] const Argb* rowAt(std::int64_t y) const {
        return source_.row(int(std::clamp<std::int64_t>(y, 0, source_.height - 1)));
    }

    // to[x] = row[x + shift], taken back to the ends of the row.
    void copyShifted(const Argb* row, std::int64_t shift, Argb* to) const {
        const std::int64_t count = std::int64_t(width_);
        const std::int64_t begin = std::clamp<std::int64_t>(-shift, 0, count);
        const std::int64_t end = std::clamp<std::int64_t>(count - shift, begin, count);
        std::fill(to, to + begin, row[0]);
        if (end > begin)
            std::memcpy(to + begin, row + begin + shift, std::size_t(end - begin) * sizeof(Argb));
        std::fill(to + end, to + count, row[count - 1]);
    }

    // The window about the place to the left of a row.
    [[nodiscard]] ChannelSums sumBefore(const Argb* row) const {
        ChannelSums sums{};
        addTo(sums, row[0], radius_ + 1);
        const std::int64_t count = std::int64_t(width_), inside = std::min(radius_, count);
        for (std::int64_t x = 0; x < inside; ++x) addTo(sums, row[x]);
        addTo(sums, row[count - 1], radius_ - inside);
        return sums;
    }

    PixelView source_;
    MutablePixelView target_;
    std::size_t width_;
    std::int64_t radius_;
};

template <class Sums>
void runLineMeans(const LineMeans<Sums>& means, MotionLine line) {
    switch (line) {
        case MotionLine::Horizontal:
            return means.horizontal();
        case MotionLine::Falling:
            return means.diagonal(Slope::Falling);
        case MotionLine::Vertical:
            return means.vertical();
        case MotionLine::Rising:
            return means.diagonal(Slope::Rising);
    }
}

}  // namespace

void lineMeans(PixelView source, MutablePixelView target, int radius, MotionLine line) {
#if HWY_TARGET != HWY_SCALAR
    if (radius <= MeanDivisor::kMaxCount / 2) {
        if (source.pixelCount() >= kStreamedPixels) {
            runLineMeans(LineMeans<NarrowSums<true>>(source, target, radius), line);
            hwy::FlushStream();
        } else {
            runLineMeans(LineMeans<NarrowSums<false>>(source, target, radius), line);
        }
        return;
    }
#endif
    runLineMeans(LineMeans<WideSums>(source, target, radius), line);
}

}  // namespace HWY_NAMESPACE
}  // namespace orvane
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace orvane {

HWY_EXPORT(lineMeans);

void lineMeans(PixelView source, MutablePixelView target, int radius, MotionLine line) {
    HWY_DYNAMIC_DISPATCH(lineMeans)(source, target, radius, line);
}

}  // namespace orvane
#endif
