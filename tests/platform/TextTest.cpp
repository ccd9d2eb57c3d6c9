#include "platform/Text.h"

#include <gtest/gtest.h>

namespace kestrabel {
namespace {

TEST(Text, WellFormedUtf8)
{
    const struct
    {
        const char* pWhat;
        std::string_view bytes;
        bool bUtf8;
    } cases[] = {
        {"empty", "", true},
        {"ASCII with NUL", {"a\0b", 3}, true},
        {"two bytes, first and last", "\xC2\x80\xDF\xBF", true},
        {"three bytes, first and last", "\xE0\xA0\x80\xEF\xBF\xBF", true},
        {"four bytes, first and last", "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF", true},
        {"around the surrogates", "\xED\x9F\xBF\xEE\x80\x80", true},
        {"overlong /", "\xC0\xAF", false},
        {"overlong two bytes", "\xC1\xBF", false},
        {"overlong three bytes", "\xE0\x9F\xBF", false},
        {"overlong four bytes", "\xF0\x8F\xBF\xBF", false},
        {"first surrogate", "\xED\xA0\x80", false},
        {"last surrogate", "\xED\xBF\xBF", false},
        {"beyond U+10FFFF", "\xF4\x90\x80\x80", false},
        {"five-byte form", "\xF8\x88\x80\x80\x80", false},
        {"continuation alone", "\x80", false},
        {"cut after one of two", "a\xC3", false},
        {"cut after two of three", "\xE2\x82", false},
        {"cut after three of four", "\xF0\x9F\x98", false},
        {"broken by ASCII",
         "\xE2\x82"
         "a",
         false},
    };
    for (const auto& test : cases)
        EXPECT_EQ(IsUtf8(test.bytes), test.bUtf8) << test.pWhat;
}

TEST(Text, WhatIsNotUtf8IsWindows1252)
{
    EXPECT_EQ(ToUtf8("J\xC3\xBCrgen"), "J\xC3\xBCrgen") << "left alone";
    EXPECT_EQ(ToUtf8("J\xFCrgen"), "J\xC3\xBCrgen");
    EXPECT_EQ(ToUtf8("\x80 \x9F \x96"), "\xE2\x82\xAC \xC5\xB8 \xE2\x80\x93") << "euro, Y diaeresis, dash";
    EXPECT_EQ(ToUtf8("\x81\x8D\x8F\x90\x9D"), "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD");
    EXPECT_EQ(ToUtf8("\xA0\xFF"), "\xC2\xA0\xC3\xBF");
    for (int i = 0; i < 256; ++i)
        EXPECT_TRUE(IsUtf8(ToUtf8(std::string(1, static_cast<char>(i))))) << i;
    EXPECT_EQ(Windows1252CodePoint('a'), U'a');
    EXPECT_EQ(Windows1252CodePoint(0x80), U'\u20AC');
    EXPECT_EQ(Windows1252CodePoint(0xA0), U'\u00A0');
}

TEST(Text, CharactersAreCountedNotBytes)
{
    EXPECT_EQ(CountCharacters(""), 0U);
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
