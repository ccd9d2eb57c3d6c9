#pragma once

#include "simulator/Noise.h"
#include "simulator/RandomSource.h"
#include "simulator/SessionOptions.h"

#include <cstdint>

namespace kestrabel {

/// Where the rider truly is.
struct STrueState
{
    CPosition position;
    double dSpeed = 0.0;    ///< m/s
    double dCourse = 0.0;   ///< radians clockwise from north, not reduced
    double dDistance = 0.0; ///< metres sailed since the start
};

/// How often the rider did what.
struct SMotionCounts
{
    std::int64_t nRuns = 0; ///< reaches begun, the planted one included
    std::int64_t nJibes = 0;
    std::int64_t nStops = 0;
    std::int64_t nRests = 0;
};

/// The true motion of a rider: reaches across the wind between two jibes, with gusts; a jibe slows down and
/// turns downwind; now and then a stop in the water or a rest of minutes, drifting.
///
///                 wind
///                  ↓                     across: to the right of the wind's path seen from above, + side
///     ⤺──────── reach ────────⤻          down:   where the wind goes to
///      jibe               jibe
///
/// The speed is limited in acceleration (1.4 m/s², 2.1 m/s² when braking) and in jerk, so that no true step
/// looks like a spike. Once per session, when asked, one reach is the planted run: from a steady ramp into a
/// straight course whose speed rises by 1.5 knots to its middle and falls again.
///
/// From one fix to the next the rider moves straight, by the mean of both speeds.
class CRiderMotion
{
public:
    explicit CRiderMotion(const SSessionOptions& options);

    /// The next reach that begins becomes the planted run. Asked once.
    void PlantNextReach() { m_planted = EPlanted::Due; }
    /// Moves on by one step.
    void Advance();

    const STrueState& State() const { return m_state; }
    const SMotionCounts& Counts() const { return m_counts; }

    /// On the planted run itself, behind the ramp.
    bool IsOnPlantedRun() const { return m_planted == EPlanted::Steady; }
    /// On the reach of the planted run, from its ramp to the end of the jibe behind it.
    bool IsAroundPlantedRun() const { return m_planted >= EPlanted::Ramp && m_planted <= EPlanted::SlowDown; }
    /// The same, and while waiting for it to begin: nothing may go wrong with the recording.
    bool IsPlantedRunPending() const { return m_planted >= EPlanted::Due && m_planted <= EPlanted::SlowDown; }

private:
    enum class EActivity
    {
        Wait,
        Reach,
        Jibe
    };
    enum class EPlanted
    {
        Idle,
        Due,
        Ramp,
        Steady,
        SlowDown,
        Done
    };

    struct SWanted
    {
        double dSpeed;    ///< m/s
        double dCourse;   ///< radians
        double dTurnRate; ///< the fastest turn, radians per second
    };

    void BeginWait(double dSeconds);
    void BeginReach();
    void BeginJibe();
    double NextCourse();

    SWanted Wait();
    SWanted Reach();
    SWanted Jibe();
    SWanted PlantedReach();

    void ChangeSpeed(double dWanted);
    double ChangeCourse(const SWanted& wanted);
    void Move(double dLength, double dCourse);

    SRiderOptions m_rider;
    double m_dStep;       ///< seconds
    double m_dWind;       ///< radians that the wind comes from
    double m_dTopSpeed;   ///< m/s that nothing but the planted run exceeds
    bool m_bMayRestEarly; ///< long enough a session for a rest before the planted run
    CRandomSource m_random;
    CForgettingNoise m_gust;  ///< m/s
    CWanderingNoise m_helm;   ///< radians
    CForgettingNoise m_drift; ///< m/s

    STrueState m_state;
    SMotionCounts m_counts;
    double m_dAcceleration = 0.0; ///< m/s²
    double m_dAcross = 0.0;       ///< metres from the launch
    double m_dDown = 0.0;         ///< metres from the launch

    EActivity m_activity = EActivity::Wait;
    EPlanted m_planted = EPlanted::Idle;
    double m_dSide = -1.0;        ///< +1 or -1: the way across that the rider sails, or sailed last
    double m_dWaitLeft = 0.0;     ///< seconds
    double m_dReachSpeed = 0.0;   ///< m/s
    double m_dReachCourse = 0.0;  ///< radians
    double m_dReachEnd = 0.0;     ///< metres across on the side
    double m_dJibeSpeed = 0.0;    ///< m/s
    double m_dJibeTurnRate = 0.0; ///< radians per second
    double m_dPlantedStart = 0.0; ///< metres sailed
};

} // namespace kestrabel
