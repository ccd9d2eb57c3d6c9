#include "app/EditRecorder.h"

#include "app/Document.h"

#include <algorithm>

namespace kestrabel {

namespace {

SShown ShownNow(const CViewSelection& selection)
{
    return {.nCompetitor = selection.m_nCompetitor,
            .nSeries = selection.m_nSeries,
            .nNodeKind = selection.m_nNodeKind,
            .nDivision = selection.m_nDivision,
            .nFocusSeries = selection.m_nFocusSeries,
            .dFocusPoint = selection.m_dFocusPoint};
}

} // namespace

CEditRecorder::CEditRecorder(CKestroDoc& document, std::string_view strName) : m_document(document)
{
    m_step.strName = strName;
    m_step.before = ShownNow(document.m_selection);
    m_step.mark.bBefore = document.IsModified();
}

void CEditRecorder::Touch(CPerson& person, CSeries& series, bool bModifies)
{
    m_document.m_selection.ForgetResults();
    m_step.touched.emplace_back(m_document.m_event, person, series, bModifies);
}

void CEditRecorder::Do(std::unique_ptr<CChange> pChange)
{
    m_document.m_selection.ForgetResults();
    pChange->Swap();
    m_step.changes.push_back(std::move(pChange));
}

void CEditRecorder::Finish(bool bDerive)
{
    m_step.bDerives = bDerive;
    m_document.m_selection.ForgetPoints();
    const bool bHadDoppler = std::ranges::any_of(
        m_step.touched, [](const CTouchedSeries& touched) { return touched.Series().m_bHasDoppler != 0; });
    for (CTouchedSeries& touched : m_step.touched) {
        touched.Series().m_bModified = touched.m_mark.bAfter;
        if (bHadDoppler)
            touched.KeepCourses();
        if (bDerive)
            touched.Derive(m_document.m_event, m_document.m_surroundings.progress);
        else
            touched.ForgetResults();
    }
    ForgetDivisionResults(m_document.m_event, m_step.divisions);
    m_step.mark.bAfter = m_step.mark.bBefore || m_step.mark.bSets;
    m_document.SetModifiedFlag(m_step.mark.bAfter);
}

void CEditRecorder::Keep()
{
    m_step.after = ShownNow(m_document.m_selection);
    m_document.m_history.Push(std::move(m_step));
}

} // namespace kestrabel
