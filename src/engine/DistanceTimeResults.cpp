#include "engine/DistanceTimeResults.h"

#include "engine/Candidate.h"
#include "engine/Direction.h"
#include "engine/ResultBuilder.h"
#include "engine/ResultList.h"
#include "engine/SpeedSource.h"
#include "engine/TakenTimes.h"
#include "engine/WindowAccumulator.h"
#include "engine/WindowSums.h"
#include "platform/LargeVector.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <set>
#include <string>

namespace kestrabel {

namespace {

constexpr int PointsAhead = 32; // fetched early: some three hundred nanoseconds of scanning

class CWindowScan
{
public:
    CWindowScan(const CEvent& event, const CPerson& person, const CSeries& series, const CDivision& division)
        : m_event(event),
          m_person(person),
          m_series(series),
          m_division(division),
          m_points(series.m_points),
          m_source(division, series),
          m_bOneResultPerRun(division.m_bOneResultPerRun != 0),
          m_bOneCandidatePerRun(m_bOneResultPerRun && series.m_bInTimeOrder),
          m_isSlower(series),
          m_pAccumulator(CreateWindowAccumulator(division, m_source.UsesDoppler()))
    {
    }

    void FindCandidates(CProgress& shown);
    void Select(CObjectArray<CResult>& results);

private:
    template <class TAccumulator>
    void Scan(TAccumulator& accumulator, CProgress& shown);
    void ScanSums(CProgress& shown);
    bool EndsRun(const CTrackPoint& start, const CTrackPoint& point) const;
    void Keep(const SCandidate& candidate);
    bool IsFree(const SCandidate& candidate) const;
    std::optional<SCandidate> TakeFastest();
    void Measure(const SCandidate& candidate);
    std::unique_ptr<CResult> MakeWindowResult(const SCandidate& candidate);

