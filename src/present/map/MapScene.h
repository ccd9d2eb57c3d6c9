#pragma once

#include "present/map/MapTransform.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kestrabel {

struct SMapColor
{
    std::uint8_t nRed = 0;
    std::uint8_t nGreen = 0;
    std::uint8_t nBlue = 0;

    bool operator==(const SMapColor&) const = default;
};

/// What a line or a text stands for. A theme may have other colours for these than the given ones; that of a
/// speed is always as given.
enum class EMapRole
{
    Grid,
    Track, ///< plain lines, black on a light background
    Speed,
    Invalid,
    Run,
    Gate,
    WayPointName,
    ZoomText,
    Focus,
};

struct SMapPen
{
    EMapRole role = EMapRole::Track;
    SMapColor color;
    int nWidth = 1; ///< pixels of the screen; a printer multiplies it by its scale

    bool operator==(const SMapPen&) const = default;
};

/// Lines of one pen, each for itself: line i goes from `ends[2 * i]` to `ends[2 * i + 1]`.
struct SMapLines
{
    SMapPen pen;
    std::vector<SMapPoint> ends;

    void Add(const SMapPoint& from, const SMapPoint& to)
    {
        ends.push_back(from);
        ends.push_back(to);
    }
    std::size_t Count() const { return ends.size() / 2; }
};

/// A line with corners, for pens that are wide enough to show them.
struct SMapPolyline
{
    SMapPen pen;
    std::vector<SMapPoint> points;
};

/// The outline of an ellipse; with a geographic transform nearly a circle.
struct SMapCircle
{
    SMapPen pen;
    SMapPoint centre;
    double dRadiusX = 0.0;
    double dRadiusY = 0.0;
};

/// Which part of a text is at its place.
enum class EMapAlign
{
    Low, ///< the left or the upper edge
    Middle,
    High, ///< the right or the lower edge
};

struct SMapText
{
    EMapRole role = EMapRole::Grid;
    SMapColor color;
    SMapPoint at;
    EMapAlign horizontal = EMapAlign::Low;
    EMapAlign vertical = EMapAlign::Low;
    std::string strText;
};

/// Things to be drawn in this order: lines, poly-lines, circles, texts; each list from its begin.
struct SMapLayer
{
    std::vector<SMapLines> lines;
    std::vector<SMapPolyline> polylines;
    std::vector<SMapCircle> circles;
    std::vector<SMapText> texts;

    bool IsEmpty() const { return lines.empty() && polylines.empty() && circles.empty() && texts.empty(); }
};

/// What the map shows, in pixels of the device rectangle of its transform, one layer over the other. A layer
/// whose number is the one of the scene before is the same as there, so that a pane may keep its picture.
struct SMapScene
{
    SMapLayer ground; ///< grids and tracks
    SMapLayer run;    ///< the picked run and its gates
    SMapLayer names;  ///< waypoints, the zoom text
    SMapLayer focus;
    unsigned nGround = 0;
    unsigned nRun = 0;
    unsigned nNames = 0;
    unsigned nFocus = 0;
};

/// How large a text is in the font of the map, pixels.
class CMapTextSize
{
public:
    virtual ~CMapTextSize() = default;
    virtual double Width(std::string_view strText) const = 0;
    virtual double Height() const = 0;
};

/// What a scene is drawn on.
struct SMapSurface
{
    const CMapTransform& transform;
    const CMapTextSize& text;
    double dScale = 1.0; ///< pixels per pixel of the screen: 1 but on a printer
};

} // namespace kestrabel
