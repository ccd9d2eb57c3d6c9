#pragma once

#include "simulator/SessionOptions.h"

#include <cmath>
#include <cstdint>

namespace kestrabel::test {

inline constexpr double KnotInKmh = 1.852;

inline SSessionOptions Session(std::uint64_t nSeed, double dRate, std::int64_t nFixes)
{
    SSessionOptions options;
    options.nSeed = nSeed;
    options.dRate = dRate;
    options.nFixes = nFixes;
    return options;
}

/// A session of so many minutes.
inline SSessionOptions Minutes(std::uint64_t nSeed, double dRate, double dMinutes)
{
    return Session(nSeed, dRate, std::llround(dMinutes * 60.0 * dRate));
}

} // namespace kestrabel::test
