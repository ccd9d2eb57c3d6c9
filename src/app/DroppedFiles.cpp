#include "app/DroppedFiles.h"

#include "app/Application.h"
#include "app/TrackFileCommands.h"
#include "formats/TrackFormat.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace kestrabel {

namespace {

namespace fs = std::filesystem;

void AddFilesWithin(const fs::path& folder, std::vector<std::string>& files)
{
    std::error_code ignored;
    const auto options = fs::directory_options::skip_permission_denied;
    std::vector<std::string> within;
    for (auto entry = fs::recursive_directory_iterator(folder, options, ignored);
         entry != fs::recursive_directory_iterator(); entry.increment(ignored))
    {
        const std::string strPath = entry->path().string();
        const bool bKnown = IsProjectPath(strPath) || FormatForImport(strPath) != nullptr;
        if (bKnown && entry->is_regular_file(ignored))
            within.push_back(strPath);
    }
    std::ranges::sort(within);
    files.insert(files.end(), within.begin(), within.end());
}

} // namespace

std::vector<std::string> FilesOf(std::span<const std::string> paths)
{
    std::vector<std::string> files;
    for (const std::string& strPath : paths) {
        std::error_code ignored;
        if (fs::is_directory(strPath, ignored))
            AddFilesWithin(strPath, files);
        else
            files.push_back(strPath);
    }
    return files;
}

void DropFiles(CApplication& application, std::span<const std::string> paths)
{
    CKestroDoc& document = application.m_document;
    std::vector<std::string> files = FilesOf(paths);
    const auto firstTrack = std::stable_partition(files.begin(), files.end(), IsProjectPath);
    if (firstTrack != files.begin()) {
        if (!document.CanCloseFrame() || !application.OpenFiles({files.front()}))
            return;
    }
    const std::span tracks(firstTrack, files.end());
    if (tracks.empty())
        return;
    if (document.m_event.m_persons.IsEmpty())
        document.CreateDefaultCompetitor();
    const int nPerson =
        std::clamp(document.m_selection.m_nCompetitor, 0, document.m_event.m_persons.GetCount() - 1);
    CPerson& person = document.m_event.m_persons[nPerson];
    ImportSeveral(document, person, tracks);
    document.ShowNewTree();
    document.m_selection.SelectSeries(person.m_series.GetCount() - 1, true, true);
}

} // namespace kestrabel
