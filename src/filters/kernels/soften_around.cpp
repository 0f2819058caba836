#include "filters/kernels/soften_around.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <vector>

#include "base/truncate.h"
#include "platform/graphics/source_over.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "filters/kernels/soften_around.cpp"
#include <hwy/foreach_target.h>

#include "filters/kernels/box_sums-inl.h"
#include "filters/kernels/row_writer-inl.h"
#include "filters/kernels/window_rows-inl.h"

HWY_BEFORE_NAMESPACE();
namespace orvane {
namespace HWY_NAMESPACE {
namespace {

/// Several passes at once: as soon as a pass has the rows it needs, it hands a row on to the next one.
///
///     source   . . . . . . y
///     pass 1   . . . . . y-1      each pass keeps the last three rows that it was handed
///     pass 2   . . . . y-2
class Softening {
 public:
    /// So many passes work on rows that stay in the nearer caches.
    static constexpr int kMaxPasses = 8;

    Softening(MutablePixelView target, const FocusCircle& circle, int passes)
        : target_(target),
          circle_(circle),
          writer_(target),
          inputs_(std::size_t(passes * kWindowRows), LaneRow<std::uint8_t>(std::size_t(target.width), 1, 1)),
          rims_(std::size_t(passes),
                RimRow{{}, LaneRow<std::int16_t>(rimWidth(), 0, 0), LaneRow<std::int16_t>(rimWidth(), 0, 0)}),
          rimPlaces_(rimWidth() + 16) {
        if (hasShortWeights()) {
            for (int d = 0; d < std::min(circle.rim, kMaxShortRim); ++d) {
                divisions_.emplace_back(centreWeight(circle.radius + std::int64_t{d}) + 8);
            }
        }
    }

    /// Alphas of pixels inside, by what they were; applied to every row that is finished.
    void setAlphas(const std::uint8_t* alphas) { alphas_ = alphas; }

    /// Runs `passes` passes, as many as the constructor was told or fewer. The source may be the target.
    /// Answers whether source and result differ; when they are two pictures, it does not look.
    bool run(PixelView source, int passes) {
        passes_ = passes;
        comparing_ = source.pixels == target_.pixels;
        changed_ = !comparing_;
        for (int y = 0; y < source.height; ++y) {
            std::memcpy(input(0, y).at(0), source.row(y), rowBytes());
            input(0, y).repeatEdges();
            receive(0, y);
        }
        return changed_;
    }

 private:
    static constexpr int kWindowRows = 3;
    /// Sums of weights up to this width can be divided by in 16 bits.
    static constexpr int kMaxShortRim = 32768;

    /// How to divide nine differences of levels, in halves, by twice the sum of the weights, which is from 10
    /// to 65544. The factor has 15 bits, and so is off by a part in 2^14 at most; the halves are at most
    /// 4591 and odd, so the quotient is nearer to the true one than that is to a whole number.
    struct Division {
        explicit Division(std::int32_t weights) {
            const auto factorFor = [=](int shift) {
                return (std::int64_t{65536} << shift) / (2 * std::int64_t{weights}) + 1;
            };
            int shift = 16;
            while (factorFor(shift) > 32767) --shift;
            factor = static_cast<std::uint64_t>(factorFor(shift)) * kFourfold;
            secondFactor = (std::uint64_t{65536} >> shift) * kFourfold;
        }
        static constexpr std::uint64_t kFourfold = 0x0001000100010001u;  // once per channel
        std::uint64_t factor, secondFactor;
    };

    /// One row of the circle; for the columns on the rim the factors of their divisions.
    struct RimRow {
        FocusCircle::Row parts;
        LaneRow<std::int16_t> factors, secondFactors;
    };

    [[nodiscard]] bool hasShortWeights() const { return circle_.rim <= kMaxShortRim; }
    [[nodiscard]] std::size_t rimWidth() const { return hasShortWeights() ? std::size_t(target_.width) : 1; }
    [[nodiscard]] std::size_t rowBytes() const { return std::size_t(target_.width) * sizeof(Argb); }
    LaneRow<std::uint8_t>& input(int pass, int y) {
        return inputs_[std::size_t(pass * kWindowRows + y % kWindowRows)];
    }

    [[nodiscard]] std::int32_t centreWeight(std::int64_t distance) const {
        const double rim = circle_.rim;
        return truncateToInt((rim - ((rim - 1) / rim) * static_cast<double>(distance - circle_.radius)) * 2);
    }

    /// Row y of what this pass reads is there.
    void receive(int pass, int y) {
        if (y > 0) soften(pass, y - 1);
        if (y == target_.height - 1) soften(pass, y);
    }

