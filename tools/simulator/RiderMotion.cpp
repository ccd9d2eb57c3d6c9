#include "simulator/RiderMotion.h"

#include "geo/Angle.h"
#include "simulator/DegreesPerMetre.h"
#include "simulator/Trigonometry.h"

#include <algorithm>
#include <cmath>

namespace kestrabel {

namespace {

constexpr std::uint64_t MotionStream = 1;
constexpr double Knot = 1.852 / 3.6; // m/s

// The thresholds by which a fix is usually judged a spike are 2.57 m/s² and, when braking, 5.14 m/s².
constexpr double MaxAcceleration = 1.4;
constexpr double MaxBraking = 2.1;
constexpr double MaxJerk = 2.0;       // m/s³
constexpr double SpeedReaction = 2.0; // seconds in which the rider wants to reach the speed of the gust

constexpr double PlantedRise = 1.5 * Knot; // from the ends of the planted run to its middle
constexpr double SafetyBelowPlanted = 4.5 * Knot;
constexpr double FastestGust = 34.0 * Knot;
constexpr double SlowestReach = 15.0 * Knot;
constexpr double SpeedBeforeJibe = 25.0 * Knot;

constexpr double ReachTurnRate = 15.0 * DegreesToRadians;
constexpr double DriftTurnRate = 8.0 * DegreesToRadians;
constexpr double TurnReaction = 0.8; // seconds
constexpr double CourseReached = 5.0 * DegreesToRadians;

constexpr double NearestReachEnd = 150.0; // metres across
constexpr double FarthestReachEnd = 450.0;
constexpr double ShortestReach = 300.0;
constexpr double MaxLaneCorrection = 0.25; // radians
constexpr double LaneSoftness = 500.0;     // metres down the wind that are corrected by one radian

constexpr double ShortSession = 1200.0; // seconds
constexpr double LongestLaunch = 45.0;

double Limit(double dValue, double dMagnitude)
{
    return std::clamp(dValue, -dMagnitude, dMagnitude);
}

} // namespace

CRiderMotion::CRiderMotion(const SSessionOptions& options)
    : m_rider(options.rider),
      m_dStep(options.StepSeconds()),
      m_dWind(options.dWindDirection * DegreesToRadians),
      m_dTopSpeed(std::min(FastestGust, options.rider.dPlantedSpeed * Knot - SafetyBelowPlanted)),
      m_bMayRestEarly(static_cast<double>(options.nFixes) * m_dStep >= ShortSession),
      m_random(CRandomSource::ForStream(options.nSeed, MotionStream)),
      m_gust(options.rider.dGusts * Knot, 8.0, m_dStep, m_random),
      m_helm(1.5 * DegreesToRadians, 6.0, 2.0, m_dStep, m_random),
      m_drift(0.08, 5.0, m_dStep, m_random)
{
    m_state.position = options.position;
    m_state.dCourse = m_dWind + Pi;
    const double dLength = static_cast<double>(options.nFixes) * m_dStep;
    m_dWaitLeft = std::min(LongestLaunch, dLength * 0.05) * m_random.Uniform(0.4, 1.0);
}

void CRiderMotion::Advance()
{
    m_gust.Advance(m_random);
    m_helm.Advance(m_random);
    m_drift.Advance(m_random);
    const double dSpeedBefore = m_state.dSpeed;
    SWanted wanted{};
    switch (m_activity) {
    case EActivity::Wait: wanted = Wait(); break;
    case EActivity::Reach: wanted = Reach(); break;
    case EActivity::Jibe: wanted = Jibe(); break;
    }
    if (IsOnPlantedRun()) {
        m_dAcceleration = (wanted.dSpeed - m_state.dSpeed) / m_dStep;
        m_state.dSpeed = wanted.dSpeed;
    } else {
        ChangeSpeed(wanted.dSpeed);
    }
    const double dTurn = ChangeCourse(wanted);
    Move(0.5 * (dSpeedBefore + m_state.dSpeed) * m_dStep, m_state.dCourse - 0.5 * dTurn);
}

void CRiderMotion::BeginWait(double dSeconds)
{
    m_activity = EActivity::Wait;
    m_dWaitLeft = dSeconds;
}

CRiderMotion::SWanted CRiderMotion::Wait()
{
    constexpr double dDriftSpeed = 0.4;
    constexpr double dSlowestDrift = 0.2;
    m_dWaitLeft -= m_dStep;
    if (m_dWaitLeft <= 0.0)
        BeginReach();
    return {std::max(dSlowestDrift, dDriftSpeed + m_drift.Value()), m_dWind + Pi, DriftTurnRate};
}

/// The course of the next reach: across the wind, upwind when the last ones led down, and the reverse.
double CRiderMotion::NextCourse()
{
    constexpr double dWhim = 0.06; // radians
    const double dDownwind = Limit(-m_dDown / LaneSoftness, MaxLaneCorrection) + dWhim * m_random.Normal();
    // Both sides are told by angles from the wind that do not wrap: a jibe goes from one to the other through
    // 180°, which is downwind.
    return m_dSide > 0.0 ? m_dWind + HalfPi + dDownwind : m_dWind + ThreeHalvesPi - dDownwind;
}

void CRiderMotion::BeginReach()
{
    constexpr double dSpread = 4.0 * Knot;
    if (m_activity == EActivity::Wait) {
        m_dSide = -m_dSide;
        m_dReachCourse = NextCourse();
    }
    m_activity = EActivity::Reach;
    m_dReachSpeed = m_rider.dMeanSpeed * Knot + m_random.Uniform(-dSpread, dSpread);
    m_dReachEnd =
        std::max(m_random.Uniform(NearestReachEnd, FarthestReachEnd), m_dSide * m_dAcross + ShortestReach);
    ++m_counts.nRuns;
    if (m_planted == EPlanted::Due)
        m_planted = EPlanted::Ramp;
    else if (m_planted == EPlanted::SlowDown)
        m_planted = EPlanted::Done;
}

CRiderMotion::SWanted CRiderMotion::Reach()
{
    if (IsAroundPlantedRun())
        return PlantedReach();
    if (m_dSide * m_dAcross >= m_dReachEnd) {
        const bool bMayRest = m_bMayRestEarly || m_planted == EPlanted::Done;
        if (m_random.Chance(m_rider.dRests) && bMayRest && m_planted != EPlanted::Due) {
            ++m_counts.nRests;
            BeginWait(m_random.Uniform(120.0, 420.0));
        } else {
            BeginJibe();
        }
    }
    return {std::clamp(m_dReachSpeed + m_gust.Value(), SlowestReach, m_dTopSpeed),
            m_dReachCourse + m_helm.Value(), ReachTurnRate};
}

CRiderMotion::SWanted CRiderMotion::PlantedReach()
{
    const double dMiddleSpeed = m_rider.dPlantedSpeed * Knot;
    const double dEndSpeed = dMiddleSpeed - PlantedRise;
    const bool bOnCourse = std::abs(m_dReachCourse - m_state.dCourse) < 1e-6;
    if (m_planted == EPlanted::Ramp && m_state.dSpeed >= dEndSpeed && bOnCourse) {
        m_planted = EPlanted::Steady;
        m_dPlantedStart = m_state.dDistance;
    }
    const double dSailed = (m_state.dDistance - m_dPlantedStart) / m_rider.dPlantedLength;
    if (m_planted == EPlanted::Steady && dSailed >= 1.0)
        m_planted = EPlanted::SlowDown;
    if (m_planted == EPlanted::SlowDown && m_state.dSpeed <= SpeedBeforeJibe)
        BeginJibe();

    double dWanted = dEndSpeed + 0.5; // the ramp would never reach what it only aims at
    if (m_planted == EPlanted::Steady) {
        const double dOffMiddle = 2.0 * dSailed - 1.0;
        dWanted = dMiddleSpeed - PlantedRise * dOffMiddle * dOffMiddle;
    } else if (m_planted == EPlanted::SlowDown) {
        dWanted = SpeedBeforeJibe - 1.0;
    }
    return {dWanted, m_dReachCourse, ReachTurnRate};
}

void CRiderMotion::BeginJibe()
{
    const bool bStopped = m_random.Chance(m_rider.dStoppedJibes);
    m_activity = EActivity::Jibe;
    m_dSide = -m_dSide;
    m_dReachCourse = NextCourse();
    m_dJibeSpeed = (bStopped ? m_random.Uniform(2.5, 7.0) : m_random.Uniform(11.5, 16.0)) * Knot;
    m_dJibeTurnRate =
        (bStopped ? m_random.Uniform(14.0, 26.0) : m_random.Uniform(20.0, 42.0)) * DegreesToRadians;
    ++m_counts.nJibes;
}

CRiderMotion::SWanted CRiderMotion::Jibe()
{
    if (std::abs(m_dReachCourse - m_state.dCourse) < CourseReached) {
        if (m_random.Chance(m_rider.dStops) && !IsPlantedRunPending()) {
            ++m_counts.nStops;
            m_dSide = -m_dSide; // the wait turns it back
            BeginWait(m_random.Uniform(5.0, 30.0));
        } else {
            BeginReach();
        }
    }
    return {m_dJibeSpeed, m_dReachCourse, m_dJibeTurnRate};
}

void CRiderMotion::ChangeSpeed(double dWanted)
{
    constexpr double dSlowest = 0.05;
    const double dWantedRate =
        std::clamp((dWanted - m_state.dSpeed) / SpeedReaction, -MaxBraking, MaxAcceleration);
    m_dAcceleration += Limit(dWantedRate - m_dAcceleration, MaxJerk * m_dStep);
    m_state.dSpeed = std::max(dSlowest, m_state.dSpeed + m_dAcceleration * m_dStep);
}

/// Returns the turn.
double CRiderMotion::ChangeCourse(const SWanted& wanted)
{
    const double dOff = wanted.dCourse - m_state.dCourse;
    const double dShare = std::min(1.0, m_dStep / TurnReaction);
    double dTurn = Limit(dOff * dShare, wanted.dTurnRate * m_dStep);
    if (std::abs(dOff) < 1e-3)
        dTurn = dOff; // the last bit at once, else the course is never reached
    m_state.dCourse += dTurn;
    return dTurn;
}

void CRiderMotion::Move(double dLength, double dCourse)
{
    const SSineCosine course = SineCosine(dCourse);
    const SSineCosine offWind = SineCosine(dCourse - m_dWind);
    m_dAcross += dLength * offWind.dSine;
    m_dDown -= dLength * offWind.dCosine;
    m_state.dDistance += dLength;

    const SDegreesPerMetre perMetre = DegreesPerMetre(m_state.position.m_dLatitude);
    m_state.position.m_dLatitude += dLength * course.dCosine * perMetre.dLatitude;
    m_state.position.m_dLongitude += dLength * course.dSine * perMetre.dLongitude;
}

} // namespace kestrabel
