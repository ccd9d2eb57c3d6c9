#include "simulator/SessionSimulator.h"

#include "simulator/BestSpeeds.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>

namespace kestrabel {

namespace {

constexpr double MetresPerSecondToKmh = 3.6;

} // namespace

CSessionSimulator::CSessionSimulator(const SSessionOptions& options)
    : m_motion(options),
      m_receiver(options),
      m_timeStart(options.timeStart),
      m_nStepMilliseconds(options.StepMilliseconds()),
      m_dStep(options.StepSeconds()),
      m_nFixes(options.nFixes),
      m_nPlantAt(std::max<std::int64_t>(1, options.nFixes * 2 / 5))
{
}

bool CSessionSimulator::Next(CTrackPoint& point)
{
    if (m_truth.nFixes == m_nFixes)
        return false;
    // Only here, where a fix was just recorded, and so never within a drop-out.
    if (m_truth.nFixes == m_nPlantAt)
        m_motion.PlantNextReach();
    DATE time;
    do {
        // Each time by itself: a sum of steps would drift away from whole milliseconds.
        time = m_timeStart.Plus(static_cast<double>(m_nSteps * m_nStepMilliseconds) * DaysPerMillisecond);
        ++m_nSteps;
        m_motion.Advance();
        if (!m_motion.IsAroundPlantedRun()) {
            m_truth.dFastestElsewhere =
                std::max(m_truth.dFastestElsewhere, m_motion.State().dSpeed * MetresPerSecondToKmh);
        }
        FollowPlantedRun(time);
    } while (!m_receiver.Record(m_motion.State(), m_motion.IsPlantedRunPending(), point));

    point.m_time = time;
    if (m_truth.nFixes == 0)
        m_truth.timeFirst = time;
    m_truth.timeLast = time;
    ++m_truth.nFixes;
    m_truth.dDistance = m_motion.State().dDistance;
    m_truth.motion = m_motion.Counts();
    m_truth.faults = m_receiver.Counts();
    return true;
}

void CSessionSimulator::FollowPlantedRun(const DATE& time)
{
    if (m_motion.IsOnPlantedRun()) {
        if (m_plantedDistances.empty()) {
            m_planted.nFirstFix = m_truth.nFixes;
            m_planted.timeFirst = time;
        }
        m_planted.nLastFix = m_truth.nFixes;
        m_planted.timeLast = time;
        m_plantedDistances.push_back(m_motion.State().dDistance);
    } else if (!m_plantedDistances.empty() && !m_truth.planted) {
        m_planted.dLength = m_plantedDistances.back() - m_plantedDistances.front();
        m_planted.best = FindBestSpeeds(m_plantedDistances, m_dStep);
        m_truth.planted = m_planted;
    }
}

STruth SimulateSession(const SSessionOptions& options, CSeries& series)
{
    CSessionSimulator simulator(options);
    const int nBefore = series.m_points.GetCount();
    series.m_points.Reserve(nBefore + static_cast<int>(options.nFixes));
    for (;;) {
        auto pPoint = std::make_unique<CTrackPoint>();
        if (!simulator.Next(*pPoint))
            break;
        series.m_points.Add(std::move(pPoint));
    }
    series.m_date = series.m_points[0].m_time;
    series.m_strIdentifier = "SIM-1";
    series.m_strSerialNo = std::to_string(options.nSeed);
    series.m_strFirmware = "1.0";
    series.m_strInfo = "kestrabel-simulate";
    series.m_nLogRate = static_cast<std::int32_t>(std::lround(options.dRate));
    series.m_dWindDirection = options.dWindDirection;
    return simulator.Truth();
}

} // namespace kestrabel
