#include "cli/ProjectJson.h"

#include "cli/JsonWriter.h"
#include "model/EventSettings.h"

namespace kestrabel {

namespace {

void WriteDegrees(CJsonWriter& json, const CPosition& position)
{
    json.Number("latitude", position.m_dLatitude);
    json.Number("longitude", position.m_dLongitude);
}

/// Writes one setting; an overload for each type that there is.
struct SSettingWriter
{
    CJsonWriter& json;
    std::string_view strName;

    void operator()(const std::string& strValue) const { json.Text(strName, strValue); }
    void operator()(std::int32_t nValue) const { json.Integer(strName, nValue); }
    void operator()(double dValue) const { json.Number(strName, dValue); }
    void operator()(const DATE& date) const
    {
        if (date.IsValid())
            json.Number(strName, date.m_dDays);
        else
            json.Null(strName);
    }
    void operator()(const CPosition& position) const
    {
        json.BeginObject(strName);
        WriteDegrees(json, position);
        json.EndObject();
    }
    void operator()(const CEllipsoid& ellipsoid) const
    {
        json.BeginObject(strName);
        json.Integer("index", ellipsoid.m_nEllipsoid);
        json.Number("radius", ellipsoid.m_dRadius);
        json.Number("invFlattening", ellipsoid.m_dInvFlattening);
        json.EndObject();
    }
};

void WriteWayPoints(CJsonWriter& json, const CObjectArray<CWayPoint>& waypoints)
{
    json.BeginArray("waypoints");
    for (const CWayPoint* pWayPoint : waypoints) {
        json.BeginObject();
        json.Text("name", pWayPoint->m_strName);
        WriteDegrees(json, pWayPoint->m_position);
        json.Number("proximityKm", pWayPoint->m_dProximity);
        json.EndObject();
    }
    json.EndArray();
}

void WriteDivision(CJsonWriter& json, const CDivision& division)
{
    json.BeginObject();
    json.Text("name", division.m_strName);
    json.Integer("kind", division.m_nKind);
    json.Number("metres", division.m_dMetres);
    json.Integer("seconds", division.m_nSeconds);
    json.Integer("averageRuns", division.m_nAverageRuns);
    json.Boolean("accumulation", division.m_bAccumulation != 0);
    json.Boolean("oneResultPerRun", division.m_bOneResultPerRun != 0);
    json.Boolean("useAltitude", division.m_bUseAltitude != 0);
    json.Number("proximityKm", division.m_dProximity);
    json.Integer("calcUsing", division.m_nCalcUsing);
    json.Boolean("strict", division.m_bStrict != 0);
    json.Number("minCalcInterval", division.m_dMinCalcInterval);
    json.Integer("startAt", division.m_nStartAt);
    WriteWayPoints(json, division.m_waypoints);
    json.EndObject();
}

} // namespace

void WriteProjectJson(const CEvent& event, std::string_view strProjectPath, COutput& output)
{
    CJsonWriter json(output);
    json.BeginObject();
    json.BeginObject("settings");
    for (const SEventSetting& setting : EventSettings())
        std::visit([&](auto pField) { SSettingWriter{json, setting.strName}(event.*pField); }, setting.field);
    json.EndObject();
    json.BeginArray("divisions");
    for (const CDivision* pDivision : event.m_divisions)
        WriteDivision(json, *pDivision);
    json.EndArray();
    WriteWayPoints(json, event.m_waypoints);
    json.Text("path", strProjectPath);
    json.EndObject();
}

} // namespace kestrabel
