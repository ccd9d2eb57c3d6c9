#pragma once

#include "platform/SettingsStore.h"

#include <string>
#include <string_view>

namespace kestrabel {

class CKestroDoc;

// Programs of the user's choice, run on the selected track file, and the text editor. None is started through
// a shell.

/// Commands are numbered from 1 to this.
inline constexpr int ExternalCommandCount = 5;

/// The text of a command's menu item: its stored name, a tab and "(+Ctrl)".
std::string ExternalCommandLabel(const CSettingsStore& settings, int nCommand);

/// The menu item: runs the stored command; when there is none, or with Ctrl held down, shows it in a dialog,
/// which keeps what was entered and may run it.
void InvokeExternalCommand(CKestroDoc& document, int nCommand, bool bCtrlHeld);

/// Fills in the placeholders, sets an existing file to import aside, starts the program and, once it is
/// ready, imports the file into the selected competitor. A message tells what stops it on the way.
void RunExternalCommand(CKestroDoc& document, std::string_view strCommandLine, std::string_view strFileIn);

/// The name under which an existing file is kept: "_BAK" before the last four characters of the file's name,
/// or in front when it has fewer.
std::string BackupName(std::string_view strPath);

/// Opens a track file of a competitor (-1: the only one) in a text editor. Says nothing when there is no such
/// file or no editor.
void ViewInNotepad(CKestroDoc& document, int nPerson, int nSeries);

} // namespace kestrabel
