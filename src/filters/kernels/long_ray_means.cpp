#include "filters/kernels/long_ray_means.h"

#include <algorithm>
#include <cstdint>
#include <vector>

#include "base/digital_ray.h"

namespace orvane {
namespace {

/// Differences are right as long as they are below 2^32 themselves.
struct ChannelSums {
    std::uint32_t blue = 0, green = 0, red = 0;

    ChannelSums& operator+=(const ChannelSums& other) {
        blue += other.blue;
        green += other.green;
        red += other.red;
        return *this;
    }
    [[nodiscard]] ChannelSums minus(const ChannelSums& other) const {
        return {blue - other.blue, green - other.green, red - other.red};
    }
};

ChannelSums channelsOf(Argb pixel) { return {blueOf(pixel), greenOf(pixel), redOf(pixel)}; }

/// A place in the picture, along its longer side and across.
struct Place {
    int along = 0, across = 0;
};

/// The pixels of the picture as lines along its longer side.
class Lines {
 public:
    explicit Lines(PixelView source)
        : source_(source),
          isWide_(source.width >= source.height),
          length_(std::max(source.width, source.height)),
          count_(std::min(source.width, source.height)) {
        const std::size_t places = (std::size_t(length_) + 1) * std::size_t(count_);
        before_.resize(places);
        fresh_.resize(places);
        for (int across = 0; across < count_; ++across) {
            for (int along = 0; along <= length_; ++along) {
                const std::size_t i = indexOf({along, across});
                fresh_[i] = along;
                if (along == length_) break;
                before_[i + 1] = before_[i];
                before_[i + 1] += channelsOf(source.pixels[pixelAt({along, across})]);
            }
        }
    }

    [[nodiscard]] bool isWide() const { return isWide_; }
    [[nodiscard]] int count() const { return count_; }
    [[nodiscard]] Place placeOf(IntPoint p) const { return isWide_ ? Place{p.x, p.y} : Place{p.y, p.x}; }
    [[nodiscard]] std::ptrdiff_t pixelAt(Place place) const {
        return isWide_ ? place.across * source_.stridePixels + place.along
                       : place.along * source_.stridePixels + place.across;
    }

    /// The sum of the pixels of a line from one place to another, without the latter.
    [[nodiscard]] ChannelSums sum(int across, int from, int to) const {
        return before_[indexOf({to, across})].minus(before_[indexOf({from, across})]);
    }

    /// The first pixel from here on that no ray has passed yet; the line's length if there is none.
    [[nodiscard]] int nextFresh(Place place) {
        const std::size_t line = indexOf({0, place.across});
        std::int32_t* const fresh = &fresh_[line];
        int along = place.along;
        while (fresh[along] != along) {
            fresh[along] = fresh[fresh[along]];  // halves the way for those who come after
            along = fresh[along];
        }
        return along;
    }
    void pass(Place place) { fresh_[indexOf(place)] = place.along + 1; }

 private:
    [[nodiscard]] std::size_t indexOf(Place place) const {
        return std::size_t(place.across) * (std::size_t(length_) + 1) + std::size_t(place.along);
    }

    PixelView source_;
    bool isWide_;
    int length_, count_;
    std::vector<ChannelSums> before_;  // of the pixels before each in its line
    std::vector<std::int32_t> fresh_;  // each pixel, or one on the way to the next that is fresh
};

/// Points of a ray that lie on one line.
struct Piece {
    int first, count;  // points
    Place start;
    ChannelSums before;  // of the points before it
};

class LongRayMeans {
 public:
    LongRayMeans(PixelView source, MutablePixelView target, IntPoint centre, int strength)
        : source_(source), target_(target), centre_(centre), strength_(strength), lines_(source) {
        const double right = std::max(centre.x, source.width - 1 - centre.x);
        const double down = std::max(centre.y, source.height - 1 - centre.y);
        farthest_ = right * right + down * down;
        pieces_.reserve(std::size_t(lines_.count()));
    }

    void run() {
        const int right = source_.width - 1, bottom = source_.height - 1;
        for (int x = 0; x < right; ++x) smear({x, 0});
        for (int y = 0; y < bottom; ++y) smear({right, y});
        for (int x = 1; x <= right; ++x) smear({x, bottom});
        for (int y = 1; y <= bottom; ++y) smear({0, y});
    }

