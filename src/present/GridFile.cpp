#include "present/GridFile.h"

#include "formats/LineFile.h"

namespace kestrabel {

void WriteGridToFile(CUserPrompt& prompt, const CEvent& event, std::string_view strPath,
                     const CObjectArray<CTrackPoint>& points, std::span<const EPointColumn> columns)
{
    CLineFile file;
    try {
        if (!file.OpenForWriting(strPath, CFile::EMode::Create))
            throw CFileException(EFileCause::Unspecified, strPath);
        WriteGrid(event, points, columns, [&](std::string_view strLine) { file.WriteLine(strLine); });
        file.Commit();
    } catch (const CFileException&) {
        prompt.ShowMessage("Failed to write grid to file");
    }
}

} // namespace kestrabel
