#include "app/TrackEditing.h"
#include "app/AppWorld.h"
#include "present/DeleteSlowPointsDialog.h"
#include "present/ExtractTrackDialog.h"
#include "present/SortTrackPointsDialog.h"
#include "support/Track.h"

#include <filesystem>
#include <gmock/gmock.h>

namespace kestrabel::test {
namespace {

using testing::ElementsAre;

/// The application with a nameless competitor without files.
class TrackEditing : public testing::Test, protected SAppWorld
{
protected:
    TrackEditing()
    {
        EXPECT_TRUE(document.OnNewDocument());
        event.m_strDataFolder = folder.Path("new/data/"); // which is not there yet
        Person().m_series.RemoveAll();
    }

    /// A file with points at these seconds, 10 m further north each; the altitude tells them apart.
    CSeries& AddFile(const std::string& strName, const std::vector<double>& seconds)
    {
        CSeries& series = Person().m_series.Add(std::make_unique<CSeries>());
        series.m_strName = strName;
        series.m_strFileName = folder.Path(strName + ".gpx");
        int n = 0;
        for (const double dSecond : seconds) {
            CTrackPoint& point = series.m_points.Add(MakePoint(dSecond, 52.0 + 9e-5 * dSecond, 5.0));
            point.m_nAltitude = n++;
        }
        CalculateTrackPoints(event, Person(), series, NoProgress());
        return series;
    }
    void Select(int nSeries, double dPoint = -1.0)
    {
        selection.SelectSeries(nSeries, false, true);
        selection.SetFocusPoint(nSeries, dPoint);
    }
    static std::vector<int> Marks(const CSeries& series)
    {
        std::vector<int> marks;
        for (const CTrackPoint* pPoint : series.m_points)
            marks.push_back(pPoint->m_nAltitude);
        return marks;
    }
};

TEST_F(TrackEditing, SortsByTimeAndKeepsTheOrderOfEqualTimes)
{
    AddFile("ride", {5, 1, 3, 3, 2, 9});
    Select(0);
    desktop.Dialog<SSortTrackPointsDialog>([](auto& dialog) { return dialog.strFileName == "ride"; });
    SortTrackPoints(document);
    EXPECT_THAT(Marks(Series(0)), ElementsAre(1, 4, 2, 3, 0, 5));
    EXPECT_EQ(Series(0).m_points[5].m_nTrack, 5) << "numbered anew";
    EXPECT_EQ(Series(0).m_bModified, 1);
    selection.m_nSeries = -1;
    desktop.Message("Please select the file that you wish to sort.");
    SortTrackPoints(document);
}

TEST_F(TrackEditing, SplitNamesBothHalvesForFilesThatDoNotExist)
{
    AddFile("other", {0, 1});
    AddFile("ride", {0, 1, 2, 3});
    folder.Write("ride_2.gpx", "another day's");
    Select(1, 1.0);
    SplitSeries(document);
    ASSERT_EQ(Person().m_series.GetCount(), 3);
    EXPECT_EQ(Series(1).m_strName, "ride_1");
    EXPECT_EQ(Series(1).m_strFileName, folder.Path("ride_1.gpx"));
    EXPECT_THAT(Marks(Series(1)), ElementsAre(0));
    EXPECT_EQ(Series(2).m_strName, "ride_2");
    EXPECT_EQ(Series(2).m_strFileName, folder.Path("ride_2 1.gpx"));
    EXPECT_THAT(Marks(Series(2)), ElementsAre(1, 2, 3));
    EXPECT_EQ(selection.m_nSeries, 2) << "the new one is shown";

    Select(2, 0.0);
    SplitSeries(document);
    EXPECT_TRUE(Series(2).m_points.IsEmpty()) << "at the first point everything moves";
    EXPECT_THAT(Marks(Series(3)), ElementsAre(1, 2, 3));
    Select(3, 2.0);
    SplitSeries(document);
    EXPECT_THAT(Marks(Series(4)), ElementsAre(3)) << "at the last point, only that one";

    Select(0, -1.0);
    desktop.Message("Please select the file and point at which you wish to split.");
    SplitSeries(document);
    EXPECT_EQ(Person().m_series.GetCount(), 5);
}

TEST_F(TrackEditing, ExtractChoosesAsTheRowsOfItsDialogSay)
{
    CSeries& source = AddFile("ride", {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 50000, 80000});
    const double speeds[] = {30.0, 18.6, 18.5, 18.52};
    const auto byPoint = [](double dEvery, double dStart) {
        return [=](SExtractTrackDialog& dialog) { dialog.every.Set(dEvery), dialog.startPoint.Set(dStart); };
    };
    const auto bySeconds = [](double dEvery, double dStart) {
        return [=](SExtractTrackDialog& dialog) {
            dialog.SetMode(EExtractBy::Time);
            dialog.everySeconds.Set(dEvery), dialog.timeStartPoint.Set(dStart);
        };
    };
    const auto bySpeed = [](double dSpeed, const char* pUnit) {
        return [=](SExtractTrackDialog& dialog) {
            dialog.SetMode(EExtractBy::MinimumSpeed);
            dialog.fasterThan.Set(dSpeed), dialog.strUnit = pUnit;
        };
    };
    const struct
    {
        std::function<void(SExtractTrackDialog&)> fill;
        std::vector<int> expected;
    } cases[] = {
        {byPoint(2, 1), {1, 3, 5, 7, 9, 11}},
        {byPoint(3, 5), {5, 8, 11}},
        {byPoint(0, 10), {10, 11, 12}},
        {byPoint(1, 99), {}},
        {bySeconds(4, 2), {2, 6, 10, 11, 12}},
        {[](SExtractTrackDialog& dialog) { dialog.SetMode(EExtractBy::Day); }, {12}},
        {bySpeed(10, "knots"), {0, 1}},
        {bySpeed(18.52, "kmh"), {0, 1, 3}},
        {bySpeed(30 / 3.6 + 1e-9, "ms"), {}},
    };
    for (const auto& test : cases) {
        Select(0, 12.0);
        for (int i = 0; i < source.m_points.GetCount(); ++i)
            source.m_points[i].m_dSpeed = i < 4 ? speeds[i] : 0.0;
        const std::string strName = "part " + std::to_string(Person().m_series.GetCount());
        SCOPED_TRACE(strName);
        desktop.Dialog<SExtractTrackDialog>([&](SExtractTrackDialog& dialog) {
            EXPECT_EQ(dialog.strTrackName, source.m_strFileName + " extract");
            dialog.strTrackName = strName;
            test.fill(dialog);
            return true;
        });
        ExtractTrack(document);
        const CSeries& part = *Person().m_series.Last();
        EXPECT_EQ(Marks(part), test.expected);
        EXPECT_TRUE(std::filesystem::exists(part.m_strFileName)) << part.m_strFileName;
        EXPECT_TRUE(part.m_strFileName.ends_with(strName + ".trk")) << part.m_strFileName;
        EXPECT_EQ(part.m_bModified, 0) << "it is as on the disk, whether or not its source is";
        source.m_bModified = 1;
    }
    event.m_strDataFolder = folder.Write("no folder", "") + "/";
    Select(0);
    desktop.Dialog<SExtractTrackDialog>([](auto&) { return true; });
    desktop.Message("All or part of the path is invalid");
    ExtractTrack(document);
    EXPECT_EQ(Person().m_series.Last()->m_bModified, 1) << "it is nowhere but here";
    EXPECT_EQ(Person().m_series.Last()->m_points.GetCount(), 6);
}

TEST_F(TrackEditing, DeletesWhatIsInvalidButNoSpike)
{
    const CSeries& series = AddFile("ride", {0, 1, 2, 3, 4, 5, 6});
    const std::uint8_t flags[] = {0,
                                  InvalidFlag::SpeedSpike,
                                  InvalidFlag::User,
                                  InvalidFlag::NoPosition,
                                  InvalidFlag::DopplerSpike,
                                  InvalidFlag::Hdop,
                                  InvalidFlag::Satellites};
    for (int i = 0; i < 7; ++i)
        series.m_points[i].m_nInvalidFlags = flags[i];
    Select(0);
    DeleteInvalid(document, 0, 0);
    EXPECT_THAT(Marks(Series(0)), ElementsAre(0, 1, 4));
    EXPECT_EQ(Series(0).m_bModified, 1);
}

TEST_F(TrackEditing, DeletesSlowPointsByDopplerOnlyWhereThereIsAny)
{
    for (const double dDoppler : {0.0, 30.0}) {
        Person().m_series.RemoveAll();
        CSeries& series = AddFile("ride", {0, 1, 2, 3}); // 10 m/s but for the first, which has no speed
        series.m_points[2].m_dDoppler = dDoppler;
        Select(0);
        selection.Recalculate(true, true);
        desktop.Dialog<SDeleteSlowPointsDialog>([](SDeleteSlowPointsDialog& dialog) {
            dialog.speed.Set(30.0 / 1.852); // knots
            return true;
        });
        DeleteSlowPoints(document);
        EXPECT_EQ(Marks(series), dDoppler == 0.0 ? (std::vector{1, 2, 3}) : std::vector{2}) << dDoppler;
    }
    Series(0).m_bModified = 0;
    desktop.Dialog<SDeleteSlowPointsDialog>([](auto& dialog) { return dialog.speed.Set(0.0), true; });
    const std::size_t nSteps = document.m_history.UndoCount();
    DeleteSlowPoints(document);
    EXPECT_EQ(Series(0).m_bModified, 0) << "nothing was removed";
    EXPECT_EQ(document.m_history.UndoCount(), nSteps);
}

TEST_F(TrackEditing, MarksAreDerivedAgainAndModifyNoFile)
{
    CSeries& series = AddFile("ride", {0, 1, 2, 3});
    series.m_points[2].m_dHDOP = event.m_dMaxHDOP + 1.0;
    Select(0);
    selection.Recalculate(true, true);
    const std::uint8_t nDerived = series.m_points[2].m_nInvalidFlags;
    EXPECT_EQ(nDerived & InvalidFlag::Hdop, InvalidFlag::Hdop);
    CTrackPoint* points[] = {series.m_points.begin()[2], series.m_points.begin()[3]};
    MarkPoints(document, points, true);
    EXPECT_EQ(points[0]->m_nInvalidFlags, InvalidFlag::User | nDerived);
    EXPECT_EQ(points[1]->m_nInvalidFlags, InvalidFlag::User);
    MarkPoints(document, points, false);
    EXPECT_EQ(points[0]->m_nInvalidFlags, nDerived) << "the data still calls for it";
    EXPECT_EQ(points[1]->m_nInvalidFlags, 0);
    EXPECT_EQ(series.m_bModified, 0);
    EXPECT_FALSE(document.IsModified());
}

TEST_F(TrackEditing, AnEditVoidsItsOwnResultsAndNoOthers)
{
    std::vector<double> seconds;
    for (int i = 0; i < 100; ++i)
        seconds.push_back(i);
    AddFile("ride", seconds);
    AddFile("other", seconds);
    Select(-1);
    selection.RefreshResults(true);
    const CSeriesDivision* const pOther = Series(1).m_divisions.begin()[0];
    const auto best = [&] { // of the file, over 500 metres; 0: none
        for (const CSeriesDivision* pRecord : Series(0).m_divisions) {
            if (pRecord->m_strDivision.starts_with("500") && !pRecord->m_results.IsEmpty())
                return pRecord->m_results[0].m_dSpeed;
        }
        return 0.0;
    };
    const double dBefore = best();
    EXPECT_NEAR(dBefore, 36.0, 0.1);
    Series(0).m_points[50].m_position.m_dLatitude += 1e-4; // a jump, which the deletion takes out again
    Select(0, 50.0);
    selection.Recalculate(false, true);
    EXPECT_EQ(best(), 0.0) << "strict: not across the jump";
    DeletePoint(document, 50);
    EXPECT_NEAR(best(), dBefore, 1e-3);
    EXPECT_EQ(Series(1).m_divisions.begin()[0], pOther) << "calculated once";
    EXPECT_EQ(selection.m_dFocusPoint, 50.0);
    EXPECT_EQ(Series(0).m_points.GetCount(), 99);
    DeletePoint(document, 99);
    EXPECT_EQ(Series(0).m_points.GetCount(), 99) << "there is no such point";
}

TEST_F(TrackEditing, CombinesInTheOrderOfTimeUnderTheCommonName)
{
    const struct
    {
        const char *pFirst, *pSecond, *pCompetitor, *pName;
    } cases[] = {{"ride_1", "ride_2", "Ann", "ride__Combined"},
                 {"a", "b", "Ann", "Ann_Combined"},
                 {"a", "b", "", "_Combined"},
                 {"ride_1", "ri", "Ann", "Ann_Combined"},
                 {"räd 1", "rüd 2", "Ann", "rd _Combined"},
                 {"räö", "räü", "Ann", "Ann_Combined"}};
    for (const auto& test : cases) {
        Person().m_series.RemoveAll();
        Person().m_strName = test.pCompetitor;
        AddFile(test.pFirst, {0, 2, 4, 6, 8, 10});
        AddFile(test.pSecond, {1, 3, 5, 7, 9, 11}).m_dDopplerError = 0.5;
        CreateCombinedSeries(document, 0);
        ASSERT_EQ(Person().m_series.GetCount(), 3);
        const CSeries& combined = Series(2);
        EXPECT_EQ(combined.m_strName, test.pName);
        EXPECT_EQ(combined.m_dDopplerError, 0.5);
        EXPECT_EQ(combined.m_bManaged, 0);
        ASSERT_EQ(combined.m_points.GetCount(), 12);
        for (int i = 0; i < 12; ++i) {
            const double dSecond = SecondsBetween(Series(0).m_points[0].m_time, combined.m_points[i].m_time);
            EXPECT_NEAR(dSecond, i, 1e-6);
            // A straight line stays one where the window is whole; the ends lean inwards by their weights.
            if (i >= 5 && i <= 6) {
                EXPECT_NEAR(combined.m_points[i].m_position.m_dLatitude, 52.0 + 9e-5 * i, 1e-12);
            }
        }
        EXPECT_NEAR(combined.m_points[0].m_position.m_dLatitude, 52.0 + 9e-5 * 1.7161071269286403, 1e-12)
            << "the mean of six taps, from the middle one outwards";
        EXPECT_EQ(Series(0).m_points.GetCount(), 6) << "the sources keep their points";
    }
    for (const auto& [pName, pCombined] : {std::pair("run", "run_Combined"), std::pair("ab", "Ann_Combined")})
    {
        Person().m_series.RemoveAll();
        Person().m_strName = "Ann";
        AddFile(pName, {0, 1, 2});
        CreateCombinedSeries(document, 0);
        EXPECT_EQ(Series(1).m_strName, pCombined) << "the only file's name, unless that tells too little";
    }
}

} // namespace
} // namespace kestrabel::test