    void soften(int pass, int y) {
        // A row is in use from the first pass to the last, which is so many rows behind.
        RimRow& rim = rims_[std::size_t(y % passes_)];
        if (pass == 0) prepare(rim, y);
        Window<1> window;
        for (int dy = -1; dy <= 1; ++dy) {
            window.rows[dy + 1] = input(pass, std::clamp(y + dy, 0, target_.height - 1)).at(0);
        }
        if (pass + 1 < passes_) {
            LaneRow<std::uint8_t>& result = input(pass + 1, y);
            softenRow(window, rim, y, result.at(0));
            result.repeatEdges();
            receive(pass + 1, y);
        } else {
            softenRow(window, rim, y, writer_.bytes());
            finish(rim.parts, y);
        }
    }

    void prepare(RimRow& rim, int y) {
        rim.parts = circle_.row(y, target_.width);
        if (!hasShortWeights()) return;
        prepareWeights(rim, y, rim.parts.rimBegin, rim.parts.insideBegin);
        prepareWeights(rim, y, rim.parts.insideEnd, rim.parts.rimEnd);
    }

    void prepareWeights(RimRow& rim, int y, int begin, int end) {
        findRimPlaces(y, begin, end);
        for (int x = begin; x < end; ++x) {
            const Division& division = divisions_[std::size_t(rimPlaces_[std::size_t(x)])];
            std::memcpy(rim.factors.at(x), &division.factor, sizeof division.factor);
            std::memcpy(rim.secondFactors.at(x), &division.secondFactor, sizeof division.secondFactor);
        }
    }

    /// How far beyond the circle's radius these columns are, in whole pixels.
    void findRimPlaces(int y, int begin, int end) {
        int x = begin;
#if HWY_TARGET != HWY_SCALAR && HWY_HAVE_FLOAT64
        const hn::ScalableTag<double> df;
        const hn::Rebind<std::int32_t, decltype(df)> di;
        const double dy = double(circle_.centreY) - y;
        for (; x < end; x += int(hn::Lanes(df))) {
            const auto dx = hn::Sub(hn::Set(df, double(circle_.centreX) - x), hn::Iota(df, 0.0));
            const auto distance = hn::Sqrt(hn::Add(hn::Mul(dx, dx), hn::Set(df, dy * dy)));
            // The difference is exact, and the radius whole, so that the fraction may as well go last.
            const auto beyond = hn::Sub(distance, hn::Set(df, double(circle_.radius)));
            hn::StoreU(hn::DemoteTo(di, beyond), di, &rimPlaces_[std::size_t(x)]);
        }
#endif
        for (; x < end; ++x) {
            rimPlaces_[std::size_t(x)] = static_cast<std::int32_t>(circle_.distance(x, y) - circle_.radius);
        }
    }

    /// Each part may write a vector too much to its right, which the next part puts right.
    void softenRow(const Window<1>& window, const RimRow& rim, int y, std::uint8_t* result) {
        const FocusCircle::Row& parts = rim.parts;
        softenOutside(window, result, 0, parts.rimBegin);
        softenRim(window, rim, y, result, parts.rimBegin, parts.insideBegin);
        const std::size_t inside = std::size_t(parts.insideBegin) * sizeof(Argb);
        std::memcpy(result + inside, window.at(0, 0) + inside,
                    std::size_t(parts.insideEnd - parts.insideBegin) * sizeof(Argb));
        softenRim(window, rim, y, result, parts.insideEnd, parts.rimEnd);
        softenOutside(window, result, parts.rimEnd, target_.width);
    }

    static HWY_INLINE ShortVector sumOfNine(const Window<1>& window) {
        auto sum = hn::Zero(ShortTag());
        for (int dy = -1; dy <= 1; ++dy) {
            for (int dx = -1; dx <= 1; ++dx) sum = hn::Add(sum, window.shorts(dx, dy));
        }
        return sum;
    }

    static void softenOutside(const Window<1>& window, std::uint8_t* HWY_RESTRICT result, int begin,
                              int end) {
        const ShortTag d;
        const std::size_t last = std::size_t(end) * sizeof(Argb);
        for (std::size_t i = std::size_t(begin) * sizeof(Argb); i < last; i += hn::Lanes(d)) {
            const Window<1> here = window.movedBy(i);
            const auto sum = hn::Add(sumOfNine(here), here.shorts(0, 0));
            // Division by 10, exact for what ten bytes add up to.
            const auto mean = hn::ShiftRight<2>(hn::MulHigh(sum, hn::Set(d, std::int16_t{26215})));
            hn::StoreU(withOpaqueAlpha(hn::DemoteTo(LevelTag(), mean), i), LevelTag(), result + i);
        }
    }

