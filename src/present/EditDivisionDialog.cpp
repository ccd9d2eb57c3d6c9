#include "present/EditDivisionDialog.h"

#include "platform/Path.h"

#include <algorithm>

namespace kestrabel {

namespace {

constexpr double KilometresToMetres = 1000.0;
constexpr double MetresToKilometres = 0.001;
constexpr double ShownForNoProximity = 0.001; // metres

/// What a kind lets be entered; an unreachable check mark is set as told.
struct SKindRule
{
    bool bMetres;
    bool bSeconds;
    bool bProximity;
    bool bAltitude;
    bool bAltitudeChecked;
    bool bRunsAndAccumulation;
    bool bWayPoints;
};

constexpr std::array<SKindRule, 6> KindRules = {{
    {true, false, false, true, false, true, false},   // Distance
    {false, true, false, true, false, true, false},   // Time
    {true, false, true, false, false, false, false},  // Alpha Racing
    {false, false, true, true, false, false, true},   // Lap Racing
    {true, false, false, true, true, false, false},   // Splits
    {false, false, false, false, false, false, false} // CheckPoints
}};

} // namespace

CObjectArray<CWayPoint> CopyOf(const CObjectArray<CWayPoint>& wayPoints)
{
    CObjectArray<CWayPoint> copies;
    for (const CWayPoint* pWayPoint : wayPoints)
        copies.Add(std::make_unique<CWayPoint>(*pWayPoint));
    return copies;
}

std::unique_ptr<CDivision> CopyOf(const CDivision& division)
{
    auto pCopy = std::make_unique<CDivision>();
    pCopy->m_strName = division.m_strName;
    pCopy->m_dFurther1 = division.m_dFurther1;
    pCopy->m_dFurther2 = division.m_dFurther2;
    pCopy->m_dMinCalcInterval = division.m_dMinCalcInterval;
    pCopy->m_nStartAt = division.m_nStartAt;
    pCopy->m_nKind = division.m_nKind;
    pCopy->m_dMetres = division.m_dMetres;
    pCopy->m_nSeconds = division.m_nSeconds;
    pCopy->m_nAverageRuns = division.m_nAverageRuns;
    pCopy->m_bAccumulation = division.m_bAccumulation;
    pCopy->m_bOneResultPerRun = division.m_bOneResultPerRun;
    pCopy->m_bUseAltitude = division.m_bUseAltitude;
    pCopy->m_dProximity = division.m_dProximity;
    pCopy->m_nCalcUsing = division.m_nCalcUsing;
    pCopy->m_bStrict = division.m_bStrict;
    pCopy->m_dateFrom = division.m_dateFrom;
    pCopy->m_dateTo = division.m_dateTo;
    pCopy->m_waypoints = CopyOf(division.m_waypoints);
    return pCopy;
}

SEditDivisionDialog SEditDivisionDialog::From(const CEvent& event, const CDivision& division)
{
    SEditDivisionDialog dialog;
    dialog.strName = division.m_strName;
    dialog.metres.Set(division.m_dMetres);
    dialog.seconds.Set(division.m_nSeconds);
    const double dMetres = division.m_dProximity * KilometresToMetres;
    dialog.proximity.SetConverted(dMetres == 0.0 ? ShownForNoProximity : dMetres);
    dialog.averageRuns.Set(division.m_nAverageRuns);
    dialog.useAltitude.bChecked = division.m_bUseAltitude != 0;
    dialog.accumulation.bChecked = division.m_bAccumulation != 0;
    dialog.oneResultPerRun.bChecked = division.m_bOneResultPerRun != 0;
    dialog.strict.bChecked = division.m_bStrict != 0;
    dialog.bAddToAllCompetitors = division.m_strName.empty();
    dialog.nCalcUsing = division.m_nCalcUsing;
    dialog.wayPoints = CopyOf(division.m_waypoints);
    dialog.wayPointsChecked.resize(static_cast<std::size_t>(division.m_waypoints.GetCount()));
    for (const CDivision* pOther : event.m_divisions) {
        if (pOther != &division)
            dialog.otherNames.push_back(pOther->m_strName);
    }
    dialog.SetKind(division.m_nKind);
    return dialog;
}

void SEditDivisionDialog::SetKind(std::uint8_t nNewKind)
{
    // A number that is no kind is judged as a distance.
    nKind = nNewKind >= 1 && nNewKind <= KindRules.size() ? nNewKind : DivisionKind::Distance;
    const SKindRule& rule = KindRules[nKind - 1U];
    metres.bEnabled = rule.bMetres;
    seconds.bEnabled = rule.bSeconds;
    proximity.bEnabled = rule.bProximity;
    bWayPointsEnabled = rule.bWayPoints;
    useAltitude.bEnabled = rule.bAltitude;
    if (!rule.bAltitude || rule.bAltitudeChecked)
        useAltitude.bChecked = rule.bAltitudeChecked;
    accumulation.bEnabled = oneResultPerRun.bEnabled = rule.bRunsAndAccumulation;
    if (!rule.bRunsAndAccumulation) {
        accumulation.bChecked = true;
        oneResultPerRun.bChecked = false;
    }
}

std::optional<SFieldProblem> SEditDivisionDialog::Validate() const
{
    const bool bTaken = std::ranges::any_of(
        otherNames, [&](const std::string& strOther) { return EqualNoCase(strOther, strName); });
    if (strName.empty())
        return SFieldProblem{&strName, "Please enter a name for the division."};
    if (bTaken)
        return SFieldProblem{&strName, "Another division has the name " + strName + "."};
    return FirstProblem({&metres, &seconds, &proximity, &averageRuns});
}

void SEditDivisionDialog::ApplyTo(CDivision& division) const
{
    division.m_strName = strName;
    division.m_nKind = nKind;
    division.m_dMetres = metres.Value();
    division.m_nSeconds = seconds.Whole();
    division.m_dProximity = proximity.Value() * MetresToKilometres;
    division.m_nAverageRuns = static_cast<std::uint8_t>(averageRuns.Whole());
    division.m_bUseAltitude = useAltitude.bChecked;
    division.m_bAccumulation = accumulation.bChecked;
    division.m_bOneResultPerRun = oneResultPerRun.bChecked;
    division.m_bStrict = strict.bChecked;
    division.m_nCalcUsing = nCalcUsing;
    division.m_waypoints = CopyOf(wayPoints);
}

} // namespace kestrabel
