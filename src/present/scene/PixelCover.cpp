#include "present/scene/PixelCover.h"

#include <algorithm>
#include <cmath>

namespace kestrabel {

bool ClipLine(double dLeft, double dTop, double dRight, double dBottom, SScenePoint& from, SScenePoint& to)
{
    // Most lines that are not seen lie on one side altogether.
    if ((from.dX < dLeft && to.dX < dLeft) || (from.dX > dRight && to.dX > dRight) ||
        (from.dY < dTop && to.dY < dTop) || (from.dY > dBottom && to.dY > dBottom))
        return false;
    const double dX = to.dX - from.dX;
    const double dY = to.dY - from.dY;
    if (!std::isfinite(dX) || !std::isfinite(dY))
        return false;
    double dEnter = 0.0; // the visible part, as fractions of the line
    double dLeave = 1.0;
    const struct
    {
        double dDirection;
        double dDistance;
    } edges[] = {
        {-dX, from.dX - dLeft}, {dX, dRight - from.dX}, {-dY, from.dY - dTop}, {dY, dBottom - from.dY}};
    for (const auto& [dDirection, dDistance] : edges) {
        if (dDirection == 0.0) {
            if (dDistance < 0.0)
                return false;
        } else if (dDirection < 0.0) {
            dEnter = std::max(dEnter, dDistance / dDirection);
        } else {
            dLeave = std::min(dLeave, dDistance / dDirection);
        }
    }
    if (dEnter > dLeave)
        return false;
    const SScenePoint start = from;
    // An end that stays is not touched; one that is cut must not be rounded to beyond the edge.
    const auto at = [&](double dFraction) {
        return SScenePoint{std::clamp(start.dX + dX * dFraction, dLeft, dRight),
                           std::clamp(start.dY + dY * dFraction, dTop, dBottom)};
    };
    if (dEnter > 0.0)
        from = at(dEnter);
    if (dLeave < 1.0)
        to = at(dLeave);
    return true;
}

} // namespace kestrabel
