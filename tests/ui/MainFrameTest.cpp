#include "support/ScriptedDesktop.h"
#include "ui/DialogDriver.h"
#include "ui/TestWindow.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDropEvent>
#include <QFontDatabase>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QSplitter>
#include <QStatusBar>
#include <QToolBar>
#include <QWindow>

#include <gmock/gmock.h>

namespace kestrabel::test {
namespace {

struct SWindow : SWindowWith<CScriptedDesktop>
{
    void Import(std::string_view strName, int nFixes)
    {
        desktop.Files("*.*", {folder.Write(strName, Sentences(nFixes))});
        pFrame->Router().CarryOut(ECommand::ImportTrackFiles);
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

TEST(MainFrame, ALongNameDoesNotPushTheResultsOutOfSight)
{
    SWindow window;
    window.Import(std::string(240, 'w') + ".nmea", 30);
    const CGridView& results = window.Grid("Results");
    ASSERT_GE(results.model()->rowCount(), 1);
    EXPECT_EQ(SWindow::Cell(results, 0, 1).size(), 240);
    EXPECT_EQ(results.columnWidth(1), 250);
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

TEST(MainFrame, TitleAndTreeTellAtOnceWhatWasSaved)
{
    SWindow window;
    CKestroDoc& document = window.pFrame->Application().m_document;
    CCommandRouter& router = window.pFrame->Router();
    const auto title = [&] { return FromQt(window.pFrame->windowTitle()); };
    document.SetModifiedFlag();
    window.desktop.Files("Kestrabel files", {window.folder.Path("Cup.rsp")});
    router.CarryOut(ECommand::SaveAs);
    EXPECT_THAT(title(), testing::HasSubstr("Cup"));
    EXPECT_FALSE(window.pFrame->isWindowModified());

    window.Import("anna.nmea", 30);
    router.CarryOut(ECommand::ShowTree);
    window.ClickNode("Track Files");
    window.desktop.Files("Kestrabel files", {window.folder.Path("Berta.gpx")});
    router.CarryOut(ECommand::SaveAs);
    EXPECT_THAT(title(), testing::StartsWith("Berta[*]"));
    window.ClickNode("Berta");

    document.m_selection.SetFocusPoint(0, 3.0);
    router.CarryOut(ECommand::DeleteTrackPoints);
    window.ClickNode("Berta*");
    // Saved on the way to another project, which is then not opened.
    window.desktop.Question("Berta.gpx has changed", "Yes").Question("The project", "No");
    window.desktop.Files("Kestrabel files", {});
    router.CarryOut(ECommand::Open);
    window.ClickNode("Berta");
}

TEST(MainFrame, NothingIsDroppedBesideAnOpenDialog)
{
    SWindow window;
    const QList<QUrl> urls = {QUrl::fromLocalFile(ToQt(window.folder.Write("anna.nmea", Sentences(30))))};
    QMimeData data;
    data.setUrls(urls);
    const auto drop = [&] {
        QDragEnterEvent enter({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(window.pFrame->windowHandle(), &enter);
        QDropEvent event({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(window.pFrame->windowHandle(), &event);
        return window.pFrame->Application().m_document.m_selection.GetSeriesPoints(0).GetCount();
    };
    QMessageBox box(window.pFrame.get());
    Drive([&] { return box.exec(); },
          [&](QDialog& dialog) {
              EXPECT_EQ(drop(), 0) << "its command may hold what the drop would replace";
              dialog.reject();
          });
    EXPECT_EQ(drop(), 30);
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
