#include "formats/GardownReader.h"

#include "formats/PointText.h"
#include "formats/ScriptedPrompt.h"
#include "formats/TrackMarksWriter.h"
#include "support/TemporaryFolder.h"
#include "support/Track.h"

#include <gtest/gtest.h>

namespace kestrabel::test {
namespace {

using CTexts = std::vector<std::string>;

struct SRead
{
    CScriptedPrompt prompt;
    CImportMonitor monitor;
    CObjectArray<CTrackPoint> points;
    EReadEnd end = EReadEnd::Failed;

    explicit SRead(std::string_view bytes, bool bCancel = false)
        : prompt(std::deque<bool>(100, !bCancel)), monitor(&prompt)
    {
        const CTemporaryFolder folder;
        end = ReadGardown(monitor, folder.Write("a.gtr", bytes), points);
    }
};

const std::string Nine = "T N33 2.1234 W096 12.1234 Fri Jan 12 10:12:00 2001\r\n";
const std::string Seven = "T N33.5 W96.25 Fri Jan 12 10:13:00 2001\r\n";
const std::string NinePoint = "2001-01-12T10:12:00 33.03539 -96.2020567";
const std::string SevenPoint = "2001-01-12T10:13:00 33.5 -96.25";

TEST(GardownReader, TheFirstReadableLineDecidesTheLayout)
{
    const struct
    {
        const char* pWhat;
        std::string bytes;
        CTexts points;
        std::vector<std::int64_t> badLines;
    } cases[] = {
        {"empty", "", {}, {}},
        {"one layout", Nine + Nine, {NinePoint, NinePoint}, {}},
        {"another later", Nine + Seven + Nine, {NinePoint, NinePoint}, {2}},
        {"bad ones first", "T\r\nTrack\r\n" + Seven + Seven, {SevenPoint, SevenPoint}, {1, 2}},
        {"other lines", "H\r\n\r\n" + Nine + " T 1\r\nt 1\r\nW x\r\n", {NinePoint}, {}},
        {"line feeds only", "T\n" + Seven.substr(0, Seven.size() - 2) + "\n", {SevenPoint}, {1}},
    };
    for (const auto& test : cases) {
        for (const bool bCancel : {false, true}) {
            const SRead read(test.bytes, bCancel);
            EXPECT_EQ(PointTexts(read.points), test.points) << test.pWhat;
            EXPECT_EQ(read.end, EReadEnd::Complete) << "a bad line never stops it";
            ASSERT_EQ(read.prompt.m_asked.size(), test.badLines.size()) << test.pWhat;
            ASSERT_EQ(read.monitor.Issues().size(), test.badLines.size()) << test.pWhat;
            for (std::size_t i = 0; i < test.badLines.size(); ++i) {
                EXPECT_EQ(read.prompt.m_asked[i],
                          "Unknown file format. Failed to read line. \n Do you wish to continue?");
                EXPECT_EQ(read.monitor.Issues()[i].nLine, test.badLines[i]) << test.pWhat;
            }
            const bool bReported = bCancel && !test.badLines.empty();
            EXPECT_EQ(read.monitor.Message(), bReported ? "Invalid format found" : "") << test.pWhat;
        }
    }
}

TEST(GardownReader, TrackMarksAreNoTrackLines)
{
    const CTemporaryFolder folder;
    CObjectArray<CTrackPoint> points;
    points.Add(MakePoint(0.0, 48.5, -11.5));
    points.Add(MakePoint(1.5, -0.5, 0.0));
    points.Add(MakePoint(2.0, -1e-12, 1e-3));
    points.Last()->m_time = DATE::MakeInvalid();
    CImportMonitor monitor;
    const std::string strPath = folder.Path("a.gd");
    ASSERT_TRUE(WriteTrackMarks(monitor, strPath, points));
    EXPECT_EQ(CTemporaryFolder::Read(strPath), "+48.5000000000,-11.5000000000,2024-06-01T10:00:00,0,0\r\n"
                                               "-.5000000000,+0,2024-06-01T10:00:02,0,0\r\n"
                                               "+0,+.001,,0,0\r\n");
    CObjectArray<CTrackPoint> read;
    EXPECT_EQ(ReadGardown(monitor, strPath, read), EReadEnd::Complete);
    EXPECT_TRUE(read.IsEmpty());
    EXPECT_EQ(monitor.IssueCount(), 0);
}

} // namespace
} // namespace kestrabel::test
