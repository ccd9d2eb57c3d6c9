#include "cli/PointsCommand.h"

#include "cli/CsvLines.h"
#include "cli/JsonMembers.h"
#include "present/TrackPointGrid.h"

#include <vector>

namespace kestrabel {

namespace {

std::vector<EPointColumn> ChooseColumns(bool bAllFields)
{
    std::vector<EPointColumn> columns;
    const std::span<const SGridColumn> table = TrackPointColumns();
    for (std::size_t i = 0; i < table.size(); ++i) {
        if (bAllFields || table[i].bShown)
            columns.push_back(static_cast<EPointColumn>(i));
    }
    return columns;
}

void WriteJson(const CSeries& series, COutput& output)
{
    CJsonWriter json(output);
    json.BeginObject();
    json.BeginObject("trackFile");
    WriteTrackFileMembers(json, series);
    json.EndObject();
    json.BeginArray("points");
    for (const CTrackPoint* pPoint : series.m_points) {
        json.BeginObject();
        WritePointMembers(json, *pPoint);
        json.EndObject();
    }
    json.EndArray();
    json.EndObject();
}

} // namespace

void PrintPoints(const CEvent& event, const CSeries& series, EFormat format, bool bAllFields, COutput& output)
{
    if (format == EFormat::Json)
        WriteJson(series, output);
    else
        WriteGrid(event, series.m_points, ChooseColumns(bAllFields), CsvLines(output));
}

} // namespace kestrabel
