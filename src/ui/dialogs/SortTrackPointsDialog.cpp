#include "present/SortTrackPointsDialog.h"
#include "ui/dialogs/BoundDialog.h"
#include "ui/dialogs/Dialogs.h"

namespace kestrabel {

bool RunDialog(QWidget* pParent, SSortTrackPointsDialog& dialog)
{
    CBoundDialog box(pParent, SSortTrackPointsDialog::Title);
    box.AddText(SSortTrackPointsDialog::Text);
    box.AddText(dialog.strFileName);
    box.AddText(SSortTrackPointsDialog::Question);
    return box.RunOkCancel();
}

} // namespace kestrabel
