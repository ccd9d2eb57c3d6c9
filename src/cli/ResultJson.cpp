#include "cli/ResultJson.h"

#include "cli/JsonMembers.h"

namespace kestrabel {

namespace {

void WriteDivisions(CJsonWriter& json, const std::vector<SDivisionResults>& divisions)
{
    json.BeginArray("divisions");
    for (const SDivisionResults& division : divisions) {
        json.BeginObject();
        json.Text("division", division.pDivision->m_strName);
        json.BeginArray("results");
        for (int i = division.results.GetCount() - 1; i >= 0; --i) {
            json.BeginObject();
            WriteResultMembers(json, division.results[i]);
            json.EndObject();
        }
        json.EndArray();
        json.EndObject();
    }
    json.EndArray();
}

} // namespace

void WriteResultsJson(const std::vector<SCompetitorResults>& competitors, COutput& output)
{
    CJsonWriter json(output);
    json.BeginObject();
    json.BeginArray("competitors");
    for (const SCompetitorResults& competitor : competitors) {
        json.BeginObject();
        json.Text("name", competitor.pPerson->m_strName);
        WriteDivisions(json, competitor.divisions);
        json.EndObject();
    }
    json.EndArray();
    json.EndObject();
}

void WriteLeaderboardJson(const std::vector<SDivisionResults>& leaderboards, COutput& output)
{
    CJsonWriter json(output);
    json.BeginObject();
    WriteDivisions(json, leaderboards);
    json.EndObject();
}

} // namespace kestrabel
