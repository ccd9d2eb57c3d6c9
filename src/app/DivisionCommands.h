#pragma once

namespace kestrabel {

class CKestroDoc;

// The commands on divisions. Each is one step of the document's history and modifies the document. Indices
// out of range do nothing. True when something was changed: then the tree shows its divisions anew.

/// Asks for a new division and appends it; the competitors are entered in it when that is wished.
bool AddDivision(CKestroDoc& document);

/// Asks for other values of a division. A new name goes to the competitors who are entered in it, too.
bool EditDivision(CKestroDoc& document, int nDivision);

/// Removes a division, its name from the competitors' lists and its results from their track files, and shows
/// all divisions.
bool DeleteDivision(CKestroDoc& document, int nDivision);

/// Swaps a division with the one before it.
bool MoveDivisionUp(CKestroDoc& document, int nDivision);

} // namespace kestrabel
