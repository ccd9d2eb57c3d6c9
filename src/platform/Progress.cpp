#include "platform/Progress.h"

#include <algorithm>
#include <limits>

namespace kestrabel {

namespace {

class CNoProgress final : public CProgressDisplay
{
public:
    void Begin(std::string_view /*strText*/) override {}
    void Show(double /*dFraction*/) override {}
    void End() override {}
};

constexpr std::int64_t ShownSteps = 100;

std::int64_t StepsPerShow(std::int64_t nRange)
{
    return nRange > 0 ? std::max<std::int64_t>(1, nRange / ShownSteps)
                      : std::numeric_limits<std::int64_t>::max() / 2;
}

} // namespace

CProgressDisplay& NoProgress()
{
    static CNoProgress display; // holds no state
    return display;
}

CProgress::CProgress(CProgressDisplay& display, std::string_view strText, std::int64_t nRange)
    : m_display(display), m_nRange(nRange), m_nNextShown(StepsPerShow(nRange))
{
    m_display.Begin(strText);
}

void CProgress::Show()
{
    m_nNextShown += StepsPerShow(m_nRange);
    m_display.Show(std::min(1.0, static_cast<double>(m_nDone) / static_cast<double>(m_nRange)));
}

} // namespace kestrabel
