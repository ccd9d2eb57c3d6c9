#pragma once

#include "model/Series.h"
#include "platform/LargeVector.h"

#include <span>
#include <vector>

namespace kestrabel {

/// The points of a track file that have a position, in the cells of a coarse grid over its bounding box: at
/// most thirty-one cells a side, none smaller than the proximity of the gates that are looked for, so that a
/// point within a gate is in the gate's cell or in one of its neighbours.
///
/// The box may not hold the last point of the file; a point beyond the last column or row goes into that one.
class CAlphaGrid
{
public:
    /// The inclusive range of cells around a cell, along one side of the grid.
    struct SRange
    {
        int nFirst;
        int nLast;
    };

    /// `dDegrees`, greater than 0: the proximity in degrees, of latitude as of longitude. Takes the points
    /// that are valid for InvalidMask::Fix and have a position. The track file's bounds must be derived.
    CAlphaGrid(const CSeries& series, double dDegrees);

    /// True for a point that a grid takes.
    static bool Holds(const CTrackPoint& point)
    {
        return point.IsValidFor(InvalidMask::Fix) && point.HasPosition();
    }

    int Columns() const { return m_nColumns; }
    int Rows() const { return m_nRows; }
    int CellCount() const { return m_nColumns * m_nRows; }

    int ColumnOf(const CPosition& position) const;
    int RowOf(const CPosition& position) const;
    int CellAt(int nColumn, int nRow) const { return nColumn * m_nRows + nRow; }

    SRange ColumnsAround(int nColumn) const { return Around(nColumn, m_nColumns); }
    SRange RowsAround(int nRow) const { return Around(nRow, m_nRows); }

    /// The indexes of the points in a cell, ascending.
    std::span<const int> PointsIn(int nCell) const
    {
        const auto i = static_cast<std::size_t>(nCell);
        return std::span(m_points).subspan(m_starts[i], m_starts[i + 1] - m_starts[i]);
    }
    /// Where in the list of all cells' points, one cell after another, those of a cell begin.
    std::size_t StartOf(int nCell) const { return m_starts[static_cast<std::size_t>(nCell)]; }
    /// The number of points in all cells.
    std::size_t PointCount() const { return m_points.size(); }

private:
    static SRange Around(int nIndex, int nCount)
    {
        return {.nFirst = nIndex > 0 ? nIndex - 1 : 0, .nLast = nIndex + 1 < nCount ? nIndex + 1 : nIndex};
    }

    double m_dWest;
    double m_dSouth;
    double m_dWidth;  ///< of a cell, degrees
    double m_dHeight; ///< of a cell, degrees
    int m_nColumns;
    int m_nRows;
    std::vector<std::size_t> m_starts; ///< one more than there are cells
    CLargeVector<int> m_points;
};

} // namespace kestrabel
