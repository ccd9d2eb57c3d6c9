#include "present/EditCompetitorDialog.h"

namespace kestrabel {

SEditCompetitorDialog SEditCompetitorDialog::From(const CEvent& event, const CPerson& person)
{
    SEditCompetitorDialog dialog;
    dialog.name.strText = person.m_strName;
    dialog.number.strText = person.m_strNumber;
    dialog.email.strText = person.m_strEmail;
    dialog.phone.strText = person.m_strPhone;
    dialog.divisionNames = person.m_divisionNames;
    for (const CDivision* pDivision : event.m_divisions)
        dialog.eventDivisions.push_back(pDivision->m_strName);
    return dialog;
}

void SEditCompetitorDialog::ApplyTo(CPerson& person) const
{
    person.m_strName = name.strText;
    person.m_strNumber = number.strText;
    person.m_strEmail = email.strText;
    person.m_strPhone = phone.strText;
    person.m_divisionNames = divisionNames;
}

void SEditCompetitorDialog::RemoveDivisions(std::span<const int> selected)
{
    for (auto row = selected.rbegin(); row != selected.rend(); ++row)
        divisionNames.erase(divisionNames.begin() + *row);
}

} // namespace kestrabel
