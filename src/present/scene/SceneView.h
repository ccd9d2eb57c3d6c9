#pragma once

#include "geo/GeoRect.h"
#include "model/Event.h"
#include "present/Command.h"
#include "present/GridFieldsDialog.h"
#include "present/scene/Scene.h"
#include "present/scene/ScrollBar.h"
#include "present/UpdateHub.h"

#include <functional>
#include <optional>
#include <utility>

namespace kestrabel {

struct SModifiers
{
    bool bShift = false;
    bool bCtrl = false;
};

enum class EViewKey
{
    Left,
    Right,
    Up,
    Down,
    Home,
    End,
    Delete,
    Backspace,
};

/// A view that is drawn: the map, the speed graph. A pane passes on what the user does, draws the scene and
/// shows the scroll bars; all of that in pixels of its client area.
class CSceneView : public CPane
{
public:
    /// The event outlives the view.
    explicit CSceneView(const CEvent& event) : m_event(event) {}

    struct SListener
    {
        /// The scene or a scroll bar may be another.
        std::function<void()> onChanged = [] {};
        /// The selection has other status-bar texts, those of the pointer.
        std::function<void()> onStatus = [] {};
        /// The user wants the focus point deleted, or the one before it.
        std::function<void(bool bBefore)> onDelete = [](bool) {};
    };
    void SetListener(SListener listener) { m_listener = std::move(listener); }

    void OnInitialUpdate() override { OnUpdate(HINT_ALL); }

    /// The client area.
    virtual void OnSize(int nWidth, int nHeight) = 0;
    /// Fonts, colours or the view are others.
    virtual void Refresh() = 0;

    /// What to draw now. Layers in which nothing changed are not computed again.
    virtual const SScene& Scene(const CSceneTextSize& text) = 0;
    /// What is visible, fitted into an area of a page of which `dScale` pixels make one of the screen.
    virtual SScene PrintScene(const SSceneArea& area, double dScale, const CSceneTextSize& text) = 0;

    virtual SScrollBar ScrollBar(EScrollBar bar) const = 0;
    virtual void OnScroll(EScrollBar bar, EScroll scroll, int nThumb = 0) = 0;

    virtual void OnLButtonDown(const SScenePoint& point, SModifiers modifiers) = 0;
    void OnLButtonUp() { m_dragged.reset(); }
    /// Drags with the left button held; shows where the pointer is. True: the pane is to take the keyboard.
    bool OnMouseMove(const SScenePoint& point, bool bLeftButton);
    /// Forward, away from the user, shows more.
    void OnMouseWheel(const SScenePoint& point, bool bForward) { ZoomAt(point, !bForward); }
    /// Remembers the place for the commands of the context menu.
    void OnRButtonDown(const SScenePoint& point) { m_rightClicked = point; }

    /// False: the key means nothing here.
    virtual bool OnKeyDown(EViewKey key, SModifiers modifiers) = 0;

    /// The zoom commands, at the place of the right click. False: it is none of them.
    bool OnCommand(ECommand command);
    /// Where "Add Waypoint..." and "Add CheckPoint..." of the context menu are to add one: none for the focus
    /// point, which a view may move for it.
    virtual std::optional<CPosition> PlaceForNewPoint() = 0;

    virtual SGridFieldsDialog FieldsDialog() const = 0;
    virtual void ApplyFields(const SGridFieldsDialog& dialog) = 0;

protected:
    /// One step, after which the place shows what it showed before.
    virtual void ZoomAt(const SScenePoint& point, bool bIn) = 0;
    virtual void ZoomAll() = 0;
    /// Status-bar texts for the place under the pointer.
    virtual void ShowPointer(const SScenePoint& point) = 0;
    /// What was at the first place is to be at the second.
    virtual void Drag(const SScenePoint& from, const SScenePoint& to) = 0;

    const CEvent& m_event;
    SListener m_listener;
    std::optional<SScenePoint> m_dragged; ///< where the pointer was while it drags the view
    std::optional<SScenePoint> m_pointer; ///< where it was last
    SScenePoint m_rightClicked;
};

} // namespace kestrabel
