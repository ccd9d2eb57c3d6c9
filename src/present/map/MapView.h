#pragma once

#include "platform/SettingsStore.h"
#include "present/Command.h"
#include "present/GridFieldsDialog.h"
#include "present/map/MapLayers.h"
#include "present/map/MapScroll.h"
#include "present/UpdateHub.h"
#include "present/ViewSelection.h"

#include <array>
#include <functional>
#include <optional>

namespace kestrabel {

struct SMapModifiers
{
    bool bShift = false;
    bool bCtrl = false;
};

enum class EMapKey
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

/// The map: the shown track files, the picked run and the focus point, seen through a transform that mouse,
/// keys, scroll bars and commands change. A pane passes on what the user does, draws the scene and shows the
/// scroll bars; all of that in pixels of its client area.
class CMapView : public CPane
{
public:
    struct SListener
    {
        /// The scene or a scroll bar may be another.
        std::function<void()> onChanged = [] {};
        /// The selection has other status-bar texts, those of the pointer.
        std::function<void()> onStatus = [] {};
        /// The user wants the focus point deleted, or the one before it.
        std::function<void(bool bBefore)> onDelete = [](bool) {};
    };

    /// Keeps what it shows in the settings. The event, the hub, the selection and the settings outlive it.
    CMapView(const CEvent& event, CUpdateHub& hub, CViewSelection& selection, CSettingsStore& settings);
    ~CMapView() override;
    CMapView(const CMapView&) = delete;
    CMapView& operator=(const CMapView&) = delete;

    void SetListener(SListener listener) { m_listener = std::move(listener); }

    void OnUpdate(EUpdateHint hint) override;
    void OnInitialUpdate() override { OnUpdate(HINT_ALL); }

    /// The client area. What is in the middle stays there, and the zoom factor.
    void OnSize(int nWidth, int nHeight);
    /// Fonts or colours are others.
    void Refresh();

    /// What to draw now. Layers in which nothing changed are not computed again.
    const SMapScene& Scene(const CMapTextSize& text);
    /// What is visible, fitted into an area of a page of which `dScale` pixels make one of the screen.
    SMapScene PrintScene(const SMapArea& area, double dScale, const CMapTextSize& text);

    SMapScroll Scroll(EScrollBar bar) const { return ScrollOf(m_transform, m_extent, bar); }
    void OnScroll(EScrollBar bar, EScroll scroll, int nThumb = 0);

    /// With Ctrl zooms in there, with Shift moves that place to the middle, else puts the focus on the point
    /// there.
    void OnLButtonDown(const SMapPoint& point, SMapModifiers modifiers);
    void OnLButtonUp() { m_dragged.reset(); }
    /// Drags the map with the left button held; shows where the pointer is. True: the pane is to take the
    /// keyboard.
    bool OnMouseMove(const SMapPoint& point, bool bLeftButton);
    /// Forward, away from the user, shows more.
    void OnMouseWheel(const SMapPoint& point, bool bForward);
    /// Remembers the place for the commands of the context menu.
    void OnRButtonDown(const SMapPoint& point) { m_rightClicked = point; }

    /// False: the key means nothing to the map.
    bool OnKeyDown(EMapKey key, SMapModifiers modifiers);

    /// The zoom commands. False: it is none of them.
    bool OnCommand(ECommand command);
    void ShowNeighborhood(bool bShow);
    /// Where "Add Waypoint..." and "Add CheckPoint..." of the context menu are to add one: none when there is
    /// a track point, which is the focus now, else the position that was clicked.
    std::optional<CPosition> PlaceForNewPoint();

    SGridFieldsDialog FieldsDialog() const { return SGridFieldsDialog::From(m_fields); }
    void ApplyFields(const SGridFieldsDialog& dialog);

    const CMapTransform& Transform() const { return m_transform; }

private:
    /// The first point of what is shown within three pixels of the place; null when there is none.
    const CTrackPoint* PointAt(const SMapPoint& point);
    void FocusOn(const CTrackPoint& point, const CPane* pSender);
    void ShowAll();
    void ShowInMiddle(const CPosition& position);
    void ZoomAt(const SMapPoint& point, bool bIn);
    void ShowPointer(const SMapPoint& point);
    bool StepFocus(EMapKey key, bool bCtrl);
    void ScrollPage(EMapKey key);
    void Moved();
    void UpdateTracks();
    SMapOptions Options() const { return MapOptions(m_fields, m_bNeighborhood); }

    const CEvent& m_event;
    CUpdateHub& m_hub;
    CViewSelection& m_selection;
    CSettingsStore& m_settings;
    SListener m_listener;
    CGridFields m_fields;
    bool m_bNeighborhood = false;

    CMapTransform m_transform;
    CGeoRect m_extent = MapExtent(m_selection);
    std::optional<SMapPoint> m_dragged; ///< where the pointer was while it drags the map
    std::optional<SMapPoint> m_pointer; ///< where it was last
    SMapPoint m_rightClicked;

    /// The picked run by what tells it from another.
    using CRunKey = std::array<int, 8>;
    CRunKey RunKey() const;

    // What is kept from scene to scene.
    std::vector<SMapTrack> m_tracks;
    bool m_bTracksStale = true;
    bool m_bGroundStale = true;
    CRunKey m_shownRun = {};
    std::optional<CPosition> m_shownFocus;
    SMapScene m_scene;
};

} // namespace kestrabel
