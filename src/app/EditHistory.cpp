#include "app/EditHistory.h"

#include "app/Document.h"

#include <algorithm>
#include <set>

namespace kestrabel {

namespace {

void Show(CKestroDoc& document, const SShown& shown)
{
    CViewSelection& selection = document.m_selection;
    selection.m_nDivision = shown.nDivision; // the one of now may be gone
    document.m_hub.UpdateAllViews(nullptr, HINT_TRACKFILE_CHANGED);
    if (shown.nCompetitor == -1) {
        selection.m_nCompetitor = -1;
        selection.Recalculate(true, false);
        return;
    }
    selection.SelectSeries(shown.nSeries, false, true);
    if (shown.nNodeKind == NodeKind::Division)
        selection.ShowDivisionResults(shown.nDivision);
    if (shown.nFocusSeries != -1) {
        selection.SetFocusPoint(shown.nFocusSeries, shown.dFocusPoint);
        document.m_hub.UpdateAllViews(nullptr, HINT_FOCUS_MOVED);
    }
}

void SwapForth(const SEditStep& step)
{
    for (const auto& pChange : step.changes)
        pChange->Swap();
}

void SwapBack(const SEditStep& step)
{
    for (auto change = step.changes.rbegin(); change != step.changes.rend(); ++change)
        (*change)->Swap();
}

/// Makes the results and derived points follow what the changes of a step have just done or taken back.
void Follow(CKestroDoc& document, SEditStep& step)
{
    for (CTouchedSeries& touched : step.touched) {
        if (step.bDerives)
            touched.Derive(document.m_event, document.m_surroundings.progress);
        else
            touched.ForgetResults();
    }
    ForgetDivisionResults(document.m_event, step.divisions);
}

} // namespace

void ForgetDivisionResults(CEvent& event, const std::vector<std::string>& divisions)
{
    const auto isOfThem = [&](const CSeriesDivision& record) {
        return std::ranges::find(divisions, record.m_strDivision) != divisions.end();
    };
    for (CPerson* pPerson : event.m_persons) {
        if (!divisions.empty())
            pPerson->m_results.RemoveAll();
        pPerson->m_combined.m_divisions.RemoveIf(isOfThem);
        for (CSeries* pSeries : pPerson->m_series)
            pSeries->m_divisions.RemoveIf(isOfThem);
    }
}

void CEditHistory::Push(SEditStep step)
{
    m_steps.resize(m_nDone);
    m_steps.push_back(std::move(step));
    ++m_nDone;
}

void CEditHistory::Clear()
{
    m_steps.clear();
    m_nDone = 0;
}

std::string_view CEditHistory::UndoName() const
{
    return m_nDone > 0 ? m_steps[m_nDone - 1].strName : std::string_view();
}

std::string_view CEditHistory::RedoName() const
{
    return m_nDone < m_steps.size() ? m_steps[m_nDone].strName : std::string_view();
}

/// The steps below that marked points of the same files without a derivation behind it, the last one first:
/// those files were derived with the marks of before.
std::vector<const SEditStep*> CEditHistory::MarksNotDerived(const SEditStep& step) const
{
    std::vector<const SEditStep*> marks;
    if (!step.bDerives)
        return marks;
    std::set<const CSeries*> files;
    for (const CTouchedSeries& touched : step.touched)
        files.insert(&touched.Series());
    for (std::size_t i = m_nDone; i-- > 0 && !files.empty();) {
        for (const CTouchedSeries& touched : m_steps[i].touched) {
            if (m_steps[i].bDerives)
                files.erase(&touched.Series());
            else if (files.contains(&touched.Series()))
                marks.push_back(&m_steps[i]);
        }
    }
    return marks;
}

bool CEditHistory::Undo(CKestroDoc& document)
{
    if (m_nDone == 0)
        return false;
    SEditStep& step = m_steps[--m_nDone];
    document.m_selection.ForgetResults();
    SwapBack(step);
    for (CTouchedSeries& touched : step.touched) {
        touched.Restore();
        touched.Series().m_bModified = touched.m_mark.bBefore;
    }
    document.m_selection.ForgetPoints();
    const std::vector<const SEditStep*> marks = MarksNotDerived(step);
    std::ranges::for_each(marks, [](const SEditStep* pMarks) { SwapBack(*pMarks); });
    Follow(document, step);
    std::for_each(marks.rbegin(), marks.rend(), [](const SEditStep* pMarks) { SwapForth(*pMarks); });
    document.SetModifiedFlag(step.mark.bBefore);
    Show(document, step.before);
    return true;
}

bool CEditHistory::Redo(CKestroDoc& document)
{
    if (m_nDone == m_steps.size())
        return false;
    SEditStep& step = m_steps[m_nDone++];
    document.m_selection.ForgetResults();
    SwapForth(step);
    for (CTouchedSeries& touched : step.touched)
        touched.Series().m_bModified = touched.m_mark.bAfter;
    document.m_selection.ForgetPoints();
    Follow(document, step);
    document.SetModifiedFlag(step.mark.bAfter);
    Show(document, step.after);
    return true;
}

void CEditHistory::NoteSaved(const CSeries* pSeries)
{
    const auto markOf = [&](SEditStep& step) -> SModifiedMark* {
        if (pSeries == nullptr)
            return &step.mark;
        const auto found = std::ranges::find_if(
            step.touched, [&](const CTouchedSeries& touched) { return &touched.Series() == pSeries; });
        return found == step.touched.end() ? nullptr : &found->m_mark;
    };
    bool bModified = false;
    for (std::size_t i = m_nDone; i-- > 0;) {
        if (SModifiedMark* pMark = markOf(m_steps[i])) {
            pMark->bAfter = bModified;
            bModified = bModified || pMark->bSets;
            pMark->bBefore = bModified;
        }
    }
    bModified = false;
    for (std::size_t i = m_nDone; i < m_steps.size(); ++i) {
        if (SModifiedMark* pMark = markOf(m_steps[i])) {
            pMark->bBefore = bModified;
            bModified = bModified || pMark->bSets;
            pMark->bAfter = bModified;
        }
    }
}

} // namespace kestrabel
