#include "simulator/Receiver.h"

#include "geo/Angle.h"
#include "geo/Rounding.h"
#include "simulator/DegreesPerMetre.h"
#include "simulator/Trigonometry.h"

#include <algorithm>
#include <cmath>

namespace kestrabel {

namespace {

constexpr std::uint64_t NoiseStream = 2;
constexpr std::uint64_t FaultStream = 3;

constexpr double KnotInMetresPerSecond = 1.852 / 3.6;
constexpr double MetresPerSecondToKmh = 3.6;
constexpr double SecondsPerHour = 3600.0;
constexpr double WhiteUnfilteredStep = 0.2; // seconds; below it the receiver filters

constexpr double LongDropout = 200.0; // seconds: the usual threshold of a gap in the track
constexpr double LongDropoutShare = 0.1;

constexpr std::int32_t FixQualityGps = 1;

/// By the spike rule a deviation of 2.57 m/s² times the step shows in the speed, while an error of the
/// position shows there divided by the step: what may pass goes down with the square of the step.
double WhiteSigma(double dSigma, double dStep)
{
    const double dShorter = std::min(1.0, dStep / WhiteUnfilteredStep);
    return dSigma * dShorter * dShorter;
}

} // namespace

CReceiver::CReceiver(const SSessionOptions& options)
    : m_options(options.receiver),
      m_dStep(options.StepSeconds()),
      m_dWhiteSigma(WhiteSigma(options.receiver.dWhite, m_dStep)),
      m_noise(CRandomSource::ForStream(options.nSeed, NoiseStream)),
      m_faults(CRandomSource::ForStream(options.nSeed, FaultStream)),
      m_wanderNorth(options.receiver.dWander, 60.0, 10.0, m_dStep, m_noise),
      m_wanderEast(options.receiver.dWander, 60.0, 10.0, m_dStep, m_noise),
      m_doppler(options.receiver.dDopplerNoise * KnotInMetresPerSecond, 0.3, m_dStep, m_noise),
      m_course(0.7 * DegreesToRadians, 0.5, m_dStep, m_noise),
      m_hdop(0.15, 120.0, 20.0, m_dStep, m_noise),
      m_sats(0.9, 120.0, 10.0, m_dStep, m_noise),
      m_altitude(0.7, 100.0, 10.0, m_dStep, m_noise),
      m_nColdFixesLeft(options.receiver.nColdStartFixes)
{
}

bool CReceiver::Record(const STrueState& truth, bool bFaultless, CTrackPoint& point)
{
    SErrors errors = NextErrors();
    if (m_nColdFixesLeft > 0) {
        --m_nColdFixesLeft;
        ++m_counts.nColdStartFixes;
        point = CTrackPoint();
        return true;
    }
    if (IsDroppedOut(bFaultless))
        return false;
    AddSpike(bFaultless, errors);
    FillPoint(truth, errors, point);
    return true;
}

CReceiver::SErrors CReceiver::NextErrors()
{
    m_hdop.Advance(m_noise);
    m_sats.Advance(m_noise);
    m_altitude.Advance(m_noise);
    // One statement each: the order of the draws is part of the session.
    SErrors errors{};
    errors.dNorth = m_wanderNorth.Advance(m_noise);
    errors.dNorth += m_dWhiteSigma * m_noise.Normal();
    errors.dEast = m_wanderEast.Advance(m_noise);
    errors.dEast += m_dWhiteSigma * m_noise.Normal();
    errors.dDoppler = m_doppler.Advance(m_noise);
    errors.dCourse = m_course.Advance(m_noise);
    return m_options.bNoise ? errors : SErrors{};
}

bool CReceiver::IsDroppedOut(bool bFaultless)
{
    if (m_dDropoutLeft > 0.0) {
        m_dDropoutLeft -= m_dStep;
        return true;
    }
    if (!m_faults.Chance(m_options.dDropoutsPerHour * m_dStep / SecondsPerHour) || bFaultless)
        return false;
    const bool bLong = m_faults.Chance(LongDropoutShare);
    m_dDropoutLeft =
        bLong ? m_faults.Uniform(LongDropout + 5.0, 2.0 * LongDropout) : m_faults.Uniform(1.0, 30.0);
    ++m_counts.nDropouts;
    if (bLong)
        ++m_counts.nLongDropouts;
    return true;
}

void CReceiver::AddSpike(bool bFaultless, SErrors& errors)
{
    if (!m_faults.Chance(m_options.dSpikesPerHour * m_dStep / SecondsPerHour) || bFaultless)
        return;
    const double dOff = m_faults.Uniform(20.0, 80.0);
    const SSineCosine direction = SineCosine(m_faults.Uniform(0.0, TwoPi));
    if (!m_options.bNoise)
        return;
    errors.dNorth += dOff * direction.dCosine;
    errors.dEast += dOff * direction.dSine;
    ++m_counts.nSpikes;
}

void CReceiver::FillPoint(const STrueState& truth, const SErrors& errors, CTrackPoint& point) const
{
    point = CTrackPoint();
    const SDegreesPerMetre perMetre = DegreesPerMetre(truth.position.m_dLatitude);
    point.m_position = MakePosition(truth.position.m_dLatitude + errors.dNorth * perMetre.dLatitude,
                                    truth.position.m_dLongitude + errors.dEast * perMetre.dLongitude);
    point.m_dDoppler = std::abs(truth.dSpeed + errors.dDoppler) * MetresPerSecondToKmh;
    const double dSlowness = 1.0 + 4.0 / (truth.dSpeed + 0.5); // a slow course is an uncertain one
    const double dCourse = truth.dCourse + errors.dCourse * dSlowness;
    point.m_dDirection = dCourse - TwoPi * std::floor(dCourse / TwoPi);
    point.m_dHDOP = RoundTo(std::clamp(1.1 + m_hdop.Value(), 0.8, 1.6), 1);
    point.m_nSats = static_cast<std::int32_t>(std::clamp(std::floor(9.5 + m_sats.Value() + 0.5), 7.0, 12.0));
    point.m_nAltitude = static_cast<std::int32_t>(std::clamp(std::floor(1.5 + m_altitude.Value()), 0.0, 3.0));
    point.m_nRxStatus = FixQualityGps;
}

} // namespace kestrabel
