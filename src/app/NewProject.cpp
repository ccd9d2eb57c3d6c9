#include "app/NewProject.h"

#include "model/EventSettings.h"

#include <array>

namespace kestrabel {

namespace {

struct SDefaultDivision
{
    std::string_view strName;
    std::uint8_t nKind;
    double dMetres;
    std::int32_t nSeconds;
    std::uint8_t nAverageRuns;
};

constexpr std::int32_t DefaultSeconds = 10;

constexpr std::array<SDefaultDivision, 6> DefaultDivisions = {{
    {"2 sec", DivisionKind::Time, 0.0, 2, 1},
    {"10 sec (best of 5)", DivisionKind::Time, 0.0, 10, 5},
    {"10 sec", DivisionKind::Time, 0.0, 10, 1},
    {"100 meters Accum", DivisionKind::Distance, 100.0, DefaultSeconds, 1},
    {"250 meters Accum", DivisionKind::Distance, 250.0, DefaultSeconds, 1},
    {"500 meters Accum", DivisionKind::Distance, 500.0, DefaultSeconds, 1},
}};

} // namespace

void FillNewProject(CEvent& event, const DATE& now)
{
    const CEvent defaults(now);
    for (const SEventSetting& setting : EventSettings())
        std::visit([&](auto pField) { event.*pField = defaults.*pField; }, setting.field);
    event.m_persons.RemoveAll();
    event.m_divisions.RemoveAll();
    event.m_waypoints.RemoveAll();
    event.m_strDescription = "New Event";
    event.m_strLocation = "New Location";
    for (const SDefaultDivision& row : DefaultDivisions) {
        auto pDivision = std::make_unique<CDivision>();
        pDivision->m_strName = row.strName;
        pDivision->m_nKind = row.nKind;
        pDivision->m_dMetres = row.dMetres;
        pDivision->m_nSeconds = row.nSeconds;
        pDivision->m_nAverageRuns = row.nAverageRuns;
        pDivision->m_bAccumulation = 1;
        event.m_divisions.Add(std::move(pDivision));
    }
}

CPerson& AddCompetitor(CEvent& event, std::string_view strName)
{
    auto pPerson = std::make_unique<CPerson>();
    pPerson->m_strName = strName;
    for (const CDivision* pDivision : event.m_divisions)
        pPerson->Enter(pDivision->m_strName);
    return event.m_persons.Add(std::move(pPerson));
}

} // namespace kestrabel
