#include "ui/dialogs/CheckList.h"

#include "ui/QtText.h"

#include <QHeaderView>
#include <QKeyEvent>

namespace kestrabel {

namespace {

constexpr int VisibleRows = 16;
constexpr int VisibleCharacters = 40;

} // namespace

CCheckList::CCheckList(const QStringList& headings, std::function<void(int)> toggle)
    : m_toggle(std::move(toggle))
{
    setColumnCount(static_cast<int>(headings.size()));
    setHeaderLabels(headings);
    setHeaderHidden(headings.size() == 1);
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setMinimumSize(fontMetrics().averageCharWidth() * VisibleCharacters,
                   fontMetrics().lineSpacing() * VisibleRows);
    // Of a double-click, either click turns the box.
    connect(this, &QTreeWidget::itemClicked, this,
            [this](QTreeWidgetItem* pItem) { m_toggle(indexOfTopLevelItem(pItem)); });
}

void CCheckList::SetRows(const std::vector<SRow>& rows)
{
    const int nCount = static_cast<int>(rows.size());
    while (topLevelItemCount() > nCount)
        delete takeTopLevelItem(nCount);
    while (topLevelItemCount() < nCount) {
        auto* pItem = new QTreeWidgetItem(this);
        pItem->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable); // the row is what is clicked, not the box
    }
    for (int i = 0; i < nCount; ++i) {
        const SRow& row = rows[static_cast<std::size_t>(i)];
        topLevelItem(i)->setCheckState(0, row.bChecked ? Qt::Checked : Qt::Unchecked);
        topLevelItem(i)->setText(columnCount() - 1, ToQt(row.strText));
    }
    for (int i = 0; i < columnCount(); ++i)
        resizeColumnToContents(i);
}

int CCheckList::CurrentRow() const
{
    return indexOfTopLevelItem(currentItem());
}

void CCheckList::SetCurrentRow(int nRow)
{
    if (nRow != CurrentRow())
        setCurrentItem(topLevelItem(nRow));
}

void CCheckList::keyPressEvent(QKeyEvent* pEvent)
{
    if (pEvent->key() == Qt::Key_Space && CurrentRow() >= 0)
        m_toggle(CurrentRow());
    else
        QTreeWidget::keyPressEvent(pEvent);
}

} // namespace kestrabel
