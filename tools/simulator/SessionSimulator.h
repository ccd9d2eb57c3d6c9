#pragma once

#include "model/Series.h"
#include "simulator/Receiver.h"
#include "simulator/RiderMotion.h"
#include "simulator/SessionOptions.h"
#include "simulator/SessionTruth.h"

#include <cstdint>
#include <vector>

namespace kestrabel {

/// Simulates a session fix by fix; needs no memory for the fixes that it has given.
///
///     CRiderMotion ──true state──> CReceiver ──fix──> Next
///           └────────────── STruth ────────────┘
///
/// The planted run is the first reach after two fifths of the fixes. A session of five minutes has it for
/// sure; a shorter one may end before.
class CSessionSimulator
{
public:
    /// The options are good: ComplaintAbout has nothing to say.
    explicit CSessionSimulator(const SSessionOptions& options);

    /// The next fix. Its position is 0, 0 while the receiver has none. False, with the point as it was, when
    /// the session is over.
    bool Next(CTrackPoint& point);

    /// What was simulated so far.
    const STruth& Truth() const { return m_truth; }

private:
    void FollowPlantedRun(const DATE& time);

    CRiderMotion m_motion;
    CReceiver m_receiver;
    DATE m_timeStart;
    std::int64_t m_nStepMilliseconds;
    double m_dStep; ///< seconds
    std::int64_t m_nFixes;
    std::int64_t m_nPlantAt; ///< the fix from which on the planted run is due
    std::int64_t m_nSteps = 0;
    SPlantedRun m_planted; ///< the one that is being sailed
    std::vector<double> m_plantedDistances;
    STruth m_truth;
};

/// Appends the points of a whole session to the series and tells about the logger. Returns the truth.
STruth SimulateSession(const SSessionOptions& options, CSeries& series);

} // namespace kestrabel
