#include "formats/SirfReader.h"

#include "formats/DeviceText.h"
#include "formats/ReportFormat.h"
#include "formats/SirfMessage.h"

#include <memory>
#include <utility>

namespace kestrabel {

namespace {

constexpr std::size_t MaxPayloadLength = 512;

/// Makes points of messages.
class CSirfAssembler
{
public:
    CSirfAssembler(CSeries& series, CObjectArray<CTrackPoint>& points) : m_series(series), m_points(points) {}

    void Take(std::string_view payload);

private:
    void TakeFix(std::string_view payload);

    CSeries& m_series;
    CObjectArray<CTrackPoint>& m_points;
    CTrackPoint* m_pPrevious = nullptr; ///< the last point of this file
};

void CSirfAssembler::Take(std::string_view payload)
{
    switch (static_cast<std::uint8_t>(payload[0])) {
    case SirfId::GeodeticNavigation: TakeFix(payload); break;
    case SirfId::DeviceInformation: SetDeviceFields(payload.substr(1), m_series); break;
    default: break;
    }
}

void CSirfAssembler::TakeFix(std::string_view payload)
{
    auto pPoint = std::make_unique<CTrackPoint>();
    if (!ParseGeodeticNavigation(payload, *pPoint))
        return;
    if (m_pPrevious != nullptr && m_pPrevious->m_time == pPoint->m_time)
        ParseGeodeticNavigation(payload, *m_pPrevious);
    else
        m_pPrevious = &m_points.Add(std::move(pPoint));
}

void NoteBadLength(CImportMonitor& monitor, const CBinaryInput& input)
{
    monitor.NoteIssue(static_cast<std::int64_t>(input.Position()),
                      "a frame that cannot have its length; nothing behind it is read");
}

} // namespace

EReadEnd ReadSirf(CImportMonitor& monitor, std::string_view strPath, CSeries& series,
                  CObjectArray<CTrackPoint>& points)
{
    CBinaryInput input;
    const EFileCause cause = input.Open(strPath);
    if (cause != EFileCause::None) {
        ReportOpenFailure(monitor, strPath, FileCauseText(cause));
        return EReadEnd::Failed;
    }
    CSirfAssembler assembler(series, points);
    try {
        std::string_view payload;
        bool bAnyMessage = false;
        ESirfFrame frame = ReadSirfMessage(input, MaxPayloadLength, payload);
        for (; frame == ESirfFrame::Message; frame = ReadSirfMessage(input, MaxPayloadLength, payload)) {
            bAnyMessage = true;
            if (monitor.IsAborted())
                return EReadEnd::Stopped;
            assembler.Take(payload);
        }
        if (frame == ESirfFrame::BadLength)
            NoteBadLength(monitor, input);
        if (!bAnyMessage) {
            monitor.Report(StringTableText(EText::NoSirfMessage), true);
            return EReadEnd::Failed;
        }
    } catch (const CFileException& exception) {
        monitor.NoteIssue(static_cast<std::int64_t>(input.Position()), exception.what());
        monitor.Report(StringTableText(EText::ReadFailure), false);
        return EReadEnd::Stopped;
    }
    return EReadEnd::Complete;
}

} // namespace kestrabel
