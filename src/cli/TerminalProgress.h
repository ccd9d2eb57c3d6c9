#pragma once

#include "platform/Progress.h"

#include <chrono>
#include <ostream>
#include <string>
#include <vector>

namespace kestrabel {

/// A line with the operation's name and a bar, drawn over itself and wiped at the end. Only an operation that
/// has run for a while shows itself: most take less time than the eye needs.
class CTerminalProgress final : public CProgressDisplay
{
public:
    using CClock = std::chrono::steady_clock;

    /// `error` must be a terminal.
    explicit CTerminalProgress(std::ostream& error,
                               CClock::duration patience = std::chrono::milliseconds(300))
        : m_error(error), m_patience(patience)
    {
    }
    ~CTerminalProgress() override { Wipe(); }

    void Begin(std::string_view strText) override;
    void Show(double dFraction) override;
    void End() override;

private:
    struct SOperation
    {
        std::string strText;
        CClock::time_point begun;
    };

    void Wipe();

    std::ostream& m_error;
    CClock::duration m_patience;
    std::vector<SOperation> m_operations; ///< an operation may run others; the last is the innermost
    std::size_t m_nDrawn = 0;             ///< characters on the line
};

} // namespace kestrabel
