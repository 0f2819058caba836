#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <utility>
#include <vector>

namespace orvane {

class LightColumns;

/// Sums of equal terms, which depend on their number alone.
class EqualTerms {
 public:
    /// term: 0 if the terms are not equal. May throw std::bad_alloc, as may all here.
    EqualTerms(double term, std::size_t mostTerms);

    /// Whether a sum that is off by the error still tells the number.
    [[nodiscard]] bool canCount(double error) const { return error < 0.25 * term_; }
    /// The whole levels, up to 255, of the sum that the number's terms make one by one.
    [[nodiscard]] std::uint8_t levels(double sum) const;

 private:
    double term_;
    std::vector<double> counts_;  // of terms that reach 1, 2, 3, ...
};

/// The light at pixels that all others reach, when all weights are the same: one sum in one order, in which
/// only a pixel's own term is left out.
///
/// Between two powers of two a sum goes in steps of its last place, and each term is rounded to such steps
/// wherever it comes. So the sum falls behind by the step of the missing term, and is the same for all pixels
/// of the same light that are left out between the same powers.
class EvenLight {
 public:
    /// The lights are those of all calls; the first one finds out when the sum of all passes powers of two.
    [[nodiscard]] std::uint8_t levelsAt(const LightColumns& lights, double weight, int x, int y);

 private:
    void findPowers(const LightColumns& lights, double weight);
    void findTies(const LightColumns& lights, double weight);

    /// Whether some term lies in the middle between two steps: then it is rounded to the even one, and all
    /// that came before counts.
    struct Power {
        std::size_t passedAt;
        int exponent;
        bool hasTies;
    };
    std::vector<Power> powers_;
    std::map<std::pair<std::size_t, int>, std::uint8_t> known_;  // by the power passed last, and the light
};

}  // namespace orvane
