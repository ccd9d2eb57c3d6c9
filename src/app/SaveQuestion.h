#pragma once

namespace kestrabel {

class CKestroDoc;
class CSeries;

/// Writes a track file to its own path, in the format of its name. False when nothing was written; the
/// message says why.
bool SaveSeries(CKestroDoc& document, CSeries& series);

/// Asks whether a modified track file is to be saved, and saves it. False: the user cancelled, or it could
/// not be written. An unmodified one is not asked for.
bool AskToSaveTrackFile(CKestroDoc& document, CSeries& series);

} // namespace kestrabel
