#include "platform/LargeVector.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <limits>

namespace kestrabel {
namespace {

TEST(LargeVector, KeepsItsElementsWhileItGrowsBeyondHugePages)
{
    constexpr std::size_t nCount = 3'000'000; // 12 MB, from small blocks to several huge pages
    CLargeVector<std::int32_t> numbers;
    for (std::size_t i = 0; i < nCount; ++i)
        numbers.push_back(static_cast<std::int32_t>(i));
    std::int64_t nSum = 0;
    for (const std::int32_t n : numbers)
        nSum += n;
    EXPECT_EQ(nSum, static_cast<std::int64_t>(nCount) * (nCount - 1) / 2);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(numbers.data()) % (std::size_t{2} << 20), 0U);
    numbers.resize(10);
    numbers.shrink_to_fit();
    EXPECT_EQ(numbers.back(), 9);
}

TEST(LargeVector, NoMemoryIsAnExceptionNotACrash)
{
    EXPECT_THROW(AllocateLarge(std::numeric_limits<std::size_t>::max() - 100), std::bad_alloc);
    EXPECT_THROW(CLargeAllocator<double>().allocate(std::numeric_limits<std::size_t>::max() / 4),
                 std::bad_array_new_length);
}

} // namespace
} // namespace kestrabel
