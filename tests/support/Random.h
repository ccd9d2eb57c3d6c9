#pragma once

#include <cstddef>
#include <random>

namespace kestrabel::test {

/// Chances that a seed repeats on every machine, which the standard's distributions do not promise.
struct CRandom
{
    explicit CRandom(unsigned nSeed) : m_engine(nSeed) {}
    /// 0 to nCount - 1
    int Below(int nCount) { return static_cast<int>(m_engine() % static_cast<unsigned>(nCount)); }
    bool OneIn(int nCount) { return Below(nCount) == 0; }
    /// From 0 up to, not including, 1.
    double Fraction() { return static_cast<double>(m_engine()) / 4294967296.0; }
    /// An element of an array or a vector that has one.
    template <class TArray>
    auto& Of(TArray& array)
    {
        return array[static_cast<std::size_t>(Below(static_cast<int>(std::size(array))))];
    }

    std::mt19937 m_engine;
};

} // namespace kestrabel::test
