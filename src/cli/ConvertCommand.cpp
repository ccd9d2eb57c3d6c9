#include "cli/ConvertCommand.h"

#include "formats/TrackFormat.h"
#include "platform/Path.h"

#include <algorithm>
#include <filesystem>
#include <optional>
#include <string>

namespace kestrabel {

namespace {

bool HasFractions(const CSeries& series)
{
    return std::any_of(series.m_points.begin(), series.m_points.end(), [](const CTrackPoint* pPoint) {
        const std::optional<SCalendar> calendar = pPoint->m_time.ToCalendar();
        return calendar && calendar->nMillisecond != 0;
    });
}

/// Why the write failed, without the file's name.
std::string WriteFailure(const CImportMonitor& monitor, CTerminalPrompt& prompt)
{
    const std::string strShown = prompt.TakeShown();
    if (!strShown.empty())
        return strShown;
    std::string strText = monitor.Message();
    if (!monitor.Issues().empty())
        strText += " (" + monitor.Issues().back().strReason + ")";
    return strText;
}

} // namespace

EExitStatus ConvertTrackFile(std::string_view strInput, std::string_view strOutput, CImportReport& report,
                             CMessages& messages)
{
    if (const std::string_view strRefusal = SaveRefusal(strOutput); !strRefusal.empty()) {
        messages.About(strOutput, strRefusal);
        return EExitStatus::Failed;
    }

    std::error_code error;
    if (std::filesystem::equivalent(FindFile(strInput), std::string(strOutput), error)) {
        messages.About(strOutput, "would replace the file that is read");
        return EExitStatus::Failed;
    }

    CSeries series;
    series.m_strName = FileTitle(strInput);
    series.m_strFileName = StoredFileName(strInput);
    CImportMonitor readMonitor(&report.Prompt());
    EImportEnd end = EImportEnd::Complete;
    const int nPoints = ImportTrackFile(readMonitor, series, end);
    report.FileEnded(strInput, readMonitor, end, nPoints);
    if (nPoints == 0)
        return report.Status();

    const std::string strExtension = ToLower(FileExtension(strOutput));
    const STrackFormat* pFormat = FormatForSave(strExtension, EGpxTest::ExtensionAnywhere);
    CImportMonitor writeMonitor(&report.Prompt());
    if (pFormat->pWrite(writeMonitor, strOutput, series, series.m_points)) {
        if (strExtension != ".sbp" && strExtension != ".bin" && HasFractions(series))
            messages.About(strOutput, "times are written to the whole second");
        for (const SImportIssue& issue : writeMonitor.Issues())
            messages.About(strOutput, issue.strReason); // what the format could not keep
        return report.Status();
    }
    messages.About(strOutput, WriteFailure(writeMonitor, report.Prompt()));
    return Worse(EExitStatus::Failed, report.Status());
}

} // namespace kestrabel
