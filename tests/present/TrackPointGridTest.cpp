#include "present/TrackPointGrid.h"

#include "support/Track.h"

#include <array>
#include <cmath>
#include <gtest/gtest.h>

namespace kestrabel {
namespace {

using enum EPointColumn;

TEST(TrackPointGrid, CellsHaveTheUnitsPrecisionsAndTimezoneOfTheEvent)
{
    // The second has another figure in every field, the third comes behind a gap.
    CObjectArray<CTrackPoint> points;
    for (const double dSecond : {0.0, 1.5, 201.5})
        points.Add(test::MakePoint(dSecond, -38.123456789, 146.5));
    CTrackPoint& point = points[1];
    point.m_nTrack = 41;
    point.m_dDistance = 0.25;
    point.m_dSpeed = 92.6;
    point.m_dDirection = 3.141592653589793;
    point.m_dWindAngle = 2.0943951023931953; // 120 degrees
    point.m_nAltitude = -7;
    point.m_dVertSpeed = -1.852;
    point.m_dHDOP = 1.25;
    point.m_nInvalidFlags = InvalidFlag::Hdop | InvalidFlag::DopplerSpike;
    point.m_nSats = 9;
    point.m_dDoppler = 18.52;
    point.m_dTotalDistance = 12.3456789;
    point.m_dTotalDopplerDistance = 0.0005;
    point.m_nRun = 3;
    point.m_nDopplerRun = -1;
    point.m_dPosError = 0.00123;
    point.m_dDopplerError = 0.5;
    point.m_dUSOG = 37.04;
    point.m_dUCOG = 0.008; // less than half a degree
    CEvent event;
    const auto cells = [&](std::initializer_list<EPointColumn> columns) {
        std::string strCells;
        for (const EPointColumn column : columns)
            strCells += TrackPointCell(event, &points[0], points[1], column) + " ";
        return strCells;
    };
    event.m_nTimePrecision = 1;
    std::array<EPointColumn, 25> columns;
    for (std::size_t i = 0; i < columns.size(); ++i)
        columns[i] = static_cast<EPointColumn>(i);
    std::string strLines;
    WriteGrid(event, points, columns, [&](std::string_view strLine) { strLines.append(strLine) += '\n'; });
    EXPECT_EQ(strLines, "Track,Latitude,Longitude,Date,Time,Seconds,Distance,Speed,Direction,"
                        "Wind Angle,VMG,Altitude,Vert Speed,HDOP,Invalid,Sats,Doppler,Total Dist,"
                        "Tot Dop Dist,Run,Doppler Run,Pos Err,Doppler Error,USOG,UCOG,\n"
                        "1,-38.1234568,146.5,2024-06-01,10:00:00.0,,,,,,,,,,,,,,,,,,,,,\n"
                        "42,-38.1234568,146.5,2024-06-01,10:00:01.5,1.5,250,50,180,120,"
                        "-25,-7,-1,1.2,DH,9,10,12345.68,.5,3,-1,1.23,.27,20,0,\n"
                        "1,-38.1234568,146.5,2024-06-01,10:03:21.5,,,,,,,,,,,,,,,,,,,,,\n");

    event.m_nTimePrecision = 0;
    EXPECT_EQ(cells({Seconds}), "02 ") << "halves to even, two digits wide";
    // In km/h, m/s, mph and what no unit stands for: metres per second.
    const char *pKmh = "92.6 -46.3 -1.852 18.52 .5 37.04 ", *pMs = "25.722 -12.861 -.514 5.144 .139 10.289 ";
    for (const char* pTexts : {pKmh, pMs, "57.539 -28.769 -1.151 11.508 .311 23.016 ", pMs}) {
        ++event.m_nSpeedUnits;
        EXPECT_EQ(cells({Speed, Vmg, VertSpeed, Doppler, DopplerError, Usog}), pTexts);
    }
    event.m_nTimePrecision = 3;
    event.m_nDistancePrecision = 0;
    event.m_nSpeedPrecision = 1;
    event.m_nLatLongPrecision = 2;
    event.m_dTimezone = -10.5;
    EXPECT_EQ(cells({Date, Time, Seconds, TotalDistance, PosError, DopplerError, Latitude}),
              "2024-05-31 23:30:01.500 1.500 12346 1 .1 -38.12 ");
    // Any integer may have been typed into a precision.
    for (const std::int32_t nPrecision : {-2147483647, 2147483647}) {
        event.m_nTimePrecision = event.m_nSpeedPrecision = event.m_nDistancePrecision = nPrecision;
        EXPECT_TRUE(cells({Time, Speed}).starts_with("23:30:01.500 2")) << cells({Time, Speed});
    }
    points[1].m_dSpeed = points[1].m_dDistance = std::nan("");
    EXPECT_EQ(cells({Speed, Distance, Vmg}), "0 0 0 ");
}

} // namespace
} // namespace kestrabel
