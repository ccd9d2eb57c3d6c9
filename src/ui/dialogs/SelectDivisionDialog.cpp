#include "present/SelectDivisionDialog.h"
#include "ui/dialogs/BoundDialog.h"
#include "ui/dialogs/CheckList.h"
#include "ui/dialogs/Dialogs.h"

namespace kestrabel {

bool RunDialog(QWidget* pParent, SSelectDivisionDialog& dialog)
{
    CBoundDialog box(pParent, SSelectDivisionDialog::Title);
    auto* pList = new CCheckList({"Division"}, [&](int nRow) {
        dialog.Toggle(static_cast<std::size_t>(nRow));
        box.m_fields.Show();
    });
    pList->setAccessibleName("Divisions");
    box.m_fields.Bind(&dialog.rows, pList, [&dialog, pList] {
        std::vector<CCheckList::SRow> rows;
        for (const SSelectDivisionDialog::SRow& row : dialog.rows)
            rows.push_back({row.strName, row.bChecked});
        pList->SetRows(rows);
    });
    box.Body().addWidget(pList);
    return box.RunOkCancel();
}

} // namespace kestrabel
