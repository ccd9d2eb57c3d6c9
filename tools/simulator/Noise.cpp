#include "simulator/Noise.h"

#include <cmath>

namespace kestrabel {

CForgettingNoise::CForgettingNoise(double dSigma, double dMemory, double dStep, CRandomSource& random)
    : m_dKept(dMemory / (dMemory + dStep)),
      m_dFresh(dSigma * std::sqrt(1.0 - m_dKept * m_dKept)),
      m_dValue(dSigma * random.Normal())
{
}

double CForgettingNoise::Advance(CRandomSource& random)
{
    m_dValue = m_dKept * m_dValue + m_dFresh * random.Normal();
    return m_dValue;
}

CWanderingNoise::CWanderingNoise(double dSigma, double dMemory, double dSmoothing, double dStep,
                                 CRandomSource& random)
    // The second filter takes away a part of the variance, which the driver has more.
    : m_driver(dSigma * std::sqrt((dMemory + dSmoothing) / dMemory), dMemory, dStep, random),
      m_dKept(dSmoothing / (dSmoothing + dStep)),
      m_dValue(m_driver.Value())
{
}

double CWanderingNoise::Advance(CRandomSource& random)
{
    m_dValue = m_dKept * m_dValue + (1.0 - m_dKept) * m_driver.Advance(random);
    return m_dValue;
}

} // namespace kestrabel
