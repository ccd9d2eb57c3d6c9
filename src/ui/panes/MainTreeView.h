#pragma once

#include "app/CommandRouter.h"
#include "present/ProjectTree.h"

#include <QTreeView>

namespace kestrabel {

class CTreeModel;

/// The project tree's pane. What is expanded and selected is kept by the tree itself; the view shows it and
/// hands it what the user does.
class CMainTreeView : public QTreeView
{
public:
    /// All of it outlives the view.
    CMainTreeView(CProjectTree& tree, CCommandRouter& router, CKestroDoc& document,
                  QWidget* pParent = nullptr);
    ~CMainTreeView() override;

protected:
    void keyPressEvent(QKeyEvent* pEvent) override;
    void contextMenuEvent(QContextMenuEvent* pEvent) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

private:
    void TakeOver();
    void Click(const QModelIndex& index);
    bool CarryOutKeyOfMenu(const QKeyEvent& event);
    SCommandPlace PlaceOf(const STreeNode& node) const;

    CProjectTree& m_tree;
    CCommandRouter& m_router;
    CKestroDoc& m_document;
    CTreeModel* m_pModel;
    bool m_bFilling = false; ///< what the view does by itself is nothing that the user did
};

} // namespace kestrabel
