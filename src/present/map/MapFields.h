#pragma once

#include "present/GridField.h"

#include <array>

namespace kestrabel {

/// What the user can show or hide on the map, in the order of its table.
enum class EMapField : int
{
    Grid,
    Zoom,
    SpeedColor,
    Nodes,
    WayPoints,
    ScaleGrid,
};

inline constexpr int MapFieldWidth = 70; // stored with every field, though the map has no columns

inline constexpr std::array<SGridColumn, 6> MapFieldTable = {{
    {"Grid", EAlign::Left, MapFieldWidth, true},
    {"Zoom", EAlign::Left, MapFieldWidth, false},
    {"Speed Color", EAlign::Left, MapFieldWidth, false},
    {"Nodes", EAlign::Left, MapFieldWidth, false},
    {"WayPoints", EAlign::Left, MapFieldWidth, false},
    {"Scale Grid", EAlign::Left, MapFieldWidth, false},
}};

/// The settings keep the choice under this name.
inline constexpr std::string_view MapFieldsTable = "Map1";

} // namespace kestrabel
