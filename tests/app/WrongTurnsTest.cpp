#include "app/AppWorld.h"
#include "app/CheckPoints.h"
#include "app/DivisionCommands.h"
#include "app/RecentFiles.h"
#include "app/ResultsExportCommands.h"
#include "app/TrackEditing.h"
#include "app/TrackFileCommands.h"
#include "app/TrackPointExport.h"
#include "app/WayPointCommands.h"
#include "present/DeleteSlowPointsDialog.h"
#include "present/EditDivisionDialog.h"
#include "present/ExtractTrackDialog.h"
#include "present/SelectCompetitorDialog.h"
#include "present/SortTrackPointsDialog.h"
#include "present/TrackFilePropertiesDialog.h"
#include "present/WayPointDialog.h"

#include <filesystem>
#include <gmock/gmock.h>

namespace kestrabel::test {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

/// The application with one rider's two files.
class WrongTurns : public testing::Test, protected SAppWorld
{
protected:
    WrongTurns()
    {
        EXPECT_TRUE(application.InitInstance({}));
        EXPECT_TRUE(application.OpenFiles({WriteTrack("one.nmea", 30), WriteTrack("two.nmea", 30)}));
        selection.SelectSeries(0, false, true);
        selection.SetFocusPoint(0, 3.0);
    }
    /// Names, counts and marks of everything.
    std::string State() const
    {
        std::string strState = document.Title() + "|" + document.PathName() + "|" + document.m_strProjectPath;
        for (const CDivision* pDivision : event.m_divisions)
            strState += "|" + pDivision->m_strName;
        for (const CPerson* pPerson : event.m_persons) {
            for (const CSeries* p : pPerson->m_series) {
                strState += "|" + p->m_strName + "," + p->m_strFileName + "," +
                            std::to_string(p->m_points.GetCount()) + "," + std::to_string(p->m_bModified);
            }
        }
        return strState + "|" + std::to_string(event.m_waypoints.GetCount()) + "|" +
               std::to_string(std::distance(fs::directory_iterator(folder.Path("")), {}));
    }
};

TEST_F(WrongTurns, CancelAtEveryQuestionChangesNothing)
{
    const auto cancel = [](auto&) { return false; };
    const std::string strBefore = State();
    const struct
    {
        const char* pWhat;
        std::function<void()> act;
    } turns[] = {
        {"save as", [&] { desktop.Files("Kestrabel files", {}), document.OnFileSaveAs(); }},
        {"open", [&] { desktop.Files("Kestrabel files", {}), application.OnFileOpen(); }},
        {"import", [&] { desktop.Files("Kestrabel files", {}), ImportTrackFiles(document); }},
        {"import a file of the same name",
         [&] {
             desktop.Question("A series of this name already exists.", "Cancel");
             EXPECT_FALSE(ImportSeries(document, Person(), folder.Path("one.nmea")));
         }},
        {"close", [&] { desktop.Question("wish to close one?", "Cancel"), CloseSeries(document, 0); }},
        {"close all",
         [&] { desktop.Question("wish to close all trackfiles?", "No"), CloseAllSeries(document); }},
        {"delete competitor",
         [&] { desktop.Question("remove this competitor", "No, checked"), DeleteCompetitor(document, 0); }},
        {"properties",
         [&] { desktop.Dialog<STrackFilePropertiesDialog>(cancel), EditSeriesProperties(document, 0); }},
        {"sort", [&] { desktop.Dialog<SSortTrackPointsDialog>(cancel), SortTrackPoints(document); }},
        {"extract", [&] { desktop.Dialog<SExtractTrackDialog>(cancel), ExtractTrack(document); }},
        {"delete slow", [&] { desktop.Dialog<SDeleteSlowPointsDialog>(cancel), DeleteSlowPoints(document); }},
        {"add division", [&] { desktop.Dialog<SEditDivisionDialog>(cancel), AddDivision(document); }},
        {"edit division", [&] { desktop.Dialog<SEditDivisionDialog>(cancel), EditDivision(document, 2); }},
        {"waypoint", [&] { desktop.Dialog<SWayPointDialog>(cancel), AddWaypointAtPoint(document, 3); }},
        {"checkpoint", [&] { desktop.Dialog<SWayPointDialog>(cancel), AddCheckPointAtPoint(document, 3); }},
        {"export points", [&] { desktop.Files("GPX files", {}), ExportTrackPoints(document, {}); }},
        {"export results", [&] { desktop.Files("csv", {}), ExportResults(document); }},
        // Indices of nothing.
        {"divisions",
         [&] { EditDivision(document, 99), DeleteDivision(document, -1), MoveDivisionUp(document, 0); }},
        {"points", [&] { DeletePoint(document, 30), DeletePoint(document, -1); }},
        {"files", [&] { RemoveSeries(document, 0, 7, true), RemovePerson(document, 3, true); }},
    };
    for (const auto& turn : turns) {
        turn.act();
        EXPECT_EQ(State(), strBefore) << turn.pWhat;
        EXPECT_EQ(document.m_history.UndoCount(), 0U) << turn.pWhat;
        selection.SelectSeries(0, false, true);
        selection.SetFocusPoint(0, 3.0);
    }
    // With a competitor to choose.
    AddCompetitor(event, "Ben");
    desktop.Files("Kestrabel files", {folder.Path("one.nmea")}).Dialog<SSelectCompetitorDialog>(cancel);
    ImportTrackFiles(document);
    EXPECT_EQ(State(), strBefore);
}

TEST_F(WrongTurns, TheCloseCheckAsksForEveryFileAndThenForTheProject)
{
    for (CSeries* pSeries : Person().m_series)
        pSeries->m_bModified = 1;
    document.SetModifiedFlag();
    const std::string strOne = "The file " + Series(0).m_strFileName + " has changed.Do you wish to save it?";
    const std::string strTwo = "The file " + Series(1).m_strFileName + " has changed.Do you wish to save it?";
    desktop.Question(strOne, "No").Question(strTwo, "Cancel");
    EXPECT_FALSE(application.OnClose());
    EXPECT_EQ(settings.Read("Files", "LastDocument"), document.PathName());
    desktop.Question(strOne, "No").Question(strTwo, "Yes").Message("Cannot save to NMEA format");
    EXPECT_FALSE(application.OnClose()) << "it could not be saved in its own format";
    desktop.Question(strOne, "No").Question(strTwo, "No").Question("Do you wish to save it?", "No");
    EXPECT_TRUE(application.OnClose());
}

TEST_F(WrongTurns, RefusedFormatsSayWhyAndWriteNothing)
{
    const std::string strBefore = State();
    const std::pair<const char*, const char*> cases[] = {
        {"a.nmea", "Cannot save to NMEA format. Please select a different format"},
        {"a.TXT", "Cannot save to NMEA format. Please select a different format"},
        {"a.sbn", "Cannot save to SIRF binary format. Please select a different format"},
        {"a.gtr", "Unknown file extension. Please use a standard gpx or trk extension"},
        {"a", "Unknown file extension. Please use a standard gpx or trk extension"},
        {"missing/a.gpx", "All or part of the path is invalid"},
        {"missing/a.rsp", "All or part of the path is invalid"},
    };
    for (const auto& [pName, pMessage] : cases) {
        desktop.Message(pMessage);
        EXPECT_FALSE(document.OnSaveDocument(folder.Path(pName))) << pName;
        EXPECT_EQ(State(), strBefore) << pName;
    }
    selection.SelectSeries(-1, false, true);
    desktop.Message("There is no trackfile to save");
    EXPECT_FALSE(document.OnSaveDocument(folder.Path("a.gpx")));
}

TEST_F(WrongTurns, OnlyReadingAProjectTakesTheChangesOfTheOldOneAway)
{
    MoveDivisionUp(document, 1);
    EXPECT_TRUE(application.OpenFiles({folder.Path("one.nmea")}));
    EXPECT_TRUE(document.IsModified()) << "the divisions are still in another order than on the disk";
    EXPECT_TRUE(application.OpenFiles({folder.Path("Default.rsp")}));
    EXPECT_FALSE(document.IsModified());
}

TEST_F(WrongTurns, SaveWritesTheSelectedFileOverNoOtherOne)
{
    const std::string strFirst = folder.Path("a.gpx");
    EXPECT_TRUE(document.OnSaveDocument(strFirst));
    selection.SelectSeries(1, false, true);
    EXPECT_TRUE(document.OnSaveDocument(folder.Path("B.gpx")));
    EXPECT_TRUE(application.OpenFiles({strFirst, folder.Path("B.gpx")}));
    const auto nFirst = fs::file_size(strFirst);
    selection.SelectSeries(1, false, true);
    selection.SetFocusPoint(1, 10.0);
    DeletePoint(document, 10);
    EXPECT_TRUE(document.OnFileSave());
    EXPECT_EQ(Series(1).m_strName, "B");
    EXPECT_EQ(document.PathName(), folder.Path("B.gpx"));

    selection.SelectSeries(0, false, true);
    selection.SetFocusPoint(0, 10.0);
    SplitSeries(document);
    EXPECT_TRUE(document.OnFileSave()) << "the second half";
    EXPECT_TRUE(fs::exists(folder.Path("a_2.gpx")));
    EXPECT_EQ(fs::file_size(strFirst), nFirst);
    EXPECT_EQ(document.Title(), "a_2*") << "the first half is not saved yet";

    selection.SelectSeries(-1, false, true);
    desktop.Message("There is no trackfile to save");
    EXPECT_FALSE(document.OnFileSave());
}

TEST_F(WrongTurns, ADamagedProjectIsNeverThePathOfALaterSave)
{
    const std::string strBefore = State();
    const std::string strGood = CTemporaryFolder::Read(folder.Path("Default.rsp"));
    const std::string strDamaged = folder.Write("damaged.rsp", strGood.substr(0, strGood.size() / 2));
    desktop.Message(strDamaged);
    const int nResults = selection.m_Results.GetCount();
    EXPECT_FALSE(application.OpenFiles({strDamaged}));
    EXPECT_EQ(std::pair(selection.m_Results.GetCount(), nResults > 0), std::pair(nResults, true));
    desktop.Message("missing.rsp");
    EXPECT_FALSE(application.OpenFiles({folder.Path("missing.rsp")}));
    fs::remove(strDamaged);
    EXPECT_EQ(State(), strBefore);
    EXPECT_EQ(selection.m_Results.GetCount(), 5) << "the panes keep what they list";

    // As the default project it is put aside for repair, not written over.
    folder.Write("Default.rsp", "no project");
    desktop.Message("Default.rsp");
    CApplication next({desktop, NoProgress(), settings, processes, folder.Path("")});
    EXPECT_TRUE(next.InitInstance({}));
    EXPECT_EQ(CTemporaryFolder::Read(folder.Path("Default_BAK.rsp")), "no project");
    EXPECT_EQ(next.m_document.m_event.m_divisions.GetCount(), 6);
}

TEST_F(WrongTurns, SaveNeverWritesOneFileOverAnother)
{
    for (const int nSeries : {0, 1}) {
        selection.SelectSeries(nSeries, false, true);
        desktop.Files("Kestrabel files", {folder.Path(nSeries == 0 ? "One.gpx" : "Two.gpx")});
        ASSERT_TRUE(document.OnFileSaveAs());
    }
    const std::string strTwo = CTemporaryFolder::Read(folder.Path("Two.gpx"));
    selection.SelectSeries(0, false, true);
    DeletePoint(document, 0);
    EXPECT_TRUE(document.OnFileSave()) << "saved last was the other one";
    EXPECT_EQ(CTemporaryFolder::Read(folder.Path("Two.gpx")), strTwo);
    EXPECT_EQ(document.Title(), "One");
    EXPECT_EQ(Series(0).m_strName, "One");
    EXPECT_EQ(Series(0).m_bModified, 0);
    // One half of a split has a name of its own, an empty competitor's file has none.
    selection.SetFocusPoint(0, 10.0);
    SplitSeries(document);
    const std::string strOne = CTemporaryFolder::Read(folder.Path("One.gpx"));
    EXPECT_TRUE(document.OnFileSave());
    EXPECT_EQ(CTemporaryFolder::Read(folder.Path("One.gpx")), strOne);
    document.CreateDefaultCompetitor();
    selection.SelectSeries(0, false, true);
    desktop.Files("Kestrabel files", {});
    EXPECT_FALSE(document.OnFileSave());
}

TEST_F(WrongTurns, AProjectThatHasNoFileIsAskedForOne)
{
    CApplication next({desktop, NoProgress(), settings, processes, folder.Path("")});
    ASSERT_TRUE(next.InitInstance(std::vector{folder.Path("one.nmea")}));
    next.m_document.SetModifiedFlag();
    desktop.Question("The project has changed. Do you wish to save it?", "Yes");
    desktop.Files("Kestrabel Settings", {});
    EXPECT_FALSE(next.m_document.CanCloseFrame()) << "cancelled";
    desktop.Question("The project has changed. Do you wish to save it?", "Yes");
    desktop.Files("Kestrabel Settings", {folder.Path("Mine.gpx")});
    EXPECT_TRUE(next.m_document.CanCloseFrame());
    EXPECT_EQ(next.m_document.m_strProjectPath, folder.Path("Mine.gpx.rsp")) << "the project, not the track";
    EXPECT_TRUE(fs::exists(folder.Path("Mine.gpx.rsp")));
    EXPECT_FALSE(next.m_document.IsModified());
}

TEST_F(WrongTurns, ExportOfADivisionThatIsGoneIsOneOfTheTrackFile)
{
    const int nLast = event.m_divisions.GetCount() - 1;
    selection.ShowDivisionResults(nLast);
    selection.SelectSeries(0, false, true);
    event.m_divisions.RemoveAt(nLast);
    const std::string strTable = folder.Path("results.csv");
    desktop.Files("csv", {strTable});
    ExportResults(document);
    EXPECT_THAT(CTemporaryFolder::Read(strTable), HasSubstr("one"));
}

TEST_F(WrongTurns, FilesThatGoOrChangeUnderneathLoseNothing)
{
    // Reading again: the changed file gives its new points, the deleted one keeps the old ones.
    WriteTrack("one.nmea", 50);
    ReloadSeries(document, 0);
    EXPECT_EQ(Series(0).m_points.GetCount(), 50);
    fs::remove(folder.Path("two.nmea"));
    desktop.Message("two.nmea");
    ReloadSeries(document, 1);
    EXPECT_EQ(Series(1).m_points.GetCount(), 30);

    // A name that another file has, and one whose file is gone.
    const std::string strTaken = folder.Write("taken.nmea", "another's");
    const auto rename = [&](const char* pName) {
        desktop.Dialog<STrackFilePropertiesDialog>([=](STrackFilePropertiesDialog& dialog) {
            dialog.strName = pName;
            return true;
        });
    };
    selection.SelectSeries(0, false, true);
    rename("taken");
    desktop.Message("Failed to change the name of the file");
    EXPECT_TRUE(EditSeriesProperties(document, 0));
    EXPECT_EQ(CTemporaryFolder::Read(strTaken), "another's");
    EXPECT_TRUE(fs::exists(folder.Path("one.nmea")));
    rename("Zoë's run");
    EXPECT_TRUE(EditSeriesProperties(document, 0));
    EXPECT_TRUE(fs::exists(folder.Path("Zoë's run.nmea")));
    EXPECT_EQ(Series(0).m_strName, "Zoë's run");
    EXPECT_EQ(selection.m_strCaption, "Zoë's run");

    // A track file without points imports nothing, and replaces nothing.
    folder.Write("Zoë's run.nmea", "");
    desktop.Question("A series of this name already exists.", "Yes");
    desktop.Message("Zoë's run.nmea: fewer than 2 track points");
    EXPECT_TRUE(ImportSeries(document, Person(), folder.Path("Zoë's run.nmea")));
    EXPECT_EQ(Person().m_series.GetCount(), 2);
    EXPECT_EQ(Series(0).m_points.GetCount(), 50);

    desktop.Message("gone.gpx: failed to load XML document (The file could not be located)");
    EXPECT_FALSE(application.OpenFiles({folder.Path("gone.gpx")}));
    EXPECT_EQ(Person().m_series.GetCount(), 2) << "what was open stays open";

    // A download that cannot be moved.
    const SMoveTo into = {.strFolder = folder.Path("nowhere/"), .strName = "down.trk"};
    desktop.Message("Failed to copy data to data folder (most likely the GPS download failed). "
                    "Quote error # 2001");
    EXPECT_FALSE(ImportSeries(document, Person(), WriteTrack("down.trk", 5), &into));
    EXPECT_TRUE(fs::exists(folder.Path("down.trk")));
}

TEST_F(WrongTurns, NamesThatDifferOnlyInCaseAreTwoFiles)
{
    EXPECT_TRUE(application.OpenFiles({WriteTrack("Run.nmea", 10), WriteTrack("run.nmea", 20)}));
    ASSERT_EQ(Person().m_series.GetCount(), 2);
    for (const int nSeries : {0, 1}) {
        ReloadSeries(document, nSeries);
        EXPECT_EQ(Series(nSeries).m_points.GetCount(), nSeries == 0 ? 10 : 20);
    }
}

TEST_F(WrongTurns, OpeningTwoFilesOfOneNameAsksAsAnImportDoes)
{
    fs::create_directory(folder.Path("heat2"));
    const std::string strFirst = folder.Path("one.nmea");
    const std::string strSecond = WriteTrack("heat2/one.nmea", 20);
    const std::string strThird = folder.Path("two.nmea");
    const std::string strEmpty = folder.Write("empty.nmea", "");
    const struct
    {
        const char* pAnswer;
        std::vector<int> counts;
        std::string strPath;
    } cases[] = {
        {"Yes", {20, 30}, strSecond},
        {"No", {30, 20, 30}, strFirst},
        {"Cancel", {30}, strFirst},
    };
    for (const auto& test : cases) {
        desktop.Message("empty.nmea");
        desktop.Question("A series of this name already exists.", test.pAnswer);
        EXPECT_TRUE(application.OpenFiles({strEmpty, strFirst, strSecond, strThird})) << test.pAnswer;
        std::vector<int> counts;
        for (const CSeries* pSeries : Person().m_series) {
            EXPECT_EQ(pSeries->m_points[0].m_nSeriesIndex, counts.size()) << test.pAnswer;
            counts.push_back(pSeries->m_points.GetCount());
        }
        EXPECT_EQ(counts, test.counts) << test.pAnswer;
        EXPECT_EQ(document.PathName(), test.strPath) << "the file that is shown";
    }
}

TEST_F(WrongTurns, ARecentFileThatIsGoneLeavesTheList)
{
    const std::string strGone = folder.Path("gone.rsp");
    CRecentFiles recent(settings);
    for (int i = 0; i < 20; ++i)
        recent.Add(folder.Path(std::to_string(i) + ".rsp"));
    recent.Add(strGone);
    EXPECT_EQ(recent.Paths().size(), CRecentFiles::MaxCount);
    desktop.Message(strGone);
    application.OpenRecentFile(strGone);
    EXPECT_EQ(recent.Paths().front(), folder.Path("19.rsp"));
    EXPECT_EQ(settings.Read("Recent File List", "File12"), "");
}

TEST_F(WrongTurns, ManyFilesAndManyDivisions)
{
    while (Person().m_series.GetCount() < 300) {
        CSeries& series = Person().m_series.Add(std::make_unique<CSeries>());
        series.m_strName = "file " + std::to_string(Person().m_series.GetCount());
        if (Person().m_series.GetCount() % 2 == 0) // the others have no point
            series.m_points.Add(std::make_unique<CTrackPoint>(Series(0).m_points[0]));
    }
    for (CSeries* pSeries : Person().m_series)
        CalculateTrackPoints(event, Person(), *pSeries, NoProgress());
    for (int i = 0; i < 500; ++i) {
        CDivision& division = event.m_divisions.Add(CopyOf(event.m_divisions[i % 6]));
        division.m_strName += std::to_string(i);
        Person().Enter(division.m_strName);
    }
    selection.SelectSeries(-1, true, true);
    EXPECT_EQ(selection.FindMergedPoint(299, 0) >= 0, true) << "the last file's only point";
    EXPECT_EQ(event.m_divisions.GetCount(), 506);
    EXPECT_FALSE(selection.m_Results.IsEmpty());
    selection.SelectSeries(298, true, true);
    EXPECT_TRUE(selection.GetSeriesPoints(298).IsEmpty());
    desktop.Dialog<SSortTrackPointsDialog>([](auto&) { return true; });
    SortTrackPoints(document);
    CreateCombinedSeries(document, 0);
    EXPECT_EQ(Person().m_series.Last()->m_points.GetCount(), 60 + 149);
}

} // namespace
} // namespace kestrabel::test
