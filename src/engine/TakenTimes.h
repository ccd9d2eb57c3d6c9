#pragma once

#include "model/Date.h"

#include <set>
#include <utility>
#include <vector>

namespace kestrabel {

/// The stretches of time of the results taken so far, to keep overlapping ones out. Two stretches overlap
/// when each ends later than the other starts; touching ones do not. A question costs log n.
class CTakenTimes
{
public:
    bool Overlaps(const DATE& start, const DATE& end) const;
    /// Takes a stretch that overlaps none taken before.
    void Take(const DATE& start, const DATE& end);

private:
    using Stretch = std::pair<double, double>; ///< start and end, days

    /// Free of overlaps, so that the order by start is the order by end too.
    std::set<Stretch> m_stretches;
    /// Those of a logger whose clock ran backwards: they end before they start and fit in no order.
    std::vector<Stretch> m_backward;
};

} // namespace kestrabel
