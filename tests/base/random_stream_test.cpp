#include "base/random_stream.h"

#include <gtest/gtest.h>

namespace orvane {
namespace {

TEST(RandomStream, StartsWithTheseDraws) {
    RandomStream stream;
    const int expected[] = {41, 18467, 6334, 26500, 19169};
    for (int draw : expected) EXPECT_EQ(stream.next(), draw);
}

TEST(RandomStream, JumpEqualsThatManyDraws) {
    for (std::uint64_t count : {0u, 1u, 2u, 7u, 64u, 100003u}) {
        RandomStream walked(12345u), jumped(12345u);
        for (std::uint64_t i = 0; i < count; ++i) walked.next();
        jumped.skip(count);
        EXPECT_EQ(walked.state(), jumped.state()) << count << " draws";
    }
}

}  // namespace
}  // namespace orvane
