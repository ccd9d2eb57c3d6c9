#include "cli/TextTable.h"

#include "cli/DisplayText.h"
#include "cli/PrintedText.h"
#include "platform/Text.h"

#include <gtest/gtest.h>

namespace kestrabel {
namespace {

using test::PrintedText;
using EColumn = CTextTable::EColumn;

std::string Printed(const CTextTable& table)
{
    return PrintedText([&](COutput& output) { table.Write(output); });
}

TEST(TextTable, NumbersStandOnTheirDecimalPoint)
{
    CTextTable table;
    table.AddColumn("Speed", "", EColumn::Number);
    table.AddColumn("Name", "", EColumn::Name);
    for (const char* pNumber : {"38.412", "5.000", ".512", ".05", "0", "-", "-.5", "1234", "inf"})
        table.AddRow({pNumber, "x"});
    EXPECT_EQ(Printed(table), "   Speed  Name\n"
                              "  38.412  x\n"
                              "   5.000  x\n"
                              "    .512  x\n"
                              "    .05   x\n"
                              "   0      x\n"
                              "   -      x\n"
                              "   -.5    x\n"
                              "1234      x\n"
                              " inf      x\n");
}

TEST(TextTable, TitlesSetTheLeastWidthAndGroupsStandApart)
{
    CTextTable table;
    table.AddColumn("Rank", "", EColumn::Right);
    table.AddColumn("Start", "", EColumn::Left);
    table.AddColumn("Speed", "(knots)", EColumn::Number);
    table.AddColumn("Track", "file", EColumn::Name);
    table.AddGroup("2 sec");
    table.AddRow({"1", "10:00:00.000", "9.5", "run"});
    table.AddGroup("10 sec");
    table.AddRow({"-", "-", "-", "-"});
    EXPECT_EQ(Printed(table), "Rank  Start           Speed  Track\n"
                              "                    (knots)  file\n"
                              "\n"
                              "2 sec\n"
                              "   1  10:00:00.000      9.5  run\n"
                              "\n"
                              "10 sec\n"
                              "   -  -                 -    -\n");
}

TEST(TextTable, LongNamesAreCutAndShortOnesStayWhole)
{
    CTextTable table;
    table.AddColumn("Competitor", "", EColumn::Name);
    table.AddColumn("Speed", "(knots)", EColumn::Number);
    table.AddColumn("Track", "file", EColumn::Name);
    std::string strLong;
    for (int i = 0; i < 120; ++i)
        strLong += "é";
    table.AddGroup(strLong);
    table.AddRow({"Zoë", "38.4", strLong});
    table.AddRow({"Bartholomew", "9.25", "run"});
    const std::string strText = Printed(table);
    std::size_t nLongest = 0;
    for (std::size_t nStart = 0; nStart < strText.size();) {
        const std::size_t nEnd = strText.find('\n', nStart);
        const std::string strLine = strText.substr(nStart, nEnd - nStart);
        EXPECT_TRUE(IsUtf8(strLine)) << "cut within a character: " << strLine;
        nLongest = std::max(nLongest, CountCharacters(strLine));
        nStart = nEnd + 1;
    }
    EXPECT_EQ(nLongest, CTextTable::Width);
    EXPECT_NE(strText.find("é…\n"), std::string::npos);
    EXPECT_NE(strText.find("Bartholomew"), std::string::npos);
}

TEST(DisplayText, OneLineShowsAndNeverSteers)
{
    const std::pair<std::string, std::string> cases[] = {
        {"run.gpx", "run.gpx"},
        {"a\nb\r\tc", "a?b??c"},
        {"\x1b[31mred", "?[31mred"},
        {"\xc2\x9b"
         "31m",
         "?31m"}, // the one-character form of the same
        {"del\x7f", "del?"},
        {"caf\xe9", "café"},
        {"naïve 船 \U0001F3C4", "naïve 船 \U0001F3C4"},
    };
    for (const auto& [strGiven, strShown] : cases)
        EXPECT_EQ(OneLine(strGiven), strShown);
}

TEST(DisplayText, CutsKeepWholeCharacters)
{
    EXPECT_EQ(CutEnd("abcdef", 6), "abcdef");
    EXPECT_EQ(CutEnd("abcdef", 5), "abcd…");
    EXPECT_EQ(CutEnd("ééé", 2), "é…");
    EXPECT_EQ(CutEnd("abc", 1), "…");
    EXPECT_EQ(CutStart("abcdef", 6), "abcdef");
    EXPECT_EQ(CutStart("abcdef", 5), "…cdef");
    EXPECT_EQ(CutStart("ééé", 2), "…é");
    EXPECT_EQ(CutStart("abc", 1), "…");
}

} // namespace
} // namespace kestrabel
