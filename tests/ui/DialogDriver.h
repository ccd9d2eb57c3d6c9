#pragma once

#include "ui/QtText.h"

#include <QApplication>
#include <QDialog>
#include <QMessageBox>
#include <QTest>
#include <QTimer>

#include <functional>
#include <gtest/gtest.h>
#include <string>

namespace kestrabel::test {

/// Runs `open`, which shows a modal dialog, and `act` on that dialog when it is there. `act` must end it; a
/// dialog that is still open then is cancelled, and the test fails.
template <class TOpen>
auto Drive(TOpen&& open, const std::function<void(QDialog&)>& act)
{
    bool bDriven = false;
    QTimer::singleShot(0, [&] {
        auto* pDialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(pDialog, nullptr);
        bDriven = QTest::qWaitForWindowActive(pDialog);
        act(*pDialog);
        EXPECT_FALSE(pDialog->isVisible()) << "it should be closed: " << FromQt(pDialog->windowTitle());
        if (pDialog->isVisible())
            pDialog->reject();
    });
    const auto result = open();
    EXPECT_TRUE(bDriven);
    return result;
}

/// Does what brings up a message box, closes it, and returns its text; empty: there was none.
inline std::string MessageAfter(const std::function<void()>& work)
{
    std::string strText;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] {
        if (auto* pBox = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
            strText = FromQt(pBox->text());
            pBox->accept();
        }
    });
    timer.start(1);
    work();
    QApplication::processEvents(); // the dialog below it gets the keyboard back
    return strText;
}

/// The control of a dialog with this spoken name.
template <class TWidget = QWidget>
TWidget* Control(const QDialog& dialog, const QString& strName, int nWhich = 0)
{
    for (TWidget* pWidget : dialog.findChildren<TWidget*>()) {
        if (pWidget->accessibleName() == strName && nWhich-- == 0)
            return pWidget;
    }
    ADD_FAILURE() << "no control " << FromQt(strName);
    return nullptr;
}

/// Replaces the text of a field by the keyboard.
inline void Type(QWidget* pField, const QString& strText)
{
    ASSERT_NE(pField, nullptr);
    QTest::keyClick(pField, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(pField, Qt::Key_Delete);
    QTest::keyClicks(pField, strText);
}

} // namespace kestrabel::test
