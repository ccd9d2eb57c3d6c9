#pragma once

namespace kestrabel {

class CKestroDoc;

// The results export as commands: each asks for a file, writes it and tells what failed. -1 as an index means
// all.

/// What is selected: the division's results, else those of the competitor's track file.
void ExportResults(CKestroDoc& document);
void ExportCompetitorResults(CKestroDoc& document, int nPerson, int nSeries);
void ExportDivisionResults(CKestroDoc& document, int nDivision);
void ExportAllDivisions(CKestroDoc& document, int nPerson, int nSeries);

} // namespace kestrabel
