#pragma once

#include "present/ProjectTree.h"

#include <QAbstractItemModel>

#include <vector>

namespace kestrabel {

/// The visible nodes of the project tree for Qt's views, as they were when it was last reset.
class CTreeModel : public QAbstractItemModel
{
public:
    /// The tree outlives the model.
    explicit CTreeModel(const CProjectTree& tree, QObject* pParent = nullptr);

    QModelIndex index(int nRow, int nColumn, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& /*parent*/ = {}) const override { return 1; }
    bool hasChildren(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int nRole) const override;

    /// Takes over what the tree has now.
    void Reset();

    /// The index must be valid.
    const STreeRow& RowOf(const QModelIndex& index) const;
    /// Invalid for a node that is not visible.
    QModelIndex IndexOf(const STreeNode& node) const;
    const std::vector<STreeRow>& Rows() const { return m_rows; }

private:
    /// Where in the rows the children of a root begin, and how many they are; all roots for none.
    int RootRow(int nRoot) const;

    const CProjectTree& m_tree;
    std::vector<STreeRow> m_rows;
};

} // namespace kestrabel
