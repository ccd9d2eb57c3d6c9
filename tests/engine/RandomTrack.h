#pragma once

#include "engine/TestEvent.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <gtest/gtest.h>
#include <initializer_list>
#include <memory>
#include <random>
#include <string>

// Tracks as no logger should write them and every season brings: stops, turns, spikes, gaps of exactly the
// threshold, equal and backward times, lost positions, poor reception. The same seed gives the same track.

namespace kestrabel::test {

class CRandom
{
public:
    explicit CRandom(std::uint64_t nSeed) : m_engine(nSeed) {}

    /// From 0 to nLimit - 1.
    int Below(int nLimit) { return static_cast<int>(m_engine() % static_cast<std::uint64_t>(nLimit)); }
    double Between(double dLow, double dHigh)
    {
        return dLow + (dHigh - dLow) * static_cast<double>(m_engine() >> 11) * 0x1p-53;
    }
    bool Chance(double dProbability) { return Between(0.0, 1.0) < dProbability; }
    template <class T>
    T OneOf(std::initializer_list<T> values)
    {
        return values.begin()[Below(static_cast<int>(values.size()))];
    }

private:
    std::mt19937_64 m_engine;
};

/// How bad a random track is; each a probability per point, but for those that say otherwise.
struct STrackFaults
{
    double dTime = 0.01;      ///< a gap, an equal or a backward time
    double dPosition = 0.005; ///< latitude or longitude 0
    double dUserMark = 0.01;
    double dSpike = 0.01;
    double dReception = 0.01; ///< HDOP or satellites outside the limits
    bool bStale = false;      ///< the derived values hold something from before, for the whole track
};

inline void SetRandomSettings(CRandom& random, CEvent& event)
{
    event.m_nTimeThreshold = random.OneOf({10, 10, 200});
    event.m_dMaxHDOP = random.OneOf({1000.0, 1000.0, 2.5});
    event.m_nMinSats = random.OneOf({0, 0, 5});
    event.m_dStopRunSpeed = random.OneOf({18.52, 18.52, 0.0, 9.26});
    event.m_dStopRunAngle = random.OneOf({1.5707963267948966, 0.5, 3.0});
    event.m_dAccThreshold = random.OneOf({9.26, 40.0});
    event.m_dDeccThreshold = random.OneOf({18.52, 40.0});
    event.m_nSpeedUnits = random.Below(4);
    event.m_dDopplerError = random.OneOf({0.0, 1.3});
}

namespace detail {

/// The rider: straight runs, stops, hesitation around the stop speed, turns, standing still.
struct SRider
{
    double dSpeed = 0.0;   ///< km/h
    double dHeading = 0.5; ///< radians
    double dTurn = 0.0;    ///< radians per second
    double dWanted = 40.0; ///< km/h
    bool bOnBeach = false;

    void Decide(CRandom& random)
    {
        bOnBeach = false;
        dTurn = 0.0;
        switch (random.Below(6)) {
        case 0: dWanted = random.Between(0.0, 12.0); break;
        case 1: dWanted = random.Between(17.0, 20.5); break;
        case 2: dTurn = random.Between(-0.7, 0.7); break;
        case 3: bOnBeach = random.Chance(0.5); break;
        default: dWanted = random.Between(25.0, 75.0); break;
        }
    }

