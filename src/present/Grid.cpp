#include "present/Grid.h"

#include "present/GridFieldsDialog.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>

namespace kestrabel {

CGrid::CGrid(CViewSelection& selection, CSettingsStore& settings, std::string_view strTable,
             std::span<const SGridColumn> columns, std::int32_t nWidestColumn)
    : m_selection(selection),
      m_settings(settings),
      m_strTable(strTable),
      m_columns(columns),
      m_nWidestColumn(nWidestColumn),
      m_fields(DefaultFields(columns))
{
    LoadGridFields(m_settings, m_strTable, m_fields);
    m_shown = ShownFields(m_fields);
}

CGrid::~CGrid()
{
    SaveGridFields(m_settings, m_strTable, m_fields);
}

std::int32_t CGrid::ColumnWidth(int nColumn) const
{
    return std::min(Column(nColumn).m_nWidth, m_nWidestColumn);
}

bool CGrid::HasDefaultWidth(int nColumn) const
{
    return Column(nColumn).m_nWidth == m_columns[FieldOf(nColumn)].nWidth;
}

int CGrid::ObjectOf(int nRow) const
{
    return nRow >= 0 && nRow < RowCount() ? m_rows[static_cast<std::size_t>(nRow)] : Separator;
}

std::string CGrid::CellText(int nRow, int nColumn) const
{
    const int nObject = ObjectOf(nRow);
    return nObject == Separator ? std::string() : Text(nObject, static_cast<int>(FieldOf(nColumn)));
}

std::string CGrid::RowsAsText(std::span<const int> rows) const
{
    std::string strText;
    for (const int nRow : rows) {
        for (int nColumn = 0; nColumn < ColumnCount(); ++nColumn) {
            if (nColumn != 0)
                strText += '\t';
            strText += CellText(nRow, nColumn);
        }
        strText += '\n';
    }
    return strText;
}

int CGrid::ClickHeader(int nColumn, int nSelected)
{
    const int nField = static_cast<int>(FieldOf(nColumn));
    const bool bAscending = std::exchange(m_fields[FieldOf(nColumn)].m_bSortAscending,
                                          !m_fields[FieldOf(nColumn)].m_bSortAscending);
    const bool bText = IsText(nField);
    std::vector<SSortKey> keys;
    keys.reserve(m_rows.size());
    for (const int nObject : m_rows)
        keys.push_back(nObject == Separator ? SSortKey{} : SortKey(nObject, nField));

    // Behind everything, in either direction: separators, and before them what is no number.
    const auto place = [&](std::size_t nRow) {
        return m_rows[nRow] == Separator ? 2 : !bText && std::isnan(keys[nRow].dNumber) ? 1 : 0;
    };
    std::vector<std::size_t> order(m_rows.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::ranges::stable_sort(order, [&](std::size_t nOne, std::size_t nOther) {
        if (const int nPlace = place(nOne); nPlace != 0 || place(nOther) != 0)
            return nPlace < place(nOther);
        const auto& [first, second] =
            bAscending ? std::pair(keys[nOne], keys[nOther]) : std::pair(keys[nOther], keys[nOne]);
        return bText ? first.strText < second.strText : first.dNumber < second.dNumber;
    });

    std::vector<int> rows;
    rows.reserve(order.size());
    int nSelectedNow = -1;
    for (const std::size_t nRow : order) {
        if (static_cast<int>(nRow) == nSelected)
            nSelectedNow = static_cast<int>(rows.size());
        rows.push_back(m_rows[nRow]);
    }
    m_rows = std::move(rows);
    m_listener.onFilled(false);
    return nSelectedNow;
}

void CGrid::ClickRow(int nRow)
{
    const int nObject = ObjectOf(nRow);
    if (!m_bFollowing && nObject != Separator)
        Pick(nObject);
}

SGridFieldsDialog CGrid::FieldsDialog() const
{
    return SGridFieldsDialog::From(m_fields);
}

void CGrid::ApplyFields(const SGridFieldsDialog& dialog)
{
    dialog.ApplyTo(m_fields);
    m_bColumnsDirty = true;
    Fill();
}

void CGrid::Fill()
{
    const bool bColumns = std::exchange(m_bColumnsDirty, false);
    if (bColumns)
        m_shown = ShownFields(m_fields);
    m_rows = MakeRows();
    m_listener.onFilled(bColumns);
}

void CGrid::FollowFocus()
{
    // Selecting a row in the pane comes back as a click on it.
    const bool bBefore = std::exchange(m_bFollowing, true);
    m_listener.onFollow(FocusRow());
    m_bFollowing = bBefore;
}

} // namespace kestrabel
