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
    const auto Allocate = [&] {
        auto* pBlock = static_cast<unsigned char*>(pool.Allocate());
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(pBlock) % alignof(double), 0U);
        // Every block is filled with a byte that follows from where it is.
        std::memset(pBlock, static_cast<int>(reinterpret_cast<std::uintptr_t>(pBlock) / 8 % 251), nSize);
        blocks.push_back(pBlock);
    };
    const auto Free = [&](std::size_t nIndex) {
        unsigned char* pBlock = blocks[nIndex];
        const auto nFill = static_cast<unsigned char>(reinterpret_cast<std::uintptr_t>(pBlock) / 8 % 251);
        for (std::size_t i = 0; i < nSize; ++i)
            ASSERT_EQ(pBlock[i], nFill) << "written by another block";
        pool.Free(pBlock);
        blocks[nIndex] = blocks.back();
        blocks.pop_back();
    };
    std::mt19937 random(1);
    // More than two chunks of 2 MiB, then down to nothing and up again.
    for (const int nAllocateInTen : {9, 5, 1, 8, 2}) {
        for (int i = 0; i < 30'000; ++i) {
            if (static_cast<int>(random() % 10) < nAllocateInTen)
                Allocate();
            else if (!blocks.empty())
                Free(random() % blocks.size());
        }
    }
    while (!blocks.empty())
        Free(blocks.size() - 1);
    pool.Free(nullptr);
}

#if !defined(__SANITIZE_ADDRESS__)
TEST(BlockPool, AFreedBlockOfAFullChunkIsUsedAgain)
{
    CBlockPool pool(200);
    std::vector<void*> blocks;
    for (int i = 0; i < 15'000; ++i) // one chunk and a part of the next
        blocks.push_back(pool.Allocate());
    pool.Free(blocks.front());
    EXPECT_EQ(pool.Allocate(), blocks.front());
    for (void* pBlock : blocks)
        pool.Free(pBlock);
}
#endif

} // namespace
} // namespace kestrabel
