#pragma once

#include "support/TemporaryFolder.h"
#include "ui/MainFrame.h"
#include "ui/panes/GridView.h"
#include "ui/panes/MainTreeView.h"
#include "ui/QtSettings.h"
#include "ui/QtText.h"

#include <QTest>

#include <gtest/gtest.h>
#include <memory>
#include <stdexcept>

namespace kestrabel::test {

/// NMEA sentences of one fix a second, sailing east at 14 knots.
inline std::string Sentences(int nFixes)
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

/// The window with its own folder and settings, and a desktop that a test answers for.
template <class TDesktop>
struct SWindowWith
{
    CTemporaryFolder folder;
    TDesktop desktop;
    std::unique_ptr<CQtSettings> pSettings = std::make_unique<CQtSettings>(ToQt(folder.Path("settings.ini")));
    std::unique_ptr<CMainFrame> pFrame;

    SWindowWith() { Open(); }
    void Open()
    {
        pFrame = std::make_unique<CMainFrame>(*pSettings, folder.Path(""), &desktop);
        pFrame->show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(pFrame.get()));
        EXPECT_TRUE(pFrame->Start({}));
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

} // namespace kestrabel::test
