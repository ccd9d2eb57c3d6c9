#include "present/OptionsDialog.h"
#include "ui/dialogs/BoundDialog.h"
#include "ui/dialogs/Dialogs.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QLineEdit>

#include <algorithm>

namespace kestrabel {

namespace {

void AddDisplay(CFieldBinder& fields, QFormLayout& form, SOptionsDialog& dialog)
{
    for (SNumberField* pField : {&dialog.showTopRows, &dialog.smoothing, &dialog.timezone, &dialog.zoom})
        fields.AddRow(form, *pField);
    const auto unit = [&dialog]() -> int {
        return static_cast<int>(std::ranges::find(SOptionsDialog::Units, dialog.strUnit) -
                                SOptionsDialog::Units.begin());
    };
    fields.AddRow(
        form, SOptionsDialog::UnitsLabel,
        fields.Choice(SOptionsDialog::Units, SOptionsDialog::UnitsLabel, unit, [&dialog](int nUnit) {
            dialog.SetUnit(SOptionsDialog::Units[static_cast<std::size_t>(nUnit)]);
        }));
    for (SNumberField* pField : {&dialog.speedPrecision, &dialog.timePrecision, &dialog.distancePrecision})
        fields.AddRow(form, pField->strLabel,
                      fields.EditableList(*pField, SOptionsDialog::LastListedPrecision));
    fields.AddRow(form, dialog.latLongPrecision.strLabel,
                  fields.EditableList(dialog.latLongPrecision, SOptionsDialog::LastListedLatLongPrecision));
}

void AddCalculation(CFieldBinder& fields, QFormLayout& form, SOptionsDialog& dialog)
{
    for (SNumberField* pField : std::initializer_list<SNumberField*>{
             &dialog.timeThreshold, &dialog.speedThreshold, &dialog.accThreshold, &dialog.stopRunSpeed,
             &dialog.maxHdop, &dialog.minSats, &dialog.deccThreshold, &dialog.stopRunAngle,
             &dialog.dopplerError, &dialog.trackpointError})
        fields.AddRow(form, *pField);
}

} // namespace

bool RunDialog(QWidget* pParent, SOptionsDialog& dialog)
{
    CBoundDialog box(pParent, SOptionsDialog::Title);
    auto* pColumns = new QHBoxLayout;
    box.Body().addLayout(pColumns);
    AddDisplay(box.m_fields, CBoundDialog::AddGroup(SOptionsDialog::DisplayGroup, *pColumns), dialog);
    AddCalculation(box.m_fields, CBoundDialog::AddGroup(SOptionsDialog::CalculationGroup, *pColumns), dialog);
    box.Body().addWidget(box.m_fields.Check(dialog.captureFocus));
    return box.RunOkCancel([&] { return dialog.Validate(); });
}

} // namespace kestrabel
