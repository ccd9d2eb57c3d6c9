#include "present/SpeedDialog.h"
#include "ui/dialogs/BoundDialog.h"
#include "ui/dialogs/Dialogs.h"

#include <QComboBox>
#include <QDateTimeEdit>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace kestrabel {

namespace {

void AddEnd(CFieldBinder& fields, QFormLayout& form, SSpeedEnd& end)
{
    fields.AddRow(form, end.latitude);
    fields.AddRow(form, end.longitude);
    fields.AddRow(form, SSpeedEnd::TimeLabel, fields.DateTime(end.time, SSpeedEnd::TimeLabel));
}

void AddEllipsoid(CFieldBinder& fields, QFormLayout& form, SEllipsoidFields& ellipsoid)
{
    static constexpr auto Names = [] {
        std::array<std::string_view, EllipsoidTable.size()> names;
        for (std::size_t i = 0; i < names.size(); ++i)
            names[i] = EllipsoidTable[i].strName;
        return names;
    }();
    fields.AddRow(form, SEllipsoidFields::ProjectionLabel,
                  fields.Choice(
                      Names, SEllipsoidFields::ProjectionLabel,
                      [&ellipsoid] { return ellipsoid.nProjection; },
                      [&ellipsoid](int nRow) { ellipsoid.SetProjection(nRow); }));
    fields.AddRow(form, ellipsoid.radius);
    fields.AddRow(form, ellipsoid.invFlattening);
}

} // namespace

bool RunDialog(QWidget* pParent, SSpeedDialog& dialog)
{
    CBoundDialog box(pParent, SSpeedDialog::Title);
    CFieldBinder& fields = box.m_fields;
    auto* pEnds = new QHBoxLayout;
    box.Body().addLayout(pEnds);
    AddEnd(fields, CBoundDialog::AddGroup(SSpeedDialog::StartGroup, *pEnds), dialog.start);
    AddEnd(fields, CBoundDialog::AddGroup(SSpeedDialog::EndGroup, *pEnds), dialog.end);

    auto* pLower = new QHBoxLayout;
    box.Body().addLayout(pLower);
    auto* pChoices = new QFormLayout;
    pLower->addLayout(pChoices, 1);
    fields.AddRow(*pChoices, SSpeedDialog::UnitsLabel,
                  fields.Choice(dialog.strUnit, SSpeedDialog::Units, SSpeedDialog::UnitsLabel));
    AddEllipsoid(fields, *pChoices, dialog.ellipsoid);
    QFormLayout& results = CBoundDialog::AddGroup(SSpeedDialog::ResultsGroup, *pLower);
    fields.AddLines(results, [&dialog] { return dialog.ResultLines(); });

    QPushButton* pCalculate = box.AddButton(SSpeedDialog::CalculateLabel, [&] {
        if (const std::optional<SFieldProblem> problem = dialog.Calculate())
            box.Tell(*problem);
    });
    pCalculate->setDefault(true); // what Enter in a field is for
    return box.Run("", SSpeedDialog::CloseLabel);
}

} // namespace kestrabel
