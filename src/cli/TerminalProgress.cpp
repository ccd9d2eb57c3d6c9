#include "cli/TerminalProgress.h"

#include "cli/DisplayText.h"
#include "platform/Text.h"

#include <algorithm>

namespace kestrabel {

namespace {

constexpr std::size_t BarWidth = 30;
constexpr std::size_t TextWidth = 40;

} // namespace

void CTerminalProgress::Begin(std::string_view strText)
{
    m_operations.push_back({CutEnd(OneLine(strText), TextWidth), CClock::now()});
}

void CTerminalProgress::Show(double dFraction)
{
    if (m_operations.empty() || CClock::now() - m_operations.back().begun < m_patience)
        return;
    const double dShown = std::clamp(dFraction, 0.0, 1.0) * static_cast<double>(BarWidth);
    const auto nDone = static_cast<std::size_t>(dShown);
    const std::string strLine = m_operations.back().strText + " [" + std::string(nDone, '#') +
                                std::string(BarWidth - nDone, '.') + "]";
    const std::size_t nLength = CountCharacters(strLine);
    const std::string strRest(m_nDrawn > nLength ? m_nDrawn - nLength : 0, ' ');
    m_error << '\r' << strLine << strRest << std::flush;
    m_nDrawn = std::max(m_nDrawn, nLength);
}

void CTerminalProgress::End()
{
    if (!m_operations.empty())
        m_operations.pop_back();
    Wipe();
}

void CTerminalProgress::Wipe()
{
    if (m_nDrawn == 0)
        return;
    m_error << '\r' << std::string(m_nDrawn, ' ') << '\r' << std::flush;
    m_nDrawn = 0;
}

} // namespace kestrabel
