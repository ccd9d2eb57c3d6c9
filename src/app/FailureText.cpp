#include "app/FailureText.h"

#include "formats/MonitorText.h"

namespace kestrabel {

std::string FileFailureText(const CImportMonitor& monitor, std::string_view strPath)
{
    return std::string(strPath) + ": " + FailureText(monitor, strPath);
}

std::string EmptyImportText(const CImportMonitor& monitor, std::string_view strPath, EImportEnd end)
{
    if (end == EImportEnd::Unrecognised || end == EImportEnd::Stopped)
        return {};
    if (end == EImportEnd::Failed)
        return FileFailureText(monitor, strPath);
    return std::string(strPath) + ": fewer than 2 track points";
}

} // namespace kestrabel
