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

    using CExport = std::string (*)(const CEvent&, std::string_view, CProgressDisplay&);
    struct SExport
    {
        CExport pExport;
        const char* pFailure;
    };
    static constexpr SExport Exports[] = {
        {[](auto& event, auto path, auto& progress) {
             return ExportCompetitorResults(event, -1, -1, path, progress);
         },
         "Failed to write file"},
        {[](auto& event, auto path, auto& progress) {
             return ExportDivisionResults(event, -1, path, progress);
         },
         "Failed to write to result file"},
        {[](auto& event, auto path, auto& progress) {
             return ExportAllDivisions(event, -1, -1, path, progress);
         },
         "Failed to write to result file"},
    };

    CTemporaryFolder m_folder;
    CEvent m_event{DATE(45444.0)};
    CSeries& m_annOne = AddSeries(AddPerson(m_event, "Ann"), "a1");
    CSeries& m_benOne = AddSeries(AddPerson(m_event, "Ben"), "b1");
    CProgressRecord m_progress;
};

TEST_F(ResultsExportFile, TheFileHasTheLinesOfTheSelection)
{
    const std::string strPath = m_folder.Path("results.csv");
    const auto Times = [](int nSeconds, const char* pSpeed) {
        return "00:00:00.000, 00:00:" + std::to_string(nSeconds) + "0.000, 0, 0, " + pSpeed + ", 0\r\n";
    };
    const std::string strHeader = ResultsHeader(m_event) + "\r\n";
    const std::string strBen = "Ben, \"10 sec\", , b1, " + Times(1, "38.9");
    const std::string strAnn = "Ann, \"500 m\", , a1, " + Times(1, "29.2");
    const std::string strAnnNone = "Ann, \"10 sec\", , , " + Times(0, "0");
    const std::string strBenNone = "Ben, \"500 m\", , , " + Times(0, "0");
    const auto Expect = [&](const std::string& strMessage, const std::string& strExpected) {
        EXPECT_EQ(strMessage, "");
        EXPECT_EQ(CTemporaryFolder::Read(strPath), strHeader + strExpected);
    };
    Expect(ExportCompetitorResults(m_event, -1, -1, strPath, m_progress), strAnn + "\r\n" + strBen + "\r\n");
    Expect(ExportCompetitorResults(m_event, 1, 0, strPath, m_progress), strBen + "\r\n");
    Expect(ExportAllDivisions(m_event, -1, -1, strPath, m_progress),
           strAnn + strBenNone + strBen + strAnnNone);
    Expect(ExportAllDivisions(m_event, 1, 0, strPath, m_progress), strBenNone + strBen);
    Expect(ExportDivisionResults(m_event, -1, strPath, m_progress),
           strAnn + strBenNone + "\r\n" + strBen + strAnnNone + "\r\n");
    Expect(ExportDivisionResults(m_event, 1, strPath, m_progress), strBen + strAnnNone + "\r\n");
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
