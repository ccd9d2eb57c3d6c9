#pragma once

#include "engine/ResultList.h"
#include "model/Event.h"
#include "platform/Progress.h"
#include "present/UpdateHub.h"

#include <array>
#include <string>

namespace kestrabel {

/// The kinds of tree nodes; also what chose the list of results.
namespace NodeKind {
inline constexpr int Notepad = 100;
inline constexpr int Competitors = 102;
inline constexpr int TrackFile = 104;
inline constexpr int Divisions = 105;
inline constexpr int TrackFiles = 110; ///< the competitor
inline constexpr int Division = 113;
} // namespace NodeKind

/// What all panes show: the track file, the list of results, the picked run and the focus point. Panes read
/// it and report what the user chose; it calculates, and tells the panes. -1 is "none" in every index.
class CViewSelection
{
public:
    /// Event, hub and progress display outlive the selection.
    CViewSelection(CEvent& event, CUpdateHub& hub, CProgressDisplay& progress);

    /// Back to nothing selected, without telling anybody; what a project to open needs.
    void Reset();

    /// The points shown for a track file of the current competitor: the file's own, or for an index outside
    /// its files those of all files merged. The merged list is kept until points change.
    const CObjectArray<CTrackPoint>& GetSeriesPoints(int nSeries);
    /// Index in the merged list of a file's point, searched from `nPoint` (or 0) on; -1 if there is none.
    int FindMergedPoint(int nSeries, int nPoint);
    /// Point index of a merged-list entry, and its file; -1 outside the list.
    int MergedPointOrigin(int nIndex, int& nSeries);

    CPerson* GetCurrentPerson() const; ///< null when there is none
    CSeries* GetCurrentSeries() const; ///< null when there is none, or all files are shown

    /// Shows a file of the first competitor, or with -1 all of them, and lists its results. `bRecalculate`
    /// has them calculated anew. The panes are told HINT_ALL for a full refresh, else that the points changed
    /// or, with `bPointsHint` off, only the results.
    void SelectSeries(int nSeries, bool bRecalculate, bool bPointsHint, bool bFullRefresh = false);
    /// Lists the leaderboard of a division, or with -1 the results in all of them.
    void ShowDivisionResults(int nDivision);
    /// Marks the run of a listed result, null for none, and focuses its first or fastest point.
    void SelectResult(const CResult* pResult);
    /// Calculates and lists the results of what is shown anew.
    void RefreshResults(bool bResetFocus);
    /// The same, having derived the points of the shown files before when that is wished.
    void Recalculate(bool bResetFocus, bool bDerivePoints);
    /// Moves the focus and fills the status-bar texts. A point beyond the list becomes the last one, -1 none.
    void SetFocusPoint(int nSeries, double dPoint);

    // What a pane calls when the user chose something in it; the other panes follow.
    void MoveFocus(const CPane* pSender, int nSeries, double dPoint);
    void PickResult(const CPane* pSender, const CResult* pResult);

    /// The picked run by what tells it from another.
    using CRunKey = std::array<int, 8>;
    CRunKey RunKey() const
    {
        return {m_nRunCompetitor, m_nRunSeries, m_nRunStart,    m_nRunEnd,
                m_nRunDivision,   m_nRunKind,   m_nRunWaypoint, m_nRunWaypoint2};
    }

    /// The picked run and the list of results become none; results that are about to be deleted must not be
    /// referred to.
    void ForgetResults();
    /// Every merged list handed out is void: points were added, removed or reordered.
    void ForgetPoints();

    int m_nCompetitor = -1;
    int m_nSeries = -1; ///< -1: all of the competitor's
    int m_nNodeKind = 0;
    int m_nDivision = -1; ///< of the results, when m_nNodeKind is NodeKind::Division; -1: all
    CResultList m_Results;

    int m_nRunStart = -1;
    int m_nRunEnd = -1;
    int m_nRunCompetitor = -1;
    int m_nRunSeries = -1;
    int m_nRunDivision = -1;
    int m_nRunKind = -1;
    double m_dRunProximity = 0.0; ///< km
    int m_nRunWaypoint = -1;
    int m_nRunWaypoint2 = -1;

    int m_nFocusSeries = -1;
    double m_dFocusPoint = -1.0; ///< a whole number

    // The extremes of the selected track files.
    double m_dViewMaxSpeed = 0.0; ///< in the display unit
    double m_dViewMaxSats = 0.0;
    double m_dViewMaxHdop = 0.0;
    double m_dViewMaxAltitude = -2147483647.0; ///< metres
    double m_dViewMinAltitude = 2147483647.0;  ///< metres

    std::string m_strCaption;                 ///< of the main frame
    std::array<std::string, 6> m_statusTexts; ///< status-bar panes 1 to 6

private:
    using CPointList = CObjectArray<CTrackPoint>;

    /// Calls `visit(file)` for the shown file, or for every file of the competitor.
    template <class TVisit>
    void ForEachShownFile(TVisit&& visit) const;
    void ForgetRun();
    void ForgetShownResults();
    void MeasureExtremes(const CSeries* pOnly);
    void CollectResults();
    void ListDivision();
    int FastestOfRun();

    CEvent& m_event;
    CUpdateHub& m_hub;
    CProgressDisplay& m_progress;
    CPointList m_merged{CPointList::EOwnership::Borrows};
    int m_nMergedCompetitor = -1; ///< whose points m_merged has; -1: nobody's
};

} // namespace kestrabel
