#include "app/ResultsExportCommands.h"

#include "app/AppWorld.h"
#include "engine/ResultsExportFile.h"

#include <filesystem>

namespace kestrabel::test {
namespace {

/// Two track files of one competitor, and the six divisions of a new project.
class ResultsExportCommands : public testing::Test, protected SAppWorld
{
protected:
    ResultsExportCommands()
    {
        EXPECT_TRUE(document.OnNewDocument());
        EXPECT_TRUE(application.OpenFiles({WriteTrack("one.nmea", 40), WriteTrack("two.nmea", 40, 0.007)}));
    }

    /// What "Export Results..." writes.
    std::string Exported()
    {
        desktop.Files("*.csv", {m_strFile});
        ExportResults(document);
        return CTemporaryFolder::Read(m_strFile);
    }
    std::string DivisionResults(int nDivision)
    {
        EXPECT_EQ(kestrabel::ExportDivisionResults(event, nDivision, m_strFile, NoProgress()), "");
        return CTemporaryFolder::Read(m_strFile);
    }
    std::string CompetitorResults(int nSeries)
    {
        EXPECT_EQ(kestrabel::ExportCompetitorResults(event, 0, nSeries, m_strFile, NoProgress()), "");
        return CTemporaryFolder::Read(m_strFile);
    }

    const std::string m_strFile = folder.Path("results.csv");
};

TEST_F(ResultsExportCommands, WhatIsSelectedIsExported)
{
    selection.ShowDivisionResults(2);
    EXPECT_EQ(Exported(), DivisionResults(2));
    for (const int nSeries : {1, 0, -1}) {
        selection.SelectSeries(nSeries, false, true);
        EXPECT_EQ(Exported(), CompetitorResults(nSeries)) << "not the division of before";
        selection.ShowDivisionResults(1);
        EXPECT_EQ(Exported(), DivisionResults(1));
    }
    selection.SelectSeries(1, false, true);
    selection.ShowDivisionResults(-1);
    EXPECT_EQ(Exported(), CompetitorResults(1)) << "all divisions are none";

    selection.Reset();
    desktop.Message("Nothing is selected for export");
    ExportResults(document);
}

TEST_F(ResultsExportCommands, TheDialogProposesACsvAndCancelWritesNothing)
{
    desktop.Files("CSV files (*.csv)|*.csv|Text files (*.txt)|*.txt|All Files (*.*)|*.*||", {});
    ExportResults(document);
    EXPECT_EQ(desktop.m_lastChoice.strInitialPath, "*.csv");
    EXPECT_EQ(desktop.m_lastChoice.strDefaultExtension, "csv");
    EXPECT_TRUE(desktop.m_lastChoice.bConfirmOverwrite);
    EXPECT_FALSE(std::filesystem::exists(m_strFile));
}

TEST_F(ResultsExportCommands, AFailureIsShown)
{
    desktop.Files("*.csv", {folder.Path("nowhere/r.csv")}).Message("All or part of the path is invalid");
    ExportAllDivisions(document, -1, -1);
    desktop.Files("*.csv", {"/dev/full"}).Message("Failed to write file");
    ExportCompetitorResults(document, 0, -1);
    desktop.Files("*.csv", {"/dev/full"}).Message("Failed to write to result file");
    ExportDivisionResults(document, -1);
}

} // namespace
} // namespace kestrabel::test
