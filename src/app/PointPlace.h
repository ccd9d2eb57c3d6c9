#pragma once

#include "model/Person.h"

namespace kestrabel {

/// Where a point is: its file and its index there.
struct SPointPlace
{
    CSeries* pSeries = nullptr; ///< null: in none of the competitor's files
    int nIndex = -1;
};

/// Finds a point by identity. Derived points tell their file and index; others are searched for.
SPointPlace FindPoint(const CPerson& person, const CTrackPoint& point);

} // namespace kestrabel
