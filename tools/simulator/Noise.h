#pragma once

#include "simulator/RandomSource.h"

namespace kestrabel {

/// Noise that forgets: an autoregressive process of order 1 with mean 0. It starts anywhere in its range.
class CForgettingNoise
{
public:
    /// `dSigma`: standard deviation, in the unit of what is disturbed; `dMemory`: the time after which about
    /// a third is left, and `dStep`: the time between two values, both in seconds and above 0.
    CForgettingNoise(double dSigma, double dMemory, double dStep, CRandomSource& random);

    /// The next value.
    double Advance(CRandomSource& random);
    double Value() const { return m_dValue; }

private:
    double m_dKept;
    double m_dFresh;
    double m_dValue;
};

/// Noise that wanders without jumps: the above, smoothed by a second filter. The error of a position is such:
/// metres over a minute, but nearly the same for two fixes that follow each other.
class CWanderingNoise
{
public:
    /// As above; `dSmoothing` (seconds) is the memory of the second filter. The rate of change has a standard
    /// deviation of about `dSigma` / sqrt(`dMemory` * `dSmoothing`).
    CWanderingNoise(double dSigma, double dMemory, double dSmoothing, double dStep, CRandomSource& random);

    double Advance(CRandomSource& random);
    double Value() const { return m_dValue; }

private:
    CForgettingNoise m_driver;
    double m_dKept;
    double m_dValue;
};

} // namespace kestrabel
