#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <functional>
#include <new>
#include <random>
#include <set>
#include <string>

#include "support/failing_allocator.h"
#include "support/random_steps.h"

namespace orvane {
namespace {

long fromEnvironment(const char* name, long otherwise) {
    const char* text = std::getenv(name);
    return text != nullptr ? std::atol(text) : otherwise;
}

// ORVANE_WALK_STEPS and ORVANE_WALK_SEED make the walks longer and other ones.
void walk(const std::function<void(RandomSteps&, FuzzInput&)>& takeStep) {
    const long steps = fromEnvironment("ORVANE_WALK_STEPS", 6000);
    const auto seed = static_cast<std::uint32_t>(fromEnvironment("ORVANE_WALK_SEED", 20));
    std::printf("%ld steps, seed %u\n", steps, seed);
    std::mt19937 random(seed);
    RandomSteps walker;
    std::set<int> modes;
    for (long i = 0; i < steps; ++i) {
        std::array<std::uint8_t, 96> bytes;
        for (auto& byte : bytes) byte = static_cast<std::uint8_t>(random());
        FuzzInput data(bytes.data(), bytes.size());
        takeStep(walker, data);
        ASSERT_EQ(walker.brokenInvariant(), "") << "step " << i << ", seed " << seed;
        if (walker.control.paintStatus >= 0 && walker.control.paintStatus <= 21) {
            modes.insert(walker.control.paintStatus);
        }
    }
    EXPECT_EQ(modes.size(), 22u) << "the walk is too short to see every mode";
}

TEST(RandomWalk, OfMessagesAndMemberCallsKeepsEveryInvariant) {
    walk([](RandomSteps& walker, FuzzInput& data) { walker.step(data); });
}

// One allocation of the step, and perhaps the next ones, are refused.
TEST(RandomWalk, WithoutMemoryForEveryStepKeepsEveryInvariant) {
    walk([](RandomSteps& walker, FuzzInput& data) {
        const bool refuses = data.inRange(0, 3) == 0;
        const long from = data.inRange(1, 12), more = data.inRange(0, 3);
        if (refuses) FailingAllocator::arm(from, more);
        try {
            walker.step(data);
        } catch (const std::bad_alloc&) {
            // It was the walker's own.
        }
        if (refuses) FailingAllocator::disarm();
    });
}

}  // namespace
}  // namespace orvane
