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
    /// Grows the box until it holds the other one; the empty box changes nothing.
    void Extend(const CGeoRect& other);
    /// Makes the box `dFactor` times as wide and high about its centre.
    void Scale(double dFactor);

    /// True within the box and on its edges; false for a position that is not a number.
    bool Contains(const CPosition& position) const
    {
        return position.m_dLongitude >= m_dWest && position.m_dLongitude <= m_dEast &&
               position.m_dLatitude >= m_dSouth && position.m_dLatitude <= m_dNorth;
    }
    /// True when the two have at least an edge or a corner in common.
    bool Intersects(const CGeoRect& other) const
    {
        return m_dWest <= other.m_dEast && other.m_dWest <= m_dEast && m_dSouth <= other.m_dNorth &&
               other.m_dSouth <= m_dNorth;
    }

    double Width() const { return m_dEast - m_dWest; }
    double Height() const { return m_dNorth - m_dSouth; }
    CPosition Centre() const
    {
        return {.m_dLongitude = (m_dWest + m_dEast) / 2.0, .m_dLatitude = (m_dNorth + m_dSouth) / 2.0};
    }
};

/// The box around a centre that reaches `dRadius` km in each direction; a degree of longitude is taken as
/// cos(latitude) degrees of latitude. Infinitely wide at the poles.
CGeoRect BoxAround(const CPosition& centre, double dRadius);

} // namespace kestrabel
