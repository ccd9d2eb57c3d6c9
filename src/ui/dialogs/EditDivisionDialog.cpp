#include "present/EditDivisionDialog.h"
#include "app/DialogButtons.h"
#include "ui/dialogs/BoundDialog.h"
#include "ui/dialogs/Dialogs.h"
#include "ui/QtText.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

namespace kestrabel {

namespace {

void AddKinds(CBoundDialog& box, QBoxLayout& layout, SEditDivisionDialog& dialog)
{
    QFormLayout& group = CBoundDialog::AddGroup(SEditDivisionDialog::KindGroup, layout);
    for (QRadioButton* pKind : box.m_fields.Radios(
             SEditDivisionDialog::KindLabels, [&dialog] { return dialog.nKind - 1; },
             [&dialog](int nIndex) { dialog.SetKind(static_cast<std::uint8_t>(nIndex + 1)); }))
        group.addRow(pKind);
}

void AddCalcUsing(CBoundDialog& box, QBoxLayout& layout, SEditDivisionDialog& dialog)
{
    QFormLayout& group = CBoundDialog::AddGroup(SEditDivisionDialog::CalcUsingGroup, layout);
    for (QRadioButton* pSource : box.m_fields.Radios(
             SEditDivisionDialog::CalcUsingLabels, [&dialog]() -> int { return dialog.nCalcUsing; },
             [&dialog](int nIndex) { dialog.nCalcUsing = static_cast<std::uint8_t>(nIndex); }))
        group.addRow(pSource);
}

void AddNumbers(CBoundDialog& box, QFormLayout& form, SEditDivisionDialog& dialog)
{
    CFieldBinder& fields = box.m_fields;
    for (SNumberField* pField : {&dialog.metres, &dialog.seconds, &dialog.proximity})
        fields.AddRow(form, *pField);
    QLineEdit* pRuns = fields.Edit(dialog.averageRuns);
    auto* pRow = new QHBoxLayout;
    pRow->addWidget(pRuns);
    pRow->addWidget(new QLabel(ToQt(SEditDivisionDialog::RunsLabel)));
    form.addRow(fields.Label(dialog.averageRuns.strLabel, pRuns), pRow);
}

} // namespace

bool RunDialog(QWidget* pParent, SEditDivisionDialog& dialog, CDesktop& desktop)
{
    CBoundDialog box(pParent, SEditDivisionDialog::Title);
    CFieldBinder& fields = box.m_fields;
    fields.AddRow(box.AddForm(), SEditDivisionDialog::NameLabel,
                  fields.Edit(dialog.strName, SEditDivisionDialog::NameLabel));

    auto* pColumns = new QHBoxLayout;
    box.Body().addLayout(pColumns);
    AddKinds(box, *pColumns, dialog);
    auto* pValues = new QVBoxLayout;
    pColumns->addLayout(pValues);
    auto* pNumbers = new QFormLayout;
    pValues->addLayout(pNumbers);
    AddNumbers(box, *pNumbers, dialog);
    SCheckField addToAll{SEditDivisionDialog::AddToAllLabel, dialog.bAddToAllCompetitors, false};
    for (SCheckField* pField :
         {&dialog.useAltitude, &dialog.accumulation, &dialog.oneResultPerRun, &dialog.strict, &addToAll})
        pValues->addWidget(fields.Check(*pField));
    pValues->addStretch();
    auto* pSources = new QVBoxLayout;
    pColumns->addLayout(pSources);
    AddCalcUsing(box, *pSources, dialog);
    QPushButton* pWayPoints =
        box.MakeButton(SEditDivisionDialog::AddWayPointsLabel, [&] { ChooseWayPoints(desktop, dialog); });
    pSources->addWidget(pWayPoints);
    pSources->addStretch();
    fields.Bind(&dialog.wayPoints, pWayPoints,
                [&dialog, pWayPoints] { pWayPoints->setEnabled(dialog.bWayPointsEnabled); });
    return box.RunOkCancel([&] { return dialog.Validate(); });
}

} // namespace kestrabel
