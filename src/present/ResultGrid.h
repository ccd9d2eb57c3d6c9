#pragma once

#include "engine/ResultList.h"
#include "model/Event.h"
#include "present/Grid.h"

#include <span>
#include <string>
#include <vector>

namespace kestrabel {

/// The columns of the results grid, in table order; the values number them.
enum class EResultColumn : int
{
    Division,
    TrackFile,
    WayPoint,
    StartLatitude,
    StartLongitude,
    StartTime,
    EndLatitude,
    EndLongitude,
    EndTime,
    Seconds,
    Distance,
    Speed,
    Direction,
    WindAngle,
    Vmg,
    Altitude,
    AltChange,
    HdopMax,
    SatsMin,
    Claimed,
    MinSpeed,
    MaxSpeed,
    Run,
    PosError,
    DopplerError,
};

std::span<const SGridColumn> ResultColumns();

/// The text of one cell, in display units.
std::string ResultCell(const CEvent& event, const CResult& result, EResultColumn column);

/// The rows for a list of results, best first: indices in the list, with a `CGrid::Separator` between two
/// groups of ranks. A result without a minimum speed (not a number) has no row.
std::vector<int> FillResults(const CResultList& results);

/// The grid of the results that the selection lists. Its settings are called "Results".
class CResultGrid : public CGrid
{
public:
    static constexpr std::int32_t WidestColumn = 250; ///< pixels

    /// The event, the hub, the selection and the settings outlive it.
    CResultGrid(const CEvent& event, CUpdateHub& hub, CViewSelection& selection, CSettingsStore& settings);
    ~CResultGrid() override { m_hub.Detach(*this); }

    void OnUpdate(EUpdateHint hint) override;

    /// Null for a separator.
    const CResult* ResultAt(int nRow) const;

protected:
    std::vector<int> MakeRows() override { return FillResults(m_selection.m_Results); }
    std::string Text(int nObject, int nField) const override;
    SSortKey SortKey(int nObject, int nField) const override;
    bool IsText(int nField) const override;
    void Pick(int nObject) override;
    int FocusRow() const override;

private:
    const CResult* ResultOf(int nObject) const;

    const CEvent& m_event;
    CUpdateHub& m_hub;
    std::string m_strPickedDivision; ///< of the result picked last
};

} // namespace kestrabel
