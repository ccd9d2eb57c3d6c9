#pragma once

#include "present/scene/MapTransform.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <vector>

namespace kestrabel {

/// Cuts a line to what lies in a box of coordinates, edges included (after Liang and Barsky, 1984). False,
/// and the ends as they were, when nothing does or an end is no number.
bool ClipLine(double dLeft, double dTop, double dRight, double dBottom, SScenePoint& from, SScenePoint& to);

/// The pixels that lines have reached so far, within the device rectangle and a margin around it.
class CPixelCover
{
public:
    /// Lines are cut at this distance from the rectangle, so that pens of some width still end outside of it.
    static constexpr int Margin = 4;

    explicit CPixelCover(const SSceneArea& area)
        : m_nLeft(area.nLeft - Margin),
          m_nTop(area.nTop - Margin),
          m_nWidth(area.nRight - area.nLeft + 2 * Margin + 1),
          m_nHeight(area.nBottom - area.nTop + 2 * Margin + 1),
          m_bits((static_cast<std::size_t>(m_nWidth) * static_cast<std::size_t>(m_nHeight) + 63) / 64)
    {
    }

    void Clear() { m_bits.assign(m_bits.size(), 0); }

    /// Cuts the line to the covered rectangle. False when nothing is left.
    bool Clip(SScenePoint& from, SScenePoint& to) const
    {
        return ClipLine(m_nLeft, m_nTop, m_nLeft + m_nWidth - 1, m_nTop + m_nHeight - 1, from, to);
    }

    /// Reaches all pixels of a line between pixels within the rectangle. True when one of them is new.
    bool Claim(int nFromX, int nFromY, int nToX, int nToY)
    {
        // Most lines of a long track lead to the next pixel.
        if (std::abs(nToX - nFromX) <= 1 && std::abs(nToY - nFromY) <= 1) {
            const bool bOne = Claim(nFromX, nFromY);
            return Claim(nToX, nToY) || bOne;
        }
        bool bNew = false;
        ForEachPixel(nFromX, nFromY, nToX, nToY, [&](int nX, int nY) { bNew = Claim(nX, nY) || bNew; });
        return bNew;
    }

    /// The pixels of a line as it is drawn without smoothing: one for each step of its longer direction.
    template <class TVisit>
    static void ForEachPixel(int nFromX, int nFromY, int nToX, int nToY, TVisit&& visit)
    {
        const int nStepX = nToX < nFromX ? -1 : 1;
        const int nStepY = nToY < nFromY ? -1 : 1;
        const int nDeltaX = std::abs(nToX - nFromX);
        const int nDeltaY = std::abs(nToY - nFromY);
        int nError = nDeltaX - nDeltaY; // Bresenham, 1965
        for (;;) {
            visit(nFromX, nFromY);
            if (nFromX == nToX && nFromY == nToY)
                return;
            const int nTwice = 2 * nError;
            if (nTwice > -nDeltaY) {
                nError -= nDeltaY;
                nFromX += nStepX;
            }
            if (nTwice < nDeltaX) {
                nError += nDeltaX;
                nFromY += nStepY;
            }
        }
    }

    int Left() const { return m_nLeft; }
    int Top() const { return m_nTop; }
    int Right() const { return m_nLeft + m_nWidth - 1; }
    int Bottom() const { return m_nTop + m_nHeight - 1; }

private:
    bool Claim(int nX, int nY)
    {
        const std::size_t nBit = static_cast<std::size_t>(nY - m_nTop) * static_cast<std::size_t>(m_nWidth) +
                                 static_cast<std::size_t>(nX - m_nLeft);
        std::uint64_t& nWord = m_bits[nBit / 64];
        const std::uint64_t nMask = std::uint64_t{1} << nBit % 64;
        const bool bNew = (nWord & nMask) == 0;
        nWord |= nMask;
        return bNew;
    }

    int m_nLeft;
    int m_nTop;
    int m_nWidth;
    int m_nHeight;
    std::vector<std::uint64_t> m_bits;
};

} // namespace kestrabel
