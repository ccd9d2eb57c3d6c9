#include "engine/ResultList.h"

#include <algorithm>
#include <vector>

namespace kestrabel {

bool IsSlower(const SResultValues& one, const SResultValues& other)
{
    if (IsSlowerSpeed(one.m_dSpeed, other.m_dSpeed))
        return true;
    if (IsSlowerSpeed(other.m_dSpeed, one.m_dSpeed))
        return false;
    return one.m_timeStart.m_dDays < other.m_timeStart.m_dDays;
}

namespace {

bool IsSlowerPointer(const CResult* pOne, const CResult* pOther)
{
    return IsSlower(*pOne, *pOther);
}

/// Where a result goes: behind those equal to it.
int InsertionIndex(const CObjectArray<CResult>& results, const CResult& result)
{
    return static_cast<int>(std::upper_bound(results.begin(), results.end(), &result, IsSlowerPointer) -
                            results.begin());
}

} // namespace

CResult& InsertInResultOrder(CObjectArray<CResult>& results, std::unique_ptr<CResult> pResult)
{
    const int nIndex = InsertionIndex(results, *pResult);
    return results.Insert(nIndex, std::move(pResult));
}

void CResultList::AppendAll(CResultList&& other)
{
    m_results.TakeAll(other.m_results);
    m_empties.TakeAll(other.m_empties);
}

void CResultList::InsertInOrder(CResult& result)
{
    m_results.BorrowAt(InsertionIndex(m_results, result), result);
}

void CResultList::InsertAllInOrder(const CObjectArray<CResult>& results)
{
    std::vector<CResult*> all(m_results.begin(), m_results.end());
    const auto nHeld = static_cast<std::ptrdiff_t>(all.size());
    all.insert(all.end(), results.begin(), results.end());
    std::stable_sort(all.begin() + nHeld, all.end(), IsSlowerPointer);
    std::inplace_merge(all.begin(), all.begin() + nHeld, all.end(), IsSlowerPointer);
    m_results.RemoveAll();
    m_results.Reserve(static_cast<int>(all.size()));
    for (CResult* pResult : all)
        m_results.Borrow(*pResult);
}

CResult& CResultList::MakeEmptyResult(std::string_view strCompetitor)
{
    CResult& result = m_empties.Add(std::make_unique<CResult>());
    result.m_strCompetitor = strCompetitor;
    return result;
}

} // namespace kestrabel
