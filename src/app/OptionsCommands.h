#pragma once

namespace kestrabel {

class CKestroDoc;

// The commands on the event's settings. Each is one step of the document's history and modifies the document,
// in whose project file the settings are kept; without a change there is no step.

/// Asks for the settings. Whatever a new one reaches is calculated anew, and no more: the points and results
/// of all competitors, their results alone, or only what is shown. The focus is kept.
void EditOptions(CKestroDoc& document);

/// Asks for a file; the folder in which it lies, or would lie, becomes the data folder.
void ChooseDataFolder(CKestroDoc& document);

} // namespace kestrabel
