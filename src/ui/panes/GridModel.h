#pragma once

#include "present/Grid.h"

#include <QAbstractTableModel>

namespace kestrabel {

/// The rows and columns of a grid for Qt's views. A cell's text is made when it is painted.
class CGridModel : public QAbstractTableModel
{
public:
    /// The grid outlives the model.
    explicit CGridModel(CGrid& grid, QObject* pParent = nullptr) : QAbstractTableModel(pParent), m_grid(grid)
    {
    }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int nRole) const override;
    QVariant headerData(int nSection, Qt::Orientation orientation, int nRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

    /// The grid has other rows or columns than before.
    void Reset();

private:
    CGrid& m_grid;
};

} // namespace kestrabel
