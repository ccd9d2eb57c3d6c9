#include "present/SelectCompetitorDialog.h"
#include "ui/dialogs/BoundDialog.h"
#include "ui/dialogs/Dialogs.h"

#include <QComboBox>

namespace kestrabel {

bool RunDialog(QWidget* pParent, SSelectCompetitorDialog& dialog)
{
    CBoundDialog box(pParent, SSelectCompetitorDialog::Title);
    box.AddText(SSelectCompetitorDialog::Question);
    const std::vector<std::string_view> names(dialog.names.begin(), dialog.names.end());
    QComboBox* pNames = box.m_fields.Choice(
        names, "Competitor", [&dialog] { return dialog.nSelected; },
        [&dialog](int nRow) { dialog.nSelected = nRow; });
    box.m_fields.Bind(&dialog.nSelected, pNames, [] {});
    box.Body().addWidget(pNames);
    return box.RunOkCancel([&] { return dialog.Validate(); });
}

} // namespace kestrabel
