#pragma once

#include "present/ProjectTree.h"
#include "present/TrackPointGrid.h"

#include <span>

namespace kestrabel {

class CKestroDoc;

/// A click on a node of the project tree: shows its track file, all of them, or its division's results. An
/// event without competitors gets its default one first, where that is asked for.
void ClickNode(CKestroDoc& document, const STreeNode& node);

/// Carries out a command of a node's menu, on that node. Nothing for a node that is not there any more.
/// False when the command is not one of the document's for such a node. `shownColumns` are those of the
/// track-point grid, for an export of points as a table.
bool CarryOutOnNode(CKestroDoc& document, ECommand command, const STreeNode& node,
                    std::span<const EPointColumn> shownColumns);

} // namespace kestrabel
