#include "formats/BinaryLogWriter.h"

#include "formats/BinaryLogRecord.h"
#include "formats/ByteOrder.h"
#include "formats/DeviceText.h"
#include "formats/ReportFormat.h"
#include "formats/SirfMessage.h"
#include "platform/File.h"

#include <string>

namespace kestrabel {

namespace {

constexpr std::string_view FileStart("\x2E\x00", 2);
constexpr std::string_view FrameStart = "\xA0\xA2";
constexpr std::string_view FrameEnd("\x00\x00\xB0\xB3", 4); // with a checksum of 0
constexpr std::size_t MaxTextLength =
    BinaryLogHeaderSize - BinaryLogFrameOffset - SirfFrameOverhead - sizeof(SirfId::DeviceInformation);

std::string MakeHeader(CImportMonitor& monitor, const CSeries& series)
{
    const std::string strWhole = MakeDeviceText(series);
    const std::string_view strText = CutText(strWhole, MaxTextLength);
    if (strText.size() < strWhole.size())
        monitor.NoteIssue(0, "the device text does not fit the header and is cut: " + std::string(strText));

    std::string header(FileStart);
    header += FrameStart;
    header += static_cast<char>(strText.size() + 1); // little-endian, with the ID
    header += '\0';
    header += static_cast<char>(SirfId::DeviceInformation);
    header += strText;
    header += FrameEnd;
    header.resize(BinaryLogHeaderSize, '\xFF');
    return header;
}

void WriteRecords(CImportMonitor& monitor, CFile& file, const CObjectArray<CTrackPoint>& points)
{
    int nTimesLost = 0;
    int nWithoutSats = 0;
    for (const CTrackPoint* pPoint : points) {
        bool bTimeFits = true;
        const CBinaryLogRecord record = MakeBinaryLogRecord(*pPoint, bTimeFits);
        file.Write({record.data(), record.size()});
        nTimesLost += bTimeFits ? 0 : 1;
        nWithoutSats += pPoint->m_nSats > 0 ? 0 : 1;
    }
    NotePoints(monitor, nTimesLost, "with a time that is not from 2000 to March 2085, written as zero");
    NotePoints(monitor, nWithoutSats, "without satellites, passed over when the file is read");
}

} // namespace

bool WriteBinaryLog(CImportMonitor& monitor, const CSeries& series, std::string_view strPath,
                    const CObjectArray<CTrackPoint>& points)
{
    CFile file;
    const EFileCause cause = file.Open(strPath, CFile::EMode::Replace);
    if (cause != EFileCause::None) {
        ReportOpenFailure(monitor, strPath, FileCauseText(cause));
        return false;
    }
    try {
        file.Write(MakeHeader(monitor, series));
        WriteRecords(monitor, file, points);
        file.Commit();
    } catch (const CFileException& exception) {
        monitor.NoteIssue(0, exception.what());
        monitor.Report(StringTableText(EText::WriteFailure), false);
        return false;
    }
    return true;
}

} // namespace kestrabel
