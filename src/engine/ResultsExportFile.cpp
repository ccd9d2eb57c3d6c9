#include "engine/ResultsExportFile.h"

#include "formats/LineFile.h"

#include <vector>

namespace kestrabel {

namespace {

/// Opens the file, lets `write` put its lines there, and ends it.
template <class TWrite>
std::string ExportTo(std::string_view strPath, std::string_view strFailure, TWrite&& write)
{
    CLineFile file;
    if (!file.OpenForWriting(strPath, CFile::EMode::Create))
        return file.ErrorText();
    try {
        write([&](std::string_view strLine) { file.WriteLine(strLine); });
        file.Commit();
    } catch (const CFileException&) {
        return std::string(strFailure);
    }
    return {};
}

std::vector<const CDivision*> DivisionsOf(const CEvent& event, int nDivision)
{
    if (nDivision != -1)
        return {event.m_divisions.At(nDivision)};
    return {event.m_divisions.begin(), event.m_divisions.end()};
}

} // namespace

std::string ExportCompetitorResults(const CEvent& event, int nPerson, int nSeries, std::string_view strPath,
                                    CProgressDisplay& progress)
{
    return ExportTo(strPath, CompetitorExportFailure, [&](const CLineSink& writeLine) {
        WriteCompetitorResults(event, nPerson, nSeries, DivisionsOf(event, -1), writeLine, progress);
    });
}

std::string ExportDivisionResults(const CEvent& event, int nDivision, std::string_view strPath,
                                  CProgressDisplay& progress)
{
    return ExportTo(strPath, DivisionExportFailure, [&](const CLineSink& writeLine) {
        WriteDivisionResults(event, DivisionsOf(event, nDivision), writeLine, progress);
    });
}

std::string ExportAllDivisions(const CEvent& event, int nPerson, int nSeries, std::string_view strPath,
                               CProgressDisplay& progress)
{
    return ExportTo(strPath, DivisionExportFailure, [&](const CLineSink& writeLine) {
        WriteAllDivisions(event, nPerson, nSeries, writeLine, progress);
    });
}

} // namespace kestrabel
