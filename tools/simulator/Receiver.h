#pragma once

#include "model/TrackPoint.h"
#include "simulator/Noise.h"
#include "simulator/RandomSource.h"
#include "simulator/RiderMotion.h"
#include "simulator/SessionOptions.h"

#include <cstdint>

namespace kestrabel {

/// What the receiver did wrong.
struct SFaultCounts
{
    std::int64_t nColdStartFixes = 0;
    std::int64_t nDropouts = 0;     ///< stretches of missing fixes
    std::int64_t nLongDropouts = 0; ///< of these, the ones of more than 200 s
    std::int64_t nSpikes = 0;       ///< single fixes that lie 20 to 80 m off
};

/// The receiver with its logger: what of the true motion gets recorded, and how wrong.
///
/// The position error wanders by metres over a minute, so two fixes that follow each other share nearly all
/// of it; each has a small part of its own, which is smaller the more fixes there are in a second, as
/// receivers filter more then. The Doppler speed has an error of its own. Noise and faults come from streams
/// of their own, so the session stays the same whether or not they are wanted.
class CReceiver
{
public:
    explicit CReceiver(const SSessionOptions& options);

    /// Goes on by one step and looks at the rider. True when a fix is recorded: all that a receiver measures
    /// is then set in `point`, but for its time. `bFaultless`: neither drop-outs nor spikes now.
    bool Record(const STrueState& truth, bool bFaultless, CTrackPoint& point);

    const SFaultCounts& Counts() const { return m_counts; }

private:
    /// The errors of one fix.
    struct SErrors
    {
        double dNorth;   ///< metres
        double dEast;    ///< metres
        double dDoppler; ///< m/s
        double dCourse;  ///< radians
    };

    SErrors NextErrors();
    bool IsDroppedOut(bool bFaultless);
    void AddSpike(bool bFaultless, SErrors& errors);
    void FillPoint(const STrueState& truth, const SErrors& errors, CTrackPoint& point) const;

    SReceiverOptions m_options;
    double m_dStep;       ///< seconds
    double m_dWhiteSigma; ///< metres
    CRandomSource m_noise;
    CRandomSource m_faults;
    CWanderingNoise m_wanderNorth;
    CWanderingNoise m_wanderEast;
    CForgettingNoise m_doppler;
    CForgettingNoise m_course;
    CWanderingNoise m_hdop;
    CWanderingNoise m_sats;
    CWanderingNoise m_altitude;
    double m_dDropoutLeft = 0.0; ///< seconds
    std::int64_t m_nColdFixesLeft;
    SFaultCounts m_counts;
};

} // namespace kestrabel
