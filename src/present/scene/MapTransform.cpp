#include "present/scene/MapTransform.h"

#include "geo/Angle.h"

#include <algorithm>
#include <cmath>

namespace kestrabel {

namespace {

/// Degrees; at 180 a double has steps of 3e-14, and a pixel should be many of them.
constexpr double SmallestUnitsPerPixel = 1e-12;
/// Keeps the scale of longitudes finite at the poles and sensible beyond them.
constexpr double SmallestCosine = 1e-6;
/// As many steps out as in lead back to the whole extent, but for some units in the last place.
constexpr double WholeExtent = 1.0 - 1e-9;

} // namespace

/// A geographic scale is that of the direction that needs more: then everything fits, whatever was shown
/// before, and the picture does not jump when the other direction becomes the longer one.
void CMapTransform::Fit(const CGeoRect& world)
{
    const double dWidth = m_rcDevice.Width();
    const double dHeight = m_rcDevice.Height();
    m_dUnitsPerPixelX = dWidth > 0.0 ? world.Width() / dWidth : 0.0;
    m_dUnitsPerPixelY = dHeight > 0.0 ? -world.Height() / dHeight : 0.0;
    if (!m_bGeographic)
        return;
    const double dCosine = std::max(std::cos(world.Centre().m_dLatitude * DegreesToRadians), SmallestCosine);
    if (std::abs(m_dUnitsPerPixelY) < std::abs(m_dUnitsPerPixelX)) {
        m_dUnitsPerPixelY = -m_dUnitsPerPixelX;
        m_dUnitsPerPixelX = m_dUnitsPerPixelX / dCosine;
    } else {
        m_dUnitsPerPixelX = -(m_dUnitsPerPixelY / dCosine);
    }
}

void CMapTransform::UpdateFractions()
{
    if (m_rcDevice.Width() > 0.0)
        m_dAnchorFracX = (m_dDevAnchorX - m_rcDevice.nLeft) / m_rcDevice.Width();
    if (m_rcDevice.Height() > 0.0)
        m_dAnchorFracY = (m_rcDevice.nBottom - m_dDevAnchorY) / m_rcDevice.Height();
}

void CMapTransform::SetMapping(const SSceneArea& device, const CGeoRect& world)
{
    m_rcDevice = device;
    m_rcExtent = world;
    m_dAnchorFracX = m_dAnchorFracY = 0.5;
    m_dZoomFactor = 1.0;
    SetWorld(world);
}

void CMapTransform::SetWorld(const CGeoRect& world)
{
    Fit(world);
    m_dWorldAnchorX = world.m_dWest + world.Width() * m_dAnchorFracX;
    m_dWorldAnchorY = world.m_dSouth + world.Height() * m_dAnchorFracY;
    m_dDevAnchorX = std::round(m_rcDevice.nLeft + m_rcDevice.Width() * m_dAnchorFracX);
    m_dDevAnchorY = std::round(m_rcDevice.nBottom - m_rcDevice.Height() * m_dAnchorFracY);
}

/// Fitting the visible world like an extent would shrink it: what is visible has the shape of the map
/// already.
void CMapTransform::SetDeviceRect(const SSceneArea& device, bool bKeepWorld)
{
    const double dFactor =
        std::max(m_rcDevice.Width() / device.Width(), m_rcDevice.Height() / device.Height());
    m_rcDevice = device;
    m_dDevAnchorX = std::round(device.nLeft + device.Width() * m_dAnchorFracX);
    m_dDevAnchorY = std::round(device.nBottom - device.Height() * m_dAnchorFracY);
    if (!bKeepWorld)
        return;
    m_dUnitsPerPixelX *= dFactor;
    m_dUnitsPerPixelY *= dFactor;
}

void CMapTransform::SetDeviceAnchor(const SScenePoint& point)
{
    m_dDevAnchorX = std::round(point.dX);
    m_dDevAnchorY = std::round(point.dY);
    UpdateFractions();
}

void CMapTransform::SetWorldAnchor(const CPosition& position)
{
    m_dWorldAnchorX = position.m_dLongitude;
    m_dWorldAnchorY = position.m_dLatitude;
}

void CMapTransform::AnchorAt(const SScenePoint& point)
{
    const SScenePoint pixel = {std::round(point.dX), std::round(point.dY)};
    SetWorldAnchor(DeviceToWorld(pixel));
    SetDeviceAnchor(pixel);
}

void CMapTransform::ZoomBy(double dFactor)
{
    if (dFactor == 0.0 || !std::isfinite(dFactor))
        return;
    if (dFactor < 1.0 && std::abs(m_dUnitsPerPixelX * dFactor) < SmallestUnitsPerPixel)
        return;
    m_dUnitsPerPixelX *= dFactor;
    if (m_bGeographic)
        m_dUnitsPerPixelY *= dFactor;
    m_dZoomFactor *= dFactor;
}

void CMapTransform::ZoomOut()
{
    ZoomBy(m_dZoomStep);
    if (m_dZoomFactor >= WholeExtent)
        ZoomReset();
}

CPosition CMapTransform::DeviceToWorld(const SScenePoint& point) const
{
    return {.m_dLongitude = (point.dX - m_dDevAnchorX) * m_dUnitsPerPixelX + m_dWorldAnchorX,
            .m_dLatitude = (point.dY - m_dDevAnchorY) * m_dUnitsPerPixelY + m_dWorldAnchorY};
}

SScenePoint CMapTransform::Project(const CPosition& position) const
{
    return {(position.m_dLongitude - m_dWorldAnchorX) / m_dUnitsPerPixelX + m_dDevAnchorX,
            (position.m_dLatitude - m_dWorldAnchorY) / m_dUnitsPerPixelY + m_dDevAnchorY};
}

SScenePoint CMapTransform::WorldToDevice(const CPosition& position) const
{
    const SScenePoint point = Project(position);
    return {std::round(point.dX), std::round(point.dY)};
}

CGeoRect CMapTransform::VisibleWorld() const
{
    const CPosition northWest =
        DeviceToWorld({static_cast<double>(m_rcDevice.nLeft), static_cast<double>(m_rcDevice.nTop)});
    const CPosition southEast =
        DeviceToWorld({static_cast<double>(m_rcDevice.nRight), static_cast<double>(m_rcDevice.nBottom)});
    return {.m_dWest = northWest.m_dLongitude,
            .m_dNorth = northWest.m_dLatitude,
            .m_dEast = southEast.m_dLongitude,
            .m_dSouth = southEast.m_dLatitude};
}

bool CMapTransform::IsUsable() const
{
    return m_rcDevice.Width() > 0.0 && m_rcDevice.Height() > 0.0 && m_dUnitsPerPixelX > 0.0 &&
           m_dUnitsPerPixelY < 0.0 && std::isfinite(m_dUnitsPerPixelX) && std::isfinite(m_dUnitsPerPixelY);
}

} // namespace kestrabel
