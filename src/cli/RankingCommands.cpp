#include "cli/RankingCommands.h"

#include "cli/CsvLines.h"
#include "cli/ResultJson.h"
#include "cli/ResultTable.h"
#include "engine/ResultsExport.h"

namespace kestrabel {

void PrintResults(const CEvent& event, CDivisionSpan divisions, EFormat format, COutput& output,
                  CProgressDisplay& progress)
{
    switch (format) {
    case EFormat::Table: WriteResultsTable(event, CollectResults(event, divisions, progress), output); break;
    case EFormat::Csv: WriteCompetitorResults(event, -1, -1, divisions, CsvLines(output), progress); break;
    case EFormat::Json: WriteResultsJson(CollectResults(event, divisions, progress), output); break;
    }
}

void PrintLeaderboard(const CEvent& event, CDivisionSpan divisions, EFormat format, COutput& output,
                      CProgressDisplay& progress)
{
    switch (format) {
    case EFormat::Table:
        WriteLeaderboardTable(event, CollectLeaderboards(event, divisions, progress), output);
        break;
    case EFormat::Csv: WriteDivisionResults(event, divisions, CsvLines(output), progress); break;
    case EFormat::Json: WriteLeaderboardJson(CollectLeaderboards(event, divisions, progress), output); break;
    }
}

} // namespace kestrabel
