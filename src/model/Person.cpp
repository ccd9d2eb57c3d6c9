#include "model/Person.h"

#include <algorithm>

namespace kestrabel {

constinit const CClassRecord CPerson::Class = {
    "CPerson", 2, []() -> std::unique_ptr<CPersistent> { return std::make_unique<CPerson>(); }};

bool CPerson::TakesPartIn(std::string_view strDivision) const
{
    return std::find(m_divisionNames.begin(), m_divisionNames.end(), strDivision) != m_divisionNames.end();
}

void CPerson::Enter(std::string_view strDivision)
{
    if (!TakesPartIn(strDivision))
        m_divisionNames.emplace_back(strDivision);
}

void CPerson::ClearResults()
{
    m_results.RemoveAll();
    m_combined.ClearResults();
    for (CSeries* pSeries : m_series)
        pSeries->ClearResults();
}

void CPerson::ClearResultsOf(CSeries& series)
{
    m_results.RemoveAll();
    m_combined.ClearResults();
    series.ClearResults();
}

} // namespace kestrabel
