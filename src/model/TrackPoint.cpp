#include "model/TrackPoint.h"

#include "geo/Rounding.h"

#include <array>
#include <utility>

namespace kestrabel {

static_assert(sizeof(CTrackPoint) <= 200, "a million fixes have to fit in 256 bytes each, malloc included");

constinit const CClassRecord CTrackPoint::Class = {
    "CTrackPoint", 10, []() -> std::unique_ptr<CPersistent> { return std::make_unique<CTrackPoint>(); }};

double CTrackPoint::StepSeconds() const
{
    return RoundTo(m_dDeltaTime * SecondsPerDay, 3);
}

void CTrackPoint::ClearDerived()
{
    m_nInvalidFlags = 0;
    m_nRun = 0;
    m_nDopplerRun = 0;
    m_dSpeed = 0.0;
    m_dTotalDistance = 0.0;
    m_dDeltaTime = 0.0;
    m_dSumStepSquares = 0.0;
    m_dTotalDopplerDistance = 0.0;
    m_dDistance = 0.0;
    m_dDopplerStep = 0.0;
    m_dDirection = 0.0;
    m_dWindAngle = 0.0;
    m_nTrack = 0;
    m_nSeriesIndex = 0;
}

std::string InvalidLetters(std::uint32_t nFlags)
{
    static constexpr std::array<std::pair<std::uint32_t, char>, 7> letters = {{
        {InvalidFlag::DopplerSpike, 'D'},
        {InvalidFlag::SpeedSpike, 'S'},
        {InvalidFlag::Time, 'T'},
        {InvalidFlag::User, 'P'},
        {InvalidFlag::NoPosition, 'L'},
        {InvalidFlag::Satellites, 'A'},
        {InvalidFlag::Hdop, 'H'},
    }};
    std::string strLetters;
    for (const auto& [nFlag, cLetter] : letters) {
        if ((nFlags & nFlag) != 0)
            strLetters += cLetter;
    }
    return strLetters;
}

bool StartsGap(const CTrackPoint* pPrevious, const CTrackPoint& point, std::int32_t nTimeThreshold)
{
    if (pPrevious == nullptr)
        return false;
    return point.StepSeconds() >= nTimeThreshold ||
           SecondsBetween(pPrevious->m_time, point.m_time) >= nTimeThreshold;
}

} // namespace kestrabel
