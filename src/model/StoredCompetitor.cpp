#include "model/StoredForms.h"

#include "geo/Rounding.h"

namespace kestrabel {

// Competitors and what they own: files of earlier versions held them.

// Point, schema 10
//
//     position
//     date text time
//     byte      not used
//     dword     invalid flags, of which only the low bits were ever set
//     dword     altitude
//     double    HDOP (before schema 7 a whole number in a dword)
//     double    time step, seconds
//     double    vertical speed, speed
//     double    distance             from 3
//     double    wind angle           from 4
//     dword     run                  from 5
//     dword     index                from 6
//     double    Doppler speed        from 7
//     dword     satellites           from 8
//     dword     fix quality          from 9
//     double    position error, speed error      from 10

void ReadBody(CArchiveReader& reader, CTrackPoint& point, int nSchema)
{
    point.m_position = reader.ReadPosition();
    point.m_time = reader.ReadDateText();
    reader.ReadByte();
    point.m_nInvalidFlags = static_cast<std::uint8_t>(reader.ReadDword());
    point.m_nAltitude = reader.ReadInt();
    point.m_dHDOP = nSchema >= 7 ? reader.ReadDouble() : static_cast<double>(reader.ReadInt());
    point.m_dDeltaTime = RoundTo(reader.ReadDouble(), 3) * DaysPerSecond;
    point.m_dVertSpeed = reader.ReadDouble();
    point.m_dSpeed = reader.ReadDouble();
    if (nSchema >= 3)
        point.m_dDistance = reader.ReadDouble();
    if (nSchema >= 4)
        point.m_dWindAngle = reader.ReadDouble();
    if (nSchema >= 5)
        point.m_nRun = reader.ReadInt();
    if (nSchema >= 6)
        point.m_nTrack = reader.ReadInt();
    if (nSchema >= 7)
        point.m_dDoppler = reader.ReadDouble();
    if (nSchema >= 8)
        point.m_nSats = reader.ReadInt();
    if (nSchema >= 9)
        point.m_nRxStatus = reader.ReadInt();
    if (nSchema >= 10) {
        point.m_dPosError = reader.ReadDouble();
        point.m_dDopplerError = reader.ReadDouble();
    }
}

// Result, schema 14
//
//     position  start, end
//     dword     rank
//     text      competitor, division
//     text      track file                from 3
//     double    start and end, days; distance, speed, seconds
//     dword     run
//     double    direction                 from 4
//     double    wind angle                from 5
//     double    altitude                  from 6
//     double    change of altitude        from 7
//     dword     first point               from 8, else -1
//     double    highest HDOP              from 9
//     double    claimed speed             from 10
//     dword     fewest satellites         from 11
//     double    lowest and highest speed  from 12
//     double    position and speed error  from 13
//     dword     last point, track file    from 14

void ReadBody(CArchiveReader& reader, CResult& result, int nSchema)
{
    result.m_posStart = reader.ReadPosition();
    result.m_posEnd = reader.ReadPosition();
    result.m_nRank = reader.ReadInt();
    result.m_strCompetitor = reader.ReadText();
    result.m_strDivision = reader.ReadText();
    if (nSchema >= 3)
        result.m_strSeries = reader.ReadText();
    result.m_timeStart = DATE(reader.ReadDouble());
    result.m_timeEnd = DATE(reader.ReadDouble());
    result.m_dDistance = reader.ReadDouble();
    result.m_dSpeed = reader.ReadDouble();
    result.m_dSeconds = reader.ReadDouble();
    result.m_nRun = reader.ReadInt();
    if (nSchema >= 4)
        result.m_dDirection = reader.ReadDouble();
    if (nSchema >= 5)
        result.m_dWindAngle = reader.ReadDouble();
    if (nSchema >= 6)
        result.m_dAltitude = reader.ReadDouble();
    if (nSchema >= 7)
        result.m_dAltChange = reader.ReadDouble();
    result.m_nStartIndex = nSchema >= 8 ? reader.ReadInt() : -1;
    if (nSchema >= 9)
        result.m_dHDOPMax = reader.ReadDouble();
    if (nSchema >= 10)
        result.m_dClaimed = reader.ReadDouble();
    if (nSchema >= 11)
        result.m_nSatsMin = reader.ReadInt();
    if (nSchema >= 12) {
        result.m_dMinSpeed = reader.ReadDouble();
        result.m_dMaxSpeed = reader.ReadDouble();
    }
    if (nSchema >= 13) {
        result.m_dPosError = reader.ReadDouble();
        result.m_dDopplerError = reader.ReadDouble();
    }
    if (nSchema >= 14) {
        result.m_nEndIndex = reader.ReadInt();
        result.m_nSeriesIndex = reader.ReadInt();
    }
}

// Record of a division, schema 3
//
//     text      division
//     byte      flag                      from 3, else 0
//     objects   results

void ReadBody(CArchiveReader& reader, CSeriesDivision& record, int nSchema)
{
    record.m_strDivision = reader.ReadText();
    record.m_bFlag = nSchema >= 3 ? reader.ReadByte() : std::uint8_t{0};
    reader.ReadObjects(record.m_results);
}

// Track file, schema 11
//
//     objects   points                    before 6 only
//     date text date
//     text      name, file name
//     dword     managed                   from 4
//     byte      source kind               from 5
//     double    wind direction            from 5
//     dword     0, not used               from 8
//     double    total distance, travel time                         from 9
//     ellipsoid                           from 7
//     double    highest speed, lowest and highest altitude,
//               highest HDOP, satellites                            from 10
//     rectangle bounds                    from 10
//     date      start, end                from 10
//     double    track error, speed error, Doppler distance,
//               highest Doppler speed                               from 11
//     objects   records

void ReadBody(CArchiveReader& reader, CSeries& series, int nSchema)
{
    if (nSchema < 6)
        reader.ReadObjects(series.m_points);
    series.m_date = reader.ReadDateText();
    series.m_strName = reader.ReadText();
    series.m_strFileName = reader.ReadText();
    if (nSchema >= 4)
        series.m_bManaged = reader.ReadInt();
    if (nSchema >= 5) {
        series.m_cReserved = reader.ReadByte();
        series.m_dWindDirection = reader.ReadDouble();
    }
    if (nSchema >= 8)
        reader.ReadDword();
    if (nSchema >= 9) {
        series.m_dTotalDistance = reader.ReadDouble();
        series.m_dTravelTime = reader.ReadDouble();
    }
    if (nSchema >= 7)
        series.m_ellipsoid = reader.ReadEllipsoid();
    if (nSchema >= 10) {
        series.m_dMaxSpeed = reader.ReadDouble();
        series.m_dMinAltitude = reader.ReadDouble();
        series.m_dMaxAltitude = reader.ReadDouble();
        series.m_dMaxResultHDOP = reader.ReadDouble();
        series.m_dMinResultSats = reader.ReadDouble();
        series.m_rcBounds = reader.ReadRect();
        series.m_timeStart = reader.ReadDate();
        series.m_timeEnd = reader.ReadDate();
    }
    if (nSchema >= 11) {
        series.m_dTrackError = reader.ReadDouble();
        series.m_dDopplerError = reader.ReadDouble();
        series.m_dTotalDopplerDistance = reader.ReadDouble();
        series.m_dMaxDoppler = reader.ReadDouble();
    }
    reader.ReadObjects(series.m_divisions);
}

// Competitor, schema 2: objects (track files), texts (names of divisions), then name, e-mail, phone, number

void ReadBody(CArchiveReader& reader, CPerson& person, int /*nSchema*/)
{
    reader.ReadObjects(person.m_series);
    person.m_divisionNames = reader.ReadTexts();
    person.m_strName = reader.ReadText();
    person.m_strEmail = reader.ReadText();
    person.m_strPhone = reader.ReadText();
    person.m_strNumber = reader.ReadText();
}

} // namespace kestrabel
