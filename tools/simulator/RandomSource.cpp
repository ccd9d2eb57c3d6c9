#include "simulator/RandomSource.h"

namespace kestrabel {

CRandomSource CRandomSource::ForStream(std::uint64_t nSeed, std::uint64_t nStream)
{
    CRandomSource mixer(nSeed);
    const std::uint64_t nMixed = mixer.Next();
    return CRandomSource(nMixed ^ CRandomSource(nStream).Next());
}

std::uint64_t CRandomSource::Next()
{
    m_nState += 0x9e3779b97f4a7c15U;
    std::uint64_t n = m_nState;
    n = (n ^ (n >> 30U)) * 0xbf58476d1ce4e5b9U;
    n = (n ^ (n >> 27U)) * 0x94d049bb133111ebU;
    return n ^ (n >> 31U);
}

double CRandomSource::Uniform()
{
    constexpr unsigned nDroppedBits = 11; // a double holds 53 bits
    constexpr double dScale = 1.0 / 9007199254740992.0;
    return static_cast<double>(Next() >> nDroppedBits) * dScale;
}

double CRandomSource::Normal()
{
    // Twelve uniform numbers of 16 bits, four out of each draw, summed as integers.
    std::uint64_t nSum = 0;
    for (int i = 0; i < 3; ++i) {
        const std::uint64_t n = Next();
        nSum += (n & 0xffffU) + ((n >> 16U) & 0xffffU) + ((n >> 32U) & 0xffffU) + (n >> 48U);
    }
    constexpr double dMean = 6.0 * 65535.0;
    return (static_cast<double>(nSum) - dMean) / 65536.0;
}

} // namespace kestrabel
