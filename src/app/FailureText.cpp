#include "app/FailureText.h"

namespace kestrabel {

std::string FailureText(const CImportMonitor& monitor, std::string_view strPath)
{
    std::string strText(strPath);
    // A file that cannot be opened is reported under its name already.
    if (monitor.Message().starts_with(strPath))
        strText = monitor.Message();
    else if (!monitor.Message().empty())
        strText += ": " + monitor.Message();
    if (!monitor.Issues().empty())
        strText += " (" + monitor.Issues().back().strReason + ")";
    return strText;
}

std::string EmptyImportText(const CImportMonitor& monitor, std::string_view strPath, EImportEnd end)
{
    if (end == EImportEnd::Unrecognised || end == EImportEnd::Stopped)
        return {};
    if (end == EImportEnd::Failed)
        return FailureText(monitor, strPath);
    return std::string(strPath) + ": fewer than 2 track points";
}

} // namespace kestrabel
