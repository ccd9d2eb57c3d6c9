#pragma once

#include "present/scene/MapTransform.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kestrabel {

/// A colour on white. On a dark background a painter turns light into dark and back.
struct SSceneColor
{
    std::uint8_t nRed = 0;
    std::uint8_t nGreen = 0;
    std::uint8_t nBlue = 0;

    bool operator==(const SSceneColor&) const = default;
};

/// What a line or a text stands for.
enum class ESceneRole
{
    Grid,
    Track, ///< plain lines
    Data,  ///< a speed, or a series of the graph
    Invalid,
    Run,
    Gate,
    WayPointName,
    ZoomText,
    Focus,
};

struct SScenePen
{
    ESceneRole role = ESceneRole::Track;
    SSceneColor color;
    int nWidth = 1; ///< pixels of the screen; a printer multiplies it by its scale

    bool operator==(const SScenePen&) const = default;
};

/// Lines of one pen, each for itself: line i goes from `ends[2 * i]` to `ends[2 * i + 1]`.
struct SSceneLines
{
    SScenePen pen;
    std::vector<SScenePoint> ends;

    void Add(const SScenePoint& from, const SScenePoint& to)
    {
        ends.push_back(from);
        ends.push_back(to);
    }
    std::size_t Count() const { return ends.size() / 2; }
};

/// A line with corners, for pens that are wide enough to show them.
struct SScenePolyline
{
    SScenePen pen;
    std::vector<SScenePoint> points;
};

/// The outline of an ellipse; with a geographic transform nearly a circle.
struct SSceneCircle
{
    SScenePen pen;
    SScenePoint centre;
    double dRadiusX = 0.0;
    double dRadiusY = 0.0;
};

/// Which part of a text is at its place.
enum class ESceneAlign
{
    Low, ///< the left or the upper edge
    Middle,
    High, ///< the right or the lower edge
};

struct SSceneText
{
    ESceneRole role = ESceneRole::Grid;
    SSceneColor color;
    SScenePoint at;
    ESceneAlign horizontal = ESceneAlign::Low;
    ESceneAlign vertical = ESceneAlign::Low;
    std::string strText;
};

/// A filled rectangle.
struct SSceneBand
{
    ESceneRole role = ESceneRole::Run;
    SSceneColor color;
    SScenePoint from; ///< upper left corner
    SScenePoint to;   ///< lower right corner
};

/// Things to be drawn in this order: bands, lines, poly-lines, circles, texts; each list from its begin.
struct SSceneLayer
{
    /// Another number: another picture. A pane may keep the picture of a layer as long as this stays.
    unsigned nVersion = 0;
    std::vector<SSceneBand> bands;
    std::vector<SSceneLines> lines;
    std::vector<SScenePolyline> polylines;
    std::vector<SSceneCircle> circles;
    std::vector<SSceneText> texts;

    bool IsEmpty() const
    {
        return bands.empty() && lines.empty() && polylines.empty() && circles.empty() && texts.empty();
    }
};

/// A picture in pixels of the device rectangle of its transform, one layer over the other.
struct SScene
{
    std::vector<SSceneLayer> layers;
};

/// How large a text is in the font of the scene, pixels.
class CSceneTextSize
{
public:
    virtual ~CSceneTextSize() = default;
    virtual double Width(std::string_view strText) const = 0;
    virtual double Height() const = 0;
};

/// What a scene is drawn on.
struct SSceneSurface
{
    const CMapTransform& transform;
    const CSceneTextSize& text;
    double dScale = 1.0; ///< pixels per pixel of the screen: 1 but on a printer
};

} // namespace kestrabel
