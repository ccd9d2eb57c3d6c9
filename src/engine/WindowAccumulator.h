#pragma once

#include "geo/DistanceCalculator.h"
#include "model/Division.h"
#include "model/TrackPoint.h"

#include <memory>

namespace kestrabel {

/// Measures the window of a Distance or Time division while it grows point by point: its distance, its
/// duration, and whether it has reached the division's target. One class per way of measuring:
///
///                                      positions                     Doppler
///     straight line                    CStraightAccumulator          CDopplerAccumulator
///     straight line with altitude      CStraightAltitudeAccumulator  CDopplerAccumulator
///     summed along the track           CTrackAccumulator             CDopplerAccumulator
///     summed with altitude             CTrackAltitudeAccumulator     CDopplerAltitudeAccumulator
///
/// Points belong to the track file and outlive the accumulator. Straight lines and rescanned sums are
/// measured on WGS84, whatever ellipsoid the track file was derived with.
class CWindowAccumulator
{
public:
    CWindowAccumulator(const CDivision& division, std::uint8_t nInvalidMask);
    virtual ~CWindowAccumulator() = default;

    /// True when a window cannot resume from the previous window's end: every new start must then add its
    /// points from the beginning.
    virtual bool NeedsRescan() const = 0;
    /// True when the point is valid for this way of measuring.
    bool IsValid(const CTrackPoint& point) const { return point.IsValidFor(m_nInvalidMask); }
    /// Extends the window to the point; false refuses it and abandons the window.
    virtual bool Add(const CTrackPoint& point) = 0;
    /// Begins a window at the point; false when it is not valid.
    bool Start(const CTrackPoint& point)
    {
        if (!IsValid(point))
            return false;
        m_pFirst = m_pLast = &point;
        m_dDistance = 0.0;
        m_dTime = 0.0;
        m_dSumStepSquares = 0.0;
        m_dLastStepSquared = 0.0;
        return true;
    }
    /// True when the window is as long as the division asks for.
    bool Reached() const
    {
        if (m_bIsDistance)
            return m_dDistance >= m_dTarget;
        // Most windows are far too short, and told so without rounding.
        constexpr double dRoundsAtMost = 0.01; // seconds
        if (m_bFromTotals &&
            (m_pLast->m_time.m_dDays - m_pFirst->m_time.m_dDays) * SecondsPerDay < m_dTarget - dRoundsAtMost)
            return false;
        return Time() * SecondsPerDay >= m_dTarget;
    }
    /// km/h; 0 for a window without duration.
    double Speed() const
    {
        const double dTime = Time();
        return dTime == 0.0 ? 0.0 : m_dDistance * 3600.0 / (dTime * SecondsPerDay);
    }

    double Distance() const { return m_dDistance; } ///< km
    /// What Reached compares with: km for a distance, else seconds.
    double Target() const { return m_dTarget; }
    bool IsDistance() const { return m_bIsDistance; }

    // What a window measured from the running totals of the points lasts is worked out when it is asked for:
    // most windows are only asked whether they have reached the target.

    /// days
    double Time() const
    {
        return m_bFromTotals ? SecondsBetween(m_pFirst->m_time, m_pLast->m_time) * DaysPerSecond : m_dTime;
    }
    /// s², over the steps of the window
    double SumStepSquares() const
    {
        return m_bFromTotals ? m_pLast->m_dSumStepSquares - m_pFirst->m_dSumStepSquares : m_dSumStepSquares;
    }
    /// s²
    double LastStepSquared() const
    {
        const double dStep = m_bFromTotals ? m_pLast->StepSeconds() : 0.0;
        return m_bFromTotals ? dStep * dStep : m_dLastStepSquared;
    }

protected:
    enum class ESkip
    {
        Add,
        Skip,
        Refuse
    };

    /// What a summing accumulator does with a point: strict ones refuse an invalid point; the others skip it,
    /// and refuse the valid point behind two or more skipped ones, from which the window goes on.
    ESkip Decide(const CTrackPoint& point);

