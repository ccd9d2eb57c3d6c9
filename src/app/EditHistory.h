#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace kestrabel {

class CKestroDoc;
class CPerson;
class CSeries;

/// One reversible change of the event. `Swap` turns what is into what was, and back again: undo and redo are
/// the same exchange. A change keeps what it took out, or an order, never a copy of a track.
class CChange
{
public:
    virtual ~CChange() = default;
    virtual void Swap() = 0;
};

/// What one command changed, under the name that the menu shows.
class CEditStep
{
public:
    explicit CEditStep(std::string_view strName) : m_strName(strName) {}

    void Add(std::unique_ptr<CChange> pChange) { m_changes.push_back(std::move(pChange)); }

    std::string m_strName;
    std::vector<std::unique_ptr<CChange>> m_changes; ///< in the order in which they were made
};

/// The steps that can be undone and redone. Whatever destroys or replaces objects without being a step
/// (opening, closing and reloading files) clears it.
class CEditHistory
{
public:
    /// Keeps a step that was just done; what could be redone is gone.
    void Push(CEditStep step);
    void Clear();

    /// The names of what would be undone and redone; empty when there is nothing.
    std::string_view UndoName() const;
    std::string_view RedoName() const;

    /// Undoes or redoes one step, derives the points and clears the results that it concerns, and tells the
    /// panes. False when there is nothing.
    bool Undo(CKestroDoc& document);
    bool Redo(CKestroDoc& document);

private:
    std::vector<CEditStep> m_steps;
    std::size_t m_nDone = 0; ///< the steps below are done, those from here on undone
};

} // namespace kestrabel
