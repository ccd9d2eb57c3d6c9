#include "app/AppWorld.h"
#include "app/DivisionCommands.h"
#include "app/ResultsExportCommands.h"
#include "app/TrackEditing.h"
#include "app/TrackFileCommands.h"
#include "app/TrackPointExport.h"
#include "present/DeleteSlowPointsDialog.h"
#include "present/EditDivisionDialog.h"
#include "present/SelectCompetitorDialog.h"

#include <filesystem>
#include <gmock/gmock.h>

namespace kestrabel::test {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

/// From the first start to the next morning's: nothing that was decided or saved on the way is lost.
TEST(OrganisersDay, FromTheFirstStartToTheNext)
{
    SAppWorld world;
    CKestroDoc& document = world.document;
    ASSERT_TRUE(world.application.InitInstance({}));
    EXPECT_TRUE(fs::exists(world.folder.Path("Default.rsp"))) << "made where there was none";

    // Three riders, whose files come in one by one; the last rider has two.
    document.m_event.m_persons[0].m_strName = "Anna";
    AddCompetitor(world.event, "Ben");
    AddCompetitor(world.event, "Chloe");
    const double speeds[] = {0.008, 0.007, 0.006, 0.009};
    const char* files[] = {"anna.nmea", "Ben.nmea", "chloe_1.nmea", "chloe_2.nmea"};
    for (int i = 0; i < 4; ++i) {
        world.desktop.Files("Kestrabel files", {world.WriteTrack(files[i], 120, speeds[i])});
        world.desktop.Dialog<SSelectCompetitorDialog>([i](SSelectCompetitorDialog& dialog) {
            EXPECT_THAT(dialog.names, testing::ElementsAre("Anna", "Ben", "Chloe"));
            dialog.nSelected = std::min(i, 2);
            return true;
        });
        ImportTrackFiles(document);
    }
    const CPerson& chloe = world.event.m_persons[2];
    ASSERT_EQ(chloe.m_series.GetCount(), 2);
    EXPECT_EQ(world.event.m_persons[1].m_series[0].m_strName, "Ben");
    document.m_selection.ShowDivisionResults(5);
    ASSERT_EQ(document.m_selection.m_Results.GetCount(), 3);
    EXPECT_EQ(document.m_selection.m_Results.Best()->m_strCompetitor, "Chloe")
        << "with the faster of two files";

    // A division of the day; Anna's file is split where she came ashore and cleaned.
    world.desktop.Dialog<SEditDivisionDialog>([](SEditDivisionDialog& dialog) {
        EXPECT_TRUE(dialog.Validate()) << "a division needs a name";
        dialog.strName = "Nautical mile";
        dialog.metres.Set(1852.0);
        dialog.accumulation.bChecked = true;
        return !dialog.Validate();
    });
    ASSERT_TRUE(AddDivision(document));
    document.m_selection.SelectSeries(0, false, true);
    document.m_selection.SetFocusPoint(0, 100.0);
    SplitSeries(document);
    document.m_selection.SelectSeries(1, false, true);
    world.desktop.Dialog<SDeleteSlowPointsDialog>([](auto&) { return true; });
    DeleteSlowPoints(document);
    CreateCombinedSeries(document, 0);
    ASSERT_EQ(world.Person().m_series.GetCount(), 3);

    // Results and points go out.
    const std::string strTable = world.folder.Path("results.csv");
    world.desktop.Files("csv", {strTable});
    ExportAllDivisions(document, -1, -1);
    EXPECT_THAT(CTemporaryFolder::Read(strTable), HasSubstr("Chloe"));
    document.m_selection.SelectSeries(2, false, true);
    world.desktop.Files("GPX files", {world.folder.Path("combined.sbp")});
    ExportTrackPoints(document, {});
    EXPECT_GT(fs::file_size(world.folder.Path("combined.sbp")), 32U * 100U);

    // The current file is saved under a name, the project under another.
    document.m_selection.SelectSeries(0, false, true);
    world.desktop.Files("Kestrabel files", {world.folder.Path("anna morning.gpx")});
    ASSERT_TRUE(document.OnFileSaveAs());
    EXPECT_EQ(world.Series(0).m_strName, "anna morning");
    world.event.m_strDataFolder.clear();
    const std::string strProject = world.folder.Path("Regatta.rsp");
    world.desktop.Files("Kestrabel files", {strProject});
    ASSERT_TRUE(document.OnFileSaveAs());
    EXPECT_EQ(world.event.m_strDataFolder, world.folder.Path("data/"));
    EXPECT_EQ(document.m_strProjectPath, strProject);
    EXPECT_EQ(document.PathName(), world.folder.Path("anna morning.gpx"));

    // At the end only the other half of the split is unsaved.
    const std::string strHalf = world.Series(1).m_strFileName;
    world.desktop.Question("The file " + strHalf + " has changed.Do you wish to save it?", "Cancel");
    EXPECT_FALSE(world.application.OnClose()) << "the window stays";
    EXPECT_FALSE(fs::exists(strHalf));
    world.desktop.Question(strHalf, "Yes");
    EXPECT_TRUE(world.application.OnClose());
    EXPECT_TRUE(fs::exists(strHalf));
    EXPECT_EQ(world.settings.Read("Files", "LastDocument"), document.PathName());

    // The next morning, from the recent files.
    CApplication next({world.desktop, NoProgress(), world.settings, world.processes, world.folder.Path("")});
    ASSERT_TRUE(next.InitInstance({}));
    EXPECT_EQ(next.m_document.m_strProjectPath, "Default.rsp");
    EXPECT_EQ(world.settings.Read("Recent File List", "File2"), strProject) << "behind the default";
    next.OpenRecentFile(strProject);
    ASSERT_EQ(next.m_document.m_event.m_divisions.GetCount(), 7);
    EXPECT_EQ(next.m_document.m_event.m_divisions[6].m_strName, "Nautical mile");
    EXPECT_TRUE(next.OpenFiles({world.folder.Path("anna morning.gpx"), strHalf}));
    EXPECT_EQ(next.m_document.m_event.m_persons[0].m_series.GetCount(), 2);
    EXPECT_EQ(next.m_document.m_event.m_persons[0].m_series[0].m_points.GetCount(), 100);
    EXPECT_EQ(next.m_document.m_event.m_divisions.GetCount(), 7) << "the project stays";
    EXPECT_FALSE(next.m_document.IsModified());
}

} // namespace
} // namespace kestrabel::test
