#pragma once

#include "model/StoredFields.h"
#include "platform/NumberInput.h"

#include <cmath>
#include <span>
#include <vector>

namespace kestrabel::test {

// The layouts of every class, with the forms from which on (up to which) a field stands in the file. They are
// kept apart from the readers, so that a mistake in one of the two shows.

inline double NumberOf(const std::string& strText)
{
    return ReadDecimal(strText);
}

inline double NumberOf(const CPosition& position)
{
    return position.m_dLongitude == -position.m_dLatitude ? position.m_dLatitude : std::nan("");
}

inline double NumberOf(const DATE& date)
{
    return date.IsValid() ? date.m_dDays : std::nan("");
}

inline double NumberOf(const CEllipsoid& ellipsoid)
{
    return ellipsoid.m_nEllipsoid == 6 && ellipsoid.m_dFlattening == 1.0 / 300.0 ? ellipsoid.m_dRadius : 0.0;
}

inline double NumberOf(const CGeoRect& rect)
{
    const bool bInOrder = rect.m_dNorth == rect.m_dWest + 1 && rect.m_dEast == rect.m_dWest + 2 &&
                          rect.m_dSouth == rect.m_dWest + 3;
    return bInOrder ? rect.m_dWest : 0.0;
}

template <class T>
double NumberOf(const CObjectArray<T>& objects)
{
    return objects.GetCount();
}

inline double NumberOf(double dValue)
{
    return dValue;
}

/// How to see a member in an object.
template <class T, auto pMember>
constexpr auto Member = [](const T& object) { return NumberOf(object.*pMember); };

template <class T>
using CLayout = std::vector<SStoredField<T>>;

/// An array of one object of the class in that form, of which the layout follows.
template <class T>
void OneObject(CArchiveBytes& bytes, const CLayout<T>& layout, int nSchema)
{
    bytes.Word(1).NewClass(T::Class.strName, nSchema).Raw(MakeBody<T>(layout, nSchema).bytes);
}

inline CLayout<CWayPoint> WayPointLayout()
{
    return {
        {EForm::Text, "m_strName", Member<CWayPoint, &CWayPoint::m_strName>},
        {EForm::Dword, "", nullptr},
        {EForm::Double, "m_dProximity", Member<CWayPoint, &CWayPoint::m_dProximity>, 2},
        {EForm::Position, "m_position", Member<CWayPoint, &CWayPoint::m_position>},
    };
}

inline CLayout<CDivision> DivisionLayout()
{
    return {
        {EForm::Text, "m_strName", Member<CDivision, &CDivision::m_strName>},
        {EForm::Double, "m_dMetres", Member<CDivision, &CDivision::m_dMetres>},
        {EForm::Double, "m_dFurther1", Member<CDivision, &CDivision::m_dFurther1>},
        {EForm::Double, "m_dFurther2", Member<CDivision, &CDivision::m_dFurther2>},
        {EForm::Byte, "m_nAverageRuns", Member<CDivision, &CDivision::m_nAverageRuns>},
        {EForm::Byte, "m_nCalcUsing", Member<CDivision, &CDivision::m_nCalcUsing>},
        {EForm::DateText, "m_dateFrom", Member<CDivision, &CDivision::m_dateFrom>},
        {EForm::DateText, "m_dateTo", Member<CDivision, &CDivision::m_dateTo>},
        {EForm::Byte, "m_nKind", Member<CDivision, &CDivision::m_nKind>, 3},
        {EForm::Byte, "m_bAccumulation", Member<CDivision, &CDivision::m_bAccumulation>, 4},
        {EForm::Byte, "m_bOneResultPerRun", Member<CDivision, &CDivision::m_bOneResultPerRun>, 5},
        {EForm::Byte, "m_bUseAltitude", Member<CDivision, &CDivision::m_bUseAltitude>, 7},
        {EForm::Dword, "m_nSeconds", Member<CDivision, &CDivision::m_nSeconds>, 7},
        {EForm::Dword, "m_nStartAt", Member<CDivision, &CDivision::m_nStartAt>, 7},
        {EForm::Dword, "m_bStrict", Member<CDivision, &CDivision::m_bStrict>, 7},
        {EForm::Dword, "", nullptr, 7},
        {EForm::Double, "m_dMinCalcInterval", Member<CDivision, &CDivision::m_dMinCalcInterval>, 9},
        {EForm::Double, "m_dProximity", Member<CDivision, &CDivision::m_dProximity>, 9},
        {EForm::Double, "", nullptr, 9},
        {EForm::Double, "", nullptr, 9},
        {EForm::Objects, "m_waypoints", Member<CDivision, &CDivision::m_waypoints>, 10, AnyForm,
         [](CArchiveBytes& bytes) { OneObject(bytes, WayPointLayout(), 2); }},
    };
}

inline CLayout<CTrackPoint> PointLayout()
{
    return {
        {EForm::Position, "m_position", Member<CTrackPoint, &CTrackPoint::m_position>},
        {EForm::DateText, "m_time", Member<CTrackPoint, &CTrackPoint::m_time>},
        {EForm::Byte, "", nullptr},
        {EForm::Dword, "m_nInvalidFlags", Member<CTrackPoint, &CTrackPoint::m_nInvalidFlags>},
        {EForm::Dword, "m_nAltitude", Member<CTrackPoint, &CTrackPoint::m_nAltitude>},
        {EForm::Dword, "m_dHDOP", Member<CTrackPoint, &CTrackPoint::m_dHDOP>, 0, 6},
        {EForm::Double, "m_dHDOP", Member<CTrackPoint, &CTrackPoint::m_dHDOP>, 7},
        {EForm::Double, "m_dDeltaTime", Member<CTrackPoint, &CTrackPoint::m_dDeltaTime>},
        {EForm::Double, "m_dVertSpeed", Member<CTrackPoint, &CTrackPoint::m_dVertSpeed>},
        {EForm::Double, "m_dSpeed", Member<CTrackPoint, &CTrackPoint::m_dSpeed>},
        {EForm::Double, "m_dDistance", Member<CTrackPoint, &CTrackPoint::m_dDistance>, 3},
        {EForm::Double, "m_dWindAngle", Member<CTrackPoint, &CTrackPoint::m_dWindAngle>, 4},
        {EForm::Dword, "m_nRun", Member<CTrackPoint, &CTrackPoint::m_nRun>, 5},
        {EForm::Dword, "m_nTrack", Member<CTrackPoint, &CTrackPoint::m_nTrack>, 6},
        {EForm::Double, "m_dDoppler", Member<CTrackPoint, &CTrackPoint::m_dDoppler>, 7},
        {EForm::Dword, "m_nSats", Member<CTrackPoint, &CTrackPoint::m_nSats>, 8},
        {EForm::Dword, "m_nRxStatus", Member<CTrackPoint, &CTrackPoint::m_nRxStatus>, 9},
        {EForm::Double, "m_dPosError", Member<CTrackPoint, &CTrackPoint::m_dPosError>, 10},
        {EForm::Double, "m_dDopplerError", Member<CTrackPoint, &CTrackPoint::m_dDopplerError>, 10},
    };
}

inline CLayout<CResult> ResultLayout()
{
    return {
        {EForm::Position, "m_posStart", Member<CResult, &CResult::m_posStart>},
        {EForm::Position, "m_posEnd", Member<CResult, &CResult::m_posEnd>},
        {EForm::Dword, "m_nRank", Member<CResult, &CResult::m_nRank>},
        {EForm::Text, "m_strCompetitor", Member<CResult, &CResult::m_strCompetitor>},
        {EForm::Text, "m_strDivision", Member<CResult, &CResult::m_strDivision>},
        {EForm::Text, "m_strSeries", Member<CResult, &CResult::m_strSeries>, 3},
        {EForm::Double, "m_timeStart", Member<CResult, &CResult::m_timeStart>},
        {EForm::Double, "m_timeEnd", Member<CResult, &CResult::m_timeEnd>},
        {EForm::Double, "m_dDistance", Member<CResult, &CResult::m_dDistance>},
        {EForm::Double, "m_dSpeed", Member<CResult, &CResult::m_dSpeed>},
        {EForm::Double, "m_dSeconds", Member<CResult, &CResult::m_dSeconds>},
        {EForm::Dword, "m_nRun", Member<CResult, &CResult::m_nRun>},
        {EForm::Double, "m_dDirection", Member<CResult, &CResult::m_dDirection>, 4},
        {EForm::Double, "m_dWindAngle", Member<CResult, &CResult::m_dWindAngle>, 5},
        {EForm::Double, "m_dAltitude", Member<CResult, &CResult::m_dAltitude>, 6},
        {EForm::Double, "m_dAltChange", Member<CResult, &CResult::m_dAltChange>, 7},
        {EForm::Dword, "m_nStartIndex", Member<CResult, &CResult::m_nStartIndex>, 8},
        {EForm::Double, "m_dHDOPMax", Member<CResult, &CResult::m_dHDOPMax>, 9},
        {EForm::Double, "m_dClaimed", Member<CResult, &CResult::m_dClaimed>, 10},
        {EForm::Dword, "m_nSatsMin", Member<CResult, &CResult::m_nSatsMin>, 11},
        {EForm::Double, "m_dMinSpeed", Member<CResult, &CResult::m_dMinSpeed>, 12},
        {EForm::Double, "m_dMaxSpeed", Member<CResult, &CResult::m_dMaxSpeed>, 12},
        {EForm::Double, "m_dPosError", Member<CResult, &CResult::m_dPosError>, 13},
        {EForm::Double, "m_dDopplerError", Member<CResult, &CResult::m_dDopplerError>, 13},
        {EForm::Dword, "m_nEndIndex", Member<CResult, &CResult::m_nEndIndex>, 14},
        {EForm::Dword, "m_nSeriesIndex", Member<CResult, &CResult::m_nSeriesIndex>, 14},
    };
}

inline CLayout<CSeriesDivision> RecordLayout()
{
    return {
        {EForm::Text, "m_strDivision", Member<CSeriesDivision, &CSeriesDivision::m_strDivision>},
        {EForm::Byte, "m_bFlag", Member<CSeriesDivision, &CSeriesDivision::m_bFlag>, 3},
        {EForm::Objects, "m_results", Member<CSeriesDivision, &CSeriesDivision::m_results>, 0, AnyForm,
         [](CArchiveBytes& bytes) { OneObject(bytes, ResultLayout(), 14); }},
    };
}

inline CLayout<CSeries> SeriesLayout()
{
    return {
        {EForm::Objects, "m_points", Member<CSeries, &CSeries::m_points>, 0, 5,
         [](CArchiveBytes& bytes) { OneObject(bytes, PointLayout(), 9); }},
        {EForm::DateText, "m_date", Member<CSeries, &CSeries::m_date>},
        {EForm::Text, "m_strName", Member<CSeries, &CSeries::m_strName>},
        {EForm::Text, "m_strFileName", Member<CSeries, &CSeries::m_strFileName>},
        {EForm::Dword, "m_bManaged", Member<CSeries, &CSeries::m_bManaged>, 4},
        {EForm::Byte, "m_cReserved", Member<CSeries, &CSeries::m_cReserved>, 5},
        {EForm::Double, "m_dWindDirection", Member<CSeries, &CSeries::m_dWindDirection>, 5},
        {EForm::Dword, "", nullptr, 8},
        {EForm::Double, "m_dTotalDistance", Member<CSeries, &CSeries::m_dTotalDistance>, 9},
        {EForm::Double, "m_dTravelTime", Member<CSeries, &CSeries::m_dTravelTime>, 9},
        {EForm::Ellipsoid, "m_ellipsoid", Member<CSeries, &CSeries::m_ellipsoid>, 7},
        {EForm::Double, "m_dMaxSpeed", Member<CSeries, &CSeries::m_dMaxSpeed>, 10},
        {EForm::Double, "m_dMinAltitude", Member<CSeries, &CSeries::m_dMinAltitude>, 10},
        {EForm::Double, "m_dMaxAltitude", Member<CSeries, &CSeries::m_dMaxAltitude>, 10},
        {EForm::Double, "m_dMaxResultHDOP", Member<CSeries, &CSeries::m_dMaxResultHDOP>, 10},
        {EForm::Double, "m_dMinResultSats", Member<CSeries, &CSeries::m_dMinResultSats>, 10},
        {EForm::Rectangle, "m_rcBounds", Member<CSeries, &CSeries::m_rcBounds>, 10},
        {EForm::Days, "m_timeStart", Member<CSeries, &CSeries::m_timeStart>, 10},
        {EForm::Days, "m_timeEnd", Member<CSeries, &CSeries::m_timeEnd>, 10},
        {EForm::Double, "m_dTrackError", Member<CSeries, &CSeries::m_dTrackError>, 11},
        {EForm::Double, "m_dDopplerError", Member<CSeries, &CSeries::m_dDopplerError>, 11},
        {EForm::Double, "m_dTotalDopplerDistance", Member<CSeries, &CSeries::m_dTotalDopplerDistance>, 11},
        {EForm::Double, "m_dMaxDoppler", Member<CSeries, &CSeries::m_dMaxDoppler>, 11},
        {EForm::Objects, "m_divisions", Member<CSeries, &CSeries::m_divisions>, 0, AnyForm,
         [](CArchiveBytes& bytes) { OneObject(bytes, RecordLayout(), 3); }},
    };
}

/// The event by format version. The divisions stand between the two; version and data folder are in the file
/// from version 4 on.
inline CLayout<CEvent> EventHeadLayout()
{
    return {
        {EForm::Text, "m_strDescription", Member<CEvent, &CEvent::m_strDescription>},
        {EForm::Text, "m_strLocation", Member<CEvent, &CEvent::m_strLocation>},
        {EForm::DateText, "m_dateStart", Member<CEvent, &CEvent::m_dateStart>},
        {EForm::DateText, "m_dateEnd", Member<CEvent, &CEvent::m_dateEnd>},
        {EForm::Dword, "m_nShowTopRows", Member<CEvent, &CEvent::m_nShowTopRows>},
        {EForm::Dword, "m_nSpeedUnits", Member<CEvent, &CEvent::m_nSpeedUnits>},
        {EForm::Dword, "m_bConstrainRegion", Member<CEvent, &CEvent::m_bConstrainRegion>},
        {EForm::Dword, "m_bConstrainDates", Member<CEvent, &CEvent::m_bConstrainDates>},
        {EForm::Dword, "m_nReserved", Member<CEvent, &CEvent::m_nReserved>},
        {EForm::Double, "m_dAccThreshold", Member<CEvent, &CEvent::m_dAccThreshold>},
        {EForm::Dword, "m_nTimeThreshold", Member<CEvent, &CEvent::m_nTimeThreshold>},
        {EForm::Position, "m_posNorthWest", Member<CEvent, &CEvent::m_posNorthWest>},
        {EForm::Position, "m_posSouthEast", Member<CEvent, &CEvent::m_posSouthEast>},
    };
}

inline CLayout<CEvent> EventTailLayout()
{
    return {
        {EForm::Text, "m_strDataFolder", Member<CEvent, &CEvent::m_strDataFolder>, 4},
        {EForm::Double, "m_dMaxHDOP", Member<CEvent, &CEvent::m_dMaxHDOP>, 5},
        {EForm::Dword, "m_nMinSats", Member<CEvent, &CEvent::m_nMinSats>, 5},
        {EForm::Double, "m_dDeccThreshold", Member<CEvent, &CEvent::m_dDeccThreshold>, 6},
        {EForm::Double, "m_dSpeedThreshold", Member<CEvent, &CEvent::m_dSpeedThreshold>, 6},
        {EForm::Dword, "m_bCaptureFocus", Member<CEvent, &CEvent::m_bCaptureFocus>, 7},
        {EForm::Double, "m_dZoom", Member<CEvent, &CEvent::m_dZoom>, 8},
        {EForm::Double, "m_dStopRunSpeed", Member<CEvent, &CEvent::m_dStopRunSpeed>, 8},
        {EForm::Double, "m_dStopRunAngle", Member<CEvent, &CEvent::m_dStopRunAngle>, 8},
        {EForm::Double, "m_dTimezone", Member<CEvent, &CEvent::m_dTimezone>, 8},
        {EForm::Double, "m_dDopplerError", Member<CEvent, &CEvent::m_dDopplerError>, 8},
        {EForm::Double, "m_dTrackpointError", Member<CEvent, &CEvent::m_dTrackpointError>, 8},
        {EForm::Double, "", nullptr, 8},
        {EForm::Dword, "m_nSmoothing", Member<CEvent, &CEvent::m_nSmoothing>, 8},
        {EForm::Dword, "m_nSpeedPrecision", Member<CEvent, &CEvent::m_nSpeedPrecision>, 8},
        {EForm::Dword, "m_nTimePrecision", Member<CEvent, &CEvent::m_nTimePrecision>, 8},
        {EForm::Dword, "m_nDistancePrecision", Member<CEvent, &CEvent::m_nDistancePrecision>, 8},
        {EForm::Dword, "m_nLatLongPrecision", Member<CEvent, &CEvent::m_nLatLongPrecision>, 8},
        {EForm::Dword, "", nullptr, 8},
        {EForm::Objects, "m_waypoints", Member<CEvent, &CEvent::m_waypoints>, 10, AnyForm,
         [](CArchiveBytes& bytes) { OneObject(bytes, WayPointLayout(), 2); }},
    };
}

/// An event file of that version up to the trailing double word. Its division is of the schema that tells
/// that a version follows, or of the one before.
inline std::string EventOf(int nVersion, std::map<std::string, double>& values)
{
    const SStoredBody<CEvent> head = MakeBody<CEvent>(EventHeadLayout(), nVersion);
    const SStoredBody<CEvent> tail = MakeBody<CEvent>(EventTailLayout(), nVersion);
    CArchiveBytes bytes;
    bytes.Raw(head.bytes).Word(0);
    OneObject(bytes, DivisionLayout(), nVersion >= 4 ? 6 : 5);
    bytes.Dword(5).Double(1).Double(2);
    if (nVersion >= 4)
        bytes.Dword(static_cast<std::uint64_t>(nVersion)).Raw(tail.bytes);
    values = head.values;
    values.insert(tail.values.begin(), tail.values.end());
    return bytes.Get();
}

} // namespace kestrabel::test
