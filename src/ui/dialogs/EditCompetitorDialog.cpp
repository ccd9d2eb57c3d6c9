#include "present/EditCompetitorDialog.h"
#include "app/DialogButtons.h"
#include "ui/dialogs/BoundDialog.h"
#include "ui/dialogs/Dialogs.h"
#include "ui/QtText.h"

#include <QFormLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>

namespace kestrabel {

bool RunDialog(QWidget* pParent, SEditCompetitorDialog& dialog, CDesktop& desktop)
{
    CBoundDialog box(pParent, SEditCompetitorDialog::Title);
    CFieldBinder& fields = box.m_fields;
    QFormLayout& form = box.AddForm();
    for (STextField* pField : {&dialog.name, &dialog.number, &dialog.email, &dialog.phone})
        fields.AddRow(form, *pField);

    auto* pNames = new QListWidget;
    pNames->setAccessibleName(SpokenName(SEditCompetitorDialog::DivisionsLabel));
    pNames->setSelectionMode(QAbstractItemView::ExtendedSelection);
    fields.Bind(&dialog.divisionNames, pNames, [&dialog, pNames] {
        pNames->clear();
        for (const std::string& strName : dialog.divisionNames)
            pNames->addItem(ToQt(strName));
    });
    fields.AddRow(form, SEditCompetitorDialog::DivisionsLabel, pNames);
    form.addRow("",
                box.MakeButton(SEditCompetitorDialog::EditLabel, [&] { ChooseDivisions(desktop, dialog); }));
    return box.RunOkCancel([&] { return dialog.Validate(); });
}

} // namespace kestrabel