    const CEvent& m_event;
    const CPerson& m_person;
    const CSeries& m_series;
    const CDivision& m_division;
    const CObjectArray<CTrackPoint>& m_points;
    CSpeedSource m_source;
    bool m_bOneResultPerRun;
    bool m_bOneCandidatePerRun; ///< see Keep
    CCandidateOrder m_isSlower;
    std::unique_ptr<CWindowAccumulator> m_pAccumulator;
    CLargeVector<SCandidate> m_candidates;
    CLargeVector<SCandidate> m_estimated; ///< candidates with their speed or a bit more
    CTakenTimes m_takenTimes;
    std::set<std::int32_t> m_takenRuns;
};

/// A result of one run ends where the rider stops or the run does.
bool CWindowScan::EndsRun(const CTrackPoint& start, const CTrackPoint& point) const
{
    return m_source.Speed(point) < m_event.m_dStopRunSpeed || m_source.Run(point) != m_source.Run(start);
}

/// The loop meets every fix of a track, once per division. For the accumulators that nearly all divisions use
/// it is compiled with their `Add` inside.
void CWindowScan::FindCandidates(CProgress& shown)
{
    if (m_pAccumulator->NeedsRescan())
        ScanSums(shown);
    else if (auto* pTrack = dynamic_cast<CTrackAccumulator*>(m_pAccumulator.get()))
        Scan(*pTrack, shown);
    else if (auto* pDoppler = dynamic_cast<CDopplerAccumulator*>(m_pAccumulator.get()))
        Scan(*pDoppler, shown);
    else
        Scan(*m_pAccumulator, shown);
}

template <class TAccumulator>
void CWindowScan::Scan(TAccumulator& accumulator, CProgress& shown)
{
    const int nCount = m_points.GetCount();
    int nEnd = 1; // where the window has got to; stays between starts
    for (int nStart = 0; nStart < nCount - 1;) {
        shown.Step();
        int nNextStart = nStart + 1;
        const CTrackPoint& start = m_points[nStart];
        if (accumulator.Start(start)) {
            nEnd = std::max(nEnd, nStart + 1);
            while (nEnd < nCount) {
                m_points.Prefetch(nEnd + PointsAhead);
                const CTrackPoint& point = m_points[nEnd];
                if (m_bOneResultPerRun && EndsRun(start, point)) {
                    nNextStart = nEnd + 1;
                    break;
                }
                if (!accumulator.Add(point)) {
                    nNextStart = nEnd + 2; // the refused point starts no window, nor does the next
                    ++nEnd;
                    break;
                }
                if (accumulator.Reached()) {
                    Keep({accumulator.Speed(), nStart, nEnd});
                    break;
                }
                if (++nEnd == nCount) {
                    nEnd = nCount - 1;
                    break;
                }
            }
        }
        nStart = nNextStart;
    }
}

/// The same windows for an accumulator that rescans. How fast they are is known only nearly.
void CWindowScan::ScanSums(CProgress& shown)
{
    const int nCount = m_points.GetCount();
    CWindowSums sums(m_points, *m_pAccumulator);
    CIndexList runEnds;
    for (int i = 1; m_bOneResultPerRun && i < nCount; ++i) {
        if (EndsRun(m_points[i - 1], m_points[i]))
            runEnds.Add(i);
    }
    for (int nStart = 0; nStart < nCount - 1;) {
        shown.Step();
        int nNextStart = nStart + 1;
        if (m_pAccumulator->IsValid(m_points[nStart])) {
            const int nRunEnd = runEnds.FirstAfter(nStart, nCount);
            const int nRefused = sums.FirstRefused(nStart);
            const int nLimit = std::min(nRunEnd, nRefused);
            if (const std::optional<SCandidate> window = sums.Find(nStart, nLimit))
                m_estimated.push_back(*window);
            else if (nLimit < nCount)
                nNextStart = nRunEnd == nLimit ? nRunEnd + 1 : nRefused + 2;
        }
        nStart = nNextStart;
    }
}

/// The fastest candidate that is left and can be chosen; nothing when there is none.
std::optional<SCandidate> CWindowScan::TakeFastest()
{
    const auto TakeFrom = [this](CLargeVector<SCandidate>& heap) {
        std::pop_heap(heap.begin(), heap.end(), m_isSlower);
        const SCandidate candidate = heap.back();
        heap.pop_back();
        return candidate;
    };
    while (!m_candidates.empty() || !m_estimated.empty()) {
        const bool bEstimated =
            m_candidates.empty() ||
            (!m_estimated.empty() && !m_isSlower(m_estimated.front(), m_candidates.front()));
        SCandidate candidate = TakeFrom(bEstimated ? m_estimated : m_candidates);
        if (!IsFree(candidate))
            continue;
        if (!bEstimated)
            return candidate;
        Measure(candidate);
        candidate.dSpeed = m_pAccumulator->Speed();
        m_candidates.push_back(candidate);
        std::push_heap(m_candidates.begin(), m_candidates.end(), m_isSlower);
    }
    return std::nullopt;
}

/// Neither its time nor, where that counts, its run is taken.
bool CWindowScan::IsFree(const SCandidate& candidate) const
{
    const CTrackPoint& start = m_points[candidate.nStart];
    if (m_bOneResultPerRun && m_takenRuns.contains(m_source.Run(start)))
        return false;
    return !m_takenTimes.Overlaps(start.m_time, m_points[candidate.nEnd].m_time);
}

void CWindowScan::Select(CObjectArray<CResult>& results)
{
    // Heaps, since only the fastest few are looked at.
    std::make_heap(m_candidates.begin(), m_candidates.end(), m_isSlower);
    std::make_heap(m_estimated.begin(), m_estimated.end(), m_isSlower);
    const int nWanted = std::max<int>(m_event.m_nShowTopRows, m_division.m_nAverageRuns);
    int nSelected = 0;
    while (const std::optional<SCandidate> candidate = TakeFastest()) {
        const CTrackPoint& start = m_points[candidate->nStart];
        m_takenRuns.insert(m_source.Run(start));
        m_takenTimes.Take(start.m_time, m_points[candidate->nEnd].m_time);
        std::unique_ptr<CResult> pResult = MakeWindowResult(*candidate);
        pResult->m_nRank = ++nSelected;
        InsertInResultOrder(results, std::move(pResult));
        if (nSelected >= nWanted)
            return;
    }
}

/// Keeps a candidate that may be chosen. Windows of different runs have no points in common; where the fixes
/// are in order of time they do not overlap in time either, so that only the best of each run can be chosen.
/// The windows of a run are found one after another.
void CWindowScan::Keep(const SCandidate& candidate)
{
    if (m_bOneCandidatePerRun && !m_candidates.empty()) {
        SCandidate& last = m_candidates.back();
        if (m_source.Run(m_points[last.nStart]) == m_source.Run(m_points[candidate.nStart])) {
            if (m_isSlower(last, candidate))
                last = candidate;
            return;
        }
    }
    m_candidates.push_back(candidate);
}

/// Brings the accumulator to the state in which it found the candidate.
void CWindowScan::Measure(const SCandidate& candidate)
{
    m_pAccumulator->Start(m_points[candidate.nStart]);
    const int nFirst = m_pAccumulator->NeedsRescan() ? candidate.nStart + 1 : candidate.nEnd;
    for (int i = nFirst; i <= candidate.nEnd; ++i)
        m_pAccumulator->Add(m_points[i]);
}

std::unique_ptr<CResult> CWindowScan::MakeWindowResult(const SCandidate& candidate)
{
    Measure(candidate);
    std::unique_ptr<CResult> pResult =
        MakeResult(m_person, m_series, m_division, m_source, candidate.nStart, candidate.nEnd);
    pResult->m_dSeconds = m_pAccumulator->Time() * SecondsPerDay;
    pResult->m_dDistance = m_pAccumulator->Distance();
    pResult->m_dSpeed = m_pAccumulator->Speed();

    double dDirections = 0.0;
    for (int i = candidate.nStart + 1; i <= candidate.nEnd; ++i)
        dDirections += m_points[i].m_dDirection;
    pResult->m_dDirection = dDirections / (candidate.nEnd - candidate.nStart);
    pResult->m_dWindAngle = WindAngle(pResult->m_dDirection, m_series.m_dWindDirection);
    MeasureExtremes(*pResult, m_series, m_source.SpeedField(), candidate.nStart + 1, candidate.nEnd);

    // A Doppler speed holds over a step; its errors add up as independent ones, the last step counting half.
    const double dError = m_source.Error(m_event, m_series);
    if (m_source.UsesDoppler() && dError > 0.0) {
        const double dSquares = m_pAccumulator->SumStepSquares() - m_pAccumulator->LastStepSquared() * 0.5;
        pResult->m_dDopplerError = dError * std::sqrt(dSquares) / pResult->m_dSeconds;
        pResult->m_dClaimed = pResult->m_dSpeed - 2.0 * pResult->m_dDopplerError;
    }
    return pResult;
}

} // namespace

bool CalculateWindowResults(const CEvent& event, const CPerson& person, const CSeries& series,
                            const CDivision& division, CObjectArray<CResult>& results,
                            CProgressDisplay& progress)
{
    if (series.m_points.IsEmpty())
        return false;
    CProgress shown(progress, "Calculating " + division.m_strName, series.m_points.GetCount());
    CWindowScan scan(event, person, series, division);
    scan.FindCandidates(shown);
    scan.Select(results);
    return true;
}

} // namespace kestrabel
