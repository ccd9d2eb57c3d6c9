#pragma once

#include "model/Event.h"
#include "platform/Progress.h"

#include <utility>
#include <vector>

namespace kestrabel {

/// The modified mark of a file or of the document around a step.
struct SModifiedMark
{
    bool bSets = false; ///< the step modifies it
    bool bBefore = false;
    bool bAfter = false;
};

/// A track file that a step edits. The derivation rebuilds what it derives from the points in their order,
/// but for what it lets stand: the steps behind a gap, the first and last points, courses that a receiver
/// told, Doppler distances from when the file still had some. That is kept here before the edit, so that an
/// undo gives back every value.
class CTouchedSeries
{
public:
    /// Made before the points change.
    CTouchedSeries(const CEvent& event, CPerson& person, CSeries& series, bool bModifies);

    /// Called after the points of a file with Doppler speeds changed, and before they are derived. Without a
    /// single one left the derivation overwrites the courses, which then are kept, too.
    void KeepCourses();

    /// Called after an undo has brought the points back and before they are derived.
    void Restore();

    /// Derives the points, if the competitor still has the file, and voids its results.
    void Derive(const CEvent& event, CProgressDisplay& progress);
    /// Voids the results of the file and of what they went into.
    void ForgetResults();

    CPerson& Person() const { return *m_pPerson; }
    CSeries& Series() const { return *m_pSeries; }

    SModifiedMark m_mark;

private:
    CPerson* m_pPerson;
    CSeries* m_pSeries;
    std::vector<std::pair<CTrackPoint*, CTrackPoint>> m_held; ///< points that hold values, as they were
    std::vector<std::pair<CTrackPoint*, double>> m_courses;   ///< radians
};

} // namespace kestrabel
