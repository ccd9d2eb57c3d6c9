#pragma once

#include <algorithm>
#include <array>
#include <string_view>

namespace kestrabel {

/// A pane of the status bar right of the messages.
struct SStatusPane
{
    std::string_view strIndicator; ///< as it reads until the first focus or selection
    int nWidth;                    ///< pixels
};

/// Panes 1 to 6. What they show of the focus point is `CViewSelection::m_statusTexts`.
inline constexpr std::array<SStatusPane, 6> StatusPanes = {
    {{"SPEED", 30}, {"AVG", 30}, {"DISTANCE", 50}, {"LATITUDE", 62}, {"LONGITUDE", 70}, {"TIME", 60}}};

/// Pane 0 while there is neither a prompt nor a progress.
inline constexpr std::string_view ReadyText = "Ready";

struct SPixelArea
{
    int nLeft;
    int nTop;
    int nWidth;
    int nHeight;
};

/// Where pane 0 has its progress bar: behind the message, a fifth of what is left of the pane wide, and a
/// tenth of the height away from its upper and lower edge.
constexpr SPixelArea ProgressArea(int nPaneWidth, int nPaneHeight, int nMessageWidth)
{
    return {.nLeft = nMessageWidth,
            .nTop = nPaneHeight / 10,
            .nWidth = std::max(0, nPaneWidth - nMessageWidth) / 5,
            .nHeight = nPaneHeight - 2 * (nPaneHeight / 10)};
}

} // namespace kestrabel
