#include "cli/JsonMembers.h"

#include "model/TimeText.h"

namespace kestrabel {

namespace {

/// The day count, and the same as text; null for a time that is not one.
void WriteTime(CJsonWriter& json, std::string_view strDayKey, std::string_view strTimeKey, const DATE& time)
{
    json.Number(strDayKey, time.m_dDays);
    const std::string strTime = FormatIsoMillisecond(time);
    if (strTime.empty())
        json.Null(strTimeKey);
    else
        json.Text(strTimeKey, strTime);
}

} // namespace

void WritePointMembers(CJsonWriter& json, const CTrackPoint& point)
{
    json.Integer("index", point.m_nTrack);
    WriteTime(json, "day", "time", point.m_time);
    json.Number("latitude", point.m_position.m_dLatitude);
    json.Number("longitude", point.m_position.m_dLongitude);
    json.Integer("altitudeM", point.m_nAltitude);
    json.Number("hdop", point.m_dHDOP);
    json.Integer("sats", point.m_nSats);
    json.Integer("rxStatus", point.m_nRxStatus);
    json.Number("dopplerKmh", point.m_dDoppler);
    json.Number("vertSpeedKmh", point.m_dVertSpeed);
    json.Number("posErrorKm", point.m_dPosError);
    json.Number("dopplerError", point.m_dDopplerError);
    json.Number("usogKmh", point.m_dUSOG);
    json.Number("ucogRad", point.m_dUCOG);
    json.Number("distanceKm", point.m_dDistance);
    json.Number("speedKmh", point.m_dSpeed);
    json.Number("totalDistanceKm", point.m_dTotalDistance);
    json.Number("dopplerStepKm", point.m_dDopplerStep);
    json.Number("totalDopplerKm", point.m_dTotalDopplerDistance);
    json.Number("sumStepSquares", point.m_dSumStepSquares);
    json.Number("directionRad", point.m_dDirection);
    json.Number("windAngleRad", point.m_dWindAngle);
    json.Integer("run", point.m_nRun);
    json.Integer("dopplerRun", point.m_nDopplerRun);
    json.Integer("invalidFlags", point.m_nInvalidFlags);
    json.Number("deltaDays", point.m_dDeltaTime);
    json.Integer("satMask", point.m_nSatMask);
}

void WriteTrackFileMembers(CJsonWriter& json, const CSeries& series)
{
    json.Text("name", series.m_strName);
    json.Text("identifier", series.m_strIdentifier);
    json.Text("serialNo", series.m_strSerialNo);
    json.Text("firmware", series.m_strFirmware);
    json.Text("info", series.m_strInfo);
    json.Integer("logRate", series.m_nLogRate);
    json.Text("fileName", series.m_strFileName);
    json.Integer("sourceKind", series.m_cReserved);
    json.Boolean("hasDoppler", series.m_bHasDoppler != 0);
    json.Number("day", series.m_date.m_dDays);
    json.Integer("pointCount", series.m_points.GetCount());
    json.Number("totalDistanceKm", series.m_dTotalDistance);
    json.Number("totalDopplerKm", series.m_dTotalDopplerDistance);
    json.Number("travelTimeS", series.m_dTravelTime);
    json.Number("maxSpeedKmh", series.m_dMaxSpeed);
    json.Number("maxDopplerKmh", series.m_dMaxDoppler);
    json.Number("minAltitudeM", series.m_dMinAltitude);
    json.Number("maxAltitudeM", series.m_dMaxAltitude);
    json.Number("maxResultHdop", series.m_dMaxResultHDOP);
    json.Number("minResultSats", series.m_dMinResultSats);
    json.BeginObject("bounds");
    json.Number("west", series.m_rcBounds.m_dWest);
    json.Number("north", series.m_rcBounds.m_dNorth);
    json.Number("east", series.m_rcBounds.m_dEast);
    json.Number("south", series.m_rcBounds.m_dSouth);
    json.EndObject();
}

void WriteResultMembers(CJsonWriter& json, const CResult& result)
{
    json.Integer("rank", result.m_nRank);
    json.Integer("startIndex", result.m_nStartIndex);
    json.Integer("endIndex", result.m_nEndIndex);
    json.Integer("seriesIndex", result.m_nSeriesIndex);
    json.Integer("personIndex", result.m_nPersonIndex);
    json.Text("competitor", result.m_strCompetitor);
    json.Text("division", result.m_strDivision);
    json.Text("trackFile", result.m_strSeries);
    json.Text("waypoint", result.m_strWaypoint);
    json.Integer("waypointIndex", result.m_nWaypoint);
    json.Integer("waypointIndex2", result.m_nWaypoint2);
    json.Number("startLatitude", result.m_posStart.m_dLatitude);
    json.Number("startLongitude", result.m_posStart.m_dLongitude);
    WriteTime(json, "startDay", "startTime", result.m_timeStart);
    json.Number("endLatitude", result.m_posEnd.m_dLatitude);
    json.Number("endLongitude", result.m_posEnd.m_dLongitude);
    WriteTime(json, "endDay", "endTime", result.m_timeEnd);
    json.Number("distanceKm", result.m_dDistance);
    json.Number("seconds", result.m_dSeconds);
    json.Number("speedKmh", result.m_dSpeed);
    json.Number("minSpeedKmh", result.m_dMinSpeed);
    json.Number("maxSpeedKmh", result.m_dMaxSpeed);
    json.Number("directionRad", result.m_dDirection);
    json.Number("windAngleRad", result.m_dWindAngle);
    json.Number("altitudeM", result.m_dAltitude);
    json.Number("altChangeM", result.m_dAltChange);
    json.Number("hdopMax", result.m_dHDOPMax);
    json.Integer("satsMin", result.m_nSatsMin);
    json.Integer("run", result.m_nRun);
    json.Number("dopplerErrorKmh", result.m_dDopplerError);
    json.Number("posErrorKm", result.m_dPosError);
    json.Number("claimedKmh", result.m_dClaimed);
}

} // namespace kestrabel
