#include "formats/BinaryLogReader.h"

#include "formats/BinaryLogRecord.h"
#include "formats/DeviceText.h"
#include "formats/ReportFormat.h"
#include "formats/SirfMessage.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace kestrabel {

namespace {

constexpr std::size_t MaxHeaderPayload = 256;

/// Appends points and, however the reading ends, leaves the array in order of time. Loggers write in order;
/// sorting once costs nothing then, and does not become quadratic for a file that is not.
class CTimeOrder
{
public:
    explicit CTimeOrder(CObjectArray<CTrackPoint>& points) : m_points(points) {}
    ~CTimeOrder()
    {
        if (m_bOutOfOrder)
            m_points.StableSort(IsBefore);
    }
    CTimeOrder(const CTimeOrder&) = delete;
    CTimeOrder& operator=(const CTimeOrder&) = delete;

    void Add(std::unique_ptr<CTrackPoint> pPoint)
    {
        const CTrackPoint* pLast = m_points.Last();
        m_bOutOfOrder = m_bOutOfOrder || (pLast != nullptr && IsBefore(*pPoint, *pLast));
        m_points.Add(std::move(pPoint));
    }

private:
    static bool IsBefore(const CTrackPoint& one, const CTrackPoint& other)
    {
        return one.m_time.m_dDays < other.m_time.m_dDays;
    }

    CObjectArray<CTrackPoint>& m_points;
    bool m_bOutOfOrder = false;
};

/// Moves behind the header when there is one.
void ReadHeader(CBinaryInput& input, CSeries& series)
{
    std::string_view bytes = input.Peek(BinaryLogFrameOffset + MaxHeaderPayload + SirfFrameOverhead);
    if (bytes.size() < BinaryLogFrameOffset)
        return;
    bytes.remove_prefix(BinaryLogFrameOffset);
    std::string_view payload;
    if (ParseSirfFrame(bytes, MaxHeaderPayload, payload) != ESirfFrame::Message)
        return;
    SetDeviceFields(payload.substr(1), series);
    input.Skip(input.Peek(BinaryLogHeaderSize).size());
}

EReadEnd ReadRecords(CImportMonitor& monitor, CBinaryInput& input, CObjectArray<CTrackPoint>& points)
{
    CTimeOrder ordered(points);
    bool bAnyRecord = false;
    while (true) {
        const std::string_view record = input.Peek(BinaryLogRecordSize);
        if (record.size() < BinaryLogRecordSize)
            break;
        bAnyRecord = true;
        if (monitor.IsAborted())
            return EReadEnd::Stopped;
        auto pPoint = std::make_unique<CTrackPoint>();
        if (ParseBinaryLogRecord(record, *pPoint))
            ordered.Add(std::move(pPoint));
        input.Skip(BinaryLogRecordSize);
    }
    if (bAnyRecord)
        return EReadEnd::Complete;
    monitor.Report(StringTableText(EText::NoBinaryLogRecord), true);
    return EReadEnd::Failed;
}

} // namespace

EReadEnd ReadBinaryLog(CImportMonitor& monitor, std::string_view strPath, CSeries& series,
                       CObjectArray<CTrackPoint>& points)
{
    CBinaryInput input;
    const EFileCause cause = input.Open(strPath);
    if (cause != EFileCause::None) {
        ReportOpenFailure(monitor, strPath, FileCauseText(cause));
        return EReadEnd::Failed;
    }
    try {
        ReadHeader(input, series);
        return ReadRecords(monitor, input, points);
    } catch (const CFileException& exception) {
        monitor.NoteIssue(static_cast<std::int64_t>(input.Position()), exception.what());
        monitor.Report(StringTableText(EText::ReadFailure), false);
        return EReadEnd::Stopped;
    }
}

} // namespace kestrabel
