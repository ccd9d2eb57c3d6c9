#include "app/PointChanges.h"

namespace kestrabel {

void CRemovedPoints::Swap()
{
    if (m_out.empty())
        m_out = m_series.m_points.DetachAll(m_indices);
    else
        m_series.m_points.InsertAll(m_indices, std::exchange(m_out, {}));
}

CReorderedPoints::CReorderedPoints(CSeries& series, const std::vector<int>& order) : m_series(series)
{
    int nEnd = static_cast<int>(order.size());
    const auto stays = [&](int nIndex) { return order[static_cast<std::size_t>(nIndex)] == nIndex; };
    while (m_nFirst < nEnd && stays(m_nFirst))
        ++m_nFirst;
    while (nEnd > m_nFirst && stays(nEnd - 1))
        --nEnd;
    for (int i = m_nFirst; i < nEnd; ++i)
        m_order.push_back(order[static_cast<std::size_t>(i)] - m_nFirst);
}

void CReorderedPoints::Swap()
{
    m_series.m_points.Reorder(m_nFirst, m_order);
    std::vector<int> back(m_order.size());
    for (std::size_t i = 0; i < m_order.size(); ++i)
        back[static_cast<std::size_t>(m_order[i])] = static_cast<int>(i);
    m_order = std::move(back);
}

void CMovedTail::Swap()
{
    if (m_bMoved)
        m_to.m_points.MoveTail(0, m_from.m_points);
    else
        m_from.m_points.MoveTail(m_nFirst, m_to.m_points);
    m_bMoved = !m_bMoved;
}

void CMarkedPoints::Swap()
{
    m_bDone = !m_bDone;
    for (const SMark& mark : m_marks)
        mark.pPoint->m_nInvalidFlags = m_bDone ? mark.nAfter : mark.nBefore;
}

} // namespace kestrabel
