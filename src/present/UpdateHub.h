#pragma once

#include <vector>

namespace kestrabel {

/// What changed; every pane reacts to some of these. The numbers are fixed.
enum EUpdateHint : int
{
    HINT_ALL = 0,                  ///< no competitor is selected: refresh everything
    HINT_FOCUS_MOVED = 1000,       ///< a pane moved the focus point
    HINT_POINTS_CHANGED = 1001,    ///< a track file was selected or recalculated, or points were edited
    HINT_RESULTS_CHANGED = 1002,   ///< the list of results was built anew
    HINT_TRACKFILE_CHANGED = 1004, ///< a track file's properties changed
};

/// A view of the event that wants to know of changes.
class CPane
{
public:
    virtual ~CPane() = default;
    virtual void OnUpdate(EUpdateHint hint) = 0;
    /// Another project is open, or a new one: what the pane kept of the old one is to go. An update follows.
    virtual void OnInitialUpdate() {}
};

/// Tells every pane but the sender what changed. Panes are borrowed and must be detached before they go.
class CUpdateHub
{
public:
    void Attach(CPane& pane) { m_panes.push_back(&pane); }
    void Detach(CPane& pane) { std::erase(m_panes, &pane); }

    /// Updates every pane but `pSender` (null: all), in the order in which they were attached.
    void UpdateAllViews(const CPane* pSender, EUpdateHint hint)
    {
        for (CPane* pPane : std::vector(m_panes)) {
            if (pPane != pSender)
                pPane->OnUpdate(hint);
        }
    }

    void InitialUpdate()
    {
        for (CPane* pPane : std::vector(m_panes))
            pPane->OnInitialUpdate();
    }

private:
    std::vector<CPane*> m_panes;
};

} // namespace kestrabel
