#include "present/scene/SceneView.h"

namespace kestrabel {

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