    void Ride(CRandom& random, CPosition& position, double dSeconds)
    {
        dSpeed += std::clamp(dWanted - dSpeed, -12.0 * dSeconds, 6.0 * dSeconds);
        dHeading += dTurn * dSeconds + random.Between(-0.02, 0.02);
        dHeading = std::fmod(dHeading + 6.283185307179586, 6.283185307179586);
        constexpr double dDegreesPerMetre = 1.0 / 111120.0;
        // On the beach the fix wanders by millimetres, where the distance can come out as no number.
        const double dMetres = bOnBeach ? random.Between(0.0, 0.02) : dSpeed / 3.6 * dSeconds;
        position.m_dLatitude += dMetres * std::cos(dHeading) * dDegreesPerMetre;
        position.m_dLongitude += dMetres * std::sin(dHeading) * dDegreesPerMetre / 0.78;
    }
};

inline void MakeStale(CRandom& random, CTrackPoint& point)
{
    point.m_nInvalidFlags = static_cast<decltype(point.m_nInvalidFlags)>(random.Below(0x80) & ~1);
    point.m_dDeltaTime = random.OneOf({0.0, 1.0, 12.5}) / 86400.0;
    point.m_dDistance = random.Between(0.0, 0.02);
    point.m_dSpeed = random.Between(0.0, 90.0);
    point.m_dDopplerStep = random.Between(0.0, 0.02);
    point.m_dTotalDistance = point.m_dTotalDopplerDistance = point.m_dSumStepSquares = 99.0;
    point.m_dWindAngle = random.Between(0.0, 3.0);
    point.m_nRun = random.Below(4);
    point.m_nDopplerRun = random.Below(4);
    point.m_nTrack = 777;
}

} // namespace detail

inline std::unique_ptr<CSeries> MakeRandomTrack(CRandom& random, const CEvent& event, int nPoints,
                                                const STrackFaults& faults)
{
    auto pSeries = std::make_unique<CSeries>();
    pSeries->m_dWindDirection = random.OneOf({0.0, 90.0, 350.0});
    pSeries->m_dDopplerError = random.OneOf({0.0, 0.0, 0.7});
    pSeries->m_ellipsoid.SetEllipsoid(random.OneOf({1, 1, 5}), 0.0, 0.0);
    const bool bDoppler = random.Chance(0.7);
    const bool bCourse = bDoppler && random.Chance(0.5);
    const bool bVertical = bDoppler && random.Chance(0.6);
    const double dInterval = random.OneOf({1.0, 1.0, 0.5, 0.2, 0.1});

    detail::SRider rider;
    CPosition position = MakePosition(random.Between(-50.0, 60.0), random.Between(-170.0, 170.0));
    double dSecond = 36000.0;
    // Some tracks cross into the year 2000, before which no time is trusted.
    const double dDay = random.Chance(0.1) ? 36525.58 : 45444.0;
    int nAltitude = 3;
    for (int i = 0; i < nPoints; ++i) {
        if (random.Chance(0.04))
            rider.Decide(random);
        const double dGap = event.m_nTimeThreshold;
        dSecond += !random.Chance(faults.dTime)
                       ? dInterval
                       : random.OneOf({dGap, dGap - 0.001, dGap + 0.001, 2.0 * dGap, 0.0, 0.0004, 0.0009,
                                       -0.5, -3.0, -25.0, 3.0 * dInterval});
        rider.Ride(random, position, dInterval);
        if (random.Chance(0.2))
            nAltitude += random.Below(7) - 3;

        auto pPoint = std::make_unique<CTrackPoint>();
        CTrackPoint& point = *pPoint;
        if (faults.bStale)
            detail::MakeStale(random, point);
        point.m_time = DATE(dDay + dSecond / 86400.0);
        if (random.Chance(faults.dTime * 0.05))
            point.m_time = random.Chance(0.5) ? DATE::MakeInvalid() : DATE(36525.0);
        point.m_position = position;
        if (random.Chance(faults.dSpike))
            point.m_position.m_dLatitude += random.Between(-0.0005, 0.0005);
        if (random.Chance(faults.dPosition))
            (random.Chance(0.5) ? point.m_position.m_dLatitude : point.m_position.m_dLongitude) = 0.0;
        if (random.Chance(faults.dUserMark))
            point.m_nInvalidFlags |= 1;
        point.m_nAltitude = nAltitude;
        if (bDoppler)
            point.m_dDoppler = std::max(0.0, rider.dSpeed + dInterval * random.Between(-1.5, 1.5)) *
                               (random.Chance(faults.dSpike) ? 2.5 : 1.0);
        if (bCourse)
            point.m_dDirection = random.Chance(0.1) ? 0.0 : rider.dHeading;
        else if (faults.bStale)
            point.m_dDirection = random.Between(0.0, 6.28);
        if (bVertical && random.Chance(0.7))
            point.m_dVertSpeed = random.Between(-6.0, 6.0);
        const bool bPoor = random.Chance(faults.dReception);
        point.m_dHDOP = bPoor ? random.OneOf({2.5, 2.6, 9.9, 12.0, 2000.0}) : random.Between(0.7, 2.0);
        point.m_nSats = bPoor ? random.OneOf({0, 4, 5}) : 6 + random.Below(7);
        pSeries->m_points.Add(std::move(pPoint));
    }
    return pSeries;
}

/// The same fixes with everything that a derivation reads or writes; no records, no checkpoints.
inline std::unique_ptr<CSeries> CopyTrack(const CSeries& series)
{
    auto pCopy = std::make_unique<CSeries>();
    pCopy->m_strName = series.m_strName;
    pCopy->m_dWindDirection = series.m_dWindDirection;
    pCopy->m_dDopplerError = series.m_dDopplerError;
    pCopy->m_ellipsoid = series.m_ellipsoid;
    pCopy->m_nSeriesIndex = series.m_nSeriesIndex;
    pCopy->m_nPersonIndex = series.m_nPersonIndex;
    for (const CTrackPoint* pPoint : series.m_points)
        pCopy->m_points.Add(std::make_unique<CTrackPoint>(*pPoint));
    return pCopy;
}

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
