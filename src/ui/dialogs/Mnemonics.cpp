#include "ui/dialogs/Mnemonics.h"

#include <QAbstractButton>
#include <QLabel>
#include <QSet>

namespace kestrabel {

namespace {

/// The position of a letter that no other text has: the first of a word, or else any.
qsizetype FreeLetter(const QString& strText, const QSet<QChar>& taken)
{
    const auto isFree = [&](qsizetype i) {
        return strText[i].isLetter() && !taken.contains(strText[i].toLower());
    };
    for (qsizetype i = 0; i < strText.size(); ++i) {
        if (isFree(i) && (i == 0 || !strText[i - 1].isLetterOrNumber()))
            return i;
    }
    for (qsizetype i = 0; i < strText.size(); ++i) {
        if (isFree(i))
            return i;
    }
    return -1;
}

bool WantsLetter(const QWidget& widget)
{
    if (const auto* pLabel = qobject_cast<const QLabel*>(&widget))
        return pLabel->buddy() != nullptr && (pLabel->buddy()->focusPolicy() & Qt::TabFocus) != 0;
    const auto* pButton = qobject_cast<const QAbstractButton*>(&widget);
    return pButton != nullptr && !pButton->text().isEmpty() && pButton->text() != "OK" &&
           pButton->text() != "Cancel";
}

QString TextOf(const QWidget& widget)
{
    return widget.property("text").toString();
}

} // namespace

void AssignMnemonics(QWidget& dialog)
{
    QSet<QChar> taken;
    QWidgetList wanting;
    for (QWidget* pWidget : dialog.findChildren<QWidget*>()) {
        if (!WantsLetter(*pWidget))
            continue;
        const QString strText = TextOf(*pWidget);
        if (const qsizetype nMark = strText.indexOf('&'); nMark >= 0 && nMark + 1 < strText.size())
            taken.insert(strText[nMark + 1].toLower());
        else
            wanting.append(pWidget);
    }
    for (QWidget* pWidget : wanting) {
        QString strText = TextOf(*pWidget);
        const qsizetype nLetter = FreeLetter(strText, taken);
        if (nLetter < 0)
            continue;
        taken.insert(strText[nLetter].toLower());
        pWidget->setProperty("text", strText.insert(nLetter, '&'));
    }
}

} // namespace kestrabel
