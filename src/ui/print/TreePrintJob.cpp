#include "ui/print/TreePrintJob.h"

#include "ui/print/PageFrame.h"
#include "ui/QtText.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>

namespace kestrabel {

namespace {

/// Line heights by which a child stands right of its parent.
constexpr double Indent = 1.5;

} // namespace

CTreePrintJob::CTreePrintJob(std::vector<STreeRow> rows, std::string strTitle, QString strDate)
    : m_rows(std::move(rows)), m_strTitle(std::move(strTitle)), m_strDate(std::move(strDate))
{
}

int CTreePrintJob::Paginate(QPainter& painter, const QRectF& page)
{
    painter.setFont(CPageFrame::Font());
    const double dLine = QFontMetricsF(painter.font(), painter.device()).lineSpacing();
    const int nRowsPerPage = std::max(1, static_cast<int>(CPageFrame::Body(painter, page).height() / dLine));
    m_pages = TreePages(static_cast<int>(m_rows.size()), nRowsPerPage, m_strTitle);
    return static_cast<int>(m_pages.size());
}

void CTreePrintJob::DrawPage(QPainter& painter, const QRectF& page, int nPage)
{
    painter.setFont(CPageFrame::Font());
    painter.setPen(Qt::black);
    const STreePage& treePage = m_pages[static_cast<std::size_t>(nPage)];
    CPageFrame::Draw(painter, page, ToQt(treePage.strHeader), m_strDate, ToQt(treePage.strFooter));
    const QRectF body = CPageFrame::Body(painter, page);
    const double dLine = QFontMetricsF(painter.font(), painter.device()).lineSpacing();
    QRectF line(body.left(), body.top(), body.width(), dLine);
    for (int i = 0; i < treePage.nRowCount; ++i) {
        const STreeRow& row = m_rows[static_cast<std::size_t>(treePage.nFirstRow + i)];
        painter.drawText(line.adjusted(row.nLevel * Indent * dLine, 0, 0, 0),
                         Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, ToQt(row.strText));
        line.translate(0, dLine);
    }
}

} // namespace kestrabel
