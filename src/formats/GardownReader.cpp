#include "formats/GardownReader.h"

#include "formats/LineFile.h"
#include "formats/ReportFormat.h"
#include "formats/TrackLine.h"

#include <memory>
#include <utility>

namespace kestrabel {

namespace {

/// Takes the track lines of one file.
class CTrackLines
{
public:
    CTrackLines(CImportMonitor& monitor, CObjectArray<CTrackPoint>& points)
        : m_monitor(monitor), m_points(points)
    {
    }

    void Take(std::string_view strLine, std::int64_t nLine)
    {
        if (!m_layout)
            m_layout = FindTrackLayout(strLine);
        auto pPoint = std::make_unique<CTrackPoint>();
        if (m_layout && ParseTrackLine(strLine, *m_layout, *pPoint))
            m_points.Add(std::move(pPoint));
        else if (!m_monitor.AskToContinue(nLine, m_layout ? "a track line of another layout than the first"
                                                          : "a track line of no known layout"))
            m_monitor.Report(StringTableText(EText::BadTrackLine), true);
    }

private:
    CImportMonitor& m_monitor;
    CObjectArray<CTrackPoint>& m_points;
    std::optional<ETrackLayout> m_layout;
};

} // namespace

EReadEnd ReadGardown(CImportMonitor& monitor, std::string_view strPath, CObjectArray<CTrackPoint>& points)
{
    CLineFile file;
    if (!file.OpenForReading(strPath)) {
        ReportOpenFailure(monitor, strPath, file.ErrorText());
        return EReadEnd::Failed;
    }
    CTrackLines lines(monitor, points);
    try {
        std::string_view strLine;
        while (file.ReadLine(strLine)) {
            if (monitor.IsAborted())
                return EReadEnd::Stopped;
            if (strLine.starts_with('T'))
                lines.Take(strLine, file.LineNumber());
        }
    } catch (const CFileException& exception) {
        monitor.NoteIssue(file.LineNumber(), exception.what());
        monitor.Report(StringTableText(EText::ReadFailure), false);
        return EReadEnd::Stopped;
    }
    return EReadEnd::Complete;
}

} // namespace kestrabel
