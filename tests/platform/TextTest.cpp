#include "platform/Text.h"

#include <gtest/gtest.h>

namespace kestrabel {
namespace {

TEST(Text, WellFormedUtf8)
{
    // First and last of each length, around the surrogates.
    EXPECT_TRUE(IsUtf8(std::string_view("a\0b\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF", 13)));
    EXPECT_TRUE(IsUtf8("\xF0\x90\x80\x80\xF4\x8F\xBF\xBF\xED\x9F\xBF\xEE\x80\x80"));
    // Overlong, surrogates, beyond U+10FFFF, out of place, cut off.
    for (const char* pBytes :
         {"\xC1\xBF", "\xE0\x9F\xBF", "\xF0\x8F\xBF\xBF", "\xED\xA0\x80", "\xED\xBF\xBF", "\xF4\x90\x80\x80",
          "\xF8\x88\x80\x80\x80", "\x80", "a\xC3", "\xE2\x82", "\xF0\x9F\x98", "\xE2\x82z"})
        EXPECT_FALSE(IsUtf8(pBytes)) << testing::PrintToString(pBytes);
}

TEST(Text, WhatIsNotUtf8IsWindows1252)
{
    EXPECT_EQ(ToUtf8("J\xC3\xBCrgen"), "J\xC3\xBCrgen") << "left alone";
    EXPECT_EQ(ToUtf8("J\xFCrgen"), "J\xC3\xBCrgen");
    EXPECT_EQ(ToUtf8("\x80 \x9F \x96"), "\xE2\x82\xAC \xC5\xB8 \xE2\x80\x93") << "euro, Y diaeresis, dash";
    EXPECT_EQ(ToUtf8("\x81\x9D"), "\xEF\xBF\xBD\xEF\xBF\xBD") << "no such characters";
    EXPECT_EQ(ToUtf8("\xA0\xFF"), "\xC2\xA0\xC3\xBF");
    EXPECT_EQ(CountCharacters("J\xC3\xBCrgen \xE2\x82\xAC \xF0\x9F\x98\x80"), 10U);
}

TEST(Text, NoCharacterIsCut)
{
    const struct
    {
        const char* pText;
        std::size_t nCount;
        const char* pFirst;
    } cases[] = {
        {"", 3, ""},
        {"abc", 0, ""},
        {"abc", 2, "ab"},
        {"abc", 3, "abc"},
        {"abc", 4, "abc"},
        {"J\xC3\xBCrg", 1, "J"},
        {"J\xC3\xBCrg", 2, "J\xC3\xBC"},
        {"\xF0\x9F\x98\x80\xE2\x82\xAC", 1, "\xF0\x9F\x98\x80"},
        {"\xF0\x9F\x98\x80\xE2\x82\xAC", 2, "\xF0\x9F\x98\x80\xE2\x82\xAC"},
    };
    for (const auto& test : cases)
        EXPECT_EQ(FirstCharacters(test.pText, test.nCount), test.pFirst) << test.pText << test.nCount;
}

} // namespace
} // namespace kestrabel
