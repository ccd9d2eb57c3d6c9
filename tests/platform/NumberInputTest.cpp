#include "platform/NumberInput.h"

#include "support/TemporaryFolder.h"

#include <charconv>
#include <clocale>
#include <cmath>
#include <cstdlib>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <string>

namespace kestrabel {
namespace {

constexpr std::int32_t Largest = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t Smallest = std::numeric_limits<std::int32_t>::min();

struct SNumberText
{
    const char* pText;
    bool bDecimal; ///< begins with a decimal number
    double dValue;
    const char* pRest; ///< behind the decimal number
    std::int32_t nValue;
    bool bWhole; ///< is one decimal number and nothing else
};

constexpr SNumberText NumberTexts[] = {
    {"12.5", true, 12.5, "", 12, true},
    {"-0.5", true, -0.5, "", 0, true},
    {"+1.5", true, 1.5, "", 1, true},
    {" 7", true, 7.0, "", 7, true},
    {"\t\r\n7 ", true, 7.0, " ", 7, true},
    {".5", true, 0.5, "", 0, true},
    {"-.5", true, -0.5, "", 0, true},
    {"5.", true, 5.0, "", 5, true},
    {"1e3", true, 1000.0, "", 1, true},
    {"1E-2", true, 0.01, "", 1, true},
    {"1e", true, 1.0, "e", 1, false},
    {"1e+", true, 1.0, "e+", 1, false},
    {"12.5abc", true, 12.5, "abc", 12, false},
    {"1,5", true, 1.0, ",5", 1, false},
    {"1 2", true, 1.0, " 2", 1, false},
    {"1.2.3", true, 1.2, ".3", 1, false},
    {"0x10", true, 0.0, "x10", 0, false},
    {"0010", true, 10.0, "", 10, true},
    {"1e999", true, 0.0, "", 1, false},
    {"-1e999", true, 0.0, "", -1, false},
    {"1e-999", true, 0.0, "", 1, false},
    {"2147483647", true, 2147483647.0, "", Largest, true},
    {"2147483648", true, 2147483648.0, "", Largest, true},
    {"-2147483648", true, -2147483648.0, "", Smallest, true},
    {"-2147483649", true, -2147483649.0, "", Smallest, true},
    {"99999999999999999999999", true, 1e23, "", Largest, true},
    {"-99999999999999999999999", true, -1e23, "", Smallest, true},
    {"", false, 0.0, "", 0, false},
    {" ", false, 0.0, " ", 0, false},
    {"abc", false, 0.0, "abc", 0, false},
    {"+", false, 0.0, "+", 0, false},
    {"-", false, 0.0, "-", 0, false},
    {".", false, 0.0, ".", 0, false},
    {"-.", false, 0.0, "-.", 0, false},
    {"--5", false, 0.0, "--5", 0, false},
    {"+-5", false, 0.0, "+-5", 0, false},
    {"- 5", false, 0.0, "- 5", 0, false},
    {"nan", false, 0.0, "nan", 0, false},
    {"-nan", false, 0.0, "-nan", 0, false},
    {"inf", false, 0.0, "inf", 0, false},
    {"-infinity", false, 0.0, "-infinity", 0, false},
    {"\xEF\xBC\x91\xEF\xBC\x92", false, 0.0, "\xEF\xBC\x91\xEF\xBC\x92", 0, false}, // full-width 12
    {"\xC2\xA0"
     "7",
     false, 0.0,
     "\xC2\xA0"
     "7",
     0, false}, // no-break space
};

void ExpectNumberTexts()
{
    for (const SNumberText& test : NumberTexts) {
        std::string_view strText = test.pText;
        double dValue = -77.0;
        EXPECT_EQ(TakeDecimal(strText, dValue), test.bDecimal) << test.pText;
        EXPECT_EQ(strText, test.pRest) << test.pText;
        EXPECT_DOUBLE_EQ(dValue, test.bDecimal ? test.dValue : -77.0) << test.pText;
        EXPECT_DOUBLE_EQ(ReadDecimal(test.pText), test.dValue) << test.pText;
        EXPECT_EQ(ReadInteger(test.pText), test.nValue) << test.pText;
        EXPECT_EQ(IsDecimal(test.pText, dValue), test.bWhole) << test.pText;
    }
}

TEST(NumberInput, OnlyPlainNumbersAreRead)
{
    ExpectNumberTexts();
    EXPECT_TRUE(std::signbit(ReadDecimal("-0")));
}

TEST(NumberInput, ADecimalCommaOnTheMachineChangesNothing)
{
    // The machine may have no such locale: made here, as its administrator would make it.
    const test::CTemporaryFolder folder;
    const std::string strCommand =
        "localedef -i de_DE -f UTF-8 " + folder.Path("de_DE.UTF-8") + " 2>/dev/null";
    if (std::system(strCommand.c_str()) == 0)
        ::setenv("LOCPATH", folder.Path("").c_str(), 1);
    const bool bComma = std::setlocale(LC_ALL, "de_DE.UTF-8") != nullptr &&
                        std::string_view(std::localeconv()->decimal_point) == ",";
    if (bComma)
        ExpectNumberTexts();
    std::setlocale(LC_ALL, "C");
    ::unsetenv("LOCPATH");
    if (!bComma)
        GTEST_SKIP() << "no locale with a decimal comma can be had";
}

TEST(NumberInput, ShortNumbersAreReadToTheLastBit)
{
    std::mt19937 random(1);
    const auto Pick = [&](int nBelow) { return static_cast<int>(random() % static_cast<unsigned>(nBelow)); };
    for (int i = 0; i < 200'000; ++i) {
        std::string strText;
        const int nLength = 1 + Pick(20);
        for (int j = 0; j < nLength; ++j)
            strText += static_cast<char>('0' + Pick(10));
        strText.insert(static_cast<std::size_t>(Pick(nLength + 1)), Pick(4) == 0 ? "" : ".");
        if (Pick(10) == 0)
            strText += "e" + std::to_string(Pick(30) - 15);
        double dExpected = 0.0;
        if (strText.front() == '.' && strText.size() == 1)
            continue;
        std::from_chars(strText.data(), strText.data() + strText.size(), dExpected);
        ASSERT_EQ(ReadDecimal(strText), dExpected) << strText;
    }
}

TEST(NumberInput, AWholeNumberIsTakenOnce)
{
    std::string_view strText = "12 -3.5";
    std::int32_t nValue = 0;
    EXPECT_TRUE(TakeInteger(strText, nValue));
    EXPECT_EQ(nValue, 12);
    EXPECT_TRUE(TakeInteger(strText, nValue));
    EXPECT_EQ(nValue, -3);
    EXPECT_FALSE(TakeInteger(strText, nValue)) << "a point does not begin a whole number";
    EXPECT_EQ(strText, ".5");
}

TEST(NumberInput, TruncationStaysWithin32Bits)
{
    const struct
    {
        double dValue;
        std::int32_t nValue;
    } cases[] = {
        {1.999, 1},
        {-1.999, -1},
        {-0.5, 0},
        {2147483647.5, Largest},
        {1e300, Largest},
        {-1e300, Smallest},
        {std::nan(""), 0},
        {-HUGE_VAL, Smallest},
        {HUGE_VAL, Largest},
        {-2147483648.0, Smallest},
        {2147483646.9, Largest - 1},
    };
    for (const auto& test : cases)
        EXPECT_EQ(TruncateToInt(test.dValue), test.nValue) << test.dValue;
}

} // namespace
} // namespace kestrabel
