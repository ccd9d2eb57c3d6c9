#include "app/Document.h"
#include "app/EditRecorder.h"
#include "app/FailureText.h"
#include "app/NewFileName.h"
#include "app/TrackEditing.h"
#include "model/TimeText.h"
#include "platform/Path.h"
#include "present/ExtractTrackDialog.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <system_error>

namespace kestrabel {

namespace {

/// The calendar day of a fix, in the displayed timezone, as a count of days.
double DayOf(const CEvent& event, const CTrackPoint& point)
{
    return std::floor(ShiftToTimezone(point.m_time, event.m_dTimezone).m_dDays);
}

/// The indices of the points that the dialog chooses; `nFocus` tells the day, -1: the first point does.
std::vector<int> ChoosePoints(const CEvent& event, const CSeries& series, const SExtractTrackDialog& dialog,
                              int nFocus)
{
    const CObjectArray<CTrackPoint>& points = series.m_points;
    std::vector<int> chosen;
    if (points.IsEmpty())
        return chosen;
    const double dDay = DayOf(event, points[std::clamp(nFocus, 0, points.GetCount() - 1)]);
    const auto isNext = [&](int i) {
        const int nLast = chosen.empty() ? -1 : chosen.back();
        switch (dialog.mode) {
        case EExtractBy::TrackPoint:
            return nLast == -1 ? i == dialog.startPoint.Whole() : i - nLast >= dialog.every.Value();
        case EExtractBy::Time:
            return nLast == -1 ? i == dialog.timeStartPoint.Value()
                               : SecondsBetween(points[nLast].m_time, points[i].m_time) >=
                                     dialog.everySeconds.Value();
        case EExtractBy::Day: return DayOf(event, points[i]) == dDay;
        case EExtractBy::MinimumSpeed:
            return points[i].m_dSpeed * dialog.UnitFactor() >= dialog.fasterThan.Value();
        }
        return false;
    };
    for (int i = 0; i < points.GetCount(); ++i) {
        if (isNext(i))
            chosen.push_back(i);
    }
    return chosen;
}

/// Everything but the points, whose file this becomes.
void CopyDescription(const CSeries& source, CSeries& copy)
{
    copy.m_date = source.m_date;
    copy.m_strIdentifier = source.m_strIdentifier;
    copy.m_strSerialNo = source.m_strSerialNo;
    copy.m_strFirmware = source.m_strFirmware;
    copy.m_strInfo = source.m_strInfo;
    copy.m_nLogRate = source.m_nLogRate;
    copy.m_bHasDoppler = source.m_bHasDoppler;
    copy.m_cReserved = source.m_cReserved;
    copy.m_dWindDirection = source.m_dWindDirection;
    copy.m_dTrackError = source.m_dTrackError;
    copy.m_dDopplerError = source.m_dDopplerError;
    copy.m_ellipsoid = source.m_ellipsoid;
    for (const CWayPoint* pWayPoint : source.m_waypoints)
        copy.m_waypoints.Add(std::make_unique<CWayPoint>(*pWayPoint));
}

} // namespace

void ExtractTrack(CKestroDoc& document)
{
    CViewSelection& selection = document.m_selection;
    CDesktop& desktop = document.m_surroundings.desktop;
    const CSeries* pSource = selection.GetCurrentSeries();
    if (pSource == nullptr)
        return;
    SExtractTrackDialog dialog = SExtractTrackDialog::From(*pSource);
    if (!desktop.Run(dialog))
        return;

    CPerson& person = *selection.GetCurrentPerson();
    auto pCreated = std::make_unique<CSeries>();
    CSeries& created = *pCreated;
    CopyDescription(*pSource, created);
    created.m_strName = dialog.strTrackName;
    created.m_bManaged = 1;
    // The name proposed is the source's path: only its last element can name a file.
    const std::string strTitle = dialog.strTrackName.substr(dialog.strTrackName.find_last_of("/\\") + 1);
    created.m_strFileName = NewFileName(document.m_event.m_strDataFolder, strTitle, ".trk");
    const int nFocus = static_cast<int>(selection.m_dFocusPoint);
    for (const int nIndex : ChoosePoints(document.m_event, *pSource, dialog, nFocus)) {
        CTrackPoint& copy = created.m_points.Add(std::make_unique<CTrackPoint>(pSource->m_points[nIndex]));
        copy.m_nTrack = created.m_points.GetCount() - 1;
    }

    std::error_code ignored; // of a new project the data folder may not be there yet
    std::filesystem::create_directories(FolderOf(created.m_strFileName), ignored);
    CImportMonitor monitor;
    if (!SaveTrackFile(monitor, created)) {
        desktop.ShowMessage(FileFailureText(monitor, created.m_strFileName));
        created.m_bModified = 1; // it is nowhere else, whatever its source is
    }

    CEditRecorder recorder(document, "Extract Track");
    recorder.Touch(person, created, false);
    recorder.Do(std::make_unique<CObjectChange<CSeries>>(person.m_series, person.m_series.GetCount(),
                                                         std::move(pCreated)));
    recorder.MarkDocument();
    recorder.Finish();
    selection.SelectSeries(person.m_series.GetCount() - 1, false, true);
    recorder.Keep();
}

} // namespace kestrabel
