#include "engine/TakenTimes.h"

#include <algorithm>
#include <iterator>
#include <limits>

namespace kestrabel {

bool CTakenTimes::Overlaps(const DATE& start, const DATE& end) const
{
    const auto OverlapsStretch = [&](const Stretch& taken) {
        return taken.second > start.m_dDays && taken.first < end.m_dDays;
    };
    if (std::any_of(m_backward.begin(), m_backward.end(), OverlapsStretch))
        return true;
    // Of those that start early enough the last one also ends last.
    const auto behind = m_stretches.lower_bound({end.m_dDays, -std::numeric_limits<double>::infinity()});
    return behind != m_stretches.begin() && OverlapsStretch(*std::prev(behind));
}

void CTakenTimes::Take(const DATE& start, const DATE& end)
{
    const Stretch stretch{start.m_dDays, end.m_dDays};
    if (stretch.second < stretch.first)
        m_backward.push_back(stretch);
    else
        m_stretches.insert(stretch);
}

} // namespace kestrabel
