#include "present/AboutDialog.h"
#include "ui/dialogs/BoundDialog.h"
#include "ui/dialogs/Dialogs.h"
#include "ui/QtText.h"

#include <QIcon>
#include <QLabel>

namespace kestrabel {

bool RunDialog(QWidget* pParent, SAboutDialog& dialog)
{
    constexpr int nLinesOfIcon = 4;
    CBoundDialog box(pParent, SAboutDialog::Title);
    auto* pRow = new QHBoxLayout;
    auto* pIcon = new QLabel;
    const int nSize = box.fontMetrics().lineSpacing() * nLinesOfIcon;
    pIcon->setPixmap(QIcon(":/icons/kestrabel.svg").pixmap(QSize(nSize, nSize), box.devicePixelRatioF()));
    pRow->addWidget(pIcon);
    pRow->addWidget(new QLabel(ToQt(dialog.strVersion)), 1);
    box.Body().addLayout(pRow);
    return box.Run("OK", "");
}

} // namespace kestrabel
