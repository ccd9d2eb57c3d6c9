#include "ui/panes/MainTreeView.h"

#include "app/NodeCommands.h"
#include "ui/MenuBuilder.h"
#include "ui/panes/TreeModel.h"
#include "ui/QtText.h"

#include <QContextMenuEvent>
#include <QKeyEvent>

#include <optional>
#include <utility>

namespace kestrabel {

namespace {

std::optional<ETreeKey> TreeKeyOf(const QKeyEvent& event)
{
    const bool bPad = event.modifiers().testFlag(Qt::KeypadModifier);
    switch (event.key()) {
    case Qt::Key_Right: return ETreeKey::Right;
    case Qt::Key_Left: return ETreeKey::Left;
    case Qt::Key_F5: return ETreeKey::F5;
    case Qt::Key_Plus: return bPad ? std::optional(ETreeKey::Plus) : std::nullopt;
    case Qt::Key_Minus: return bPad ? std::optional(ETreeKey::Minus) : std::nullopt;
    default: return std::nullopt;
    }
}

} // namespace

CMainTreeView::CMainTreeView(CProjectTree& tree, CCommandRouter& router, CKestroDoc& document,
                             QWidget* pParent)
    : QTreeView(pParent),
      m_tree(tree),
      m_router(router),
      m_document(document),
      m_pModel(new CTreeModel(tree, this))
{
    setModel(m_pModel);
    setHeaderHidden(true);
    setEditTriggers(NoEditTriggers);
    setUniformRowHeights(true);
    setAccessibleName("Project tree");
    const auto toggle = [this](const QModelIndex& index) {
        if (!m_bFilling)
            m_tree.Toggle(m_pModel->RowOf(index).node);
    };
    connect(this, &QTreeView::expanded, this, toggle);
    connect(this, &QTreeView::collapsed, this, toggle);
    connect(this, &QTreeView::clicked, this, &CMainTreeView::Click);
    m_tree.m_changed = [this] { TakeOver(); };
    TakeOver();
}

CMainTreeView::~CMainTreeView()
{
    m_tree.m_changed = {};
}

void CMainTreeView::TakeOver()
{
    if (m_bFilling)
        return;
    m_bFilling = true;
    m_pModel->Reset();
    for (int nRoot = 0; nRoot < m_pModel->rowCount(); ++nRoot) {
        const QModelIndex root = m_pModel->index(nRoot, 0);
        setExpanded(root, m_pModel->RowOf(root).bExpanded);
    }
    if (const std::optional<STreeNode> selected = m_tree.Selected()) {
        const QModelIndex index = m_pModel->IndexOf(*selected);
        setCurrentIndex(index);
        scrollTo(index);
    }
    m_bFilling = false;
}

void CMainTreeView::Click(const QModelIndex& index)
{
    ClickNode(m_document, m_pModel->RowOf(index).node);
}

void CMainTreeView::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    QTreeView::currentChanged(current, previous);
    if (m_bFilling || !current.isValid())
        return;
    const bool bBefore = std::exchange(m_bFilling, true);
    m_tree.Select(m_pModel->RowOf(current).node);
    m_bFilling = bBefore;
}

SCommandPlace CMainTreeView::PlaceOf(const STreeNode& node) const
{
    SCommandPlace place;
    place.pane = EPane::Tree;
    place.node = node;
    return place;
}

/// The keys that the menu of the selected node shows, of those that the main menu has not taken.
bool CMainTreeView::CarryOutKeyOfMenu(const QKeyEvent& event)
{
    const std::optional<STreeNode> selected = m_tree.Selected();
    if (!selected.has_value())
        return false;
    for (const SMenuItem& item : ContextMenu(ContextMenuOf(*selected))) {
        const std::string_view strKey = ShortcutOf(item.strText);
        if (!strKey.empty() && QKeySequence(ToQt(strKey)) == QKeySequence(event.keyCombination()))
            return m_router.CarryOut(item.command, PlaceOf(*selected));
    }
    return false;
}

void CMainTreeView::keyPressEvent(QKeyEvent* pEvent)
{
    const std::optional<ETreeKey> key = TreeKeyOf(*pEvent);
    const bool bEnter = pEvent->key() == Qt::Key_Return || pEvent->key() == Qt::Key_Enter;
    if (key.has_value() && m_tree.OnKey(*key))
        return;
    if (bEnter && currentIndex().isValid())
        Click(currentIndex());
    else if (!CarryOutKeyOfMenu(*pEvent))
        QTreeView::keyPressEvent(pEvent);
}

void CMainTreeView::contextMenuEvent(QContextMenuEvent* pEvent)
{
    // The mouse means the node under it, the menu key the selected one.
    const bool bKey = pEvent->reason() == QContextMenuEvent::Keyboard;
    const QModelIndex index = bKey ? currentIndex() : indexAt(pEvent->pos());
    if (!index.isValid())
        return;
    setCurrentIndex(index);
    const STreeNode node = m_pModel->RowOf(index).node;
    const QPoint position =
        bKey ? viewport()->mapToGlobal(visualRect(index).bottomLeft()) : pEvent->globalPos();
    ShowContextMenu(*this, ContextMenuOf(node), m_router, PlaceOf(node), position);
}

} // namespace kestrabel
