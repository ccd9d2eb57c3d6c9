#include "app/AppWorld.h"

#include "app/CompetitorCommands.h"
#include "app/DialogButtons.h"
#include "app/DivisionCommands.h"
#include "app/InquiryCommands.h"
#include "app/OptionsCommands.h"
#include "app/TrackFileCommands.h"
#include "present/AboutDialog.h"
#include "present/OptionsDialog.h"
#include "present/SelectDivisionDialog.h"
#include "present/SelectedPropertiesDialog.h"
#include "present/SelectWayPointDialog.h"
#include "present/SpeedDialog.h"
#include "present/TrackFilePropertiesDialog.h"
#include "present/WayPointDialog.h"

#include <filesystem>

namespace kestrabel::test {
namespace {

/// One track of 11 m a second, about 40 km/h, and one division, in which it has many results.
struct STrackWorld : SAppWorld
{
    STrackWorld()
    {
        EXPECT_TRUE(application.OpenFiles({WriteTrack("ride.nmea", 60)}));
        event.m_divisions.Add(std::make_unique<CDivision>()).m_strName = "2 sec";
        event.m_divisions[0].m_nKind = DivisionKind::Time;
        event.m_divisions[0].m_nSeconds = 2;
        event.m_divisions[0].m_bOneResultPerRun = 0;
        Person().Enter("2 sec");
        selection.SelectSeries(0, true, true);
    }
};

TEST(CompetitorCommands, AddedWithEveryDivisionAndEditedStepByStep)
{
    STrackWorld world;
    world.event.m_divisions.Add(std::make_unique<CDivision>()).m_strName = "Alpha";
    world.desktop.Dialog<SEditCompetitorDialog>([&](SEditCompetitorDialog& dialog) {
        dialog.name.strText = "Kim";
        dialog.number.strText = "NED 7";
        world.desktop.Dialog<SSelectDivisionDialog>([](SSelectDivisionDialog& choice) {
            EXPECT_EQ(choice.CheckedNames(), (std::vector<std::string>{"2 sec", "Alpha"}));
            choice.Toggle(0);
            return true;
        });
        ChooseDivisions(world.desktop, dialog);
        return true;
    });
    EXPECT_TRUE(AddCompetitor(world.document));
    const CPerson& kim = *world.event.m_persons.Last();
    EXPECT_EQ(kim.m_strName + kim.m_strNumber, "KimNED 7");
    EXPECT_EQ(kim.m_divisionNames, std::vector<std::string>{"Alpha"});
    EXPECT_TRUE(world.document.IsModified());

    EXPECT_EQ(world.selection.m_Results.GetCount(), 10);
    world.desktop.Dialog<SEditCompetitorDialog>([](auto&) { return true; });
    EXPECT_FALSE(EditCompetitor(world.document, 0)) << "nothing was changed";
    world.desktop.Dialog<SEditCompetitorDialog>([](SEditCompetitorDialog& dialog) {
        dialog.divisionNames.clear();
        return true;
    });
    EXPECT_TRUE(EditCompetitor(world.document, 0));
    EXPECT_EQ(world.selection.m_Results.GetCount(), 0);
    EXPECT_EQ(world.document.m_history.UndoCount(), 2U);
    EXPECT_FALSE(EditCompetitor(world.document, 2));

    world.desktop.Question("remove this competitors results", "Yes");
    DeleteCompetitor(world.document, 1);
    DeleteCompetitor(world.document, 1); // nobody: not even a question
    world.desktop.Question("remove this competitors results", "Yes");
    DeleteCompetitor(world.document, 0);
    world.desktop.Dialog<SEditCompetitorDialog>([](auto&) { return false; });
    EXPECT_FALSE(EditCompetitor(world.document, 0));
    EXPECT_EQ(world.event.m_persons.GetCount(), 1) << "the default one";
}

TEST(DivisionDialog, WayPointsOfItsOwnUntilBothAreOk)
{
    STrackWorld world;
    for (const bool bOk : {false, true}) {
        world.desktop.Dialog<SEditDivisionDialog>([&](SEditDivisionDialog& division) {
            division.SetKind(DivisionKind::LapRacing);
            world.desktop.Dialog<SSelectWayPointDialog>([&](SSelectWayPointDialog& list) {
                EditWayPoint(world.desktop, list); // none is selected: no dialog
                for (const char* pName : {"Start", "Mark"}) {
                    world.desktop.Dialog<SWayPointDialog>([&](SWayPointDialog& wayPoint) {
                        EXPECT_EQ(wayPoint.proximity.strText, "5");
                        wayPoint.strName = pName;
                        return true;
                    });
                    AddWayPoint(world.desktop, list);
                }
                world.desktop.Dialog<SWayPointDialog>([](SWayPointDialog& wayPoint) {
                    wayPoint.latitude.strText = "50.5";
                    return true;
                });
                EditWayPoint(world.desktop, list);
                return bOk;
            });
            ChooseWayPoints(world.desktop, division);
            return true;
        });
        EXPECT_TRUE(EditDivision(world.document, 0));
        ASSERT_EQ(world.event.m_divisions[0].m_waypoints.GetCount(), bOk ? 2 : 0);
    }
    const CWayPoint& mark = world.event.m_divisions[0].m_waypoints[1];
    EXPECT_EQ(mark.m_strName, "Mark");
    EXPECT_EQ(mark.m_position.m_dLatitude, 50.5);
}

TEST(OptionsCommands, EveryChangeReachesWhatItMustAndNoMore)
{
    STrackWorld world;
    CPerson& other = AddCompetitor(world.event, "Kim"); // whose files are not shown
    CSeries& far = other.m_series.Add(std::make_unique<CSeries>());
    for (int i = 0; i < 20; ++i)
        far.m_points.Add(std::make_unique<CTrackPoint>(world.Series(0).m_points[i]));
    CalculateTrackPoints(world.event, other, far, NoProgress());
    const auto change = [&](const std::function<void(SOptionsDialog&)>& fill) {
        world.desktop.Dialog<SOptionsDialog>([&](SOptionsDialog& dialog) {
            fill(dialog);
            return true;
        });
        EditOptions(world.document);
    };
    // A record that is made anew has lost its mark.
    const auto mark = [&] { world.Series(0).m_divisions[0].m_bFlag = 9; };
    const auto isMarked = [&] { return world.Series(0).m_divisions[0].m_bFlag == 9; };
    CViewSelection& selection = world.selection;
    selection.SetFocusPoint(0, 7.0);

    mark();
    const double dKnots = selection.m_dViewMaxSpeed;
    change([](auto&) {});
    EXPECT_EQ(world.document.m_history.UndoCount(), 0U);
    EXPECT_FALSE(world.document.IsModified());

    change([](SOptionsDialog& dialog) { dialog.zoom.strText = "2"; });
    change([](SOptionsDialog& dialog) { dialog.timezone.strText = "2"; });
    EXPECT_TRUE(isMarked()) << "shown anew, not found anew";
    EXPECT_EQ(selection.m_statusTexts[5], "12:00:07");
    EXPECT_EQ(selection.m_Results.GetCount(), 10);

    change([](SOptionsDialog& dialog) { dialog.showTopRows.strText = "15"; });
    EXPECT_EQ(selection.m_Results.GetCount(), 15);

    mark();
    change([](SOptionsDialog& dialog) { dialog.SetUnit("kmh"); });
    EXPECT_TRUE(isMarked()) << "the thresholds are the same";
    EXPECT_NEAR(selection.m_dViewMaxSpeed, dKnots * 1.852, 1e-9);

    change([](SOptionsDialog& dialog) { dialog.speedThreshold.strText = "30"; });
    EXPECT_LT(selection.m_Results.GetCount(), 15);
    EXPECT_NE(far.m_points[5].m_nInvalidFlags & InvalidFlag::SpeedSpike, 0) << "of every competitor";
    EXPECT_EQ(selection.m_dFocusPoint, 7.0);
    EXPECT_EQ(world.Series(0).m_bModified, 0) << "no track file keeps the flags";

    change([](SOptionsDialog& dialog) {
        dialog.bPropertiesShown = true;
        dialog.properties.ellipsoid.SetProjection(5);
    });
    EXPECT_EQ(far.m_ellipsoid.m_nEllipsoid, 5);
    world.document.m_history.Undo(world.document);
    world.document.m_history.Undo(world.document);
    EXPECT_EQ(far.m_ellipsoid.m_nEllipsoid, 1);
    EXPECT_EQ(selection.m_Results.GetCount(), 15);
    EXPECT_EQ(far.m_points[5].m_nInvalidFlags, 0);
}

TEST(OptionsCommands, TheFolderOfTheChosenFile)
{
    STrackWorld world;
    world.event.m_strDataFolder = "C:\\Events\\";
    for (const std::string& strChosen :
         {std::string(), std::string("C:\\Events\\a.gpx"), std::string("D:\\data\\any")})
    {
        EXPECT_FALSE(world.document.IsModified());
        world.desktop.Files("All Files", {strChosen});
        ChooseDataFolder(world.document);
        EXPECT_EQ(world.desktop.m_lastChoice.strTitle, "Data Folder");
        EXPECT_EQ(world.desktop.m_lastChoice.strInitialPath, "C:\\Events\\");
    }
    EXPECT_EQ(world.event.m_strDataFolder, "D:\\data\\");
    EXPECT_TRUE(world.document.IsModified());
}

TEST(InquiryCommands, TheCalculatorBeginsWithWhatIsPicked)
{
    STrackWorld world;
    world.event.m_dTimezone = 1.5;
    const auto show = [&](double dStartLatitude, double dSeconds) {
        world.desktop.Dialog<SSpeedDialog>([=](SSpeedDialog& dialog) {
            EXPECT_NEAR(dialog.start.latitude.Value(), dStartLatitude, 1e-9);
            EXPECT_EQ(SecondsBetween(dialog.start.time, dialog.end.time), dSeconds);
            const double dAge = SecondsBetween(dialog.start.time, DATE::Now());
            EXPECT_TRUE(dSeconds != 0.0 ? dialog.start.time.ToCalendar()->nMinute == 30 : dAge < 3600.0);
            return false;
        });
        CalculateSpeed(world.document);
    };
    const CObjectArray<CTrackPoint>& points = world.Series(0).m_points;
    show(-37.9510334166667, 0.0);
    const CResult& run = world.selection.m_Results[0];
    world.selection.SelectResult(&run);
    show(points[run.m_nStartIndex].m_position.m_dLatitude, 2.0);
}

TEST(InquiryCommands, VersionAndChosenPoints)
{
    STrackWorld world;
    world.folder.Write("version.txt", "[Version]\r\nBinaryVersion=Build 7\r\n");
    world.desktop.Dialog<SAboutDialog>([](SAboutDialog& dialog) {
        EXPECT_EQ(dialog.strVersion, "Kestrabel Build 7");
        return true;
    });
    world.application.OnAppAbout();
    world.desktop.Dialog<SSelectedPropertiesDialog>([](SSelectedPropertiesDialog& dialog) {
        EXPECT_EQ(dialog.lines[0].second, "2");
        return true;
    });
    ShowSelectedProperties(world.document,
                           std::array{world.Series(0).m_points.At(3), world.Series(0).m_points.At(4)});
}

TEST(TrackFileProperties, ANewNameGoesToTheFileButNeverOverAnother)
{
    STrackWorld world;
    world.folder.Write("taken.nmea", "another's");
    const auto apply = [&](const std::string& strName, const std::string& strWind) {
        world.desktop.Dialog<STrackFilePropertiesDialog>([&](STrackFilePropertiesDialog& dialog) {
            dialog.strName = strName;
            dialog.windDirection.strText = strWind;
            return !dialog.Validate();
        });
        EditSeriesProperties(world.document, 0);
        const CSeries& series = world.Series(0);
        return series.m_strName + " " + std::filesystem::path(series.m_strFileName).filename().string() +
               " " + std::to_string(static_cast<int>(series.m_dWindDirection));
    };
    EXPECT_EQ(apply("ride", "90"), "ride ride.nmea 90");
    EXPECT_EQ(apply("", "80"), "ride ride.nmea 90");
    world.desktop.Message("Failed to change the name of the file");
    EXPECT_EQ(apply("taken", "45"), "taken ride.nmea 45");
    EXPECT_EQ(apply("Morning", "45"), "Morning Morning.nmea 45");
    EXPECT_TRUE(std::filesystem::exists(world.folder.Path("Morning.nmea")));
    EXPECT_FALSE(std::filesystem::exists(world.folder.Path("ride.nmea")));
    EXPECT_EQ(std::filesystem::file_size(world.folder.Path("taken.nmea")), 9U);
}

TEST(TrackFileProperties, ANameIsNoPathOfWhatHasNoFile)
{
    SAppWorld world;
    ASSERT_TRUE(world.document.OnNewDocument());
    world.desktop.Dialog<STrackFilePropertiesDialog>([](STrackFilePropertiesDialog& dialog) {
        dialog.strName = "morning";
        return !dialog.Validate();
    });
    EXPECT_TRUE(EditSeriesProperties(world.document, 0));
    EXPECT_EQ(world.Series(0).m_strName, "morning");
    EXPECT_EQ(world.Series(0).m_strFileName, "") << "Save would not ask where";
}

} // namespace
} // namespace kestrabel::test
