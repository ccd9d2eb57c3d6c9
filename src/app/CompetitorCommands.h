#pragma once

namespace kestrabel {

class CKestroDoc;

// The commands on who a competitor is. Each is one step of the document's history and modifies the document.
// True when something was changed: then the tree shows it anew. Removing one is with the track files.

/// Asks for a new competitor, at first entered in every division, appends him or her and shows all files.
bool AddCompetitor(CKestroDoc& document);

/// Asks for other values of a competitor. In an event without any the default competitor is made first.
/// Nothing for an index out of range.
bool EditCompetitor(CKestroDoc& document, int nPerson);

} // namespace kestrabel
