#pragma once

#include "present/scene/PixelCover.h"
#include "present/scene/Scene.h"

#include <cmath>
#include <map>
#include <utility>

namespace kestrabel::test {

/// A picture as a widget without smoothing paints it: the colour that is on top of each pixel.
using CPicture = std::map<std::pair<int, int>, SSceneColor>;

inline void Paint(CPicture& picture, const SSceneArea& area, const SScenePen& pen, const SScenePoint& from,
                  const SScenePoint& to)
{
    const auto pixel = [](double dPlace) { return static_cast<int>(std::floor(dPlace + 0.5)); };
    CPixelCover::ForEachPixel(
        pixel(from.dX), pixel(from.dY), pixel(to.dX), pixel(to.dY), [&](int nX, int nY) {
            if (nX >= area.nLeft && nX < area.nRight && nY >= area.nTop && nY < area.nBottom)
                picture[{nX, nY}] = pen.color;
        });
}

inline CPicture Painted(const SSceneLayer& layer, const SSceneArea& area)
{
    CPicture picture;
    for (const SSceneLines& lines : layer.lines) {
        for (std::size_t i = 0; i + 1 < lines.ends.size(); i += 2)
            Paint(picture, area, lines.pen, lines.ends[i], lines.ends[i + 1]);
    }
    for (const SScenePolyline& line : layer.polylines) {
        for (std::size_t i = 1; i < line.points.size(); ++i)
            Paint(picture, area, line.pen, line.points[i], line.points[i - 1]);
    }
    return picture;
}

} // namespace kestrabel::test
