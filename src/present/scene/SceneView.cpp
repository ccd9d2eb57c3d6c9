#include "present/scene/SceneView.h"

namespace kestrabel {

bool CSceneView::OnMouseMove(const SScenePoint& point, bool bLeftButton)
{
    if (m_pointer != point) {
        m_pointer = point;
        ShowPointer(point);
    }
    if (!bLeftButton) {
        m_dragged.reset();
        return m_event.m_bCaptureFocus != 0;
    }
    if (m_dragged && *m_dragged != point) {
        Drag(*m_dragged, point);
        m_dragged = point;
    }
    return false;
}

bool CSceneView::OnCommand(ECommand command)
{
    switch (command) {
    case ECommand::ZoomIn: ZoomAt(m_rightClicked, true); return true;
    case ECommand::ZoomOut: ZoomAt(m_rightClicked, false); return true;
    case ECommand::ZoomAll: ZoomAll(); return true;
    default: return false;
    }
}

} // namespace kestrabel
