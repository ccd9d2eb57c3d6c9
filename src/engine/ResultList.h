#pragma once

#include "model/ObjectArray.h"
#include "model/Result.h"

#include <cmath>
#include <memory>
#include <string_view>

namespace kestrabel {

/// The order of two speeds; one that is not a number is slower than any other.
inline bool IsSlowerSpeed(double dOne, double dOther)
{
    return std::isnan(dOne) ? !std::isnan(dOther) : dOne < dOther;
}

/// The result order: ascending by speed, equal speeds ascending by start time, so that the last is the best.
/// A speed that is not a number is slower than any other. True when `one` stands before `other`.
bool IsSlower(const SResultValues& one, const SResultValues& other);

/// Inserts a result that the list takes over, behind those equal to it in the result order.
CResult& InsertInResultOrder(CObjectArray<CResult>& results, std::unique_ptr<CResult> pResult);

/// A list of results that somebody else owns, the per-division records of the track files; only the results
/// that stand for "none found" are its own. It lives no longer than those records keep their results.
class CResultList
{
public:
    int GetCount() const { return m_results.GetCount(); }
    bool IsEmpty() const { return m_results.IsEmpty(); }
    CResult& operator[](int nIndex) const { return m_results[nIndex]; }
    auto begin() const { return m_results.begin(); }
    auto end() const { return m_results.end(); }
    /// The fastest of a list in result order; null when it is empty.
    CResult* Best() const { return m_results.Last(); }

    void Append(CResult& result) { m_results.Borrow(result); }
    void AppendAll(CResultList&& other);
    void InsertInOrder(CResult& result);
    /// Inserts all results of an array, as `InsertInOrder` would one after another, in n log n.
    void InsertAllInOrder(const CObjectArray<CResult>& results);

    /// Makes a result as newly constructed that carries only the competitor's name, owned by this list and
    /// not yet in it.
    CResult& MakeEmptyResult(std::string_view strCompetitor);

private:
    CObjectArray<CResult> m_results{CObjectArray<CResult>::EOwnership::Borrows};
    CObjectArray<CResult> m_empties;
};

} // namespace kestrabel