    void softenRim(const Window<1>& window, const RimRow& rim, int y, std::uint8_t* HWY_RESTRICT result,
                   int begin, int end) {
        if (!hasShortWeights()) return softenRimLiterally(window, y, result, begin, end);
        const ShortTag d;
        const std::size_t last = std::size_t(end) * sizeof(Argb);
        for (std::size_t i = std::size_t(begin) * sizeof(Argb); i < last; i += hn::Lanes(d)) {
            const Window<1> here = window.movedBy(i);
            const auto centre = here.shorts(0, 0);
            // The mean is as far from the centre as the nine are together, divided by all weights.
            const auto eightfold = hn::ShiftLeft<3>(centre);
            const auto differences = hn::Sub(hn::Sub(sumOfNine(here), eightfold), centre);
            const auto halves = hn::Add(hn::Add(differences, differences), hn::Set(d, std::int16_t{1}));
            const auto scaled = hn::MulHigh(halves, hn::LoadU(d, rim.factors.at(0) + i));
            const auto offset = hn::MulHigh(scaled, hn::LoadU(d, rim.secondFactors.at(0) + i));
            const auto mean = hn::DemoteTo(LevelTag(), hn::Add(centre, offset));
            hn::StoreU(withOpaqueAlpha(mean, i), LevelTag(), result + i);
        }
    }

    /// For rims wider than any picture, whose weights may be as large as they like.
    void softenRimLiterally(const Window<1>& window, int y, std::uint8_t* result, int begin, int end) const {
        for (int x = begin; x < end; ++x) {
            const std::int32_t weight = centreWeight(circle_.distance(x, y));
            const std::int32_t divisor = wrappingAdd(weight, 8);
            const std::size_t place = std::size_t(x) * sizeof(Argb);
            for (std::size_t channel = 0; channel < 3; ++channel) {
                std::int32_t nine = 0;
                for (int dy = -1; dy <= 1; ++dy) {
                    for (int dx = -1; dx <= 1; ++dx) nine += window.at(dx, dy)[place + channel];
                }
                const std::int32_t centre = window.at(0, 0)[place + channel];
                const std::int64_t sum = wrappingAdd(nine - centre, wrappingMultiply(centre, weight));
                const std::int64_t mean =
                    std::clamp<std::int64_t>(divisor == 0 ? sum : sum / divisor, 0, 255);
                result[place + channel] = static_cast<std::uint8_t>(mean);
            }
            result[place + 3] = 255;
        }
    }

    void finish(const FocusCircle::Row& parts, int y) {
        if (alphas_ != nullptr) {
            std::uint8_t* const inside = writer_.bytes() + std::size_t(parts.insideBegin) * sizeof(Argb);
            const std::size_t length = std::size_t(parts.insideEnd - parts.insideBegin) * sizeof(Argb);
            for (std::size_t i = 3; i < length; i += sizeof(Argb)) inside[i] = alphas_[inside[i]];
        }
        if (comparing_ && !changed_) {
            changed_ = std::memcmp(target_.row(y), writer_.bytes(), rowBytes()) != 0;
        }
        writer_.writeTo(y);
    }

    MutablePixelView target_;
    FocusCircle circle_;
    RowWriter writer_;
    std::vector<LaneRow<std::uint8_t>> inputs_;
    std::vector<RimRow> rims_;
    std::vector<Division> divisions_;      // by place on the rim
    std::vector<std::int32_t> rimPlaces_;  // one row
    const std::uint8_t* alphas_ = nullptr;
    int passes_ = 0;
    bool comparing_ = false, changed_ = false;
};

}  // namespace

void soften(PixelView source, MutablePixelView target, const FocusCircle& circle, int passes,
            const std::uint8_t* alphas) {
    Softening softening(target, circle, std::min(passes, Softening::kMaxPasses));
    softening.setAlphas(alphas);
    PixelView current = source;
    while (passes > 0) {
        const int now = std::min(passes, Softening::kMaxPasses);
        const bool changed = softening.run(current, now);
        softening.setAlphas(nullptr);
        passes -= now;
        // A picture that so many passes leave alone comes back every so many passes.
        if (!changed) passes %= now;
        current = target;
    }
}

}  // namespace HWY_NAMESPACE
}  // namespace orvane
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace orvane {

HWY_EXPORT(soften);

void softenAround(PixelView source, MutablePixelView target, const FocusCircle& circle, int passes) {
    // The picture inside does not depend on alphas, and neither does the rest, so all passes are made at
    // once.
    std::uint8_t alphas[256];
    for (unsigned alpha = 0; alpha < 256; ++alpha) {
        Argb pixel = makeArgb(alpha, 0, 0, 0), before = ~pixel;
        for (int pass = 0; pass < passes && pixel != before; ++pass) {
            before = pixel;
            pixel = sourceOver(pixel, pixel);
        }
        alphas[alpha] = static_cast<std::uint8_t>(alphaOf(pixel));
    }
    HWY_DYNAMIC_DISPATCH(soften)(source, target, circle, passes, alphas);
}

}  // namespace orvane
#endif
