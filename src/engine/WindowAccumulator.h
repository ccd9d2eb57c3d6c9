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
    CWindowAccumulator(const CDivision& division, std::uint32_t nInvalidMask);
    virtual ~CWindowAccumulator() = default;

    /// True when a window cannot resume from the previous window's end: every new start must then add its
    /// points from the beginning.
    virtual bool NeedsRescan() const = 0;
    /// True when the point is valid for this way of measuring.
    bool IsValid(const CTrackPoint& point) const { return point.IsValidFor(m_nInvalidMask); }
    /// Extends the window to the point; false refuses it and abandons the window.
    virtual bool Add(const CTrackPoint& point) = 0;
    /// Begins a window at the point; false when it is not valid.
    bool Start(const CTrackPoint& point);
    /// True when the window is as long as the division asks for.
    bool Reached() const { return (m_bIsDistance ? m_dDistance : m_dTime * SecondsPerDay) >= m_dTarget; }
    /// km/h; 0 for a window without duration.
    double Speed() const { return m_dTime == 0.0 ? 0.0 : m_dDistance * 3600.0 / (m_dTime * SecondsPerDay); }

    double Distance() const { return m_dDistance; }               ///< km
    double Time() const { return m_dTime; }                       ///< days
    double SumStepSquares() const { return m_dSumStepSquares; }   ///< s², of the window's steps
    double LastStepSquared() const { return m_dLastStepSquared; } ///< s²

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
    const CTrackPoint* m_pFirst = nullptr;
    const CTrackPoint* m_pLast = nullptr;
    bool m_bIsDistance;
    double m_dSumStepSquares = 0.0;
    double m_dLastStepSquared = 0.0;

private:
    std::uint32_t m_nInvalidMask;
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
    }
    bool NeedsRescan() const override { return !m_bStrict; }
    bool Add(const CTrackPoint& point) override;
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
    }
    bool NeedsRescan() const override { return !m_bStrict; }
    bool Add(const CTrackPoint& point) override;
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