 private:
    void smear(IntPoint start) {
        const DigitalRay ray(start, centre_);
        if (ray.steps == 0) return;
        start_ = source_.at(start.x, start.y);
        end_ = source_.at(centre_.x, centre_.y);
        isAlong_ = ray.alongX == lines_.isWide();
        stepAlong_ = lines_.isWide() ? ray.stepX : ray.stepY;
        findPieces(ray, start);
        for (const Piece& piece : pieces_) smearPiece(ray, piece);
    }

    void findPieces(const DigitalRay& ray, IntPoint start) {
        const Place place = lines_.placeOf(start);
        const int stepAcross = lines_.isWide() ? ray.stepY : ray.stepX;
        const int count = (isAlong_ ? ray.sidesteps : ray.steps) + 1;
        pieces_.clear();
        total_ = {};
        for (int i = 0, first = 0; i < count; ++i) {
            const int end = !isAlong_       ? i + 1
                            : i + 1 < count ? firstAfterSidestep(ray, i + 1)
                                            : ray.steps + 1;
            const int along = isAlong_ ? first : ray.sideOf(i);
            pieces_.push_back({first,
                               end - first,
                               {place.along + along * stepAlong_, place.across + i * stepAcross},
                               total_});
            total_ += sumOf(pieces_.back(), end - first);
            first = end;
        }
    }

    /// The first point beyond so many sidesteps.
    static int firstAfterSidestep(const DigitalRay& ray, int sidesteps) {
        int point = static_cast<int>((sidesteps - ray.middle) / ray.slope);
        while (ray.sideOf(point) < sidesteps) ++point;
        while (ray.sideOf(point - 1) >= sidesteps) --point;
        return point;
    }

    /// The sum of the first points of a piece.
    [[nodiscard]] ChannelSums sumOf(const Piece& piece, int count) const {
        const int along = piece.start.along;
        return stepAlong_ > 0 ? lines_.sum(piece.start.across, along, along + count)
                              : lines_.sum(piece.start.across, along - count + 1, along + 1);
    }

    /// The sum of the points of the ray before this one.
    [[nodiscard]] ChannelSums sumBefore(const DigitalRay& ray, int point) const {
        if (point > ray.steps) return total_;
        const Piece& piece = pieces_[std::size_t(isAlong_ ? ray.sideOf(point) : point)];
        ChannelSums sum = piece.before;
        return sum += sumOf(piece, point - piece.first);
    }

    void smearPiece(const DigitalRay& ray, const Piece& piece) {
        const int start = piece.start.along, end = start + stepAlong_ * (piece.count - 1);
        const int lowest = std::min(start, end), highest = std::max(start, end);
        Place place{lowest, piece.start.across};
        for (;;) {
            place.along = lines_.nextFresh(place);
            if (place.along > highest) return;
            const int point = piece.first + (place.along - start) * stepAlong_;
            target_.pixels[lines_.pixelAt(place)] = mean(ray, point);
            lines_.pass(place);
        }
    }

    /// Sums are whole numbers below 2^41, exact in double precision.
    [[nodiscard]] Argb mean(const DigitalRay& ray, int point) const {
        const std::int64_t reach = int(ray.squaredDistance(point) / farthest_ * strength_);
        if (reach < 0) return 0xFF000000u;
        const std::int64_t last = ray.steps;
        const int from = int(std::max<std::int64_t>(point - reach, 0));
        const int to = int(std::min<std::int64_t>(point + reach, last));
        const ChannelSums sums = sumBefore(ray, to + 1).minus(sumBefore(ray, from));
        const double beforeStart = double(std::max<std::int64_t>(reach - point, 0));
        const double beyondEnd = double(std::max<std::int64_t>(reach - (last - point), 0));
        const auto channel = [&](std::uint32_t inside, unsigned start, unsigned end) {
            const double sum = inside + beforeStart * start + beyondEnd * end;
            return unsigned((sum + 0.5) / double(2 * reach + 1));
        };
        return makeOpaque(channel(sums.red, redOf(start_), redOf(end_)),
                          channel(sums.green, greenOf(start_), greenOf(end_)),
                          channel(sums.blue, blueOf(start_), blueOf(end_)));
    }

    PixelView source_;
    MutablePixelView target_;
    IntPoint centre_;
    int strength_;
    double farthest_;
    Lines lines_;
    // Of the ray at hand.
    Argb start_ = 0, end_ = 0;  // pixels
    bool isAlong_ = false;      // more along the lines than across
    int stepAlong_ = 0;
    std::vector<Piece> pieces_;
    ChannelSums total_;
};

}  // namespace

void longRayMeans(PixelView source, MutablePixelView target, IntPoint centre, int strength) {
    LongRayMeans(source, target, centre, strength).run();
}

}  // namespace orvane
