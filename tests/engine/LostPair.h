#pragma once

#include "geo/DistanceCalculator.h"

#include <cmath>
#include <utility>

namespace kestrabel::test {

/// Two positions a few millimetres apart whose distance is not a number: there are such pairs, about one in a
/// hundred and fifty, where rounding lifts the cosine of their angle above 1.
inline std::pair<CPosition, CPosition> FindLostPair()
{
    CDistanceCalculator calculator;
    for (int i = 1;; ++i) {
        const CPosition from = MakePosition(-38.85 + 1e-6 * i, 146.16);
        const CPosition to = MakePosition(from.m_dLatitude + 2e-8, from.m_dLongitude);
        if (i == 100000 || std::isnan(calculator.Distance(from, to)))
            return {from, to};
    }
}

} // namespace kestrabel::test
