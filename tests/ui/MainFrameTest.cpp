#include "ui/MainFrame.h"

#include "app/NodeCommands.h"
#include "support/ScriptedDesktop.h"
#include "support/TemporaryFolder.h"
#include "ui/panes/GridView.h"
#include "ui/panes/MainTreeView.h"
#include "ui/QtSettings.h"
#include "ui/QtText.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QFontDatabase>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QSplitter>
#include <QStatusBar>
#include <QTest>
#include <QToolBar>

#include <gmock/gmock.h>
#include <memory>

namespace kestrabel::test {
namespace {

using testing::HasSubstr;

/// NMEA sentences of one fix a second, sailing east at 14 knots.
std::string Sentences(int nFixes)
{
    std::string strLines;
    for (int i = 0; i < nFixes; ++i) {
        const QString strTime =
            QString("12%1%2.000").arg(i / 60, 2, 10, QChar('0')).arg(i % 60, 2, 10, QChar('0'));
        const QString strLongitude = QString("00506.%1").arg(i * 643 + 1000, 5, 10, QChar('0'));
        const QString strFix =
            QString("GPRMC,%1,A,5248.00000,N,%2,E,14.0,90.0,170824,,").arg(strTime, strLongitude);
        int nSum = 0;
        for (const char c : strFix.toStdString())
            nSum ^= c;
        strLines +=
            FromQt('$' + strFix + '*' + QString("%1").arg(nSum, 2, 16, QChar('0')).toUpper() + "\r\n");
    }
    return strLines;
}

/// The window with its own folder, settings and scripted desktop.
struct SWindow
{
    CTemporaryFolder folder;
    CScriptedDesktop desktop;
    std::unique_ptr<CQtSettings> pSettings = std::make_unique<CQtSettings>(ToQt(folder.Path("settings.ini")));
    std::unique_ptr<CMainFrame> pFrame;

