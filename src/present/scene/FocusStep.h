#pragma once

#include "present/ViewSelection.h"

namespace kestrabel {

/// Moves the focus to the next or the previous point of its file, with `bToEnd` to the last or the first.
/// Without a focus the first step leads to the first point of what is shown. Every pane but the sender is
/// told. False when there is no point.
bool StepFocus(CViewSelection& selection, const CPane* pSender, bool bOn, bool bToEnd);

} // namespace kestrabel
