#pragma once

#include <algorithm>
#include <iterator>
#include <limits>
#include <vector>

namespace kestrabel {

/// Some indexes of points, ascending. Asked about one point after another, it seldom has to search.
class CIndexList
{
public:
    /// `nIndex` is greater than those added before.
    void Add(int nIndex)
    {
        m_indexes.push_back(nIndex);
        m_nTo = m_nFrom; // what was found before may no longer be the answer
    }

    /// The first one behind `nIndex` (0 or more); `nNone` when there is none.
    int FirstAfter(int nIndex, int nNone)
    {
        if (nIndex < m_nFrom || nIndex >= m_nTo) {
            const auto next = std::upper_bound(m_indexes.begin(), m_indexes.end(), nIndex);
            m_nFrom = next == m_indexes.begin() ? 0 : *std::prev(next);
            m_nTo = next == m_indexes.end() ? Beyond : *next;
        }
        return m_nTo == Beyond ? nNone : m_nTo;
    }

private:
    static constexpr int Beyond = std::numeric_limits<int>::max();

    std::vector<int> m_indexes;
    // From m_nFrom up to, not including, m_nTo the answer is m_nTo.
    int m_nFrom = 0;
    int m_nTo = 0;
};

} // namespace kestrabel
