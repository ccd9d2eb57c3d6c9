#include "formats/GpxWriter.h"

#include "formats/LineFile.h"
#include "formats/ReportFormat.h"
#include "model/NumberText.h"
#include "model/TimeText.h"
#include "platform/Path.h"
#include "platform/Text.h"

#include <algorithm>
#include <string>

namespace kestrabel {

namespace {

constexpr std::string_view Version = "1.917";
constexpr std::string_view CreatorAddress = "https://kestrabel.example/";
constexpr int PointsAskedForDoppler = 1000;
constexpr double KmhToMetresPerSecond = 0.2777777777777778;

/// How the times of points are written.
using CTimeText = std::string (*)(const DATE&);

std::string TimeToSecond(const DATE& time)
{
    return FormatIsoSecond(time) + "Z";
}

std::string TimeToMillisecond(const DATE& time)
{
    return FormatIsoShortest(time) + "Z";
}

std::string Escape(std::string_view strText)
{
    std::string strEscaped;
    for (const char c : ToUtf8(strText)) {
        switch (c) {
        case '&': strEscaped += "&amp;"; break;
        case '<': strEscaped += "&lt;"; break;
        case '>': strEscaped += "&gt;"; break;
        default:
            // XML 1.0 knows no other control characters, not even escaped.
            if (static_cast<unsigned char>(c) >= 0x20 || c == '\t')
                strEscaped += c;
        }
    }
    // Nor these two, although they are well-formed UTF-8.
    for (const std::string_view strNoCharacter : {"\xEF\xBF\xBE", "\xEF\xBF\xBF"}) {
        for (std::size_t n = strEscaped.find(strNoCharacter); n != std::string::npos;
             n = strEscaped.find(strNoCharacter, n))
            strEscaped.erase(n, strNoCharacter.size());
    }
    return strEscaped;
}

bool HasDoppler(const CTrackPoint* pPoint)
{
    return pPoint->m_dDoppler > 0.0;
}

void WriteHeader(CLineFile& file, std::string_view strTimeEnd)
{
    file.WriteLine("<?xml version=\"1.0\"?>");
    file.WriteLine(std::string("<gpx version=\"1.0\" creator=\"Kestrabel V")
                       .append(Version)
                       .append(" - ")
                       .append(CreatorAddress)
                       .append("\""));
    file.WriteLine("  xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\"");
    file.WriteLine("  xmlns=\"http://www.topografix.com/GPX/1/0\"");
    file.WriteLine("  xsi:schemaLocation=\"http://www.topografix.com/GPX/1/0 "
                   "http://www.topografix.com/GPX/1/0/gpx.xsd\">");
    file.WriteLine("  <time>" + FormatIsoSecond(DATE::Now()) + std::string(strTimeEnd) + "</time>");
}

std::string PointLine(const CTrackPoint& point, bool bWithDoppler, CTimeText pTimeText)
{
    constexpr std::int32_t nDegreeDecimals = 10;
    std::string strLine = "<trkpt lat=\"";
    strLine += FormatSigned(point.m_position.m_dLatitude, nDegreeDecimals);
    strLine += "\" lon=\"";
    strLine += FormatSigned(point.m_position.m_dLongitude, nDegreeDecimals);
    strLine += "\"> <ele>";
    strLine += std::to_string(point.m_nAltitude);
    strLine += "</ele> <time>";
    strLine += pTimeText(point.m_time);
    strLine += "</time> ";
    if (bWithDoppler) {
        strLine += "<speed>";
        strLine += FormatFixed(point.m_dDoppler * KmhToMetresPerSecond, 2, false);
        strLine += "</speed> <HDOP>";
        strLine += FormatFixed(point.m_dHDOP, 1, false);
        strLine += "</HDOP> <sat>";
        strLine += std::to_string(point.m_nSats);
        strLine += "</sat> ";
    }
    strLine += "</trkpt>";
    return strLine;
}

void WriteTrack(CLineFile& file, std::string_view strName, const CObjectArray<CTrackPoint>& points,
                bool bWithDoppler, CTimeText pTimeText)
{
    file.WriteLine("<trk>");
    file.WriteLine("<name>\"" + Escape(strName) + "\"</name>");
    file.WriteLine("<trkseg>");
    for (const CTrackPoint* pPoint : points)
        file.WriteLine(PointLine(*pPoint, bWithDoppler, pTimeText));
    file.WriteLine("</trkseg>");
    file.WriteLine("</trk>");
}

bool HasNoTime(const CTrackPoint* pPoint)
{
    return !pPoint->m_time.IsValid();
}

/// Opens, lets `writeBody` write, closes; reports what fails.
template <class TWriteBody>
bool WriteDocument(CImportMonitor& monitor, std::string_view strPath, TWriteBody&& writeBody)
{
    CLineFile file;
    if (!file.OpenForWriting(strPath, CFile::EMode::Replace)) {
        ReportOpenFailure(monitor, strPath, file.ErrorText());
        if (monitor.Window() != nullptr)
            monitor.Window()->ShowMessage(file.ErrorText());
        return false;
    }
    try {
        writeBody(file);
        file.WriteLine("</gpx>");
        file.Commit();
    } catch (const CFileException& exception) {
        monitor.NoteIssue(0, exception.what());
        monitor.Report(StringTableText(EText::WriteFailure), false);
        return false;
    }
    return true;
}

} // namespace

bool WriteGpx(CImportMonitor& monitor, std::string_view strPath, const CObjectArray<CTrackPoint>& points)
{
    const auto asked = points.begin() + std::min(points.GetCount(), PointsAskedForDoppler);
    const bool bWithDoppler = std::any_of(points.begin(), asked, HasDoppler);
    const bool bWritten = WriteDocument(monitor, strPath, [&](CLineFile& file) {
        WriteHeader(file, ":00Z");
        WriteTrack(file, FileTitle(strPath), points, bWithDoppler, TimeToSecond);
    });
    if (bWritten)
        NotePoints(monitor, std::count_if(points.begin(), points.end(), HasNoTime),
                   "without a valid time, written without one");
    return bWritten;
}

bool WriteEventGpx(CImportMonitor& monitor, const CEvent& event, int nPerson, int nSeries,
                   std::string_view strPath)
{
    return WriteDocument(monitor, strPath, [&](CLineFile& file) {
        WriteHeader(file, "Z");
        for (int i = 0; i < event.m_persons.GetCount(); ++i) {
            if (nPerson != -1 && nPerson != i)
                continue;
            const CObjectArray<CSeries>& series = event.m_persons[i].m_series;
            for (int j = 0; j < series.GetCount(); ++j) {
                if (nSeries != -1 && nSeries != j)
                    continue;
                const CObjectArray<CTrackPoint>& points = series[j].m_points;
                const bool bWithDoppler = std::any_of(points.begin(), points.end(), HasDoppler);
                WriteTrack(file, series[j].m_strName, points, bWithDoppler, TimeToMillisecond);
            }
        }
    });
}

} // namespace kestrabel
