#include "ui/print/GridPrintJob.h"

#include "ui/print/PageFrame.h"
#include "ui/QtText.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
#include <numeric>

namespace kestrabel {

namespace {

/// Rows that are measured for the width of the columns; the last ones have the longest numbers.
constexpr int MeasuredRows = 50;
/// Of the page's width; for one long name the whole table would become too small to read.
constexpr double WidestColumn = 0.25;

} // namespace

CGridPrintJob::CGridPrintJob(const CGrid& grid, QString strHeading, QString strDate)
    : m_grid(grid), m_strHeading(std::move(strHeading)), m_strDate(std::move(strDate))
{
}

int CGridPrintJob::Paginate(QPainter& painter, const QRectF& page)
{
    painter.setFont(CPageFrame::Font());
    const QFontMetricsF metrics(painter.font(), painter.device());
    QFont bold = painter.font();
    bold.setBold(true);
    const QFontMetricsF titleMetrics(bold, painter.device());
    const int nRows = m_grid.RowCount();
    m_widths.assign(static_cast<std::size_t>(m_grid.ColumnCount()), 0.0);
    for (int nColumn = 0; nColumn < m_grid.ColumnCount(); ++nColumn) {
        double& dWidth = m_widths[static_cast<std::size_t>(nColumn)];
        dWidth = titleMetrics.horizontalAdvance(ToQt(m_grid.Column(nColumn).m_strTitle) + "  ");
        const auto measure = [&](std::string_view strText) {
            dWidth = std::max(dWidth, metrics.horizontalAdvance(ToQt(strText) + "  "));
        };
        for (int nRow = 0; nRow < std::min(nRows, MeasuredRows); ++nRow)
            measure(m_grid.CellText(nRow, nColumn));
        for (int nRow = std::max(MeasuredRows, nRows - MeasuredRows); nRow < nRows; ++nRow)
            measure(m_grid.CellText(nRow, nColumn));
        dWidth = std::min(dWidth, page.width() * WidestColumn);
    }
    const double dAll = std::accumulate(m_widths.begin(), m_widths.end(), 0.0);
    m_dTextScale = dAll > page.width() ? page.width() / dAll : 1.0;
    for (double& dWidth : m_widths)
        dWidth *= m_dTextScale;

    m_dRowHeight = metrics.lineSpacing() * m_dTextScale;
    const double dBody = CPageFrame::Body(painter, page).height();
    m_nRowsPerPage = std::max(1, static_cast<int>(dBody / m_dRowHeight) - 1); // one for the titles
    m_nPages = std::max(1, (nRows + m_nRowsPerPage - 1) / m_nRowsPerPage);
    return m_nPages;
}

void CGridPrintJob::DrawCell(QPainter& painter, const QRectF& cell, int nColumn, const QString& strText) const
{
    const bool bRight = m_grid.Column(nColumn).m_nFormat == EAlign::Right;
    const double dGap = cell.height() / 4;
    const Qt::Alignment side = bRight ? Qt::AlignRight : Qt::AlignLeft;
    painter.drawText(cell.adjusted(dGap, 0, -dGap, 0),
                     static_cast<int>(side | Qt::AlignVCenter) | Qt::TextSingleLine, strText);
}

void CGridPrintJob::DrawPage(QPainter& painter, const QRectF& page, int nPage)
{
    QFont font = CPageFrame::Font();
    painter.setFont(font);
    painter.setPen(Qt::black);
    CPageFrame::Draw(painter, page, m_strHeading, m_strDate,
                     QString("Page %1/%2").arg(nPage + 1).arg(m_nPages));
    const QRectF body = CPageFrame::Body(painter, page);

    font.setPointSizeF(font.pointSizeF() * m_dTextScale);
    const int nFirst = nPage * m_nRowsPerPage;
    const int nEnd = std::min(nFirst + m_nRowsPerPage, m_grid.RowCount());
    double dLeft = body.left();
    for (int nColumn = 0; nColumn < m_grid.ColumnCount(); ++nColumn) {
        const double dWidth = m_widths[static_cast<std::size_t>(nColumn)];
        QRectF cell(dLeft, body.top(), dWidth, m_dRowHeight);
        font.setBold(true);
        painter.setFont(font);
        DrawCell(painter, cell, nColumn, ToQt(m_grid.Column(nColumn).m_strTitle));
        font.setBold(false);
        painter.setFont(font);
        for (int nRow = nFirst; nRow < nEnd; ++nRow) {
            cell.translate(0, m_dRowHeight);
            DrawCell(painter, cell, nColumn, ToQt(m_grid.CellText(nRow, nColumn)));
        }
        dLeft += dWidth;
    }
    painter.drawLine(QPointF(body.left(), body.top() + m_dRowHeight),
                     QPointF(dLeft, body.top() + m_dRowHeight));
}

} // namespace kestrabel
