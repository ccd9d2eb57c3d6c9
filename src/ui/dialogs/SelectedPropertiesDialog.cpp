#include "present/SelectedPropertiesDialog.h"
#include "ui/dialogs/BoundDialog.h"
#include "ui/dialogs/Dialogs.h"

namespace kestrabel {

bool RunDialog(QWidget* pParent, SSelectedPropertiesDialog& dialog)
{
    CBoundDialog box(pParent, SSelectedPropertiesDialog::Title);
    box.m_fields.AddLines(box.AddForm(), [&dialog] { return dialog.lines; });
    return box.RunOkCancel();
}

} // namespace kestrabel