    SWindow() { Open(); }
    void Open()
    {
        pFrame = std::make_unique<CMainFrame>(*pSettings, folder.Path(""), &desktop);
        pFrame->show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(pFrame.get()));
        EXPECT_TRUE(pFrame->Start({}));
    }
    void Import(std::string_view strName, int nFixes)
    {
        desktop.Files("*.*", {folder.Write(strName, Sentences(nFixes))});
        pFrame->Router().CarryOut(ECommand::ImportTrackFiles);
    }
    CGridView& Grid(const char* pName)
    {
        for (CGridView* pGrid : pFrame->findChildren<CGridView*>()) {
            if (pGrid->accessibleName() == pName)
                return *pGrid;
        }
        throw std::runtime_error("no such grid");
    }
    CMainTreeView& Tree() { return *pFrame->findChild<CMainTreeView*>(); }
    void ClickNode(const QString& strText, Qt::MouseButton button = Qt::LeftButton)
    {
        const QModelIndexList found = Tree().model()->match(
            Tree().model()->index(0, 0), Qt::DisplayRole, strText, 1, Qt::MatchExactly | Qt::MatchRecursive);
        ASSERT_EQ(found.size(), 1) << FromQt(strText);
        QTest::mouseClick(Tree().viewport(), button, {}, Tree().visualRect(found[0]).center());
    }
    static QString Cell(const CGridView& grid, int nRow, int nColumn)
    {
        return grid.model()->index(nRow, nColumn).data().toString();
    }
    std::string Status(int nPane)
    {
        return pFrame->Application().m_document.m_selection.m_statusTexts[static_cast<std::size_t>(nPane)];
    }
};

TEST(MainFrame, TextsAreDrawnWithAFont)
{
    EXPECT_FALSE(QFontDatabase::families().isEmpty()) << "without one every picture shows boxes";
}

TEST(MainFrame, ADivisionIsJudgedByClicks)
{
    SWindow window;
    window.Import("anna.nmea", 120);
    EXPECT_TRUE(window.Tree().isHidden());
    window.pFrame->Router().CarryOut(ECommand::ShowTree);
    EXPECT_TRUE(window.Tree().isVisible());
    window.ClickNode("2 sec");

    CGridView& results = window.Grid("Results");
    ASSERT_GE(results.model()->rowCount(), 1);
    EXPECT_EQ(SWindow::Cell(results, 0, 0), "2 sec");
    QTest::mouseClick(results.viewport(), Qt::LeftButton, {},
                      results.visualRect(results.model()->index(0, 0)).center());
    EXPECT_EQ(results.SelectedRows(), std::vector<int>{0});
    const CViewSelection& selection = window.pFrame->Application().m_document.m_selection;
    EXPECT_EQ(selection.m_nRunDivision, 0);
    EXPECT_EQ(window.Grid("Track points").SelectedRows(),
              std::vector<int>{static_cast<int>(selection.m_dFocusPoint)});
    bool bShown = false;
    for (const QLabel* pLabel : window.pFrame->statusBar()->findChildren<QLabel*>())
        bShown = bShown || (!window.Status(0).empty() && FromQt(pLabel->text()) == window.Status(0));
    EXPECT_TRUE(bShown) << "speed of the focus point: " << window.Status(0);
}

TEST(MainFrame, RowsFollowKeysAndAreCopied)
{
    SWindow window;
    window.Import("anna.nmea", 30);
    CGridView& points = window.Grid("Track points");
    points.setFocus();
    QTest::mouseClick(points.viewport(), Qt::LeftButton, {},
                      points.visualRect(points.model()->index(3, 0)).center());
    QTest::keyClick(&points, Qt::Key_Down);
    const CViewSelection& selection = window.pFrame->Application().m_document.m_selection;
    EXPECT_EQ(selection.m_dFocusPoint, 4.0);
    QTest::keyClick(&points, Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyClick(&points, Qt::Key_C, Qt::ControlModifier);
    const QStringList lines = QApplication::clipboard()->text().split('\n');
    ASSERT_EQ(lines.size(), 3);
    EXPECT_EQ(lines[0].section('\t', 0, 0), "5");
    EXPECT_EQ(lines[1].section('\t', 0, 0), "6");

    QTest::keyClick(&points, Qt::Key_Delete);
    EXPECT_EQ(points.model()->rowCount(), 28);
    EXPECT_TRUE(window.pFrame->isWindowModified());
    window.pFrame->Router().CarryOut(ECommand::Undo);
    EXPECT_EQ(points.model()->rowCount(), 30);
    QTest::keyClick(&points, Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(points.SelectedRows().size(), 30U) << "in a list Ctrl+A selects, and saves nothing";
}

TEST(MainFrame, AHeaderSortsOneWayThenTheOther)
{
    SWindow window;
    window.Import("anna.nmea", 30);
    CGridView& points = window.Grid("Track points");
    QHeaderView& header = *points.horizontalHeader();
    const auto click = [&] {
        QTest::mouseClick(header.viewport(), Qt::LeftButton, {},
                          QPoint(header.sectionViewportPosition(0) + 5, header.height() / 2));
    };
    click();
    EXPECT_EQ(SWindow::Cell(points, 0, 0), "1");
    click();
    EXPECT_EQ(SWindow::Cell(points, 0, 0), "30");
}

TEST(MainFrame, MenusToolbarAndKeysLeadToTheCommands)
{
    SWindow window;
    QStringList titles;
    for (const QAction* pMenu : window.pFrame->menuBar()->actions())
        titles << pMenu->text();
    EXPECT_EQ(titles, QStringList({"&File", "&Edit", "&View", "Tools", "&Help"}));

    QMenu* pView = window.pFrame->menuBar()->actions()[2]->menu();
    emit pView->aboutToShow();
    const auto item = [&](const QString& strText) {
        for (QAction* pAction : pView->actions()) {
            if (pAction->text().startsWith(strText))
                return pAction;
        }
        throw std::runtime_error("no such item");
    };
    EXPECT_FALSE(item("Show Division Results")->isEnabled());
    EXPECT_TRUE(item("&Toolbar")->isChecked());
    EXPECT_FALSE(item("&Divisions")->isChecked());
    item("&Toolbar")->trigger();
    EXPECT_TRUE(window.pFrame->findChild<QToolBar*>()->isHidden());
    QTest::keyClick(window.pFrame.get(), Qt::Key_D, Qt::ControlModifier | Qt::AltModifier);
    EXPECT_TRUE(window.Tree().isVisible());
    emit pView->aboutToShow();
    EXPECT_TRUE(item("&Divisions")->isChecked());
    EXPECT_FALSE(item("&Toolbar")->isChecked());
}

TEST(MainFrame, EveryWidgetThatTakesTheFocusHasAName)
{
    SWindow window;
    window.pFrame->Router().CarryOut(ECommand::ShowTree);
    for (const QWidget* pWidget : window.pFrame->findChildren<QWidget*>()) {
        if (pWidget->focusPolicy() != Qt::NoFocus && pWidget->isVisible() &&
            pWidget->focusProxy() == nullptr &&
            pWidget->parentWidget()->objectName() != "qt_scrollarea_viewport")
        {
            EXPECT_FALSE(pWidget->accessibleName().isEmpty() &&
                         pWidget->objectName() != "qt_scrollarea_viewport")
                << pWidget->metaObject()->className() << ' ' << FromQt(pWidget->objectName());
        }
    }
}

TEST(MainFrame, TheLayoutComesBack)
{
    SWindow window;
    auto* pRows = window.pFrame->findChild<QSplitter*>();
    pRows->setSizes({300, 200});
    const QList<int> sizes = pRows->sizes();
    window.pFrame->close();
    window.pFrame.reset();
    window.Open();
    EXPECT_EQ(window.pFrame->findChild<QSplitter*>()->sizes(), sizes);
}

} // namespace
} // namespace kestrabel::test
