#include "app/TimeOrder.h"

#include <algorithm>
#include <iterator>

namespace kestrabel {

namespace {

constexpr std::size_t LargestBlock = 1024;

/// A list of indices that can be reached and inserted at any place of it: blocks of at most LargestBlock.
class CBlockList
{
public:
    int GetCount() const { return m_nCount; }

    int operator[](int nPlace) const
    {
        const std::size_t nBlock = BlockOf(nPlace);
        return m_blocks[nBlock][static_cast<std::size_t>(nPlace - m_starts[nBlock])];
    }

    void Insert(int nPlace, int nIndex)
    {
        const std::size_t nBlock = BlockOf(nPlace);
        std::vector<int>& block = m_blocks[nBlock];
        block.insert(block.begin() + (nPlace - m_starts[nBlock]), nIndex);
        ++m_nCount;
        std::for_each(m_starts.begin() + static_cast<std::ptrdiff_t>(nBlock) + 1, m_starts.end(),
                      [](int& nStart) { ++nStart; });
        if (block.size() > LargestBlock)
            Halve(nBlock);
    }

    std::vector<int> All() const
    {
        std::vector<int> all;
        all.reserve(static_cast<std::size_t>(m_nCount));
        for (const std::vector<int>& block : m_blocks)
            all.insert(all.end(), block.begin(), block.end());
        return all;
    }

private:
    /// The last block that starts at or before a place, or the one behind whose end it lies.
    std::size_t BlockOf(int nPlace) const
    {
        return static_cast<std::size_t>(std::upper_bound(m_starts.begin(), m_starts.end(), nPlace) -
                                        m_starts.begin()) -
               1;
    }

    void Halve(std::size_t nBlock)
    {
        std::vector<int>& block = m_blocks[nBlock];
        // An ascending track only ever grows at its end: full blocks stay full there.
        const bool bLast = nBlock + 1 == m_blocks.size();
        const auto middle =
            bLast ? block.end() - 1 : block.begin() + static_cast<std::ptrdiff_t>(block.size() / 2);
        std::vector<int> upper(middle, block.end());
        block.erase(middle, block.end());
        const int nStart = m_starts[nBlock] + static_cast<int>(block.size());
        const auto nNext = static_cast<std::ptrdiff_t>(nBlock) + 1;
        m_blocks.insert(m_blocks.begin() + nNext, std::move(upper));
        m_starts.insert(m_starts.begin() + nNext, nStart);
    }

    std::vector<std::vector<int>> m_blocks{1};
    std::vector<int> m_starts{0}; ///< place of each block's first element
    int m_nCount = 0;
};

} // namespace

std::vector<int> TimeOrder(std::span<CTrackPoint* const> points)
{
    CBlockList list;
    for (int i = 0; i < std::ssize(points); ++i) {
        const double dTime = points[static_cast<std::size_t>(i)]->m_time.m_dDays;
        int nLower = -1;
        int nUpper = list.GetCount();
        const auto timeAt = [&](int nPlace) {
            return points[static_cast<std::size_t>(list[nPlace])]->m_time.m_dDays;
        };
        if (nUpper > 0 && timeAt(nUpper - 1) < dTime)
            nLower = nUpper - 1;
        while (nUpper - nLower > 1) {
            const int nMiddle = nLower + (nUpper - nLower) / 2;
            const double dMiddle = timeAt(nMiddle);
            if (dMiddle == dTime) {
                nLower = nMiddle;
                break;
            }
            (dMiddle < dTime ? nLower : nUpper) = nMiddle;
        }
        list.Insert(nLower + 1, i);
    }
    return list.All();
}

} // namespace kestrabel
