#include "platform/graphics/scratch.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <vector>

namespace {

using namespace orvane;

TEST(Scratch, KeepsBlocksForTheNextShape) {
    for (const std::size_t bytes : {std::size_t{1}, std::size_t{5000}, std::size_t{1} << 20}) {
        void* const first = takeScratch(bytes);
        std::memset(first, 0x5A, bytes);
        giveScratchBack(first, bytes);
        void* const again = takeScratch(bytes);
        EXPECT_EQ(again, first) << bytes;
        void* const other = takeScratch(bytes);
        EXPECT_NE(other, again) << "a block has one owner";
        giveScratchBack(other, bytes);
        giveScratchBack(again, bytes);
    }
}

// Sanitizers see what is not given back to the system, or given back twice.
TEST(Scratch, GivesBackWhatItDoesNotKeep) {
    for (int round = 0; round < 3; ++round) {
        std::vector<ScratchVector<double>> vectors(20);
        for (std::size_t i = 0; i < vectors.size(); ++i)
            vectors[i].assign(std::size_t(round + 1) * 9000 * (i + 1), 1.5);
        for (const auto& vector : vectors) EXPECT_EQ(vector.front() + vector.back(), 3.0);
    }
}

}  // namespace
