#pragma once

#include "model/Person.h"

#include <span>
#include <string>
#include <string_view>

namespace kestrabel {

class CKestroDoc;

// The commands on whole track files and competitors. They change what the event holds, not the points of a
// track, and clear the document's history: what it remembers may be gone.

/// Where a downloaded file is moved before it is imported.
struct SMoveTo
{
    std::string strFolder; ///< ends in a separator
    std::string strName;   ///< of the download; its title names the file
};

/// Imports a track file into a competitor. When the competitor has one of that name already, the user says
/// whether it is replaced, kept beside, or the import stopped. False when it was stopped or the file could
/// not be moved; a file without a point imports nothing, and replaces nothing.
bool ImportSeries(CKestroDoc& document, CPerson& person, std::string_view strPath,
                  const SMoveTo* pMoveTo = nullptr);
/// Each path in order; one that fails stops the rest.
bool ImportSeveral(CKestroDoc& document, CPerson& person, std::span<const std::string> paths);
/// The command: asks for files, and for the competitor where there is a choice, and shows the last one.
void ImportTrackFiles(CKestroDoc& document);

/// Removes a track file from its competitor; a managed one from the disk, too, when that is wished.
void RemoveSeries(CKestroDoc& document, int nPerson, int nSeries, bool bDeleteFromDisk);
/// Removes a competitor with all track files.
void RemovePerson(CKestroDoc& document, int nPerson, bool bDeleteFromDisk);
/// The command: asks, and asks whether managed files are deleted as well.
void DeleteCompetitor(CKestroDoc& document, int nPerson);

/// Closes a track file of the current competitor after a question. With a point the focus goes to the same
/// one of the file shown then, to the one before it, or else to the first.
void CloseSeries(CKestroDoc& document, int nSeries, int nPoint = -1);
void CloseAllSeries(CKestroDoc& document);

/// Reads a track file from the disk again. When that fails the points stay as they are.
void ReloadSeries(CKestroDoc& document, int nSeries);

/// Asks for the properties of a track file and applies them; a new name goes to the file on disk, never over
/// another one.
bool EditSeriesProperties(CKestroDoc& document, int nSeries);

} // namespace kestrabel
