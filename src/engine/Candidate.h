#pragma once

#include "engine/ResultList.h"
#include "model/Series.h"

namespace kestrabel {

/// A stretch of a track file that may become a result. A long track has hundreds of thousands of them and
/// only a handful is chosen, so no more is kept than the choice needs.
struct SCandidate
{
    double dSpeed; ///< km/h
    int nStart;    ///< index of its first point
    int nEnd;      ///< index of its last point
};

/// The result order of candidates of one track file; of equal ones the one that starts, then ends, at a later
/// point stands behind.
class CCandidateOrder
{
public:
    explicit CCandidateOrder(const CSeries& series) : m_points(series.m_points) {}

    /// True when `one` stands before `other`.
    bool operator()(const SCandidate& one, const SCandidate& other) const
    {
        if (IsSlowerSpeed(one.dSpeed, other.dSpeed))
            return true;
        if (IsSlowerSpeed(other.dSpeed, one.dSpeed))
            return false;
        const double dOneStart = m_points[one.nStart].m_time.m_dDays;
        const double dOtherStart = m_points[other.nStart].m_time.m_dDays;
        if (dOneStart != dOtherStart)
            return dOneStart < dOtherStart;
        return one.nStart != other.nStart ? one.nStart < other.nStart : one.nEnd < other.nEnd;
    }

private:
    const CObjectArray<CTrackPoint>& m_points;
};

} // namespace kestrabel
