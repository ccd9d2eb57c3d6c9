#pragma once

#include "model/TrackPoint.h"
#include "present/GridField.h"
#include "present/scene/Scene.h"

#include <array>

namespace kestrabel {

/// What the user can show or hide in the speed graph, in the order of its table.
enum class EGraphField : int
{
    Grid,
    Zoom,
    Speed,
    Doppler,
    Vmg,
    Altitude,
    Hdop,
    Sats,
    SmoothedSpeed,
    UnfilteredDoppler,
    MergedDoppler,
    Nodes,
};

inline constexpr int GraphFieldWidth = 70; // stored with every field, though the graph has no columns

inline constexpr std::array<SGridColumn, 12> GraphFieldTable = {{
    {"Grid", EAlign::Left, GraphFieldWidth, true},
    {"Zoom", EAlign::Left, GraphFieldWidth, false},
    {"Speed", EAlign::Left, GraphFieldWidth, false},
    {"Doppler", EAlign::Left, GraphFieldWidth, false},
    {"VMG", EAlign::Left, GraphFieldWidth, false},
    {"Altitude", EAlign::Left, GraphFieldWidth, false},
    {"HDOP", EAlign::Left, GraphFieldWidth, false},
    {"Sats", EAlign::Left, GraphFieldWidth, false},
    {"Smoothed Speed", EAlign::Left, GraphFieldWidth, false},
    {"Unfiltered Doppler", EAlign::Left, GraphFieldWidth, false},
    {"Merged Doppler", EAlign::Left, GraphFieldWidth, false},
    {"Nodes", EAlign::Left, GraphFieldWidth, false},
}};

/// The settings keep the choice under this name.
inline constexpr std::string_view GraphFieldsTable = "Graph1";

/// A curve of the graph.
struct SGraphSeries
{
    EGraphField field;
    SSceneColor color;
    /// A line to a point with one of these flags is red; 0: it never is.
    std::uint8_t nInvalidMask = 0;
    /// Speeds belong to the step before their point and stand a little to its left.
    double dShift = 0.0;

    SScenePen Pen() const { return {ESceneRole::Data, color}; }
};

/// From the lowest to the highest. Merged Doppler is one line over all files; the others have one for each.
inline constexpr std::array<SGraphSeries, 9> GraphSeriesTable = {{
    {EGraphField::Sats, {255, 125, 0}},
    {EGraphField::Altitude, {100, 0, 200}},
    {EGraphField::Hdop, {100, 100, 100}},
    {EGraphField::SmoothedSpeed, {0, 50, 255}, InvalidMask::Fix, -0.25},
    {EGraphField::Speed, {255, 0, 0}, InvalidMask::Trackpoint, -0.25},
    {EGraphField::Vmg, {100, 100, 250}, 0, -0.25},
    {EGraphField::Doppler, {50, 150, 50}, InvalidMask::Doppler},
    {EGraphField::UnfilteredDoppler, {150, 50, 150}, InvalidMask::Doppler},
    {EGraphField::MergedDoppler, {150, 50, 50}, InvalidMask::Doppler},
}};

/// The one of a field that has a curve.
constexpr const SGraphSeries& SeriesOf(EGraphField field)
{
    std::size_t i = 0;
    while (GraphSeriesTable[i].field != field)
        ++i;
    return GraphSeriesTable[i];
}

} // namespace kestrabel
