#include "formats/LineFile.h"

#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <random>

namespace kestrabel::test {
namespace {

using std::string_literals::operator""s;

/// The lines of a file, by the rules in their plainest form: the whole file in one piece.
std::vector<std::string> SplitSlowly(const std::string& strBytes)
{
    const std::string strEnd = strBytes.find("\r\n") == std::string::npos ? "\n" : "\r\n";
    std::size_t nStart = strBytes.starts_with("\xEF\xBB\xBF") ? 3 : 0;
    std::vector<std::string> lines;
    while (nStart < strBytes.size()) {
        const std::size_t nEnd = std::min(strBytes.find(strEnd, nStart), strBytes.size());
        lines.emplace_back(
            strBytes.substr(nStart, std::min<std::size_t>(nEnd - nStart, 8192)).c_str()); // to a NUL
        nStart = nEnd + strEnd.size();
    }
    return lines;
}

/// The line file makes of the bytes what the plain form makes of them.
void ExpectPlainLines(const std::string& strBytes)
{
    const CTemporaryFolder folder;
    CLineFile file;
    EXPECT_TRUE(file.OpenForReading(folder.Write("a.txt", strBytes))) << file.ErrorText();
    std::vector<std::string> lines;
    std::string_view strLine;
    while (file.ReadLine(strLine))
        lines.emplace_back(strLine);
    EXPECT_EQ(file.LineNumber(), static_cast<std::int64_t>(lines.size()));
    EXPECT_TRUE(lines == SplitSlowly(strBytes)) << testing::PrintToString(strBytes.substr(0, 100));
}

TEST(LineFile, RandomBytesReadAsTheSlowReference)
{
    std::mt19937 random(20240601);
    const std::string soups[] = {"ab\r\n\0"s, "a\r\n\xEF\xBB\xBF", "ab\n", "\r\n\r\n\r\na"};
    for (int nRun = 0; nRun < 600; ++nRun) {
        const std::string& strSoup = soups[random() % std::size(soups)];
        // Every third file is large, so that lines and their ends lie about the edges of the 64 KiB buffer,
        // and sparse, so that lines outgrow it.
        const bool bLarge = nRun % 3 == 0;
        const std::size_t nSize = bLarge ? 60000 + random() % 150000 : random() % 40;
        const unsigned nSparse = bLarge ? 1U << random() % 17 : 1;
        std::string strBytes = random() % 8 == 0 ? "\xEF\xBB\xBF" : "";
        while (strBytes.size() < nSize)
            strBytes += random() % nSparse == 0 ? strSoup[random() % strSoup.size()] : 'x';
        ExpectPlainLines(strBytes);
    }
}

} // namespace
} // namespace kestrabel::test
