#include "ui/panes/TreeModel.h"

#include "ui/QtText.h"

#include <QIcon>

#include <algorithm>

namespace kestrabel {

namespace {

/// The internal number of a root; a child has its root's row.
constexpr quintptr OfRoot = ~quintptr{0};

QIcon IconOf(int nImage)
{
    switch (nImage) {
    case 1: return QIcon(":/icons/competitor.svg");
    case 2: return QIcon(":/icons/division.svg");
    default: return QIcon(":/icons/track-file.svg");
    }
}

} // namespace

CTreeModel::CTreeModel(const CProjectTree& tree, QObject* pParent)
    : QAbstractItemModel(pParent), m_tree(tree), m_rows(tree.Rows())
{
}

int CTreeModel::RootRow(int nRoot) const
{
    for (std::size_t i = 0; i < m_rows.size(); ++i) {
        if (m_rows[i].nLevel == 0 && nRoot-- == 0)
            return static_cast<int>(i);
    }
    return static_cast<int>(m_rows.size());
}

QModelIndex CTreeModel::index(int nRow, int nColumn, const QModelIndex& parent) const
{
    if (!hasIndex(nRow, nColumn, parent))
        return {};
    return createIndex(nRow, nColumn, parent.isValid() ? static_cast<quintptr>(parent.row()) : OfRoot);
}

QModelIndex CTreeModel::parent(const QModelIndex& child) const
{
    if (!child.isValid() || child.internalId() == OfRoot)
        return {};
    return createIndex(static_cast<int>(child.internalId()), 0, OfRoot);
}

int CTreeModel::rowCount(const QModelIndex& parent) const
{
    if (!parent.isValid())
        return static_cast<int>(std::ranges::count(m_rows, 0, &STreeRow::nLevel));
    if (parent.internalId() != OfRoot)
        return 0;
    return RootRow(parent.row() + 1) - RootRow(parent.row()) - 1;
}

bool CTreeModel::hasChildren(const QModelIndex& parent) const
{
    // A root shows its button before anybody has asked for its children.
    return !parent.isValid() || RowOf(parent).bButton;
}

QVariant CTreeModel::data(const QModelIndex& index, int nRole) const
{
    if (nRole == Qt::DisplayRole || nRole == Qt::ToolTipRole) // the pane is narrow
        return ToQt(RowOf(index).strText);
    if (nRole == Qt::DecorationRole)
        return IconOf(RowOf(index).nImage);
    return {};
}

void CTreeModel::Reset()
{
    beginResetModel();
    m_rows = m_tree.Rows();
    endResetModel();
}

const STreeRow& CTreeModel::RowOf(const QModelIndex& index) const
{
    const bool bRoot = index.internalId() == OfRoot;
    const int nRow =
        bRoot ? RootRow(index.row()) : RootRow(static_cast<int>(index.internalId())) + 1 + index.row();
    return m_rows[static_cast<std::size_t>(nRow)];
}

QModelIndex CTreeModel::IndexOf(const STreeNode& node) const
{
    for (int nRoot = 0; nRoot < rowCount(); ++nRoot) {
        const QModelIndex root = index(nRoot, 0);
        if (RowOf(root).node == node)
            return root;
        for (int nChild = 0; nChild < rowCount(root); ++nChild) {
            const QModelIndex child = index(nChild, 0, root);
            if (RowOf(child).node == node)
                return child;
        }
    }
    return {};
}

} // namespace kestrabel
