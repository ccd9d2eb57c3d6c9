#include "engine/WindowAccumulator.h"

#include <cmath>

namespace kestrabel {

namespace {

constexpr double MetresToKilometres = 0.001;
constexpr double TimeTolerance = 0.001;    // seconds: a window of 9.999 s counts as 10 s
constexpr double MeanSpeedDaysToKm = 12.0; // (a + b) km/h over t days: (a + b) / 2 × 24 × t
constexpr int TooManySkipped = 3;          // difference of indexes between two points that are added

double WithAltitude(double dDistance, std::int32_t nFrom, std::int32_t nTo)
{
    if (nFrom == nTo)
        return dDistance;
    const double dHeight = (static_cast<double>(nTo) - static_cast<double>(nFrom)) * MetresToKilometres;
    return std::sqrt(dDistance * dDistance + dHeight * dHeight);
}

} // namespace

CWindowAccumulator::CWindowAccumulator(const CDivision& division, std::uint8_t nInvalidMask)
    : m_dTarget(division.m_nKind == DivisionKind::Distance ? division.m_dMetres * MetresToKilometres
                                                           : division.m_nSeconds - TimeTolerance),
      m_bStrict(division.m_bStrict != 0),
      m_bIsDistance(division.m_nKind == DivisionKind::Distance),
      m_nInvalidMask(nInvalidMask)
{
}

CWindowAccumulator::ESkip CWindowAccumulator::Decide(const CTrackPoint& point)
{
    if (m_bStrict)
        return IsValid(point) ? ESkip::Add : ESkip::Refuse;
    if (!IsValid(point))
        return ESkip::Skip;
    if (point.m_nTrack - m_pLast->m_nTrack >= TooManySkipped) {
        m_pLast = &point;
        return ESkip::Refuse;
    }
    return ESkip::Add;
}

void CStraightAccumulator::MeasureTo(const CTrackPoint& point)
{
    const double dSeconds = SecondsBetween(m_pFirst->m_time, point.m_time);
    m_dDistance = m_calculator.Distance(m_pFirst->m_position, point.m_position);
    m_dTime = dSeconds * DaysPerSecond;
    m_dSumStepSquares = dSeconds * dSeconds;
}

bool CStraightAccumulator::Add(const CTrackPoint& point)
{
    if (IsValid(point)) {
        MeasureTo(point);
    } else {
        m_dDistance = 0.0;
        m_dTime = 0.0;
        m_dSumStepSquares = 0.0;
    }
    return true;
}

bool CStraightAltitudeAccumulator::Add(const CTrackPoint& point)
{
    if (!IsValid(point)) {
        m_dDistance = 0.0;
        return !m_bStrict;
    }
    MeasureTo(point);
    m_dDistance = WithAltitude(m_dDistance, m_pFirst->m_nAltitude, point.m_nAltitude);
    return true;
}

bool CTrackAccumulator::AddStep(const CTrackPoint& point)
{
    const ESkip decision = Decide(point);
    if (decision != ESkip::Add)
        return decision == ESkip::Skip;
    m_dDistance += m_calculator.Distance(m_pLast->m_position, point.m_position);
    const double dSeconds = SecondsBetween(m_pLast->m_time, point.m_time);
    m_dTime += dSeconds * DaysPerSecond;
    m_dLastStepSquared = dSeconds * dSeconds;
    m_dSumStepSquares += m_dLastStepSquared;
    m_pLast = &point;
    return true;
}

bool CTrackAltitudeAccumulator::Add(const CTrackPoint& point)
{
    const ESkip decision = Decide(point);
    if (decision != ESkip::Add)
        return decision == ESkip::Skip;
    const double dStep =
        m_bStrict ? point.m_dDistance : m_calculator.Distance(m_pLast->m_position, point.m_position);
    const double dSeconds = m_bStrict ? point.StepSeconds() : SecondsBetween(m_pLast->m_time, point.m_time);
    m_dTime += dSeconds * DaysPerSecond;
    m_dLastStepSquared = dSeconds * dSeconds;
    m_dSumStepSquares += m_dLastStepSquared;
    m_dDistance += WithAltitude(dStep, m_pLast->m_nAltitude, point.m_nAltitude);
    m_pLast = &point;
    return true;
}

bool CDopplerAccumulator::AddStep(const CTrackPoint& point)
{
    const ESkip decision = Decide(point);
    if (decision != ESkip::Add)
        return decision == ESkip::Skip;
    const double dSeconds = SecondsBetween(m_pLast->m_time, point.m_time);
    const double dDays = dSeconds * DaysPerSecond;
    m_dDistance += (m_pLast->m_dDoppler + point.m_dDoppler) * dDays * MeanSpeedDaysToKm;
    m_dTime += dDays;
    m_dLastStepSquared = dSeconds * dSeconds;
    m_dSumStepSquares += m_dLastStepSquared;
    m_pLast = &point;
    return true;
}

bool CDopplerAltitudeAccumulator::Add(const CTrackPoint& point)
{
    const ESkip decision = Decide(point);
    if (decision != ESkip::Add)
        return decision == ESkip::Skip;
    const double dSeconds = SecondsBetween(m_pLast->m_time, point.m_time);
    const double dDays = dSeconds * DaysPerSecond;
    m_dTime += dDays;
    m_dLastStepSquared = dSeconds * dSeconds;
    m_dSumStepSquares += m_dLastStepSquared;
    const double dDopplerSum = m_pLast->m_dDoppler + point.m_dDoppler;
    if (point.m_dVertSpeed != 0.0) {
        const double dHorizontal = dDopplerSum * dDays * MeanSpeedDaysToKm;
        const double dVertical = (m_pLast->m_dVertSpeed + point.m_dVertSpeed) * dDays * MeanSpeedDaysToKm;
        m_dDistance += std::sqrt(dHorizontal * dHorizontal + dVertical * dVertical);
    } else {
        m_dDistance += dDopplerSum * point.m_dDeltaTime * MeanSpeedDaysToKm;
    }
    m_pLast = &point;
    return true;
}

std::unique_ptr<CWindowAccumulator> CreateWindowAccumulator(const CDivision& division, bool bUseDoppler)
{
    const bool bAccumulation = division.m_bAccumulation != 0;
    const bool bAltitude = division.m_bUseAltitude != 0;
    if (bUseDoppler) {
        if (bAccumulation && bAltitude)
            return std::make_unique<CDopplerAltitudeAccumulator>(division);
        return std::make_unique<CDopplerAccumulator>(division);
    }
    if (bAccumulation) {
        if (bAltitude)
            return std::make_unique<CTrackAltitudeAccumulator>(division);
        return std::make_unique<CTrackAccumulator>(division);
    }
    if (bAltitude)
        return std::make_unique<CStraightAltitudeAccumulator>(division);
    return std::make_unique<CStraightAccumulator>(division);
}

} // namespace kestrabel
