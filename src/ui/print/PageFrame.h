#pragma once

#include <QFont>
#include <QRectF>
#include <QString>

class QPainter;

namespace kestrabel {

/// The header and footer lines of a printed page, and what they leave of it.
class CPageFrame
{
public:
    /// The font of all printed text.
    static QFont Font();

    /// The place between header and footer; `painter` has the font set.
    static QRectF Body(QPainter& painter, const QRectF& page);

    /// Writes both lines: the header on the left and the date on the right, the footer in the middle.
    static void Draw(QPainter& painter, const QRectF& page, const QString& strHeader, const QString& strDate,
                     const QString& strFooter);
};

} // namespace kestrabel
