#include "formats/LineFile.h"

#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <random>

namespace kestrabel::test {
namespace {

using std::string_literals::operator""s;

struct SLine
{
    std::string strText;
    std::uint64_t nStart = 0;
    std::uint64_t nNext = 0;

    bool operator==(const SLine&) const = default;
};

void PrintTo(const SLine& line, std::ostream* pStream)
{
    *pStream << line.nStart << "-" << line.nNext << " (" << line.strText.size() << ") "
             << testing::PrintToString(line.strText.substr(0, 40));
}

/// The lines of a file, by the rules in their plainest form: the whole file in one piece.
std::vector<SLine> SplitSlowly(const std::string& strBytes)
{
    const std::string strEnd = strBytes.find("\r\n") == std::string::npos ? "\n" : "\r\n";
    std::size_t nStart = strBytes.starts_with("\xEF\xBB\xBF") ? 3 : 0;
    std::vector<SLine> lines;
    while (nStart < strBytes.size()) {
        const std::size_t nEnd = std::min(strBytes.find(strEnd, nStart), strBytes.size());
        const std::size_t nNext = std::min(nEnd + strEnd.size(), strBytes.size());
        const std::string strText = strBytes.substr(nStart, std::min<std::size_t>(nEnd - nStart, 8192));
        lines.push_back({strText.substr(0, strText.find('\0')), nStart, nNext});
        nStart = nNext;
    }
    return lines;
}

std::vector<SLine> ReadLines(const std::string& strPath)
{
    CLineFile file;
    EXPECT_TRUE(file.OpenForReading(strPath)) << file.ErrorText();
    std::vector<SLine> lines;
    std::string_view strLine;
    while (file.ReadLine(strLine)) {
        lines.push_back({std::string(strLine), file.PreviousPosition(), file.CurrentPosition()});
        EXPECT_EQ(file.LineNumber(), static_cast<std::int64_t>(lines.size()));
    }
    EXPECT_FALSE(file.ReadLine(strLine)) << "the end of the file must stay the end";
    return lines;
}

std::vector<std::string> Texts(const std::vector<SLine>& lines)
{
    std::vector<std::string> texts;
    for (const SLine& line : lines)
        texts.push_back(line.strText);
    return texts;
}

TEST(LineFile, LineEnds)
{
    struct SCase
    {
        std::string strBytes;
        std::vector<std::string> lines;
    };
    const SCase cases[] = {
        {"", {}},
        {"\r\n", {""}},
        {"\n", {""}},
        {"\r", {"\r"}},
        {"a", {"a"}},
        {"a\r\nb\r\n", {"a", "b"}},
        {"a\r\nb", {"a", "b"}},
        {"a\r\n\r\nb\r\n", {"a", "", "b"}},
        {"a\nb\r\nc\rd\r\n", {"a\nb", "c\rd"}}, // strict as soon as there is one CR LF
        {"a\nb\nc\r\n", {"a\nb\nc"}},           // even when it stands last
        {"a\r\r\nb\r\n", {"a\r", "b"}},
        {"a\r\n\nb\r\n", {"a", "\nb"}}, // the LF behind a CR LF begins the next line
        {"a\nb\n", {"a", "b"}},         // no CR LF: LF ends a line
        {"a\n\nb", {"a", "", "b"}},
        {"a\rb\nc\r", {"a\rb", "c\r"}},
        {"a\rb\rc", {"a\rb\rc"}},       // a CR alone ends nothing
        {"a\0b\r\nc\r\n"s, {"a", "c"}}, // a NUL ends the text, not the line
        {"\0\r\n\0"s, {"", ""}},
        {"\xEF\xBB\xBF$GPRMC\r\nb\r\n", {"$GPRMC", "b"}},
        {"\xEF\xBB\xBF", {}},
        {"a\r\n\xEF\xBB\xBF"
         "b",
         {"a", "\xEF\xBB\xBF"
               "b"}}, // a mark is one only at the start
    };
    const CTemporaryFolder folder;
    for (const SCase& one : cases) {
        const std::string strPath = folder.Write("a.txt", one.strBytes);
        EXPECT_EQ(Texts(ReadLines(strPath)), one.lines) << testing::PrintToString(one.strBytes);
        EXPECT_EQ(ReadLines(strPath), SplitSlowly(one.strBytes)) << testing::PrintToString(one.strBytes);
    }
}

TEST(LineFile, RestOfAnOverlongLineIsDropped)
{
    const CTemporaryFolder folder;
    for (const std::string strEnd : {"\r\n", "\n"}) {
        for (const std::size_t nLength :
             {8191U, 8192U, 8193U, 65534U, 65535U, 65536U, 65537U, 70000U, 200000U}) {
            std::string strLong = "$" + std::string(nLength - 1, 'x');
            const std::string strBytes = "first" + strEnd + strLong + strEnd + "$next" + strEnd;
            const std::vector<SLine> lines = ReadLines(folder.Write("a.txt", strBytes));
            ASSERT_EQ(lines.size(), 3U) << nLength;
            EXPECT_EQ(lines[1].strText, strLong.substr(0, 8192)) << nLength;
            EXPECT_EQ(lines[2].strText, "$next") << nLength;
            EXPECT_EQ(lines[2].nNext, strBytes.size()) << nLength;
        }
    }
}

// The buffer holds 64 KiB: every way in which a line end can lie about its edge and that of the next one.
TEST(LineFile, LineEndAtTheEdgeOfTheBuffer)
{
    const CTemporaryFolder folder;
    for (const std::string strEnd : {"\r\n", "\n"}) {
        for (const std::size_t nEdge : {65536U, 131072U}) {
            for (std::size_t nAt = nEdge - 4; nAt <= nEdge + 3; ++nAt) {
                // One line up to there, then the same distance in short lines.
                std::string strOne = std::string(nAt, 'y') + strEnd + "next" + strEnd;
                std::string strShort;
                while (strShort.size() + 100 < nAt)
                    strShort += std::string(60, 'z') + strEnd;
                strShort += std::string(nAt - strShort.size(), 'q') + strEnd + "next";
                for (const std::string& strBytes : {strOne, strShort}) {
                    const std::string strPath = folder.Write("a.txt", strBytes);
                    EXPECT_EQ(ReadLines(strPath), SplitSlowly(strBytes)) << nAt;
                }
            }
        }
    }
}

TEST(LineFile, FirstLineEndIsFoundAnywhere)
{
    const CTemporaryFolder folder;
    // The only CR LF lies beyond, or across, the first piece that is looked at: the LFs before it are data.
    for (const std::size_t nAt : {65534U, 65535U, 65536U, 131071U, 150000U}) {
        std::string strBytes(nAt, 'a');
        strBytes[10] = '\n';
        strBytes += "\r\nb";
        const std::string strPath = folder.Write("a.txt", strBytes);
        EXPECT_EQ(ReadLines(strPath), SplitSlowly(strBytes)) << nAt;
    }
}

TEST(LineFile, RandomBytesReadAsTheSlowReference)
{
    std::mt19937 random(20240601);
    const CTemporaryFolder folder;
    const std::string soups[] = {"ab\r\n\0"s, "a\r\n", "ab\n", "\r\n\r\n\r\na"};
    for (int nRun = 0; nRun < 300; ++nRun) {
        const std::string& strSoup = soups[random() % std::size(soups)];
        // Every sixth file is large and sparse, so that lines outgrow the buffer.
        const bool bLarge = nRun % 6 == 0;
        const std::size_t nSize = bLarge ? 60000 + random() % 150000 : random() % 40;
        const unsigned nSparse = bLarge ? 1U << random() % 17 : 1;
        std::string strBytes = random() % 8 == 0 ? "\xEF\xBB\xBF" : "";
        while (strBytes.size() < nSize)
            strBytes += random() % nSparse == 0 ? strSoup[random() % strSoup.size()] : 'x';
        ASSERT_EQ(ReadLines(folder.Write("a.txt", strBytes)), SplitSlowly(strBytes))
            << "run " << nRun << " " << testing::PrintToString(strBytes.substr(0, 100));
    }
}

TEST(LineFile, OpenFailureTellsItsCauseUntilTheNextOpen)
{
    const CTemporaryFolder folder;
    CLineFile file;
    EXPECT_FALSE(file.OpenForReading(folder.Path("missing.txt")));
    EXPECT_EQ(file.ErrorText(), "The file could not be located");
    EXPECT_EQ(file.Path(), folder.Path("missing.txt"));
    EXPECT_FALSE(file.OpenForReading(folder.Path("")));
    EXPECT_EQ(file.ErrorText(), "The file could not be accessed");
    // Opened again, nothing of the file before is left.
    std::string_view strLine;
    ASSERT_TRUE(file.OpenForReading(folder.Write("a.txt", "one\r\ntwo\r\n")));
    EXPECT_EQ(file.ErrorText(), "");
    ASSERT_TRUE(file.ReadLine(strLine));
    ASSERT_TRUE(file.OpenForReading(folder.Write("b.txt", "three\r\n")));
    ASSERT_TRUE(file.ReadLine(strLine));
    EXPECT_EQ(strLine, "three");
    EXPECT_EQ(file.PreviousPosition(), 0U);
    EXPECT_EQ(file.LineNumber(), 1);
}

TEST(LineFile, WrittenLinesEndInCrLfWhenAsked)
{
    const CTemporaryFolder folder;
    const std::string strPath = folder.Write("a.txt", "a longer text that stood here before");
    CLineFile file;
    ASSERT_TRUE(file.OpenForWriting(strPath, CFile::EMode::Create));
    file.WriteLine("a");
    file.WriteLine("b", false);
    file.WriteLine("");
    file.Commit();
    EXPECT_EQ(CTemporaryFolder::Read(strPath), "a\r\nb\r\n");
}

} // namespace
} // namespace kestrabel::test
