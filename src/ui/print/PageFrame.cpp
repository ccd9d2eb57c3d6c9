#include "ui/print/PageFrame.h"

#include <QApplication>
#include <QFontMetricsF>
#include <QPainter>

namespace kestrabel {

namespace {

constexpr double PrintedPoints = 8.0;
/// Lines that the header and the footer take each, their distance to the body included.
constexpr double FrameLines = 1.8;

double LineHeight(const QPainter& painter)
{
    return QFontMetricsF(painter.font(), painter.device()).lineSpacing();
}

} // namespace

QFont CPageFrame::Font()
{
    QFont font = QApplication::font();
    font.setPointSizeF(PrintedPoints);
    return font;
}

QRectF CPageFrame::Body(QPainter& painter, const QRectF& page)
{
    const double dFrame = FrameLines * LineHeight(painter);
    return page.adjusted(0, dFrame, 0, -dFrame);
}

void CPageFrame::Draw(QPainter& painter, const QRectF& page, const QString& strHeader, const QString& strDate,
                      const QString& strFooter)
{
    const double dLine = LineHeight(painter);
    const QFontMetricsF metrics(painter.font(), painter.device());
    const double dDate = metrics.horizontalAdvance(strDate + "  ");
    const QRectF header(page.left(), page.top(), page.width(), dLine);
    painter.drawText(header, Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine, strDate);
    painter.drawText(header, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     metrics.elidedText(strHeader, Qt::ElideMiddle, page.width() - dDate));
    painter.drawText(QRectF(page.left(), page.bottom() - dLine, page.width(), dLine),
                     Qt::AlignHCenter | Qt::AlignVCenter | Qt::TextSingleLine, strFooter);
}

} // namespace kestrabel
