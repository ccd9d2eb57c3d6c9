#include "app/DivisionCommands.h"

#include "app/Document.h"
#include "app/EditRecorder.h"
#include "platform/Path.h"
#include "present/EditDivisionDialog.h"

#include <algorithm>

namespace kestrabel {

namespace {

bool IsDivision(const CEvent& event, int nDivision)
{
    return nDivision >= 0 && nDivision < event.m_divisions.GetCount();
}

bool Holds(const std::vector<std::string>& names, const std::string& strName)
{
    return std::ranges::any_of(names, [&](const std::string& str) { return EqualNoCase(str, strName); });
}

void Show(CKestroDoc& document, CEditRecorder& recorder)
{
    recorder.MarkDocument();
    recorder.Finish();
    document.m_selection.RefreshResults(false);
    recorder.Keep();
}

} // namespace

bool AddDivision(CKestroDoc& document)
{
    CEvent& event = document.m_event;
    auto pDivision = std::make_unique<CDivision>();
    SEditDivisionDialog dialog = SEditDivisionDialog::From(event, *pDivision);
    if (!document.m_surroundings.desktop.Run(dialog))
        return false;
    dialog.ApplyTo(*pDivision);
    const std::string strName = pDivision->m_strName;

    CEditRecorder recorder(document, "Add Division");
    recorder.VoidDivision(strName);
    recorder.Do(std::make_unique<CObjectChange<CDivision>>(event.m_divisions, event.m_divisions.GetCount(),
                                                           std::move(pDivision)));
    for (CPerson* pPerson : event.m_persons) {
        if (!dialog.bAddToAllCompetitors || Holds(pPerson->m_divisionNames, strName))
            continue;
        std::vector<std::string> names = pPerson->m_divisionNames;
        names.push_back(strName);
        recorder.Set(pPerson->m_divisionNames, std::move(names));
    }
    Show(document, recorder);
    return true;
}

bool EditDivision(CKestroDoc& document, int nDivision)
{
    CEvent& event = document.m_event;
    if (!IsDivision(event, nDivision))
        return false;
    const CDivision& old = event.m_divisions[nDivision];
    SEditDivisionDialog dialog = SEditDivisionDialog::From(event, old);
    if (!document.m_surroundings.desktop.Run(dialog))
        return false;
    auto pDivision = CopyOf(old);
    dialog.ApplyTo(*pDivision);
    const std::string strOldName = old.m_strName;
    const std::string strName = pDivision->m_strName;

    CEditRecorder recorder(document, "Edit Division");
    recorder.VoidDivision(strOldName);
    recorder.VoidDivision(strName);
    recorder.Do(std::make_unique<CObjectChange<CDivision>>(event.m_divisions, nDivision));
    recorder.Do(
        std::make_unique<CObjectChange<CDivision>>(event.m_divisions, nDivision, std::move(pDivision)));
    for (CPerson* pPerson : event.m_persons) {
        if (strName == strOldName || !pPerson->TakesPartIn(strOldName))
            continue;
        std::vector<std::string> names = pPerson->m_divisionNames;
        std::ranges::replace(names, strOldName, strName);
        recorder.Set(pPerson->m_divisionNames, std::move(names));
    }
    Show(document, recorder);
    return true;
}

bool DeleteDivision(CKestroDoc& document, int nDivision)
{
    CEvent& event = document.m_event;
    if (!IsDivision(event, nDivision))
        return false;
    const std::string strName = event.m_divisions[nDivision].m_strName;

    CEditRecorder recorder(document, "Delete Division");
    recorder.VoidDivision(strName);
    for (CPerson* pPerson : event.m_persons) {
        std::vector<std::string> names = pPerson->m_divisionNames;
        if (std::erase(names, strName) > 0)
            recorder.Set(pPerson->m_divisionNames, std::move(names));
    }
    recorder.Do(std::make_unique<CObjectChange<CDivision>>(event.m_divisions, nDivision));
    document.m_selection.m_nNodeKind = NodeKind::Division;
    document.m_selection.m_nDivision = -1;
    Show(document, recorder);
    return true;
}

bool MoveDivisionUp(CKestroDoc& document, int nDivision)
{
    CObjectArray<CDivision>& divisions = document.m_event.m_divisions;
    if (!IsDivision(document.m_event, nDivision) || nDivision == 0)
        return false;
    CEditRecorder recorder(document, "Move Up");
    recorder.Do(std::make_unique<CSwappedObjects<CDivision>>(divisions, nDivision - 1, nDivision));
    Show(document, recorder);
    return true;
}

} // namespace kestrabel
