#include "model/StoredForms.h"

#include <algorithm>

namespace kestrabel {

namespace {

// Event, format version 10
//
//     text      description, location
//     date text start, end
//     dword     top rows, speed unit, constrain region, constrain dates, reserved
//     double    acceleration threshold
//     dword     time threshold
//     position  north-west, south-east
//     objects   competitors, none since they are no longer kept
//     objects   divisions
//     ellipsoid
//     dword     format version            from 4
//     text      data folder               from 4
//     double    highest HDOP              from 5
//     dword     fewest satellites         from 5
//     double    deceleration threshold    from 6
//     double    speed threshold           from 6
//     dword     capture focus             from 7
//     double    zoom                      from 8, else 1.3
//     double    stop run speed            from 8; a stored 0 is 10
//     double    stop run angle            from 8; a stored 0 is a right angle
//     double    timezone, Doppler error, trackpoint error, 0 (not used)      from 8
//     dword     smoothing                 from 8; below 1 is 3
//     dword     precision of speeds, times, distances, latitudes and longitudes
//                                         from 8, but 3, 0, 2 and 7 up to 8
//     dword     0, not used               from 8
//     objects   waypoints                 from 10
//
// The version stands behind the divisions. Whether it is there at all is told by the form of the divisions:
// the first version that wrote it also gave them schema 6.

constexpr std::uint32_t FirstToldVersion = 4;
constexpr int FirstSchemaWithVersion = 6;

constexpr double OldZoom = 1.3;
constexpr double StopRunSpeedForNone = 10.0;               // km/h
constexpr double StopRunAngleForNone = 1.5707963267948966; // radians
constexpr std::int32_t SmoothingForNone = 3;

void WriteHead(CArchiveWriter& writer, const CEvent& event)
{
    writer.WriteText(event.m_strDescription);
    writer.WriteText(event.m_strLocation);
    writer.WriteDateText(event.m_dateStart);
    writer.WriteDateText(event.m_dateEnd);
    writer.WriteInt(event.m_nShowTopRows);
    writer.WriteInt(event.m_nSpeedUnits);
    writer.WriteInt(event.m_bConstrainRegion);
    writer.WriteInt(event.m_bConstrainDates);
    writer.WriteInt(event.m_nReserved);
    writer.WriteDouble(event.m_dAccThreshold);
    writer.WriteInt(event.m_nTimeThreshold);
    writer.WritePosition(event.m_posNorthWest);
    writer.WritePosition(event.m_posSouthEast);
}

void ReadHead(CArchiveReader& reader, CEvent& event)
{
    event.m_strDescription = reader.ReadText();
    event.m_strLocation = reader.ReadText();
    event.m_dateStart = reader.ReadDateText();
    event.m_dateEnd = reader.ReadDateText();
    event.m_nShowTopRows = reader.ReadInt();
    event.m_nSpeedUnits = reader.ReadInt();
    event.m_bConstrainRegion = reader.ReadInt();
    event.m_bConstrainDates = reader.ReadInt();
    event.m_nReserved = reader.ReadInt();
    event.m_dAccThreshold = reader.ReadDouble();
    event.m_nTimeThreshold = reader.ReadInt();
    event.m_posNorthWest = reader.ReadPosition();
    event.m_posSouthEast = reader.ReadPosition();
}

/// What version 8 brought.
void ReadDisplaySettings(CArchiveReader& reader, CEvent& event)
{
    event.m_dZoom = reader.ReadDouble();
    event.m_dStopRunSpeed = reader.ReadDouble();
    if (event.m_dStopRunSpeed == 0.0)
        event.m_dStopRunSpeed = StopRunSpeedForNone;
    event.m_dStopRunAngle = reader.ReadDouble();
    if (event.m_dStopRunAngle == 0.0)
        event.m_dStopRunAngle = StopRunAngleForNone;
    event.m_dTimezone = reader.ReadDouble();
    event.m_dDopplerError = reader.ReadDouble();
    event.m_dTrackpointError = reader.ReadDouble();
    reader.ReadDouble();
    event.m_nSmoothing = reader.ReadInt();
    if (event.m_nSmoothing < 1)
        event.m_nSmoothing = SmoothingForNone;
    event.m_nSpeedPrecision = reader.ReadInt();
    event.m_nTimePrecision = reader.ReadInt();
    event.m_nDistancePrecision = reader.ReadInt();
    event.m_nLatLongPrecision = reader.ReadInt();
    reader.ReadDword();
}

/// What stands behind the version.
void ReadTail(CArchiveReader& reader, CEvent& event, std::uint32_t nVersion)
{
    event.m_strDataFolder = reader.ReadText();
    if (nVersion >= 5) {
        event.m_dMaxHDOP = reader.ReadDouble();
        event.m_nMinSats = reader.ReadInt();
    }
    if (nVersion >= 6) {
        event.m_dDeccThreshold = reader.ReadDouble();
        event.m_dSpeedThreshold = reader.ReadDouble();
    }
    if (nVersion >= 7)
        event.m_bCaptureFocus = reader.ReadInt();
    if (nVersion >= 8)
        ReadDisplaySettings(reader, event);
    if (nVersion >= WayPointsFormatVersion)
        reader.ReadObjects(event.m_waypoints);
}

/// True when the file tells its version at this place. Without a division there is no form that would say so;
/// but in a file of the oldest form the word here is 1 or 0.
bool HasVersion(const CArchiveReader& reader, const CEvent& event)
{
    if (!event.m_divisions.IsEmpty())
        return reader.HighestSchemaOf(CDivision::Class) >= FirstSchemaWithVersion;
    const std::uint32_t nWord = reader.PeekDword();
    return nWord >= FirstToldVersion && nWord <= EventFormatVersion;
}

} // namespace

void WriteEvent(CArchiveWriter& writer, const CEvent& event)
{
    WriteHead(writer, event);
    writer.WriteCount(0);
    writer.WriteObjects(event.m_divisions);
    writer.WriteEllipsoid(event.m_ellipsoid);
    writer.WriteDword(EventFormatVersion);
    writer.WriteText(event.m_strDataFolder);
    writer.WriteDouble(event.m_dMaxHDOP);
    writer.WriteInt(event.m_nMinSats);
    writer.WriteDouble(event.m_dDeccThreshold);
    writer.WriteDouble(event.m_dSpeedThreshold);
    writer.WriteInt(event.m_bCaptureFocus);
    writer.WriteDouble(event.m_dZoom);
    writer.WriteDouble(event.m_dStopRunSpeed);
    writer.WriteDouble(event.m_dStopRunAngle);
    writer.WriteDouble(event.m_dTimezone);
    writer.WriteDouble(event.m_dDopplerError);
    writer.WriteDouble(event.m_dTrackpointError);
    writer.WriteDouble(0.0);
    writer.WriteInt(std::max(event.m_nSmoothing, std::int32_t{1}));
    writer.WriteInt(event.m_nSpeedPrecision);
    writer.WriteInt(event.m_nTimePrecision);
    writer.WriteInt(event.m_nDistancePrecision);
    writer.WriteInt(event.m_nLatLongPrecision);
    writer.WriteDword(0);
    writer.WriteObjects(event.m_waypoints);
}

std::uint32_t ReadEvent(CArchiveReader& reader, CEvent& event)
{
    ReadHead(reader, event);
    reader.SkipObjects<CPerson>();
    reader.ReadObjects(event.m_divisions);
    event.m_ellipsoid = reader.ReadEllipsoid();

    std::uint32_t nVersion = OldestEventFormatVersion;
    if (HasVersion(reader, event)) {
        nVersion = reader.ReadDword();
        ReadTail(reader, event, nVersion);
    }
    if (nVersion < 8)
        event.m_dZoom = OldZoom;
    if (nVersion <= 8) {
        event.m_nSpeedPrecision = 3;
        event.m_nTimePrecision = 0;
        event.m_nDistancePrecision = 2;
        event.m_nLatLongPrecision = 7;
    }
    return nVersion;
}

} // namespace kestrabel
