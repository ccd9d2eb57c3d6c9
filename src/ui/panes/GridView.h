#pragma once

#include "app/CommandRouter.h"
#include "present/Grid.h"

#include <QTableView>

namespace kestrabel {

class CGridModel;

/// A grid as a table: whole rows are selected; clicks and keys that move the current row move the focus of
/// all panes, and the focus of the others moves the row.
class CGridView : public QTableView
{
public:
    /// `pPoints` is the same grid when it shows track points, else null. All of it outlives the view.
    CGridView(CGrid& grid, CTrackPointGrid* pPoints, CCommandRouter& router, CDesktop& desktop,
              QWidget* pParent = nullptr);
    ~CGridView() override;

    /// The rows that are selected, from top to bottom.
    std::vector<int> SelectedRows() const;
    /// Puts the selected rows, as tab-separated text, on the clipboard.
    void CopySelection() const;
    void ChooseFields();

protected:
    bool event(QEvent* pEvent) override;
    void keyPressEvent(QKeyEvent* pEvent) override;
    void mousePressEvent(QMouseEvent* pEvent) override;
    void contextMenuEvent(QContextMenuEvent* pEvent) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

private:
    void TakeOver(bool bColumns);
    void SizeColumns(bool bAll);
    void Follow(int nRow);
    void SortBy(int nColumn);
    void CarryOut(ECommand command);
    SCommandPlace Place(const std::vector<CTrackPoint*>& points) const;
    EPane Pane() const { return m_pPoints != nullptr ? EPane::PointGrid : EPane::ResultGrid; }

    CGrid& m_grid;
    CTrackPointGrid* m_pPoints;
    CCommandRouter& m_router;
    CDesktop& m_desktop;
    CGridModel* m_pModel;
    bool m_bFilling = false; ///< what the view does by itself is no click
};

} // namespace kestrabel
