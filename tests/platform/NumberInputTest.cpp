#include "platform/NumberInput.h"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <gtest/gtest.h>
#include <random>
#include <string>

namespace kestrabel {
namespace {

struct SNumberText
{
    const char* pText;
    double dValue;
    const char* pRest; ///< behind the decimal number, the whole text when there is none
    std::int32_t nValue;
    bool bWhole; ///< is one decimal number and nothing else
};

constexpr SNumberText NumberTexts[] = {
    {"12.5", 12.5, "", 12, true},
    {"\t\r\n+7 ", 7.0, " ", 7, true},
    {"-.5", -0.5, "", 0, true},
    {"1E-2", 0.01, "", 1, true},
    {"1e+", 1.0, "e+", 1, false},
    {"1,5", 1.0, ",5", 1, false},
    {"0x10", 0.0, "x10", 0, false},
    {"-1e999", 0.0, "", -1, false},
    {"1e-999", 0.0, "", 1, false},
    {"2147483648", 2147483648.0, "", INT32_MAX, true},
    {"-99999999999999999999999", -1e23, "", INT32_MIN, true},
};

constexpr const char* NoNumbers[] = {"",    " ",   "abc", "+",   ".",    "-.",
                                     "--5", "+-5", "- 5", "nan", "-inf", "\xC2\xA0"};

TEST(NumberInput, OnlyPlainNumbersAreRead)
{
    for (const SNumberText& test : NumberTexts) {
        std::string_view strText = test.pText;
        double dValue = -77.0;
        EXPECT_TRUE(TakeDecimal(strText, dValue)) << test.pText;
        EXPECT_EQ(strText, test.pRest) << test.pText;
        EXPECT_DOUBLE_EQ(dValue, test.dValue) << test.pText;
        EXPECT_EQ(ReadInteger(test.pText), test.nValue) << test.pText;
        EXPECT_EQ(IsDecimal(test.pText, dValue), test.bWhole) << test.pText;
    }
    const std::pair<double, std::int32_t> truncated[] = {
        {1.999, 1},          {-1.999, -1},      {2147483647.5, INT32_MAX},
        {-1e300, INT32_MIN}, {std::nan(""), 0}, {HUGE_VAL, INT32_MAX}};
    for (const auto& [dValue, nValue] : truncated)
        EXPECT_EQ(TruncateToInt(dValue), nValue) << dValue;
    for (const char* pText : NoNumbers) {
        std::string_view strText = pText;
        double dValue = -77.0;
        EXPECT_FALSE(TakeDecimal(strText, dValue) || IsDecimal(strText, dValue)) << pText;
        EXPECT_TRUE(strText == pText && dValue == -77.0 && ReadInteger(pText) == 0) << pText;
    }
}

TEST(NumberInput, ShortNumbersAreReadToTheLastBit)
{
    std::mt19937 random(1);
    for (int i = 0; i < 200'000; ++i) {
        std::string strText;
        const std::size_t nLength = 1 + random() % 20;
        while (strText.size() < nLength)
            strText += static_cast<char>('0' + random() % 10);
        if (random() % 4 != 0)
            strText.insert(random() % (nLength + 1), ".");
        if (random() % 10 == 0)
            strText += "e" + std::to_string(static_cast<int>(random() % 30) - 15);
        double dExpected = 0.0;
        std::from_chars(strText.data(), strText.data() + strText.size(), dExpected);
        ASSERT_EQ(ReadDecimal(strText), dExpected) << strText;
    }
}

} // namespace
} // namespace kestrabel
