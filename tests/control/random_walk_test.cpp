#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <random>
#include <string>

#include "support/random_steps.h"

namespace orvane {
namespace {

long fromEnvironment(const char* name, long otherwise) {
    const char* text = std::getenv(name);
    return text != nullptr ? std::atol(text) : otherwise;
}

// ORVANE_WALK_STEPS and ORVANE_WALK_SEED make the walk longer and another one.
TEST(RandomWalk, OfMessagesAndMemberCallsKeepsEveryInvariant) {
    const long steps = fromEnvironment("ORVANE_WALK_STEPS", 6000);
    const auto seed = static_cast<std::uint32_t>(fromEnvironment("ORVANE_WALK_SEED", 20));
    std::printf("%ld steps, seed %u\n", steps, seed);
    std::mt19937 random(seed);
    RandomSteps walk;
    for (long i = 0; i < steps; ++i) {
        std::array<std::uint8_t, 96> bytes;
        for (auto& byte : bytes) byte = static_cast<std::uint8_t>(random());
        FuzzInput data(bytes.data(), bytes.size());
        walk.step(data);
        ASSERT_EQ(walk.brokenInvariant(), "") << "step " << i << ", seed " << seed;
    }
}

}  // namespace
}  // namespace orvane
