#pragma once

#include "engine/ResultList.h"
#include "model/Event.h"
#include "platform/Progress.h"

#include <functional>
#include <span>
#include <string>
#include <string_view>

namespace kestrabel {

// Results as comma-separated text: a header line and one line per result with competitor, division, gates,
// track file, start and end time of day in the displayed timezone, seconds, metres, speed and claimed speed
// in the display unit. Fields are separated by ", "; a text with a blank or a comma stands in double quotes,
// quotes inside are not escaped; numbers have one decimal, trimmed. An empty line separates groups.

/// Takes one line, without its terminator (CR LF in a file).
using CLineSink = std::function<void(std::string_view strLine)>;

/// The column titles, with the event's speed unit.
std::string ResultsHeader(const CEvent& event);

/// One result as a line.
std::string ResultLine(const CEvent& event, const CResult& result, std::string_view strCompetitor,
                       std::string_view strDivision);

/// For one competitor (`nPerson`) or all (-1), and each of the divisions in which the competitor takes part:
/// the results of one track file (`nSeries`) or all (-1) from the fastest to the slowest, then an empty line
/// when there were any. Competitors without a track file are left out.
void WriteCompetitorResults(const CEvent& event, int nPerson, int nSeries,
                            std::span<const CDivision* const> divisions, const CLineSink& writeLine,
                            CProgressDisplay& progress);

/// For each of the divisions its leaderboard from rank 1 down, then an empty line when the event has more
/// than one competitor. Shows "Exporting divisions".
void WriteDivisionResults(const CEvent& event, std::span<const CDivision* const> divisions,
                          const CLineSink& writeLine, CProgressDisplay& progress);

/// For every division the leaderboard, or with a competitor (`nPerson` not -1) the best result of the track
/// file; no empty lines. Shows "Exporting all divisions".
void WriteAllDivisions(const CEvent& event, int nPerson, int nSeries, const CLineSink& writeLine,
                       CProgressDisplay& progress);

} // namespace kestrabel
