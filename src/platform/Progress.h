#pragma once

#include <cstdint>
#include <string_view>

namespace kestrabel {

/// Where long operations show how far they are: a bar in the window, a line on a terminal, nothing in tests.
class CProgressDisplay
{
public:
    virtual ~CProgressDisplay() = default;

    /// An operation begins; `strText` such as "Calculating track points".
    virtual void Begin(std::string_view strText) = 0;
    /// How much of it is done, 0 to 1; called at most about a hundred times an operation.
    virtual void Show(double dFraction) = 0;
    virtual void End() = 0;
};

/// A display that shows nothing.
CProgressDisplay& NoProgress();

/// One operation's progress: counts cheap steps and tells the display only when another hundredth is done.
/// Ends the display's operation when destroyed.
class CProgress
{
public:
    /// `nRange` is the number of steps that make the whole; 0 shows nothing but the text.
    CProgress(CProgressDisplay& display, std::string_view strText, std::int64_t nRange);
    ~CProgress() { m_display.End(); }
    CProgress(const CProgress&) = delete;
    CProgress& operator=(const CProgress&) = delete;

    void Step()
    {
        if (++m_nDone >= m_nNextShown)
            Show();
    }

private:
    void Show();

    CProgressDisplay& m_display;
    std::int64_t m_nRange;
    std::int64_t m_nDone = 0;
    std::int64_t m_nNextShown;
};

} // namespace kestrabel
