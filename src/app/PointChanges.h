#pragma once

#include "app/EditHistory.h"
#include "model/Series.h"

#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

namespace kestrabel {

// What an edit does to the points of a track file, in a form that can be taken back.

/// Points that leave a track file.
class CRemovedPoints : public CChange
{
public:
    /// `indices` ascend.
    CRemovedPoints(CSeries& series, std::vector<int> indices)
        : m_series(series), m_indices(std::move(indices))
    {
    }
    void Swap() override;

private:
    CSeries& m_series;
    std::vector<int> m_indices;
    std::vector<std::unique_ptr<CTrackPoint>> m_out; ///< empty while they are in the file
};

/// Points that stand in another order. Keeps the order of the stretch that is not as it was.
class CReorderedPoints : public CChange
{
public:
    /// `order[i]` is the index now of the point that comes to index i.
    CReorderedPoints(CSeries& series, const std::vector<int>& order);
    void Swap() override;

private:
    CSeries& m_series;
    int m_nFirst = 0;
    std::vector<int> m_order; ///< from m_nFirst on, counted from there
};

/// The points from an index on, which go to the end of an empty track file.
class CMovedTail : public CChange
{
public:
    CMovedTail(CSeries& from, int nFirst, CSeries& to) : m_from(from), m_to(to), m_nFirst(nFirst) {}
    void Swap() override;

private:
    CSeries& m_from;
    CSeries& m_to;
    int m_nFirst;
    bool m_bMoved = false;
};

/// The flags of chosen points.
class CMarkedPoints : public CChange
{
public:
    void Mark(CTrackPoint& point, std::uint8_t nFlags)
    {
        m_marks.push_back({&point, point.m_nInvalidFlags, nFlags});
    }
    bool IsEmpty() const { return m_marks.empty(); }
    void Swap() override;

private:
    struct SMark
    {
        CTrackPoint* pPoint;
        std::uint8_t nBefore;
        std::uint8_t nAfter;
    };
    std::vector<SMark> m_marks;
    bool m_bDone = false;
};

} // namespace kestrabel
