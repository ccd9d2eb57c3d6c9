#pragma once

#include <cstdint>

namespace kestrabel {

/// Random numbers that are the same on every machine for the same seed: SplitMix64 (G. Steele, D. Lea,
/// C. Flood, "Fast splittable pseudorandom number generators", OOPSLA 2014, doi:10.1145/2660193.2660195) and
/// transforms made of exact operations only, unlike the distributions of the standard library, which every
/// library may make its own way.
class CRandomSource
{
public:
    explicit CRandomSource(std::uint64_t nSeed) : m_nState(nSeed) {}

    /// A source of its own for another purpose, from the same seed: drawing more from one stream leaves the
    /// others as they were.
    static CRandomSource ForStream(std::uint64_t nSeed, std::uint64_t nStream);

    /// Any of the 2^64 numbers.
    std::uint64_t Next();
    /// At least 0, below 1.
    double Uniform();
    /// At least `dFrom`, at most `dTo`.
    double Uniform(double dFrom, double dTo) { return dFrom + (dTo - dFrom) * Uniform(); }
    /// Mean 0, standard deviation 1, never beyond 6: the sum of twelve uniform numbers.
    double Normal();
    /// True with that probability.
    bool Chance(double dProbability) { return Uniform() < dProbability; }

private:
    std::uint64_t m_nState;
};

} // namespace kestrabel
