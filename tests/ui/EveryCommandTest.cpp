#include "app/NodeCommands.h"
#include "ui/QuietDesktop.h"
#include "ui/TestWindow.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QMenu>
#include <QMenuBar>
#include <QTimer>

#include <algorithm>

namespace kestrabel::test {
namespace {

/// Closes whatever box Qt itself opens: printing and the choice of paper.
class CBoxCloser
{
public:
    CBoxCloser()
    {
        QObject::connect(&m_timer, &QTimer::timeout, [this] {
            if (auto* pDialog = qobject_cast<QDialog*>(QApplication::activeModalWidget())) {
                ++m_nClosed;
                pDialog->reject();
            } else if (QWidget* pMenu = QApplication::activePopupWidget()) {
                pMenu->close();
            }
        });
        m_timer.start(20);
    }
    int m_nClosed = 0;

private:
    QTimer m_timer;
};

using SQuietWindow = SWindowWith<CQuietDesktop>;

void ImportTwo(SQuietWindow& window)
{
    window.desktop.m_files = {window.folder.Write("anna.nmea", Sentences(60)),
                              window.folder.Write("ben.nmea", Sentences(40))};
    window.pFrame->Router().CarryOut(ECommand::ImportTrackFiles);
}

/// Every item of the main menu; the window is hidden, not gone, after "Exit".
void TriggerMenus(CMainFrame& frame)
{
    for (const QAction* pMenu : frame.menuBar()->actions()) {
        emit pMenu->menu()->aboutToShow();
        for (QAction* pItem : pMenu->menu()->actions())
            pItem->trigger();
    }
}

TEST(EveryCommand, OfTheMenuWithNothingOpen)
{
    SQuietWindow window;
    CBoxCloser closer;
    TriggerMenus(*window.pFrame);
    EXPECT_EQ(closer.m_nClosed, 3) << "print, preview, paper";
    EXPECT_NE(std::ranges::find(window.desktop.m_shown, "About"), window.desktop.m_shown.end());
}

TEST(EveryCommand, OfTheMenuWithAFileAndAPoint)
{
    SQuietWindow window;
    ImportTwo(window);
    ClickNode(window.pFrame->Application().m_document, {NodeKind::TrackFile, 1});
    window.pFrame->Application().m_document.m_selection.SetFocusPoint(1, 20);
    CBoxCloser closer;
    TriggerMenus(*window.pFrame);
    const CPerson& person = window.pFrame->Application().m_document.m_event.m_persons[0];
    EXPECT_EQ(person.m_series.GetCount(), 2) << "no file goes or comes without an answer";
    EXPECT_EQ(person.m_series[0].m_points.GetCount() + person.m_series[1].m_points.GetCount(), 100);
}

TEST(EveryCommand, OfEachContextMenuWithAndWithoutASelection)
{
    constexpr EContextMenu menus[] = {EContextMenu::TrackFilesNode, EContextMenu::TrackFileNode,
                                      EContextMenu::DivisionsNode,  EContextMenu::DivisionNode,
                                      EContextMenu::ResultGrid,     EContextMenu::PointGrid,
                                      EContextMenu::Graph,          EContextMenu::Map};
    constexpr STreeNode nodes[] = {
        TrackFilesRoot, {NodeKind::TrackFile, 0}, DivisionsRoot, {NodeKind::Division, 1}};
    for (const bool bFiles : {false, true}) {
        SQuietWindow window;
        CBoxCloser closer;
        if (bFiles)
            ImportTwo(window);
        for (std::size_t i = 0; i < std::size(menus); ++i) {
            SCommandPlace place;
            place.pane = i < std::size(nodes)                  ? EPane::Tree
                         : menus[i] == EContextMenu::PointGrid ? EPane::PointGrid
                         : menus[i] == EContextMenu::Graph     ? EPane::Graph
                         : menus[i] == EContextMenu::Map       ? EPane::Map
                                                               : EPane::ResultGrid;
            if (i < std::size(nodes))
                place.node = nodes[i];
            for (const SMenuItem& item : ContextMenu(menus[i])) {
                const bool bCan = window.pFrame->Router().State(item.command, place).bEnabled;
                EXPECT_EQ(window.pFrame->Router().CarryOut(item.command, place), bCan) << item.strText;
            }
        }
    }
}

TEST(EveryCommand, RightClicksShowTheMenuOfWhatIsUnderThem)
{
    SQuietWindow window;
    ImportTwo(window);
    window.pFrame->Router().CarryOut(ECommand::ShowTree);
    CMainTreeView& tree = window.Tree();
    int nMenus = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] {
        if (QWidget* pMenu = QApplication::activePopupWidget()) {
            ++nMenus;
            pMenu->close();
        }
    });
    timer.start(10);
    const auto rightClick = [](QWidget& viewport, const QPoint& position) {
        QContextMenuEvent event(QContextMenuEvent::Mouse, position, viewport.mapToGlobal(position));
        QApplication::sendEvent(&viewport, &event);
    };
    rightClick(*tree.viewport(), tree.visualRect(tree.model()->index(0, 0)).center());
    EXPECT_EQ(nMenus, 1);
    rightClick(*tree.viewport(), QPoint(5, tree.viewport()->height() - 5));
    EXPECT_EQ(nMenus, 1) << "no node, no menu";
    CGridView& points = window.Grid("Track points");
    rightClick(*points.viewport(), points.visualRect(points.model()->index(2, 0)).center());
    EXPECT_EQ(nMenus, 2);
}

} // namespace
} // namespace kestrabel::test
