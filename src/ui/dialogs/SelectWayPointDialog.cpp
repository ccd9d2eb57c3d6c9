#include "present/SelectWayPointDialog.h"
#include "app/DialogButtons.h"
#include "ui/dialogs/BoundDialog.h"
#include "ui/dialogs/CheckList.h"
#include "ui/dialogs/Dialogs.h"

#include <QPushButton>

namespace kestrabel {

bool RunDialog(QWidget* pParent, SSelectWayPointDialog& dialog, CDesktop& desktop)
{
    CBoundDialog box(pParent, SSelectWayPointDialog::Title);
    CFieldBinder& fields = box.m_fields;
    auto* pList = new CCheckList({"Waypoint"}, [&](int nRow) {
        dialog.Toggle(nRow);
        fields.Show();
    });
    pList->setAccessibleName("Waypoints");
    QObject::connect(pList, &QTreeWidget::currentItemChanged, pList, [&dialog, &fields, pList] {
        if (pList->CurrentRow() == dialog.nSelected)
            return;
        dialog.nSelected = pList->CurrentRow();
        fields.Show();
    });

    auto* pColumns = new QHBoxLayout;
    pColumns->addWidget(pList, 1);
    auto* pButtons = new QVBoxLayout;
    pColumns->addLayout(pButtons);
    box.Body().addLayout(pColumns);
    pButtons->addWidget(
        box.MakeButton(SSelectWayPointDialog::AddLabel, [&] { AddWayPoint(desktop, dialog); }));
    QPushButton* pEdit =
        box.MakeButton(SSelectWayPointDialog::EditLabel, [&] { EditWayPoint(desktop, dialog); });
    QPushButton* pDelete = box.MakeButton(SSelectWayPointDialog::DeleteLabel, [&] { dialog.Delete(); });
    pButtons->addWidget(pEdit);
    pButtons->addWidget(pDelete);
    pButtons->addStretch();

    fields.Bind(&dialog.wayPoints, pList, [&dialog, pList, pEdit, pDelete] {
        const int nSelected = dialog.nSelected; // filling the list selects rows of its own
        std::vector<CCheckList::SRow> rows;
        for (int i = 0; i < dialog.wayPoints.GetCount(); ++i)
            rows.push_back({dialog.wayPoints[i].m_strName, dialog.checked[static_cast<std::size_t>(i)]});
        const QSignalBlocker blocker(pList);
        pList->SetRows(rows);
        pList->SetCurrentRow(nSelected);
        pEdit->setEnabled(dialog.HasSelection());
        pDelete->setEnabled(dialog.HasSelection());
    });
    return box.RunOkCancel();
}

} // namespace kestrabel
