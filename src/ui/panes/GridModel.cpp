#include "ui/panes/GridModel.h"

#include "ui/QtText.h"

namespace kestrabel {

namespace {

QVariant AlignmentOf(const CGridField& field)
{
    const Qt::Alignment side = field.m_nFormat == EAlign::Right ? Qt::AlignRight : Qt::AlignLeft;
    return QVariant::fromValue(side | Qt::AlignVCenter);
}

} // namespace

int CGridModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_grid.RowCount();
}

int CGridModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_grid.ColumnCount();
}

QVariant CGridModel::data(const QModelIndex& index, int nRole) const
{
    if (nRole == Qt::DisplayRole)
        return ToQt(m_grid.CellText(index.row(), index.column()));
    if (nRole == Qt::TextAlignmentRole)
        return AlignmentOf(m_grid.Column(index.column()));
    return {};
}

QVariant CGridModel::headerData(int nSection, Qt::Orientation orientation, int nRole) const
{
    if (orientation != Qt::Horizontal || nSection >= m_grid.ColumnCount())
        return {};
    if (nRole == Qt::DisplayRole)
        return ToQt(m_grid.Column(nSection).m_strTitle);
    if (nRole == Qt::TextAlignmentRole)
        return AlignmentOf(m_grid.Column(nSection));
    return {};
}

Qt::ItemFlags CGridModel::flags(const QModelIndex& index) const
{
    const bool bSeparator = m_grid.ObjectOf(index.row()) == CGrid::Separator;
    // What is not enabled is passed over by the arrow keys.
    return bSeparator ? Qt::NoItemFlags : Qt::ItemIsEnabled | Qt::ItemIsSelectable;
}

void CGridModel::Reset()
{
    beginResetModel();
    endResetModel();
}

} // namespace kestrabel
