#include "present/scene/SceneParts.h"

#include "model/NumberText.h"

namespace kestrabel {

namespace {

constexpr SSceneColor ZoomTextColor = {100, 100, 100};

} // namespace

SSceneText ZoomText(const SSceneArea& area, double dZoomFactor)
{
    return {ESceneRole::ZoomText,
            ZoomTextColor,
            {static_cast<double>(area.nRight), static_cast<double>(area.nBottom)},
            ESceneAlign::High,
            ESceneAlign::High,
            "Zoom=" + FormatPadded(1.0 / dZoomFactor, 0, 1)};
}

} // namespace kestrabel
