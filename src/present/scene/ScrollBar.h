#pragma once

#include <algorithm>

namespace kestrabel {

enum class EScrollBar
{
    Horizontal,
    Vertical,
};

enum class EScroll
{
    LineBack, ///< left or up
    LineOn,   ///< right or down
    PageBack,
    PageOn,
    First,
    Last,
    Thumb, ///< dragged to a position
};

/// A scroll bar as it is to be shown.
struct SScrollBar
{
    bool bShown = false;
    int nRange = 0;    ///< the whole extent
    int nPage = 0;     ///< how much of it is visible, at most the range
    int nPosition = 0; ///< 0 to nRange - nPage

    bool operator==(const SScrollBar&) const = default;
};

/// The position that a step leads to, within the range. `nThumb` is the position of a dragged thumb.
constexpr int PositionAfter(const SScrollBar& bar, EScroll scroll, int nThumb)
{
    const int nLast = bar.nRange - bar.nPage;
    const auto within = [nLast](int nPosition) { return std::clamp(nPosition, 0, nLast); };
    switch (scroll) {
    case EScroll::LineBack: return within(bar.nPosition - 1);
    case EScroll::LineOn: return within(bar.nPosition + 1);
    case EScroll::PageBack: return within(bar.nPosition - bar.nPage);
    case EScroll::PageOn: return within(bar.nPosition + bar.nPage);
    case EScroll::First: return 0;
    case EScroll::Last: return nLast;
    case EScroll::Thumb: break;
    }
    return within(nThumb);
}

} // namespace kestrabel
