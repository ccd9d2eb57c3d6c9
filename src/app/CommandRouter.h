#pragma once

#include "app/Application.h"
#include "present/Menus.h"
#include "present/ProjectTree.h"
#include "present/TrackPointGrid.h"

#include <functional>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace kestrabel {

enum class EPane
{
    Frame, ///< the menu and the toolbar
    Tree,
    ResultGrid,
    PointGrid,
    Graph,
    Map,
};

/// Where a command was chosen.
struct SCommandPlace
{
    EPane pane = EPane::Frame;
    STreeNode node = {};                       ///< of the tree
    std::span<CTrackPoint* const> points = {}; ///< selected in the track-point grid, in its order
    bool bCtrlHeld = false;
    /// Asks the pane where a new waypoint is to be: at a position without a point, or, with none, at the
    /// focus point, which the pane may move for it. Empty: at the focus point.
    std::function<std::optional<CPosition>()> placeForNewPoint = {};
};

/// What of the window is shown.
struct SFrameState
{
    bool bToolbar = true;
    bool bStatusBar = true;
    bool bTree = false; ///< its column opens hidden
    bool bNeighborhood = false;
};

struct SCommandState
{
    bool bEnabled = true;
    bool bChecked = false;
};

/// Carries out what the user chose, wherever it was, by the command of the document that does it. What only a
/// window or a pane can do is plugged in by those who can; until then its items are disabled.
class CCommandRouter
{
public:
    using CAction = std::function<void(const SCommandPlace& place)>;

    /// The application outlives the router.
    explicit CCommandRouter(CApplication& application);

    /// What a command does that nothing here does, or what follows when it showed or hid a part of the
    /// window.
    void Plug(ECommand command, CAction action) { m_actions[command] = std::move(action); }

    /// False, and nothing happened, when the command is not available.
    bool CarryOut(ECommand command, const SCommandPlace& place = {});
    /// What Backspace does in the panes of points.
    void DeletePointBeforeFocus();

    SCommandState State(ECommand command, const SCommandPlace& place = {}) const;

    /// The item's text now: commands have the user's names, and undo tells what.
    std::string TextOf(const SMenuItem& item) const;

    SFrameState m_frame;
    std::vector<EPointColumn> m_shownColumns; ///< of the track-point grid, which keeps it

private:
    bool OnFrame(ECommand command, const SCommandPlace& place);
    bool OnPoints(ECommand command, const SCommandPlace& place);
    bool OnFocus(ECommand command, const SCommandPlace& place);
    void ShowFocusFile();
    void OpenNew();

    CApplication& m_application;
    CKestroDoc& m_document;
    std::map<ECommand, CAction> m_actions;
};

} // namespace kestrabel
