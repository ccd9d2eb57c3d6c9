#pragma once

#include "model/TrackPoint.h"

#include <cstdint>
#include <span>

namespace kestrabel {

class CKestroDoc;

// The commands that clean tracks. Each acts on what is selected, asks what it must, discards the results that
// depended on the points it changes, derives the points again, shows the outcome, and is one step of the
// document's history. None but the extraction writes a file: the changed track files carry their modified
// mark until they are saved.

/// Sorts the selected file by time, in the order of `TimeOrder`.
void SortTrackPoints(CKestroDoc& document);

/// Splits the selected file at the focus point, which becomes the first point of the new file. Both files get
/// names of their own, which do not exist on disk yet.
void SplitSeries(CKestroDoc& document);

/// Copies chosen points of the selected file into a new one and writes that into the data folder.
void ExtractTrack(CKestroDoc& document);

/// Removes the points of the competitor's file, or of all (-1), that are invalid for InvalidMask::Fix.
void DeleteInvalid(CKestroDoc& document, int nCompetitor, int nSeries);

/// Asks for a speed and removes the slower points of what is selected.
void DeleteSlowPoints(CKestroDoc& document);

/// Marks points of the current competitor invalid, or clears all their flags; the derivation then sets the
/// flags again that the data calls for. Changes no modified mark: no track format keeps the mark.
void MarkPoints(CKestroDoc& document, std::span<CTrackPoint* const> points, bool bInvalid);
/// The same for the focus point, whose flags stay as they are set until the next derivation.
void MarkFocusPoint(CKestroDoc& document, bool bInvalid);

/// Removes points of the current competitor, of whichever of the files.
void DeletePoints(CKestroDoc& document, std::span<CTrackPoint* const> points);
/// Removes a point of the selected file; the focus stays on its point. Nothing for an index it has not.
void DeletePoint(CKestroDoc& document, int nIndex);

/// Merges all track files of a competitor into a new, smoothed one.
void CreateCombinedSeries(CKestroDoc& document, int nCompetitor);

} // namespace kestrabel
