#pragma once

#include "app/TouchedSeries.h"

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace kestrabel {

class CKestroDoc;

/// One reversible change of the event. `Swap` turns what is into what was, and back again: undo and redo are
/// the same exchange. A change keeps what it took out, or an order, never a copy of a track.
class CChange
{
public:
    virtual ~CChange() = default;
    virtual void Swap() = 0;
};

/// What the panes showed when a step began or ended.
struct SShown
{
    int nCompetitor = -1;
    int nSeries = -1;
    int nNodeKind = 0;
    int nDivision = -1;
    int nFocusSeries = -1;
    double dFocusPoint = -1.0;
};

/// What one command changed, under the name that the menu shows. `CEditRecorder` makes them.
struct SEditStep
{
    std::string strName;
    std::vector<std::unique_ptr<CChange>> changes; ///< in the order in which they were made
    std::vector<CTouchedSeries> touched;
    std::vector<std::string> divisions; ///< whose results are void
    bool bDerives = true;               ///< false: the points' flags stay as the changes left them
    SModifiedMark mark;                 ///< the document's
    SShown before;
    SShown after;
};

/// Removes every competitor's records of these divisions.
void ForgetDivisionResults(CEvent& event, const std::vector<std::string>& divisions);

/// The steps that can be undone and redone. After an undo every point, flag, name, mark and derived value is
/// what it was before the step; after a redo what it was behind it. Whatever destroys or replaces objects
/// without being a step (opening, closing and reloading files) clears it.
class CEditHistory
{
public:
    /// Keeps a step that was just done; what could be redone is gone.
    void Push(SEditStep step);
    void Clear();

    /// The names of what would be undone and redone; empty when there is nothing.
    std::string_view UndoName() const;
    std::string_view RedoName() const;

    /// The number of steps that can be undone.
    std::size_t UndoCount() const { return m_nDone; }

    /// Undoes or redoes one step, derives the points and voids the results that it concerns, and shows what
    /// was shown then. False when there is nothing.
    bool Undo(CKestroDoc& document);
    bool Redo(CKestroDoc& document);

    /// The track file, or with null the document, was saved as it is now: every other state is modified.
    void NoteSaved(const CSeries* pSeries);

private:
    std::vector<const SEditStep*> MarksNotDerived(const SEditStep& step) const;

    std::vector<SEditStep> m_steps;
    std::size_t m_nDone = 0; ///< the steps below are done, those from here on undone
};

} // namespace kestrabel
