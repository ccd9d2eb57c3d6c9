#pragma once

#include "present/GridField.h"
#include "present/UpdateHub.h"
#include "present/ViewSelection.h"

#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kestrabel {

struct SGridFieldsDialog;

/// A grid as its pane shows it: columns as the user chose them, rows in the order of the list or of the last
/// click on a header. A cell's text is made when it is asked for, so that a million rows cost nothing but
/// their order until they are seen.
///
/// A row shows one object of the list, a result or a track point, or is a separator without any.
class CGrid : public CPane
{
public:
    static constexpr int Separator = -1;

    /// `onFilled`: rows, and columns when `bColumns` is set, are others than before. `onFollow`: this row, -1
    /// for none, is to be the only selected and current one, and scrolled into view.
    struct SListener
    {
        std::function<void(bool bColumns)> onFilled = [](bool) {};
        std::function<void(int nRow)> onFollow = [](int) {};
    };

    /// Keeps its columns under `strTable` of the settings, which outlive it, as the selection does.
    CGrid(CViewSelection& selection, CSettingsStore& settings, std::string_view strTable,
          std::span<const SGridColumn> columns, std::int32_t nWidestColumn);
    ~CGrid() override;
    CGrid(const CGrid&) = delete;
    CGrid& operator=(const CGrid&) = delete;

    void SetListener(SListener listener) { m_listener = std::move(listener); }

    // Columns are numbered as shown, from 0.
    int ColumnCount() const { return static_cast<int>(m_shown.size()); }
    const CGridField& Column(int nColumn) const { return m_fields[FieldOf(nColumn)]; }
    std::int32_t ColumnWidth(int nColumn) const;
    /// Pixels that no column is wider than when it is built.
    std::int32_t WidestColumn() const { return m_nWidestColumn; }
    /// The user has not made the column wider or narrower than its table has it.
    bool HasDefaultWidth(int nColumn) const;
    void SetColumnWidth(int nColumn, std::int32_t nWidth) { m_fields[FieldOf(nColumn)].m_nWidth = nWidth; }
    /// The shown fields' places in the table.
    const std::vector<int>& ShownColumns() const { return m_shown; }

    int RowCount() const { return static_cast<int>(m_rows.size()); }
    /// The index in the list of what a row shows; `Separator` for none, rows that do not exist included.
    int ObjectOf(int nRow) const;
    std::string CellText(int nRow, int nColumn) const;
    /// Rows as lines of tab-separated texts, each ended by a line feed; separators are empty lines.
    std::string RowsAsText(std::span<const int> rows) const;

    /// A click on a header: sorts the rows by what the column shows, separators last, and turns the column's
    /// direction around for the next click. What is equal stays in its order. The selected row is scrolled
    /// into view. Returns where the row that was `nSelected` is now.
    int ClickHeader(int nColumn, int nSelected = -1);

    /// A click on a row, or its selection by a key: what it shows becomes the focus of all panes.
    void ClickRow(int nRow);

    SGridFieldsDialog FieldsDialog() const;
    /// Takes the choice over; the grid is filled anew.
    void ApplyFields(const SGridFieldsDialog& dialog);

    /// Selects the row of the focus.
    void FollowFocus();

protected:
    /// What a column is sorted by: texts of columns that hold text, numbers of all others.
    struct SSortKey
    {
        double dNumber = 0.0;
        std::string_view strText;
    };

    /// Shows the rows of the list in its order.
    void Fill();

    virtual std::vector<int> MakeRows() = 0;
    virtual std::string Text(int nObject, int nField) const = 0;
    virtual SSortKey SortKey(int nObject, int nField) const = 0;
    virtual bool IsText(int nField) const = 0;
    virtual void Pick(int nObject) = 0;
    virtual int FocusRow() const = 0;

    const std::vector<int>& Rows() const { return m_rows; }

    CViewSelection& m_selection;

private:
    std::size_t FieldOf(int nColumn) const
    {
        return static_cast<std::size_t>(m_shown[static_cast<std::size_t>(nColumn)]);
    }

    CSettingsStore& m_settings;
    std::string m_strTable;
    std::span<const SGridColumn> m_columns;
    std::int32_t m_nWidestColumn;
    CGridFields m_fields;
    std::vector<int> m_shown;
    std::vector<int> m_rows;
    bool m_bColumnsDirty = true;
    bool m_bFollowing = false;
    SListener m_listener;
};

} // namespace kestrabel
