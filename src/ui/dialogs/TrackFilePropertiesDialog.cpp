#include "present/TrackFilePropertiesDialog.h"
#include "ui/dialogs/BoundDialog.h"
#include "ui/dialogs/Dialogs.h"
#include "ui/QtText.h"

#include <QFormLayout>
#include <QLineEdit>

namespace kestrabel {

bool RunDialog(QWidget* pParent, STrackFilePropertiesDialog& dialog)
{
    CBoundDialog box(pParent, STrackFilePropertiesDialog::Title);
    CFieldBinder& fields = box.m_fields;
    QFormLayout& names = box.AddForm();
    QLineEdit* pName = fields.Edit(dialog.strName, STrackFilePropertiesDialog::NameLabel);
    auto* pPath = new QLineEdit(ToQt(dialog.strFileName)); // a long path can be scrolled, and copied
    pPath->setReadOnly(true);
    pPath->setFocusPolicy(Qt::ClickFocus);
    pPath->setAccessibleName(SpokenName(STrackFilePropertiesDialog::FileNameLabel));
    names.addRow(ToQt(STrackFilePropertiesDialog::FileNameLabel), pPath);
    fields.AddRow(names, STrackFilePropertiesDialog::NameLabel, pName);

    auto* pColumns = new QHBoxLayout;
    box.Body().addLayout(pColumns);
    QFormLayout& gps = CBoundDialog::AddGroup(STrackFilePropertiesDialog::GpsGroup, *pColumns);
    fields.AddLines(gps, [&dialog] { return dialog.gpsInformation; });
    QFormLayout& statistics = CBoundDialog::AddGroup(STrackFilePropertiesDialog::StatisticsGroup, *pColumns);
    fields.AddLines(statistics, [&dialog] { return dialog.statistics; });
    QFormLayout& parameters = box.AddGroup(STrackFilePropertiesDialog::ParametersGroup);
    fields.AddRow(parameters, dialog.windDirection);
    fields.AddRow(parameters, dialog.dopplerError);
    return box.RunOkCancel([&] { return dialog.Validate(); });
}

} // namespace kestrabel
