#include "model/StoredForms.h"

namespace kestrabel {

namespace {

constexpr double MetresToKilometres = 0.001;

} // namespace

// Waypoint, schema 2
//
//     text      name
//     dword     0, not used
//     double    proximity, km      from schema 2
//     position

void WriteBody(CArchiveWriter& writer, const CWayPoint& wayPoint)
{
    writer.WriteText(wayPoint.m_strName);
    writer.WriteDword(0);
    writer.WriteDouble(wayPoint.m_dProximity);
    writer.WritePosition(wayPoint.m_position);
}

void ReadBody(CArchiveReader& reader, CWayPoint& wayPoint, int nSchema)
{
    wayPoint.m_strName = reader.ReadText();
    reader.ReadDword();
    if (nSchema >= 2)
        wayPoint.m_dProximity = reader.ReadDouble();
    wayPoint.m_position = reader.ReadPosition();
}

// Division, schema 10
//
//     text      name
//     double    metres, first further, second further
//     byte      runs averaged (1 before schema 3), speed that is judged
//     date text from, to
//     byte      kind                      from schema 3, else distance
//     byte      accumulation              from 4
//     byte      one result per run        from 5
//     byte      use altitude              from 7
//     dword     seconds                   from 7; 10 before 3
//     dword     start at                  from 7
//     dword     strict                    from 7; before 10 the value of "one result per run" counts
//     dword     0, not used               from 7
//     double    smallest interval         from 9
//     double    proximity, km             from 9; before 10 in metres
//     double    0, not used, twice        from 9
//     objects   waypoints                 from 10

void WriteBody(CArchiveWriter& writer, const CDivision& division)
{
    writer.WriteText(division.m_strName);
    writer.WriteDouble(division.m_dMetres);
    writer.WriteDouble(division.m_dFurther1);
    writer.WriteDouble(division.m_dFurther2);
    writer.WriteByte(division.m_nAverageRuns);
    writer.WriteByte(division.m_nCalcUsing);
    writer.WriteDateText(division.m_dateFrom);
    writer.WriteDateText(division.m_dateTo);
    writer.WriteByte(division.m_nKind);
    writer.WriteByte(division.m_bAccumulation);
    writer.WriteByte(division.m_bOneResultPerRun);
    writer.WriteByte(division.m_bUseAltitude);
    writer.WriteInt(division.m_nSeconds);
    writer.WriteInt(division.m_nStartAt);
    writer.WriteInt(division.m_bStrict);
    writer.WriteDword(0);
    writer.WriteDouble(division.m_dMinCalcInterval);
    writer.WriteDouble(division.m_dProximity);
    writer.WriteDouble(0.0);
    writer.WriteDouble(0.0);
    if (division.m_nKind == DivisionKind::LapRacing)
        writer.WriteObjects(division.m_waypoints);
    else
        writer.WriteCount(0);
}

void ReadBody(CArchiveReader& reader, CDivision& division, int nSchema)
{
    division.m_strName = reader.ReadText();
    division.m_dMetres = reader.ReadDouble();
    division.m_dFurther1 = reader.ReadDouble();
    division.m_dFurther2 = reader.ReadDouble();
    division.m_nAverageRuns = reader.ReadByte();
    division.m_nCalcUsing = reader.ReadByte();
    division.m_dateFrom = reader.ReadDateText();
    division.m_dateTo = reader.ReadDateText();
    if (nSchema < 3) {
        division.m_nAverageRuns = 1;
        division.m_nKind = DivisionKind::Distance;
        division.m_nSeconds = 10;
    } else {
        division.m_nKind = reader.ReadByte();
    }
    if (nSchema >= 4)
        division.m_bAccumulation = reader.ReadByte();
    if (nSchema >= 5)
        division.m_bOneResultPerRun = reader.ReadByte();
    if (nSchema >= 7) {
        division.m_bUseAltitude = reader.ReadByte();
        division.m_nSeconds = reader.ReadInt();
        division.m_nStartAt = reader.ReadInt();
        division.m_bStrict = reader.ReadInt();
        reader.ReadDword();
    }
    if (nSchema < 10)
        division.m_bStrict = division.m_bOneResultPerRun;
    if (nSchema >= 9) {
        division.m_dMinCalcInterval = reader.ReadDouble();
        division.m_dProximity = reader.ReadDouble() * (nSchema < 10 ? MetresToKilometres : 1.0);
        reader.ReadDouble();
        reader.ReadDouble();
    }
    if (nSchema >= 10) {
        reader.ReadObjects(division.m_waypoints);
        if (division.m_nKind != DivisionKind::LapRacing)
            division.m_waypoints.RemoveAll();
    }
}

} // namespace kestrabel
