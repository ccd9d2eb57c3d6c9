#pragma once

#include "geo/Position.h"

namespace kestrabel {

/// A box of latitudes and longitudes, degrees. The date line is not crossed: west ≤ east.
struct CGeoRect
{
    double m_dWest = 0.0;
    double m_dNorth = 0.0;
    double m_dEast = 0.0;
    double m_dSouth = 0.0;

    bool operator==(const CGeoRect&) const = default;

    /// The box that holds nothing and that the first position extended by turns into a point.
    static CGeoRect Empty();

    /// Grows the box until it holds the position.
    void Extend(const CPosition& position);
};

/// The box around a centre that reaches `dRadius` km in each direction; a degree of longitude is taken as
/// cos(latitude) degrees of latitude. Infinitely wide at the poles.
CGeoRect BoxAround(const CPosition& centre, double dRadius);

} // namespace kestrabel
