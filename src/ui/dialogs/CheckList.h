#pragma once

#include <QTreeWidget>

#include <functional>
#include <string_view>
#include <vector>

namespace kestrabel {

/// A report list whose rows have a check box. A click anywhere on a row turns it, as does Space.
class CCheckList : public QTreeWidget
{
public:
    struct SRow
    {
        std::string_view strText;
        bool bChecked;
    };

    /// `headings` name the column of the boxes and that of the texts; with one, both are in one column.
    CCheckList(const QStringList& headings, std::function<void(int)> toggle);

    /// Shows these rows; the current row stays.
    void SetRows(const std::vector<SRow>& rows);
    /// -1: none.
    int CurrentRow() const;
    void SetCurrentRow(int nRow);

protected:
    void keyPressEvent(QKeyEvent* pEvent) override;

private:
    std::function<void(int)> m_toggle;
};

} // namespace kestrabel
