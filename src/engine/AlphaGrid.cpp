#include "engine/AlphaGrid.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace kestrabel {

namespace {

constexpr double OneThirtieth = 0.03333333333333333;
constexpr std::int16_t NoCell = -1; // there are no more than 32 × 32

double CellSize(double dExtent, double dDegrees)
{
    return std::max(dDegrees, dExtent * OneThirtieth);
}

/// The index of the cell at that distance from the grid's edge, and the last one when there is no such cell.
int IndexOf(double dFromEdge, double dSize, int nCount)
{
    const double dIndex = std::abs(std::floor(dFromEdge / dSize));
    return dIndex < nCount ? static_cast<int>(dIndex) : nCount - 1;
}

/// Cells of that size that the extent takes. An extent too large to be divided is one cell.
int CountOf(double dExtent, double dSize)
{
    const double dCount = std::floor(dExtent / dSize) + 1.0;
    return dCount >= 1.0 ? static_cast<int>(dCount) : 1;
}

} // namespace

CAlphaGrid::CAlphaGrid(const CSeries& series, double dDegrees)
    : m_dWest(series.m_rcBounds.m_dWest),
      m_dSouth(series.m_rcBounds.m_dSouth),
      m_dWidth(CellSize(series.m_rcBounds.m_dEast - m_dWest, dDegrees)),
      m_dHeight(CellSize(series.m_rcBounds.m_dNorth - m_dSouth, dDegrees)),
      m_nColumns(CountOf(series.m_rcBounds.m_dEast - m_dWest, m_dWidth)),
      m_nRows(CountOf(series.m_rcBounds.m_dNorth - m_dSouth, m_dHeight)),
      m_starts(static_cast<std::size_t>(m_nColumns) * static_cast<std::size_t>(m_nRows) + 1)
{
    // Sorted by counting: first the cell of each and how many there are in it, then where each goes.
    const CObjectArray<CTrackPoint>& points = series.m_points;
    CLargeVector<std::int16_t> cells;
    cells.reserve(static_cast<std::size_t>(points.GetCount()));
    for (const CTrackPoint* pPoint : points) {
        int nCell = NoCell;
        if (Holds(*pPoint)) {
            nCell = CellAt(ColumnOf(pPoint->m_position), RowOf(pPoint->m_position));
            ++m_starts[static_cast<std::size_t>(nCell) + 1];
        }
        cells.push_back(static_cast<std::int16_t>(nCell));
    }
    for (std::size_t i = 1; i < m_starts.size(); ++i)
        m_starts[i] += m_starts[i - 1];
    m_points.resize(m_starts.back());
    std::vector<std::size_t> next(m_starts);
    for (std::size_t i = 0; i < cells.size(); ++i) {
        if (cells[i] != NoCell)
            m_points[next[static_cast<std::size_t>(cells[i])]++] = static_cast<int>(i);
    }
}

int CAlphaGrid::ColumnOf(const CPosition& position) const
{
    return IndexOf(position.m_dLongitude - m_dWest, m_dWidth, m_nColumns);
}

int CAlphaGrid::RowOf(const CPosition& position) const
{
    return IndexOf(position.m_dLatitude - m_dSouth, m_dHeight, m_nRows);
}

} // namespace kestrabel
