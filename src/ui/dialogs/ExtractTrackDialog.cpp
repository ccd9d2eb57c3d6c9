#include "present/ExtractTrackDialog.h"
#include "ui/dialogs/BoundDialog.h"
#include "ui/dialogs/Dialogs.h"
#include "ui/QtText.h"

#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>

namespace kestrabel {

namespace {

/// "Every" [n] "..., starting at" [k]
QHBoxLayout* MakeRow(CFieldBinder& fields, SNumberField& count, SNumberField& start)
{
    auto* pRow = new QHBoxLayout;
    for (SNumberField* pField : {&count, &start}) {
        QLineEdit* pEdit = fields.Edit(*pField);
        pRow->addWidget(fields.Label(pField->strLabel, pEdit));
        pRow->addWidget(pEdit, 1);
    }
    return pRow;
}

QHBoxLayout* MakeSpeedRow(CFieldBinder& fields, SExtractTrackDialog& dialog)
{
    auto* pRow = new QHBoxLayout;
    QLineEdit* pSpeed = fields.Edit(dialog.fasterThan);
    QComboBox* pUnit = fields.Choice(dialog.strUnit, SExtractTrackDialog::Units, "Unit");
    fields.Bind(nullptr, pUnit, [pUnit, pSpeed] { pUnit->setEnabled(pSpeed->isEnabled()); });
    pRow->addWidget(fields.Label(dialog.fasterThan.strLabel, pSpeed));
    pRow->addWidget(pSpeed);
    pRow->addWidget(pUnit);
    pRow->addStretch();
    return pRow;
}

} // namespace

bool RunDialog(QWidget* pParent, SExtractTrackDialog& dialog)
{
    CBoundDialog box(pParent, SExtractTrackDialog::Title);
    CFieldBinder& fields = box.m_fields;
    auto* pGroup = new QGroupBox(ToQt(SExtractTrackDialog::ModeGroup));
    auto* pGrid = new QGridLayout(pGroup);
    box.Body().addWidget(pGroup);
    const std::vector<QRadioButton*> modes = fields.Radios(
        SExtractTrackDialog::ModeLabels, [&dialog] { return static_cast<int>(dialog.mode); },
        [&dialog](int nMode) { dialog.SetMode(static_cast<EExtractBy>(nMode)); });
    for (int i = 0; i < static_cast<int>(modes.size()); ++i)
        pGrid->addWidget(modes[static_cast<std::size_t>(i)], i, 0);
    pGrid->addLayout(MakeRow(fields, dialog.every, dialog.startPoint), 0, 1);
    pGrid->addLayout(MakeRow(fields, dialog.everySeconds, dialog.timeStartPoint), 1, 1);
    pGrid->addLayout(MakeSpeedRow(fields, dialog), 3, 1);

    QLineEdit* pName =
        fields.Edit(dialog.strTrackName, SExtractTrackDialog::NameLabel, SExtractTrackDialog::MaxNameLength);
    fields.AddRow(box.AddForm(), SExtractTrackDialog::NameLabel, pName);
    return box.RunOkCancel([&] { return dialog.Validate(); });
}

} // namespace kestrabel
