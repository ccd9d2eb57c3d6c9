#pragma once

#include "model/ArchiveException.h"
#include "model/Event.h"
#include "platform/FileCause.h"

#include <string>
#include <string_view>

namespace kestrabel {

// The project file (".rsp"): the event's settings, divisions and waypoints, then the path under which it was
// saved. Competitors, track files and results are not in it.

/// No project comes near this size; a video chosen by mistake does. Bytes.
inline constexpr std::uint64_t MaxProjectFileSize = std::uint64_t{1} << 30U;

/// Takes settings, divisions and waypoints from the file, and the path that is stored in it (empty when there
/// is none). The event's competitors stay; each is entered in exactly the divisions of the file, in their
/// order, and loses every result and per-division record. Settings and waypoints that an older file lacks
/// stay as they are. Bytes behind the project are not looked at.
///
/// All or nothing: throws CFileException when the file cannot be opened or read and CArchiveException when
/// its bytes are no project; then event and path are as they were, so that half a project can never be saved
/// over a good one.
void LoadProject(std::string_view strPath, CEvent& event, std::string& strProjectPath);

/// The same from the bytes of a project file. Throws CArchiveException only.
void ReadProject(std::string_view bytes, CEvent& event, std::string& strProjectPath);

/// Writes the project in the current form, and `strProjectPath` as the path that is stored in it. The file
/// appears whole under its name or not at all: whatever fails, the old one stands (see
/// CFile::EMode::Replace). Divisions that are no lap racing lose their waypoints, which are not stored.
/// Throws CFileException.
void SaveProject(std::string_view strPath, CEvent& event, std::string_view strProjectPath);

} // namespace kestrabel
