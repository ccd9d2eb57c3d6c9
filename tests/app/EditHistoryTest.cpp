#include "app/AppWorld.h"

#include "app/CompetitorCommands.h"
#include "app/DivisionCommands.h"
#include "app/DocumentState.h"
#include "app/OptionsCommands.h"
#include "app/ResultsExportCommands.h"
#include "app/TrackEditing.h"
#include "app/WayPointCommands.h"
#include "present/DeleteSlowPointsDialog.h"
#include "present/EditCompetitorDialog.h"
#include "present/EditDivisionDialog.h"
#include "present/ExtractTrackDialog.h"
#include "present/OptionsDialog.h"
#include "present/SortTrackPointsDialog.h"
#include "present/WayPointDialog.h"
#include "support/Random.h"

namespace kestrabel::test {
namespace {

/// A wild track: gaps, repeated and backward times, points without a position, courses that are 0.
void AddWildTrack(SAppWorld& world, CRandom& random, const std::string& strName, bool bDoppler)
{
    CSeries& series = world.Person().m_series.Add(std::make_unique<CSeries>());
    series.m_strName = strName;
    series.m_strFileName = world.folder.Path(strName + ".gpx");
    double dSecond = 0.0;
    for (int i = 0; i < 120; ++i) {
        dSecond += random.OneIn(15) ? 300.0 : random.OneIn(20) ? -3.0 : random.OneIn(20) ? 0.0 : 1.0;
        CTrackPoint& point = series.m_points.Add(std::make_unique<CTrackPoint>());
        point.m_time =
            DATE::FromCalendar({.nYear = 2024, .nMonth = 6, .nDay = 1}).Plus(dSecond * DaysPerSecond);
        if (!random.OneIn(25))
            point.m_position = MakePosition(52.0 + 1e-4 * random.Below(40), 5.0 + 1e-4 * random.Below(40));
        point.m_nAltitude = random.Below(30);
        point.m_dDirection = random.OneIn(3) ? 0.0 : 1.5;
        // One point alone tells a Doppler speed: without it the courses are the derivation's.
        if (bDoppler ? !random.OneIn(4) : i == 60)
            point.m_dDoppler = 5.0 + random.Below(60);
    }
}

/// One random command; some do nothing.
void DoSomething(SAppWorld& world, CRandom& random)
{
    CKestroDoc& document = world.document;
    const int nSeries = random.Below(world.Person().m_series.GetCount());
    world.selection.SelectSeries(nSeries, false, true);
    const CObjectArray<CTrackPoint>& points = world.Series(nSeries).m_points;
    if (points.IsEmpty())
        return;
    const int nPoint = random.Below(points.GetCount());
    world.selection.SetFocusPoint(nSeries, nPoint);
    std::vector<CTrackPoint*> chosen;
    for (CTrackPoint* pPoint : points) {
        if (random.OneIn(8))
            chosen.push_back(pPoint);
    }
    const int nDivision = random.Below(world.event.m_divisions.GetCount());
    switch (random.Below(18)) {
    case 0:
        world.desktop.Dialog<SSortTrackPointsDialog>([](auto&) { return true; });
        return SortTrackPoints(document);
    case 1: return SplitSeries(document);
    case 2:
        world.desktop.Dialog<SExtractTrackDialog>([&](SExtractTrackDialog& dialog) {
            dialog.strTrackName = "extract " + std::to_string(random.m_engine()); // of its own
            return true;
        });
        return ExtractTrack(document);
    case 3: return DeleteInvalid(document, 0, random.OneIn(2) ? -1 : nSeries);
    case 4:
        world.desktop.Dialog<SDeleteSlowPointsDialog>([&](SDeleteSlowPointsDialog& dialog) {
            dialog.speed.Set(random.Below(10));
            return true;
        });
        return DeleteSlowPoints(document);
    case 5: return MarkPoints(document, chosen, true);
    case 6: return MarkPoints(document, chosen, false);
    case 7: return MarkFocusPoint(document, true);
    case 8: return MarkFocusPoint(document, false);
    case 9: return DeletePoints(document, chosen);
    case 10: return DeletePoint(document, nPoint);
    case 11:
        if (world.Person().m_series.GetCount() < 6)
            CreateCombinedSeries(document, 0);
        return;
    case 12:
        if (random.OneIn(2)) {
            MoveDivisionUp(document, nDivision);
        } else if (world.event.m_divisions.GetCount() > 1) {
            DeleteDivision(document, nDivision);
        }
        return;
    case 13:
        world.desktop.Dialog<SEditDivisionDialog>([&](SEditDivisionDialog& dialog) {
            dialog.strName += "x";
            dialog.metres.Set(100.0 + random.Below(100));
            return true;
        });
        EditDivision(document, nDivision);
        return;
    case 14:
        world.desktop.Dialog<SOptionsDialog>([&](SOptionsDialog& dialog) {
            dialog.SetUnit(SOptionsDialog::Units[static_cast<std::size_t>(random.Below(4))]);
            if (random.OneIn(2))
                dialog.timeThreshold.Set(10 + 200 * random.Below(3));
            return true;
        });
        return EditOptions(document);
    case 15:
        world.desktop.Dialog<SEditCompetitorDialog>([&](SEditCompetitorDialog& dialog) {
            dialog.name.strText += "y";
            if (!dialog.divisionNames.empty())
                dialog.divisionNames.pop_back();
            return true;
        });
        random.OneIn(3) ? AddCompetitor(document) : EditCompetitor(document, 0);
        return;
    default:
        world.desktop.Dialog<SWayPointDialog>([](auto&) { return true; });
        return random.OneIn(2) ? AddWaypointAtPoint(document, nPoint)
                               : AddCheckPointAtPoint(document, nPoint);
    }
}

TEST(EditHistory, UndoneToTheStartAndRedoneToTheEndEveryValueIsTheSame)
{
    for (unsigned nSeed = 1; nSeed <= 12; ++nSeed) {
        SCOPED_TRACE(nSeed);
        CRandom random(nSeed);
        SAppWorld world;
        ASSERT_TRUE(world.document.OnNewDocument());
        world.event.m_strDataFolder = world.folder.Path("");
        world.Person().m_series.RemoveAll();
        AddWildTrack(world, random, "ride_1", true);
        AddWildTrack(world, random, "ride_2", false);
        for (CSeries* pSeries : world.Person().m_series)
            CalculateTrackPoints(world.event, world.Person(), *pSeries, NoProgress());

        CEditHistory& history = world.document.m_history;
        std::vector<CState> states = {StateOf(world.document)};
        for (int i = 0; i < 60; ++i) {
            DoSomething(world, random);
            if (history.UndoCount() == states.size())
                states.push_back(StateOf(world.document));
            ASSERT_EQ(Difference(StateOf(world.document), states.back()), "")
                << "a command without a step changes nothing";
        }
        for (std::size_t n = states.size() - 1; n-- > 0;) {
            const std::string strName(history.UndoName());
            ASSERT_TRUE(history.Undo(world.document));
            ASSERT_EQ(Difference(StateOf(world.document), states[n]), "")
                << "undoing " << strName << ", step " << n;
        }
        EXPECT_FALSE(history.Undo(world.document));
        for (std::size_t n = 1; n < states.size(); ++n) {
            const std::string strName(history.RedoName());
            ASSERT_TRUE(history.Redo(world.document));
            ASSERT_EQ(Difference(StateOf(world.document), states[n]), "")
                << "redoing " << strName << ", step " << n;
        }
        EXPECT_FALSE(history.Redo(world.document));
    }
}

TEST(EditHistory, ADivisionThatIsTakenBackIsNoLongerTheOneToExport)
{
    SAppWorld world;
    ASSERT_TRUE(world.document.OnNewDocument());
    world.selection.ShowDivisionResults(2);
    world.desktop.Dialog<SEditDivisionDialog>([](SEditDivisionDialog& dialog) {
        dialog.strName = "mile";
        return true;
    });
    ASSERT_TRUE(AddDivision(world.document));
    world.selection.ShowDivisionResults(6);
    world.document.m_history.Undo(world.document);
    EXPECT_EQ(world.selection.m_nDivision, 2);
    world.desktop.Files("csv", {world.folder.Path("results.csv")});
    ExportResults(world.document);
    EXPECT_NE(CTemporaryFolder::Read(world.folder.Path("results.csv")).find("10 sec"), std::string::npos);
}

} // namespace
} // namespace kestrabel::test
