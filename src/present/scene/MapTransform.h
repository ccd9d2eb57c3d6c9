#pragma once

#include "geo/GeoRect.h"

#include <cstdint>

namespace kestrabel {

/// A place on the device: pixels from its upper left corner, y growing downwards.
struct SScenePoint
{
    double dX = 0.0;
    double dY = 0.0;

    bool operator==(const SScenePoint&) const = default;
};

/// A rectangle of pixels; right and bottom are the first pixels outside.
struct SSceneArea
{
    std::int32_t nLeft = 0;
    std::int32_t nTop = 0;
    std::int32_t nRight = 0;
    std::int32_t nBottom = 0;

    bool operator==(const SSceneArea&) const = default;
    double Width() const { return static_cast<double>(nRight) - nLeft; }
    double Height() const { return static_cast<double>(nBottom) - nTop; }
    SScenePoint Centre() const { return {nLeft + Width() / 2.0, nTop + Height() / 2.0}; }
};

/// The plane of longitude and latitude on a rectangle of pixels: a scale, and one position (the anchor) that
/// is known in both.
///
///     longitude = (x - m_dDevAnchorX) * m_dUnitsPerPixelX + m_dWorldAnchorX, and likewise for y
///
/// Latitudes grow upwards, so the scale of y is negative. A geographic transform shows a kilometre equally
/// long in both directions at the middle latitude of what was mapped last.
class CMapTransform
{
public:
    explicit CMapTransform(bool bGeographic = true) : m_bGeographic(bGeographic) {}

    /// Shows the whole of `world` in `device`, unzoomed, the anchor in the middle; `world` is what zooming
    /// out returns to.
    void SetMapping(const SSceneArea& device, const CGeoRect& world);
    /// Shows the whole of `world` in the rectangle as it is, the anchor at its fractions of both. The zoom
    /// factor stays.
    void SetWorld(const CGeoRect& world);
    /// Another rectangle: at least the same world, as large as it fits, or with `bKeepWorld` off the same
    /// scale. The anchor stays at its fractions, the zoom factor as it is.
    void SetDeviceRect(const SSceneArea& device, bool bKeepWorld = true);
    /// What zooming out returns to, without showing it now.
    void SetExtent(const CGeoRect& world) { m_rcExtent = world; }

    /// Moves the anchor to a pixel, rounded to whole ones; what the old anchor showed is shown there.
    void SetDeviceAnchor(const SScenePoint& point);
    void SetWorldAnchor(const CPosition& position);
    /// Moves the anchor, but nothing that is shown.
    void AnchorAt(const SScenePoint& point);

    /// Shows `dFactor` times as much, about the anchor; nothing for 0 and for what is no number. Scales that
    /// a double cannot tell from each other any more are not gone to.
    void ZoomBy(double dFactor);
    void ZoomIn() { ZoomBy(1.0 / m_dZoomStep); }
    /// Never beyond the whole extent, to which it snaps.
    void ZoomOut();
    /// Back to the whole extent.
    void ZoomReset() { SetMapping(m_rcDevice, m_rcExtent); }
    bool IsZoomed() const { return m_dZoomFactor != 1.0; }

    CPosition DeviceToWorld(const SScenePoint& point) const;
    /// Rounded to whole pixels.
    SScenePoint WorldToDevice(const CPosition& position) const;
    /// The same without rounding.
    SScenePoint Project(const CPosition& position) const;
    CGeoRect VisibleWorld() const;

    /// False while there is nothing to draw: no pixels, or an extent without width and height.
    bool IsUsable() const;

    double m_dZoomFactor = 1.0; ///< 1 shows the whole extent, 0.5 half of its width
    double m_dAnchorFracX = 0.5;
    double m_dAnchorFracY = 0.5; ///< from the lower edge upwards
    double m_dWorldAnchorX = 0.0;
    double m_dWorldAnchorY = 0.0;
    double m_dDevAnchorX = 0.0;      ///< a whole number
    double m_dDevAnchorY = 0.0;      ///< a whole number
    double m_dUnitsPerPixelX = 1.0;  ///< degrees
    double m_dUnitsPerPixelY = -1.0; ///< degrees
    SSceneArea m_rcDevice;
    double m_dZoomStep = 1.3;
    bool m_bGeographic;

private:
    void Fit(const CGeoRect& world);
    void UpdateFractions();

    CGeoRect m_rcExtent;
};

} // namespace kestrabel