    CDistanceCalculator m_calculator;
    double m_dDistance = 0.0;
    double m_dTime = 0.0;
    double m_dTarget;
    bool m_bStrict;
    bool m_bFromTotals = false; ///< the window is the difference of two points' running totals
    const CTrackPoint* m_pFirst = nullptr;
    const CTrackPoint* m_pLast = nullptr;
    bool m_bIsDistance;
    double m_dSumStepSquares = 0.0;
    double m_dLastStepSquared = 0.0;

private:
    std::uint8_t m_nInvalidMask;
};

/// From the first point straight to the last; an invalid point on the way does not matter.
class CStraightAccumulator : public CWindowAccumulator
{
public:
    explicit CStraightAccumulator(const CDivision& division)
        : CWindowAccumulator(division, InvalidMask::Trackpoint)
    {
    }
    bool NeedsRescan() const override { return false; }
    bool Add(const CTrackPoint& point) override;

protected:
    void MeasureTo(const CTrackPoint& point);
};

/// The same with the difference of altitude between both ends.
class CStraightAltitudeAccumulator final : public CStraightAccumulator
{
public:
    using CStraightAccumulator::CStraightAccumulator;
    bool Add(const CTrackPoint& point) override;
};

/// The path along the track: strict from the running totals of the points, else step by step.
class CTrackAccumulator final : public CWindowAccumulator
{
public:
    explicit CTrackAccumulator(const CDivision& division)
        : CWindowAccumulator(division, InvalidMask::Trackpoint)
    {
        m_bFromTotals = m_bStrict;
    }
    bool NeedsRescan() const override { return !m_bStrict; }
    bool Add(const CTrackPoint& point) override
    {
        if (!m_bFromTotals)
            return AddStep(point);
        if (!IsValid(point))
            return false;
        m_dDistance = point.m_dTotalDistance - m_pFirst->m_dTotalDistance;
        m_pLast = &point;
        return true;
    }

private:
    bool AddStep(const CTrackPoint& point);
};

/// The path along the track, each step with its change of altitude.
class CTrackAltitudeAccumulator final : public CWindowAccumulator
{
public:
    explicit CTrackAltitudeAccumulator(const CDivision& division)
        : CWindowAccumulator(division, InvalidMask::Trackpoint)
    {
    }
    bool NeedsRescan() const override { return true; }
    bool Add(const CTrackPoint& point) override;
};

/// The path by Doppler speed: strict from the running totals of the points, else step by step.
class CDopplerAccumulator final : public CWindowAccumulator
{
public:
    explicit CDopplerAccumulator(const CDivision& division)
        : CWindowAccumulator(division, InvalidMask::Doppler)
    {
        m_bFromTotals = m_bStrict;
    }
    bool NeedsRescan() const override { return !m_bStrict; }
    bool Add(const CTrackPoint& point) override
    {
        if (!m_bFromTotals)
            return AddStep(point);
        if (!IsValid(point))
            return false;
        m_dDistance = point.m_dTotalDopplerDistance - m_pFirst->m_dTotalDopplerDistance;
        m_pLast = &point;
        return true;
    }

private:
    bool AddStep(const CTrackPoint& point);
};

/// The path by Doppler and vertical speed.
class CDopplerAltitudeAccumulator final : public CWindowAccumulator
{
public:
    explicit CDopplerAltitudeAccumulator(const CDivision& division)
        : CWindowAccumulator(division, InvalidMask::Doppler)
    {
    }
    bool NeedsRescan() const override { return true; }
    bool Add(const CTrackPoint& point) override;
};

/// The accumulator for the division's "Accumulation Method" and "Use Altitude" and the speed chosen.
std::unique_ptr<CWindowAccumulator> CreateWindowAccumulator(const CDivision& division, bool bUseDoppler);

} // namespace kestrabel
