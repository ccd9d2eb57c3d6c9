#include "ui/panes/GridView.h"

#include "present/GridFieldsDialog.h"
#include "ui/MenuBuilder.h"
#include "ui/panes/GridModel.h"
#include "ui/QtText.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>

#include <algorithm>
#include <utility>

namespace kestrabel {

namespace {

/// Rows whose texts are measured for the width of a column.
constexpr int MeasuredRows = 50;

} // namespace

CGridView::CGridView(CGrid& grid, CTrackPointGrid* pPoints, CCommandRouter& router, CDesktop& desktop,
                     QWidget* pParent)
    : QTableView(pParent),
      m_grid(grid),
      m_pPoints(pPoints),
      m_router(router),
      m_desktop(desktop),
      m_pModel(new CGridModel(grid, this))
{
    setModel(m_pModel);
    setSelectionBehavior(SelectRows);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(NoEditTriggers);
    setWordWrap(false);
    setShowGrid(false);
    setTabKeyNavigation(false);
    setVerticalScrollMode(ScrollPerItem);
    setAccessibleName(pPoints != nullptr ? "Track points" : "Results");
    // All rows are equally high, so that a million of them need no measuring.
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + fontMetrics().height() / 4);
    horizontalHeader()->setSectionsClickable(true);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setSortIndicatorShown(true);
    horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    connect(horizontalHeader(), &QHeaderView::sectionClicked, this, &CGridView::SortBy);
    connect(horizontalHeader(), &QHeaderView::sectionResized, this, [this](int nColumn, int, int nWidth) {
        if (!m_bFilling && nColumn < m_grid.ColumnCount())
            m_grid.SetColumnWidth(nColumn, nWidth);
    });
    m_grid.SetListener({.onFilled = [this](bool bColumns) { TakeOver(bColumns); },
                        .onFollow = [this](int nRow) { Follow(nRow); }});
    TakeOver(true);
}

CGridView::~CGridView()
{
    m_grid.SetListener({});
}

void CGridView::TakeOver(bool bColumns)
{
    const bool bBefore = std::exchange(m_bFilling, true);
    horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    m_pModel->Reset();
    if (bColumns && m_pPoints != nullptr)
        m_router.m_shownColumns = m_pPoints->ShownPointColumns();
    SizeColumns(bColumns);
    m_bFilling = bBefore;
}

/// As the user left them. The widths of the table are too narrow for large fonts: where they still stand,
/// the title and the first rows are measured.
void CGridView::SizeColumns(bool bAll)
{
    const int nMeasured = std::min(m_grid.RowCount(), MeasuredRows);
    const int nMargin = fontMetrics().horizontalAdvance("  ");
    for (int nColumn = 0; nColumn < m_grid.ColumnCount(); ++nColumn) {
        if (!bAll && !m_grid.HasDefaultWidth(nColumn))
            continue;
        int nWidth = m_grid.ColumnWidth(nColumn);
        const auto measure = [&](std::string_view strText) {
            nWidth = std::max(nWidth, fontMetrics().horizontalAdvance(ToQt(strText)) + nMargin);
        };
        if (m_grid.HasDefaultWidth(nColumn)) {
            measure(m_grid.Column(nColumn).m_strTitle);
            for (int nRow = 0; nRow < nMeasured; ++nRow)
                measure(m_grid.CellText(nRow, nColumn));
        }
        setColumnWidth(nColumn, std::min(nWidth, m_grid.WidestColumn()));
    }
}

void CGridView::Follow(int nRow)
{
    const bool bBefore = std::exchange(m_bFilling, true);
    clearSelection();
    if (nRow >= 0 && nRow < m_grid.RowCount()) {
        const QModelIndex index = m_pModel->index(nRow, 0);
        // Not by `selectRow`, which would heed a Ctrl key that is held for the pane in which the focus moved.
        selectionModel()->setCurrentIndex(index,
                                          QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
        scrollTo(index);
    }
    m_bFilling = bBefore;
}

void CGridView::SortBy(int nColumn)
{
    const std::vector<int> selected = SelectedRows();
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const bool bAscending = m_grid.Column(nColumn).m_bSortAscending;
    Follow(m_grid.ClickHeader(nColumn, selected.empty() ? -1 : selected.front()));
    horizontalHeader()->setSortIndicator(nColumn, bAscending ? Qt::AscendingOrder : Qt::DescendingOrder);
    QApplication::restoreOverrideCursor();
}

std::vector<int> CGridView::SelectedRows() const
{
    std::vector<int> rows;
    // Ranges: a million selected rows are one.
    for (const QItemSelectionRange& range : selectionModel()->selection()) {
        for (int nRow = range.top(); nRow <= range.bottom(); ++nRow)
            rows.push_back(nRow);
    }
    std::ranges::sort(rows);
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    return rows;
}

void CGridView::CopySelection() const
{
    QApplication::clipboard()->setText(ToQt(m_grid.RowsAsText(SelectedRows())));
}

void CGridView::ChooseFields()
{
    SGridFieldsDialog dialog = m_grid.FieldsDialog();
    if (m_desktop.Run(dialog))
        m_grid.ApplyFields(dialog);
}

SCommandPlace CGridView::Place(const std::vector<CTrackPoint*>& points) const
{
    SCommandPlace place;
    place.pane = Pane();
    place.points = points;
    return place;
}

void CGridView::CarryOut(ECommand command)
{
    const std::vector<CTrackPoint*> points =
        m_pPoints != nullptr ? m_pPoints->PointsOf(SelectedRows()) : std::vector<CTrackPoint*>();
    m_router.CarryOut(command, Place(points));
}

bool CGridView::event(QEvent* pEvent)
{
    // In a list the platform's own keys come before the window's.
    if (pEvent->type() == QEvent::ShortcutOverride) {
        auto* pKey = static_cast<QKeyEvent*>(pEvent);
        if (pKey->matches(QKeySequence::SelectAll) || pKey->matches(QKeySequence::Copy)) {
            pEvent->accept();
            return true;
        }
    }
    return QTableView::event(pEvent);
}

void CGridView::keyPressEvent(QKeyEvent* pEvent)
{
    if (pEvent->matches(QKeySequence::Copy)) {
        CopySelection();
    } else if (m_pPoints != nullptr && pEvent->key() == Qt::Key_Delete) {
        CarryOut(ECommand::DeleteTrackPoints);
    } else if (m_pPoints != nullptr && pEvent->key() == Qt::Key_Backspace) {
        m_router.DeletePointBeforeFocus();
    } else {
        QTableView::keyPressEvent(pEvent);
    }
}

void CGridView::mousePressEvent(QMouseEvent* pEvent)
{
    const QModelIndex before = currentIndex();
    QTableView::mousePressEvent(pEvent);
    // A click on the row that is current already is a click, too.
    if (pEvent->button() == Qt::LeftButton && indexAt(pEvent->pos()) == before && before.isValid())
        m_grid.ClickRow(before.row());
}

void CGridView::contextMenuEvent(QContextMenuEvent* pEvent)
{
    const std::vector<CTrackPoint*> points =
        m_pPoints != nullptr ? m_pPoints->PointsOf(SelectedRows()) : std::vector<CTrackPoint*>();
    ShowContextMenu(*this, m_pPoints != nullptr ? EContextMenu::PointGrid : EContextMenu::ResultGrid,
                    m_router, Place(points), pEvent->globalPos());
}

void CGridView::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    QTableView::currentChanged(current, previous);
    if (!m_bFilling && current.isValid() && current.row() != previous.row())
        m_grid.ClickRow(current.row());
}

} // namespace kestrabel
