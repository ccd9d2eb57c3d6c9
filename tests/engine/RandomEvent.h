#pragma once

#include "engine/RandomTrack.h"
#include "engine/TestEvent.h"

#include <array>
#include <gtest/gtest.h>
#include <string>

namespace kestrabel::test {

struct STrackCase
{
    const char* strName;
    int nTracks;
    int nFewest; ///< points
    int nMost;
    STrackFaults faults;
};

inline constexpr std::array<STrackCase, 5> TrackCases = {{
    {"clean", 6, 200, 600, {.dTime = 0, .dPosition = 0, .dUserMark = 0, .dSpike = 0, .dReception = 0}},
    {"ordinary", 12, 200, 800, {}},
    {"terrible", 5, 150, 300, {.dTime = 0.05, .dPosition = 0.02, .dUserMark = 0.05, .dSpike = 0.05}},
    {"derived before", 5, 100, 300, {.dTime = 0.04, .bStale = true}},
    {"tiny", 40, 2, 12, {.dTime = 0.06, .dPosition = 0.03, .dUserMark = 0.05, .dSpike = 0.05}},
}};

/// An event with one competitor and one random track file.
struct SRandomEvent
{
    SRandomEvent(const STrackCase& trackCase, std::uint64_t nSeed) : event(DATE(45444.0)), random(nSeed)
    {
        SetRandomSettings(random, event);
        pPerson = &AddPerson(event, "Rider");
        const int nSpan = trackCase.nMost - trackCase.nFewest + 1;
        pSeries = &pPerson->m_series.Add(
            MakeRandomTrack(random, event, trackCase.nFewest + random.Below(nSpan), trackCase.faults));
        pSeries->m_strName = "Track";
    }

    CEvent event;
    CRandom random;
    CPerson* pPerson = nullptr;
    CSeries* pSeries = nullptr;
};

/// Calls `check(trackCase, seed)` for every track of the table.
template <class TCheck>
void ForEachTrack(TCheck&& check)
{
    std::uint64_t nSeed = 1000;
    for (const STrackCase& trackCase : TrackCases) {
        for (int i = 0; i < trackCase.nTracks; ++i, ++nSeed) {
            SCOPED_TRACE(std::string(trackCase.strName) + " track, seed " + std::to_string(nSeed));
            check(trackCase, nSeed);
            if (testing::Test::HasFatalFailure())
                return;
        }
    }
}

} // namespace kestrabel::test
