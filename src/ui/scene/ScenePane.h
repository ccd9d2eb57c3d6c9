#pragma once

#include "app/CommandRouter.h"
#include "present/scene/SceneView.h"

#include <QAbstractScrollArea>
#include <QImage>

#include <vector>

namespace kestrabel {

struct SSceneStyle;

/// The map or the speed graph on the screen: passes on what the user does, strokes the scene, shows the
/// scroll bars. Layers of many lines are kept as pictures until the view changes them.
class CScenePane : public QAbstractScrollArea
{
public:
    /// `pane` is what the pane is to the commands of its context menu. All of it outlives the pane.
    CScenePane(CSceneView& view, EPane pane, const QString& strName, CCommandRouter& router,
               CDesktop& desktop, QWidget* pParent = nullptr);
    ~CScenePane() override;

    CSceneView& View() { return m_view; }
    void ChooseFields();
    /// The status bar has other texts: those of what is under the pointer.
    std::function<void()> m_onStatus = [] {};

protected:
    void paintEvent(QPaintEvent* pEvent) override;
    void resizeEvent(QResizeEvent* pEvent) override;
    void changeEvent(QEvent* pEvent) override;
    void scrollContentsBy(int, int) override {} // the view scrolls
    void keyPressEvent(QKeyEvent* pEvent) override;
    void mousePressEvent(QMouseEvent* pEvent) override;
    void mouseReleaseEvent(QMouseEvent* pEvent) override;
    void mouseMoveEvent(QMouseEvent* pEvent) override;
    void wheelEvent(QWheelEvent* pEvent) override;
    void contextMenuEvent(QContextMenuEvent* pEvent) override;

private:
    struct SPicture
    {
        QImage image;
        unsigned nVersion = 0;
    };

    void FollowScrollBar(EScrollBar bar);
    void ShowScrollBars();
    void ShowScrollBar(EScrollBar bar);
    void ForgetPictures();
    const QImage& Picture(std::size_t nLayer, const SSceneLayer& layer, const SSceneStyle& style);
    SSceneStyle Style() const;
    SCommandPlace Place();

    CSceneView& m_view;
    EPane m_pane;
    CCommandRouter& m_router;
    CDesktop& m_desktop;
    std::vector<SPicture> m_pictures; ///< one for each layer, empty where none is kept
    int m_nWheel = 0;                 ///< turned less than a step so far, eighths of a degree
    bool m_bShowingBars = false;
};

} // namespace kestrabel
