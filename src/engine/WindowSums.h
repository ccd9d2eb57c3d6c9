#pragma once

#include "engine/Candidate.h"
#include "engine/IndexList.h"
#include "engine/WindowAccumulator.h"
#include "platform/LargeVector.h"

#include <cstdint>
#include <optional>

namespace kestrabel {

/// Finds the windows of an accumulator that would have to add its points anew for every start, in linear
/// time. A rider who rests at anchor for an hour otherwise costs the square of that hour.
///
/// What a point adds to a window does not depend on where the window started, so running totals tell nearly
/// where each window ends. They are kept in whole units (2^-45 km and milliseconds), which can be
/// subtracted without loss; what the accumulator's own rounding may differ from them is bounded. Where that
/// bound leaves a doubt, and around steps that are no ordinary ones (a clock that ran backwards, a negative
/// speed), the accumulator itself is asked. The ends found are those it finds, always.
class CWindowSums
{
public:
    /// Borrows both. The accumulator must be one that rescans.
    CWindowSums(const CObjectArray<CTrackPoint>& points, CWindowAccumulator& accumulator);

    /// The first point behind a valid start that the accumulator would refuse; the number of points when
    /// there is none.
    int FirstRefused(int nStart) { return m_refused.FirstAfter(nStart, m_points.GetCount()); }

    /// The window from a valid start, when it reaches the target before the point `nLimit`, which is not
    /// beyond the first refused one. Its speed is the true one or a bit above. Quickest for one start after
    /// another.
    std::optional<SCandidate> Find(int nStart, int nLimit);

private:
    struct STotals
    {
        std::int64_t nDistance = 0; ///< m_dUnit km each
        std::int64_t nMilliseconds = 0;
    };
    /// What the totals say about a window, and by how much the accumulator may differ.
    struct SEstimate
    {
        double dDistance; ///< km
        double dDistanceError;
        double dSeconds;
        double dRelativeError; ///< of either sum, by the accumulator's rounding
    };

    void AddDistance(double dDistance, STotals& totals);
    void AddStep(int nPoint, double dDistance, double dSeconds, STotals& totals);
    SEstimate Estimate(int nStart, int nEnd) const;
    bool IsClearlyBelow(const SEstimate& estimate) const;
    bool IsClearlyReached(const SEstimate& estimate) const;
    int EndByAccumulator(int nStart, int nLimit);
    double SpeedOf(int nStart, int nEnd);

    const CObjectArray<CTrackPoint>& m_points;
    CWindowAccumulator& m_accumulator;
    CLargeVector<STotals> m_totals; ///< per point, from the start of the file
    double m_dUnit = 0x1p-45;       ///< km
    CIndexList m_refused;
    CIndexList m_noDistance;  ///< points with whose step the distance is not a number any more
    CIndexList m_oddDistance; ///< points whose step the totals leave out
    CIndexList m_oddTime;
    int m_nEnd = 0; ///< no window before the last one asked for ends behind it
};

} // namespace kestrabel
