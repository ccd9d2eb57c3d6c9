#include "model/ProjectFile.h"

#include "model/EventSettings.h"
#include "model/StoredForms.h"
#include "platform/File.h"

#include <algorithm>
#include <span>
#include <utility>

namespace kestrabel {

namespace {

constexpr std::uint32_t PathFollows = 1;
constexpr std::size_t ReadPiece = 64 * 1024;

std::string ReadWhole(std::string_view strPath)
{
    CFile file;
    const EFileCause cause = file.Open(strPath, CFile::EMode::Read);
    if (cause != EFileCause::None)
        throw CFileException(cause, strPath);
    // Up to the end, whatever the size says: a pipe has none.
    std::string strBytes;
    std::size_t nRead = 0;
    do {
        if (std::max<std::uint64_t>(nRead, file.Size()) > MaxProjectFileSize)
            throw CArchiveException(MaxProjectFileSize, "the file is too large for a project");
        strBytes.resize(nRead + ReadPiece);
        nRead += file.Read(std::span(strBytes).subspan(nRead));
    } while (nRead == strBytes.size());
    strBytes.resize(nRead);
    return strBytes;
}

void CopySettings(const CEvent& from, CEvent& to)
{
    for (const SEventSetting& setting : EventSettings())
        std::visit([&](auto pField) { to.*pField = from.*pField; }, setting.field);
}

void ClearCalculated(CSeries& series)
{
    // Removed, not emptied: an empty record means "calculated, and nothing was found".
    series.m_divisions.RemoveAll();
}

void EnterInDivisions(CPerson& person, const CEvent& event)
{
    person.m_results.RemoveAll();
    ClearCalculated(person.m_combined);
    for (CSeries* pSeries : person.m_series)
        ClearCalculated(*pSeries);
    person.m_divisionNames.clear();
    for (const CDivision* pDivision : event.m_divisions)
        person.Enter(pDivision->m_strName);
}

} // namespace

void LoadProject(std::string_view strPath, CEvent& event, std::string& strProjectPath)
{
    ReadProject(ReadWhole(strPath), event, strProjectPath);
}

void ReadProject(std::string_view bytes, CEvent& event, std::string& strProjectPath)
{
    CArchiveReader reader(bytes);
    CEvent stored(event.m_dateStart);
    CopySettings(event, stored);
    const std::uint32_t nVersion = ReadEvent(reader, stored);
    std::string strStoredPath;
    if (reader.ReadDword() >= PathFollows)
        strStoredPath = reader.ReadText();

    CopySettings(stored, event);
    event.m_divisions = std::move(stored.m_divisions);
    if (nVersion >= WayPointsFormatVersion)
        event.m_waypoints = std::move(stored.m_waypoints);
    for (CPerson* pPerson : event.m_persons)
        EnterInDivisions(*pPerson, event);
    strProjectPath = std::move(strStoredPath);
}

void SaveProject(std::string_view strPath, CEvent& event, std::string_view strProjectPath)
{
    CArchiveWriter writer;
    WriteEvent(writer, event);
    writer.WriteDword(PathFollows);
    writer.WriteText(strProjectPath);

    CFile file;
    const EFileCause cause = file.Open(strPath, CFile::EMode::Replace);
    if (cause != EFileCause::None)
        throw CFileException(cause, strPath);
    file.Write(writer.Bytes());
    file.Commit();
    for (CDivision* pDivision : event.m_divisions) {
        if (pDivision->m_nKind != DivisionKind::LapRacing)
            pDivision->m_waypoints.RemoveAll();
    }
}

} // namespace kestrabel
