#include "ui/StatusProgress.h"

#include "present/StatusBar.h"
#include "ui/QtText.h"

#include <QApplication>
#include <QLabel>
#include <QProgressBar>

#include <algorithm>

namespace kestrabel {

namespace {

constexpr int Steps = 100;

} // namespace

CStatusProgress::CStatusProgress(QLabel& message, QProgressBar& bar) : m_message(message), m_bar(bar)
{
    m_bar.setRange(0, Steps);
    m_bar.setTextVisible(false);
    m_bar.hide();
}

void CStatusProgress::Begin(std::string_view strText)
{
    if (m_earlier.empty())
        QApplication::setOverrideCursor(Qt::WaitCursor);
    m_earlier.push_back({m_message.text(), m_bar.value()});
    m_message.setText(ToQt(strText));
    m_bar.setValue(0);
    Place();
    m_bar.show();
    m_message.repaint();
}

void CStatusProgress::Place()
{
    const int nText = m_message.fontMetrics().horizontalAdvance(m_message.text() + ' ');
    const SPixelArea area = ProgressArea(m_message.width(), m_message.height(), nText);
    m_bar.setGeometry(area.nLeft, area.nTop, area.nWidth, area.nHeight);
}

void CStatusProgress::Show(double dFraction)
{
    const int nValue = static_cast<int>(std::clamp(dFraction, 0.0, 1.0) * Steps);
    if (nValue == m_bar.value())
        return;
    m_bar.setValue(nValue);
    // Painted at once, but no event is handled: the operation cannot be interrupted by another.
    m_bar.repaint();
}

void CStatusProgress::End()
{
    m_message.setText(m_earlier.back().strText);
    m_bar.setValue(m_earlier.back().nValue);
    m_earlier.pop_back();
    if (!m_earlier.empty()) {
        Place();
        return;
    }
    m_bar.hide();
    QApplication::restoreOverrideCursor();
}

} // namespace kestrabel
