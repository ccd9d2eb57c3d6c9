#pragma once

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

} // namespace kestrabel
