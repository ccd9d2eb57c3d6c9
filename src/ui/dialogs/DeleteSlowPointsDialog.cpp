#include "present/DeleteSlowPointsDialog.h"
#include "ui/dialogs/BoundDialog.h"
#include "ui/dialogs/Dialogs.h"
#include "ui/QtText.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>

namespace kestrabel {

bool RunDialog(QWidget* pParent, SDeleteSlowPointsDialog& dialog)
{
    CBoundDialog box(pParent, SDeleteSlowPointsDialog::Title);
    auto* pRow = new QHBoxLayout;
    QLineEdit* pSpeed = box.m_fields.Edit(dialog.speed);
    pRow->addWidget(box.m_fields.Label(SDeleteSlowPointsDialog::Text, pSpeed));
    pRow->addWidget(pSpeed);
    pRow->addWidget(new QLabel(ToQt(dialog.strUnit)));
    box.Body().addLayout(pRow);
    box.AddText(SDeleteSlowPointsDialog::Question);
    SCheckField useDoppler{SDeleteSlowPointsDialog::DopplerLabel, dialog.bUseDoppler};
    box.Body().addWidget(box.m_fields.Check(useDoppler));
    const bool bAccepted = box.RunOkCancel([&] { return dialog.Validate(); });
    dialog.bUseDoppler = useDoppler.bChecked;
    return bAccepted;
}

} // namespace kestrabel
