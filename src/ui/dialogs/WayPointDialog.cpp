#include "present/WayPointDialog.h"
#include "ui/dialogs/BoundDialog.h"
#include "ui/dialogs/Dialogs.h"

#include <QFormLayout>
#include <QLineEdit>

namespace kestrabel {

bool RunDialog(QWidget* pParent, SWayPointDialog& dialog)
{
    const std::string strGroup(dialog.GroupTitle());
    CBoundDialog box(pParent, strGroup + " Dialog");
    CFieldBinder& fields = box.m_fields;
    QFormLayout& group = box.AddGroup(strGroup);
    fields.AddRow(group, SWayPointDialog::NameLabel, fields.Edit(dialog.strName, SWayPointDialog::NameLabel));
    for (SNumberField* pField : {&dialog.latitude, &dialog.longitude, &dialog.proximity})
        fields.AddRow(group, *pField);
    return box.RunOkCancel([&] { return dialog.Validate(); });
}

} // namespace kestrabel
