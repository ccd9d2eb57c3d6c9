#include "present/TrackPointGrid.h"

#include "support/Track.h"

#include <cmath>
#include <gtest/gtest.h>

namespace kestrabel {
namespace {

using enum EPointColumn;

TEST(TrackPointGrid, ColumnsInTableOrder)
{
    constexpr EAlign Left = EAlign::Left, Right = EAlign::Right;
    const SGridColumn expected[] = {
        {"Track", Right, 40, true},         {"Latitude", Left, 120, false},
        {"Longitude", Left, 120, false},    {"Date", Left, 70, true},
        {"Time", Left, 80, true},           {"Seconds", Right, 50, true},
        {"Distance", Right, 60, true},      {"Speed", Right, 60, true},
        {"Direction", Right, 60, true},     {"Wind Angle", Right, 60, false},
        {"VMG", Right, 60, false},          {"Altitude", Right, 60, false},
        {"Vert Speed", Right, 60, false},   {"HDOP", Right, 40, false},
        {"Invalid", Right, 60, false},      {"Sats", Right, 40, false},
        {"Doppler", Right, 60, false},      {"Total Dist", Right, 60, true},
        {"Tot Dop Dist", Right, 60, true},  {"Run", Right, 40, true},
        {"Doppler Run", Right, 40, true},   {"Pos Err", Right, 40, true},
        {"Doppler Error", Right, 40, true}, {"USOG", Right, 60, true},
        {"UCOG", Right, 60, true},
    };
    const std::span<const SGridColumn> columns = TrackPointColumns();
    ASSERT_EQ(columns.size(), std::size(expected));
    for (std::size_t i = 0; i < columns.size(); ++i) {
        EXPECT_EQ(columns[i].strTitle, expected[i].strTitle) << i;
        EXPECT_EQ(columns[i].align, expected[i].align) << i;
        EXPECT_EQ(columns[i].nWidth, expected[i].nWidth) << i;
        EXPECT_EQ(columns[i].bShown, expected[i].bShown) << i;
    }
}

/// A point one and a half seconds after 10:00:00 with another figure in every field.
std::unique_ptr<CTrackPoint> FullPoint()
{
    auto pPoint = test::MakePoint(1.5, -38.123456789, 146.5);
    pPoint->m_nTrack = 41;
    pPoint->m_dDistance = 0.25;
    pPoint->m_dSpeed = 92.6;
    pPoint->m_dDirection = 3.141592653589793;
    pPoint->m_dWindAngle = 2.0943951023931953; // 120 degrees
    pPoint->m_nAltitude = -7;
    pPoint->m_dVertSpeed = -1.852;
    pPoint->m_dHDOP = 1.25;
    pPoint->m_nInvalidFlags = InvalidFlag::Hdop | InvalidFlag::DopplerSpike;
    pPoint->m_nSats = 9;
    pPoint->m_dDoppler = 18.52;
    pPoint->m_dTotalDistance = 12.3456789;
    pPoint->m_dTotalDopplerDistance = 0.0005;
    pPoint->m_nRun = 3;
    pPoint->m_nDopplerRun = -1;
    pPoint->m_dPosError = 0.00123;
    pPoint->m_dDopplerError = 0.5;
    pPoint->m_dUSOG = 37.04;
    pPoint->m_dUCOG = 0.008; // less than half a degree
    return pPoint;
}

TEST(TrackPointGrid, CellsInDisplayUnits)
{
    const auto pPrevious = test::MakePoint(0.0, -38.0, 146.0);
    const auto pPoint = FullPoint();
    const struct
    {
        EPointColumn column;
        const char* pTexts[4]; // in knots, km/h, m/s and mph; only speeds differ
    } cases[] = {
        {Track, {"42"}},
        {Latitude, {"-38.1234568"}},
        {Longitude, {"146.5"}},
        {Date, {"2024-06-01"}},
        {Time, {"10:00:01.5"}},
        {Seconds, {"1.5"}},
        {Distance, {"250"}},
        {Speed, {"50", "92.6", "25.722", "57.539"}},
        {Direction, {"180"}},
        {WindAngle, {"120"}},
        {Vmg, {"-25", "-46.3", "-12.861", "-28.769"}},
        {Altitude, {"-7"}},
        {VertSpeed, {"-1", "-1.852", "-.514", "-1.151"}},
        {Hdop, {"1.2"}},
        {Invalid, {"DH"}},
        {Sats, {"9"}},
        {Doppler, {"10", "18.52", "5.144", "11.508"}},
        {TotalDistance, {"12345.68"}},
        {TotalDopplerDistance, {".5"}},
        {EPointColumn::Run, {"3"}},
        {DopplerRun, {"-1"}},
        {PosError, {"1.23"}},
        {DopplerError, {".27", ".5", ".139", ".311"}},
        {Usog, {"20", "37.04", "10.289", "23.016"}},
        {Ucog, {"0"}},
    };
    EXPECT_EQ(std::size(cases), TrackPointColumns().size());
    CEvent event(DATE(1.0));
    event.m_nTimePrecision = 1;
    for (const auto& test : cases) {
        for (std::int32_t nUnit = 0; nUnit < 4; ++nUnit) {
            event.m_nSpeedUnits = nUnit;
            const char* pText = test.pTexts[nUnit] != nullptr ? test.pTexts[nUnit] : test.pTexts[0];
            EXPECT_EQ(TrackPointCell(event, pPrevious.get(), *pPoint, test.column), pText)
                << TrackPointColumns()[static_cast<std::size_t>(test.column)].strTitle << " unit " << nUnit;
        }
    }
    event.m_nSpeedUnits = 7;
    EXPECT_EQ(TrackPointCell(event, pPrevious.get(), *pPoint, Speed), "25.722") << "as metres per second";
}

TEST(TrackPointGrid, PrecisionsAndTimezoneAreThoseOfTheEvent)
{
    const auto pPrevious = test::MakePoint(0.0, -38.0, 146.0);
    const auto pPoint = FullPoint();
    CEvent event(DATE(1.0));
    const auto Cell = [&](EPointColumn column) {
        return TrackPointCell(event, pPrevious.get(), *pPoint, column);
    };
    EXPECT_EQ(Cell(Time), "10:00:01");
    EXPECT_EQ(Cell(Seconds), "02") << "halves to even, two digits wide";
    event.m_nTimePrecision = 3;
    event.m_nDistancePrecision = 0;
    event.m_nSpeedPrecision = 1;
    event.m_nLatLongPrecision = 2;
    event.m_dTimezone = -10.5;
    EXPECT_EQ(Cell(Date), "2024-05-31");
    EXPECT_EQ(Cell(Time), "23:30:01.500");
    EXPECT_EQ(Cell(Seconds), "1.500");
    EXPECT_EQ(Cell(TotalDistance), "12346");
    EXPECT_EQ(Cell(PosError), "1");
    EXPECT_EQ(Cell(DopplerError), ".3");
    EXPECT_EQ(Cell(Latitude), "-38.12");
    // Any integer may have been typed into a precision.
    for (const std::int32_t nPrecision : {-2147483647, -1, 2147483647}) {
        event.m_nTimePrecision = event.m_nSpeedPrecision = event.m_nLatLongPrecision = nPrecision;
        event.m_nDistancePrecision = nPrecision;
        for (int i = 0; i < 25; ++i)
            EXPECT_FALSE(Cell(static_cast<EPointColumn>(i)).empty()) << i;
    }
}

TEST(TrackPointGrid, PointsWithoutAPredecessorShowFiveCells)
{
    CEvent event(DATE(1.0));
    const auto pPrevious = test::MakePoint(0.0, -38.0, 146.0);
    const struct
    {
        const char* pWhat;
        const CTrackPoint* pPrevious;
        double dSecond, dStoredStep;
        bool bWhole;
    } cases[] = {
        {"the first", nullptr, 1.0, 0.0, false},
        {"the next", pPrevious.get(), 1.0, 1.0, true},
        {"just below the threshold", pPrevious.get(), 199.999, 199.999, true},
        {"at the threshold", pPrevious.get(), 200.0, 0.0, false},
        {"by the stored step", pPrevious.get(), 1.0, 200.0, false},
    };
    for (const auto& test : cases) {
        const auto pPoint = test::MakePoint(test.dSecond, -38.0, 146.0);
        pPoint->m_dDeltaTime = test.dStoredStep * DaysPerSecond;
        for (int i = 0; i < 25; ++i) {
            if (i == static_cast<int>(Invalid))
                continue; // empty for a valid point
            const bool bEmpty =
                TrackPointCell(event, test.pPrevious, *pPoint, static_cast<EPointColumn>(i)).empty();
            EXPECT_EQ(bEmpty, i > 4 && !test.bWhole) << test.pWhat << " column " << i;
        }
    }
}

TEST(TrackPointGrid, ValuesThatAreNoNumbersShowZero)
{
    CEvent event(DATE(1.0));
    const auto pPrevious = test::MakePoint(0.0, -38.0, 146.0);
    const auto pPoint = test::MakePoint(1.0, -38.0, 146.0);
    pPoint->m_dSpeed = pPoint->m_dDistance = pPoint->m_dDirection = std::nan("");
    for (const EPointColumn column : {Speed, Distance, Direction, Vmg, TotalDistance, Hdop})
        EXPECT_EQ(TrackPointCell(event, pPrevious.get(), *pPoint, column), "0");
}

TEST(TrackPointGrid, LinesOfTheGridFile)
{
    CEvent event(DATE(1.0));
    event.m_nTimeThreshold = 10;
    CObjectArray<CTrackPoint> points;
    for (const double dSecond : {0.0, 1.0, 11.0, 12.0}) {
        CTrackPoint& point = points.Add(test::MakePoint(dSecond, -38.0, 146.0));
        point.m_nTrack = points.GetCount() - 1;
        point.m_dDistance = 0.01;
    }
    const EPointColumn columns[] = {Track, Time, Seconds, Distance};
    const auto LinesOf = [&](std::span<const EPointColumn> shown) {
        std::string strLines;
        WriteGrid(event, points, shown,
                  [&](std::string_view strLine) { strLines.append(strLine).append("\n"); });
        return strLines;
    };
    EXPECT_EQ(LinesOf(columns), "Track,Time,Seconds,Distance,\n"
                                "1,10:00:00,,,\n"
                                "2,10:00:01,01,10,\n"
                                "3,10:00:11,,,\n"
                                "4,10:00:12,01,10,\n");
    points.RemoveAll();
    EXPECT_EQ(LinesOf(columns), "Track,Time,Seconds,Distance,\n") << "no points";
    EXPECT_EQ(LinesOf({}), "\n") << "no columns";
}

} // namespace
} // namespace kestrabel
