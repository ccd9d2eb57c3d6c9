#include "engine/ResultsExportFile.h"

#include "engine/TestEvent.h"
#include "support/SmallDisk.h"
#include "support/TemporaryFolder.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace kestrabel::test {
namespace {

/// Two competitors with a result each; the lines of the files are known from the line-wise export.
class ResultsExportFile : public testing::Test
{
protected:
    ResultsExportFile()
    {
        AddDivision(m_event, "500 m");
        AddDivision(m_event, "10 sec", DivisionKind::Time);
        AddFound(m_annOne, "500 m", 54, 0, 10);
        AddFound(m_benOne, "10 sec", 72, 0, 10);
    }

    /// The file that the line-wise export must come to.
    template <class TWrite>
    std::string FileOf(TWrite&& write)
    {
        std::string strFile;
        write([&](std::string_view strLine) { strFile.append(strLine).append("\r\n"); });
        return strFile;
    }

    using CExport = std::string (*)(const CEvent&, std::string_view, CProgressDisplay&);
    struct SExport
    {
        CExport pExport;
        const char* pFailure;
    };
    static constexpr SExport Exports[] = {
        {[](const CEvent& event, std::string_view strPath, CProgressDisplay& progress) {
             return ExportCompetitorResults(event, -1, -1, strPath, progress);
         },
         "Failed to write file"},
        {[](const CEvent& event, std::string_view strPath, CProgressDisplay& progress) {
             return ExportDivisionResults(event, -1, strPath, progress);
         },
         "Failed to write to result file"},
        {[](const CEvent& event, std::string_view strPath, CProgressDisplay& progress) {
             return ExportAllDivisions(event, -1, -1, strPath, progress);
         },
         "Failed to write to result file"},
    };

    CTemporaryFolder m_folder;
    CEvent m_event{DATE(45444.0)};
    CPerson& m_ann = AddPerson(m_event, "Ann");
    CSeries& m_annOne = AddSeries(m_ann, "a1");
    CPerson& m_ben = AddPerson(m_event, "Ben");
    CSeries& m_benOne = AddSeries(m_ben, "b1");
    CProgressRecord m_progress;
};

TEST_F(ResultsExportFile, TheFileHasTheLinesOfTheSelection)
{
    const std::vector<const CDivision*> all(m_event.m_divisions.begin(), m_event.m_divisions.end());
    const std::string strPath = m_folder.Path("results.csv");
    const auto expectFile = [&](const std::string& strMessage, const std::string& strExpected) {
        EXPECT_EQ(strMessage, "");
        EXPECT_EQ(CTemporaryFolder::Read(strPath), strExpected);
    };
    for (const int nPerson : {-1, 1}) {
        expectFile(ExportCompetitorResults(m_event, nPerson, nPerson == 1 ? 0 : -1, strPath, m_progress),
                   FileOf([&](const CLineSink& sink) {
                       WriteCompetitorResults(m_event, nPerson, nPerson == 1 ? 0 : -1, all, sink, m_progress);
                   }));
        const int nSeries = nPerson == 1 ? 0 : -1;
        expectFile(ExportAllDivisions(m_event, nPerson, nSeries, strPath, m_progress),
                   FileOf([&](const CLineSink& sink) {
                       WriteAllDivisions(m_event, nPerson, nSeries, sink, m_progress);
                   }));
    }
    for (const int nDivision : {-1, 0, 1}) {
        const std::vector<const CDivision*> chosen =
            nDivision == -1 ? all : std::vector<const CDivision*>{m_event.m_divisions.At(nDivision)};
        expectFile(
            ExportDivisionResults(m_event, nDivision, strPath, m_progress),
            FileOf([&](const CLineSink& sink) { WriteDivisionResults(m_event, chosen, sink, m_progress); }));
    }
    // One of the files in full, so that not everything rests on the other half.
    EXPECT_EQ(
        CTemporaryFolder::Read(strPath),
        "Competitor, Division, WayPoint, Series, \"Start Time\", \"End Time\", Seconds, \"Distance (m)\", "
        "Speed(knots), Claimed(knots)\r\n"
        "Ben, \"10 sec\", , b1, 00:00:00.000, 00:00:10.000, 0, 0, 38.9, 0\r\n"
        "Ann, \"10 sec\", , , 00:00:00.000, 00:00:00.000, 0, 0, 0, 0\r\n"
        "\r\n");
}

TEST_F(ResultsExportFile, AFileThatCannotBeOpenedTellsTheCause)
{
    std::filesystem::create_directory(m_folder.Path("folder.csv"));
    for (const SExport& test : Exports) {
        EXPECT_EQ(test.pExport(m_event, m_folder.Path("nowhere/r.csv"), m_progress),
                  "All or part of the path is invalid");
        EXPECT_EQ(test.pExport(m_event, m_folder.Path("folder.csv"), m_progress),
                  "The file could not be accessed");
    }
    EXPECT_TRUE(m_progress.m_begun.empty()) << "nothing was calculated for it";
}

TEST_F(ResultsExportFile, AWriteFailureHasTheTextOfItsExport)
{
    for (const SExport& test : Exports) {
        EXPECT_EQ(test.pExport(m_event, "/dev/full", m_progress), test.pFailure);
        const CSmallDisk disk(50);
        const std::string strPath = m_folder.Path("results.csv");
        EXPECT_EQ(test.pExport(m_event, strPath, m_progress), test.pFailure);
        EXPECT_EQ(CTemporaryFolder::Read(strPath).size(), 50U) << "left as written so far";
    }
}

} // namespace
} // namespace kestrabel::test
