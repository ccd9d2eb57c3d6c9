#include "present/GridFieldsDialog.h"
#include "ui/dialogs/BoundDialog.h"
#include "ui/dialogs/CheckList.h"
#include "ui/dialogs/Dialogs.h"
#include "ui/QtText.h"

namespace kestrabel {

bool RunDialog(QWidget* pParent, SGridFieldsDialog& dialog)
{
    CBoundDialog box(pParent, SGridFieldsDialog::Title);
    auto* pList = new CCheckList(
        {ToQt(SGridFieldsDialog::DisplayColumn.strTitle), ToQt(SGridFieldsDialog::NameColumn.strTitle)},
        [&](int nRow) {
            dialog.Toggle(static_cast<std::size_t>(nRow));
            box.m_fields.Show();
        });
    pList->setAccessibleName("Fields");
    box.m_fields.Bind(&dialog.rows, pList, [&dialog, pList] {
        std::vector<CCheckList::SRow> rows;
        for (const auto& [strTitle, bShown] : dialog.rows)
            rows.push_back({strTitle, bShown});
        pList->SetRows(rows);
    });
    box.Body().addWidget(pList);
    return box.RunOkCancel();
}

} // namespace kestrabel
