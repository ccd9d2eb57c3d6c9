#pragma once

#include "present/map/MapView.h"
#include "present/scene/SceneWorld.h"

namespace kestrabel::test {

struct SMapWorld : SSceneWorld
{
    std::vector<SMapTrack> Tracks(bool bSpeedColor = true)
    {
        return MakeMapTracks(event, selection, bSpeedColor);
    }
};

} // namespace kestrabel::test
