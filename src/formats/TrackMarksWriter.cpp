#include "formats/TrackMarksWriter.h"

#include "formats/FormattedLine.h"
#include "formats/LineFile.h"
#include "formats/ReportFormat.h"
#include "model/NumberText.h"
#include "model/TimeText.h"

namespace kestrabel {

namespace {

constexpr std::int32_t DegreeDecimals = 10;

std::string MarkLine(const CTrackPoint& point)
{
    return FormatLine("%S%S%D%N%N", ',',
                      {FormatSigned(point.m_position.m_dLatitude, DegreeDecimals),
                       FormatSigned(point.m_position.m_dLongitude, DegreeDecimals),
                       FormatIsoSecond(point.m_time), 0.0, 0.0});
}

} // namespace

bool WriteTrackMarks(CImportMonitor& monitor, std::string_view strPath,
                     const CObjectArray<CTrackPoint>& points)
{
    CLineFile file;
    if (!file.OpenForWriting(strPath, CFile::EMode::Replace)) {
        ReportOpenFailure(monitor, strPath, file.ErrorText());
        return false;
    }
    try {
        for (const CTrackPoint* pPoint : points)
            file.WriteLine(MarkLine(*pPoint));
        file.Commit();
    } catch (const CFileException& exception) {
        monitor.NoteIssue(0, exception.what());
        monitor.Report(StringTableText(EText::TrackMarksFailure), false);
        return false;
    }
    return true;
}

} // namespace kestrabel
