#include "app/CompetitorCommands.h"

#include "app/Document.h"
#include "app/EditRecorder.h"
#include "present/EditCompetitorDialog.h"

#include <algorithm>

namespace kestrabel {

bool AddCompetitor(CKestroDoc& document)
{
    CObjectArray<CPerson>& persons = document.m_event.m_persons;
    auto pPerson = std::make_unique<CPerson>();
    for (const CDivision* pDivision : document.m_event.m_divisions)
        pPerson->Enter(pDivision->m_strName);
    SEditCompetitorDialog dialog = SEditCompetitorDialog::From(document.m_event, *pPerson);
    if (!document.m_surroundings.desktop.Run(dialog))
        return false;
    dialog.ApplyTo(*pPerson);

    CEditRecorder recorder(document, "Add Competitor");
    recorder.Do(std::make_unique<CObjectChange<CPerson>>(persons, persons.GetCount(), std::move(pPerson)));
    recorder.MarkDocument();
    recorder.Finish();
    document.ShowNewTree();
    document.m_selection.SelectSeries(-1, true, true);
    recorder.Keep();
    return true;
}

bool EditCompetitor(CKestroDoc& document, int nPerson)
{
    CEvent& event = document.m_event;
    CViewSelection& selection = document.m_selection;
    if (event.m_persons.IsEmpty()) {
        document.CreateDefaultCompetitor();
        document.SetModifiedFlag();
        document.ShowNewTree();
        selection.SelectSeries(-1, false, true);
    }
    if (nPerson < 0 || nPerson >= event.m_persons.GetCount())
        return false;
    CPerson& person = event.m_persons[nPerson];
    SEditCompetitorDialog dialog = SEditCompetitorDialog::From(event, person);
    if (!document.m_surroundings.desktop.Run(dialog))
        return false;
    CPerson after;
    dialog.ApplyTo(after);

    CEditRecorder recorder(document, "Edit Competitor");
    bool bChanged = false;
    for (auto pField :
         {&CPerson::m_strName, &CPerson::m_strNumber, &CPerson::m_strEmail, &CPerson::m_strPhone}) {
        if (person.*pField == after.*pField)
            continue;
        recorder.Set(person.*pField, after.*pField);
        bChanged = true;
    }
    if (person.m_divisionNames != after.m_divisionNames) {
        for (const std::string& strName : person.m_divisionNames) {
            if (!after.TakesPartIn(strName))
                recorder.VoidDivision(strName);
        }
        recorder.Set(person.m_divisionNames, after.m_divisionNames);
        bChanged = true;
    }
    if (!bChanged)
        return false;
    recorder.MarkDocument();
    recorder.Finish();
    selection.RefreshResults(false);
    recorder.Keep();
    return true;
}

} // namespace kestrabel
