#include "formats/TrackFileDispatcher.h"

#include "formats/StringTable.h"
#include "formats/TrackFormat.h"
#include "platform/FileCause.h"
#include "platform/Path.h"

#include <new>

namespace kestrabel {

namespace {

constexpr int FewestPoints = 2;

/// Runs a reader or writer. What it throws ends it with `failed`; what it did so far stays.
template <class TResult, class TRun>
TResult Guarded(CImportMonitor& monitor, EText failure, TResult failed, TRun&& run)
{
    try {
        return run();
    } catch (const CFileException& exception) {
        monitor.NoteIssue(0, exception.what());
        monitor.Report(StringTableText(failure), false);
    } catch (const std::bad_alloc&) {
        monitor.NoteIssue(0, "out of memory");
        monitor.Report(StringTableText(failure), false);
    }
    return failed;
}

EReadEnd Read(CImportMonitor& monitor, const STrackFormat& format, std::string_view strPath, CSeries& series)
{
    monitor.Init(monitor.Window(), monitor.Context());
    if (format.nSourceKind != 0)
        series.m_cReserved = format.nSourceKind;
    return Guarded(monitor, EText::ReadFailure, EReadEnd::Stopped,
                   [&] { return format.pRead(monitor, strPath, series); });
}

bool Write(CImportMonitor& monitor, const STrackFormat* pFormat, std::string_view strPath,
           const CSeries& series, const CObjectArray<CTrackPoint>& points)
{
    if (pFormat == nullptr)
        return false;
    if (pFormat->pWrite == nullptr) {
        if (pFormat->saveRefusal != EText::None) {
            monitor.Report(StringTableText(pFormat->saveRefusal), true);
            monitor.ShowMessage();
        }
        return false;
    }
    return Guarded(monitor, EText::WriteFailure, false,
                   [&] { return pFormat->pWrite(monitor, strPath, series, points); });
}

} // namespace

int ImportTrackFile(CImportMonitor& monitor, CSeries& series, EImportEnd& end)
{
    const STrackFormat* pFormat = FormatForImport(series.m_strFileName);
    if (pFormat == nullptr || pFormat->pRead == nullptr) {
        monitor.Report(StringTableText(EText::NotRecognised), true);
        monitor.ShowMessage();
        end = EImportEnd::Unrecognised;
        return 0;
    }
    const EReadEnd readEnd = Read(monitor, *pFormat, series.m_strFileName, series);
    series.m_bModified = 0;
    if (readEnd == EReadEnd::Stopped) {
        end = EImportEnd::Stopped;
        return series.m_points.GetCount();
    }
    end = readEnd == EReadEnd::Complete ? EImportEnd::Complete : EImportEnd::Failed;
    if (series.m_points.GetCount() < FewestPoints)
        series.m_points.RemoveAll();
    else
        series.m_date = series.m_points[0].m_time;
    return series.m_points.GetCount();
}

bool LoadTrackFile(CImportMonitor& monitor, CSeries& series, std::string_view strPath)
{
    const std::string strFile(strPath); // which may be the very name that is set here
    series.m_strFileName = StoredFileName(strFile);
    const STrackFormat* pFormat = FormatForReload(strFile);
    if (pFormat == nullptr || pFormat->pRead == nullptr)
        return false;
    return Read(monitor, *pFormat, strFile, series) == EReadEnd::Complete;
}

bool SaveTrackFile(CImportMonitor& monitor, const CSeries& series)
{
    // A stored name may have kept its capitals (see StoredFileName), or may have lost those of the file.
    return Write(monitor, FormatForSave(ToLower(series.m_strFileName), EGpxTest::LastThreeCharacters),
                 FindFile(series.m_strFileName), series, series.m_points);
}

bool SavePoints(CImportMonitor& monitor, std::string_view strFileName, const CSeries& series,
                const CObjectArray<CTrackPoint>& points)
{
    return Write(monitor, FormatForSave(strFileName, EGpxTest::ExtensionAnywhere), strFileName, series,
                 points);
}

} // namespace kestrabel
