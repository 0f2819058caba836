#include "platform/graphics/source_over.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "support/every_target.h"

namespace orvane {
namespace {

// The definition in whole numbers: alpha `sa` of the source is a fraction of 65025, that of the destination
// one of 255, so the result's alpha is total / (255 * 65025).
Argb overByFractions(Argb source, std::uint64_t coverage, Argb destination) {
    const std::uint64_t sa = alphaOf(source) * coverage, da = alphaOf(destination);
    const std::uint64_t sourceWeight = sa * 255, destinationWeight = da * (65025 - sa);
    const std::uint64_t total = sourceWeight + destinationWeight;
    if (sa == 0) return destination;
    const auto rounded = [](std::uint64_t n, std::uint64_t d) { return unsigned((2 * n + d) / (2 * d)); };
    const auto mixed = [&](unsigned s, unsigned d) {
        return rounded(s * sourceWeight + d * destinationWeight, total);
    };
    return makeArgb(rounded(total, 65025), mixed(redOf(source), redOf(destination)),
                    mixed(greenOf(source), greenOf(destination)), mixed(blueOf(source), blueOf(destination)));
}

// Random words with plenty of the alphas that have roads of their own.
std::vector<Argb> randomPixels(std::size_t count, std::mt19937& random) {
    std::vector<Argb> pixels(count);
    for (Argb& p : pixels) {
        p = Argb(random());
        const unsigned kind = random() % 4;
        if (kind == 0) p |= 0xFF000000u;
        if (kind == 1) p &= 0x00FFFFFFu;
    }
    return pixels;
}

void checkEveryPairOfAlphasIsExact() {
    const unsigned levels[] = {0, 1, 2, 63, 127, 128, 129, 200, 254, 255};
    std::vector<Argb> source, destination;
    for (unsigned s : levels) {
        for (unsigned d : levels) {
            source.push_back(makeArgb(0, s, d, 255 - s));
            destination.push_back(makeArgb(0, d, 255 - s, 255 - d));
        }
    }
    std::vector<Argb> sources(source.size()), destinations(source.size()), target(source.size());
    for (unsigned sa = 0; sa < 256; ++sa) {
        for (unsigned da = 0; da < 256; ++da) {
            for (std::size_t i = 0; i < source.size(); ++i) {
                sources[i] = source[i] | sa << 24;
                destinations[i] = destination[i] | da << 24;
            }
            sourceOver(sources.data(), destinations.data(), target.data(), target.size());
            for (std::size_t i = 0; i < target.size(); ++i) {
                ASSERT_EQ(target[i], overByFractions(sources[i], 255, destinations[i]))
                    << std::hex << sources[i] << " over " << destinations[i];
            }
        }
    }
}

void checkEveryChannelPairIsExactOverOpaque() {
    std::vector<Argb> source(256), destination(256), target(256);
    for (unsigned sa = 0; sa < 256; ++sa) {
        for (unsigned s = 0; s < 256; ++s) {
            for (unsigned d = 0; d < 256; ++d) {
                source[d] = makeArgb(sa, s, 255 - s, s ^ d);
                destination[d] = makeArgb(255, d, d, 255 - d);
            }
            sourceOverOpaque(source.data(), destination.data(), target.data(), 256);
            for (unsigned d = 0; d < 256; ++d) {
                ASSERT_EQ(target[d], overByFractions(source[d], 255, destination[d]))
                    << std::hex << source[d] << " over " << destination[d];
            }
        }
    }
}

void checkEveryAlphaAndCoverageIsExact() {
    std::mt19937 random(7);
    std::vector<std::uint8_t> coverage(256);
    for (unsigned c = 0; c < 256; ++c) coverage[c] = std::uint8_t(c);
    for (unsigned round = 0; round < 24; ++round) {
        for (unsigned sa = 0; sa < 256; ++sa) {
            const Argb colour = (Argb(random()) & 0x00FFFFFFu) | sa << 24;
            std::vector<Argb> before = randomPixels(256, random);
            if (round % 3 == 1) {
                for (Argb& p : before) p |= 0xFF000000u;
            }
            std::vector<Argb> after = before;
            sourceOverMasked(colour, coverage.data(), after.data(), after.size());
            for (unsigned c = 0; c < 256; ++c) {
                ASSERT_EQ(after[c], overByFractions(colour, c, before[c]))
                    << std::hex << colour << " through " << c << " over " << before[c];
            }
        }
    }
}

void checkEveryWidthLeavesItsNeighboursAlone() {
    constexpr Argb kGuard = 0x12345678u;
    std::mt19937 random(11);
    for (std::size_t count = 0; count <= 67; ++count) {
        const std::vector<Argb> source = randomPixels(count, random),
                                destination = randomPixels(count, random);
        std::vector<std::uint8_t> coverage(count);
        for (auto& c : coverage) c = std::uint8_t(random() % 3 == 0 ? 255 : random() % 2 == 0 ? 0 : random());
        enum Form { Rows, InPlace, OntoSource, OverOpaque, Masked, OneColourMasked };
        for (int form = Rows; form <= OneColourMasked; ++form) {
            std::vector<Argb> target(count + 2, kGuard);
            Argb* const out = target.data() + 1;
            std::copy_n(form == OntoSource ? source.data() : destination.data(), count, out);
            const Argb colour = Argb(random());
            if (form == Rows) sourceOver(source.data(), destination.data(), out, count);
            if (form == InPlace) sourceOver(source.data(), out, out, count);
            if (form == OntoSource) sourceOver(out, destination.data(), out, count);
            if (form == OverOpaque) sourceOverOpaque(source.data(), out, out, count);
            if (form == Masked) sourceOverMasked(source.data(), coverage.data(), out, count);
            if (form == OneColourMasked) sourceOverMasked(colour, coverage.data(), out, count);
            EXPECT_EQ(target.front(), kGuard) << "form " << form << ", width " << count;
            EXPECT_EQ(target.back(), kGuard) << "form " << form << ", width " << count;
            for (std::size_t i = 0; i < count; ++i) {
                const Argb s = form == OneColourMasked ? colour : source[i];
                const Argb d = destination[i] | (form == OverOpaque ? 0xFF000000u : 0u);
                ASSERT_EQ(out[i], overByFractions(s, form >= Masked ? coverage[i] : 255u, d))
                    << "form " << form << ", width " << count << ", pixel " << i;
            }
        }
    }
}

TEST(SourceOver, EveryPairOfAlphasIsExact) { test::onEveryTarget(checkEveryPairOfAlphasIsExact); }
TEST(SourceOver, EveryChannelPairIsExactOverOpaque) {
    test::onEveryTarget(checkEveryChannelPairIsExactOverOpaque);
}
TEST(SourceOver, EveryAlphaAndCoverageIsExact) { test::onEveryTarget(checkEveryAlphaAndCoverageIsExact); }
TEST(SourceOver, EveryWidthLeavesItsNeighboursAlone) {
    test::onEveryTarget(checkEveryWidthLeavesItsNeighboursAlone);
}

}  // namespace
}  // namespace orvane
