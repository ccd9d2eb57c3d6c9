#include "model/TrackPoint.h"

#include "platform/BlockPool.h"

#include <array>
#include <utility>

namespace kestrabel {

static_assert(sizeof(CTrackPoint) == 192, "three cache lines");

constinit const CClassRecord CTrackPoint::Class = {
    "CTrackPoint", 10, []() -> std::unique_ptr<CPersistent> { return std::make_unique<CTrackPoint>(); }};

namespace {

/// Never destroyed, since points may be among the last things to go. It holds memory, no values.
CBlockPool& PointPool()
{
    static CBlockPool& pool = *new CBlockPool(sizeof(CTrackPoint));
    return pool;
}

} // namespace

void* CTrackPoint::operator new(std::size_t nSize)
{
    return nSize == sizeof(CTrackPoint) ? PointPool().Allocate() : ::operator new(nSize);
}

void CTrackPoint::operator delete(void* pPoint, std::size_t nSize) noexcept
{
    if (nSize == sizeof(CTrackPoint))
        PointPool().Free(pPoint);
    else
        ::operator delete(pPoint);
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

std::string InvalidLetters(std::uint8_t nFlags)
{
    static constexpr std::array<std::pair<std::uint16_t, char>, 7> letters = {{
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
