#include "platform/BlockPool.h"

#include <cstring>
#include <gtest/gtest.h>
#include <random>
#include <vector>

namespace kestrabel {
namespace {

TEST(BlockPool, BlocksNeverOverlapWhateverTheOrderOfFreeing)
{
    constexpr std::size_t nSize = 200;
    CBlockPool pool(nSize);
    std::vector<unsigned char*> blocks;
    // Every block is filled with a byte that follows from where it is.
    const auto Fill = [](const void* p) {
        return static_cast<int>(reinterpret_cast<std::uintptr_t>(p) / 8 % 251);
    };
    std::mt19937 random(1);
    // More than two chunks of 2 MiB, then down to nothing and up again.
    for (const unsigned nAllocateInTen : {9U, 5U, 1U, 8U, 0U}) {
        for (int i = 0; i < 30'000; ++i) {
            if (random() % 10 < nAllocateInTen) {
                blocks.push_back(static_cast<unsigned char*>(pool.Allocate()));
                std::memset(blocks.back(), Fill(blocks.back()), nSize);
            } else if (!blocks.empty()) {
                std::swap(blocks[random() % blocks.size()], blocks.back());
                for (std::size_t n = 0; n < nSize; ++n)
                    ASSERT_EQ(blocks.back()[n], Fill(blocks.back())) << "written by another block";
                pool.Free(blocks.back());
                blocks.pop_back();
            }
        }
    }
    EXPECT_TRUE(blocks.empty());
}

} // namespace
} // namespace kestrabel
