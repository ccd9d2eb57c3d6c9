#include "present/AboutDialog.h"
#include "present/CommandDialog.h"
#include "present/DeleteSlowPointsDialog.h"
#include "present/EditDivisionDialog.h"
#include "present/ExtractTrackDialog.h"
#include "present/GridFieldsDialog.h"
#include "present/OptionsDialog.h"
#include "present/SelectCompetitorDialog.h"
#include "present/SelectDivisionDialog.h"
#include "present/SelectedPropertiesDialog.h"
#include "present/SelectWayPointDialog.h"
#include "present/SortTrackPointsDialog.h"
#include "present/SpeedDialog.h"
#include "present/TrackFilePropertiesDialog.h"
#include "present/WayPointDialog.h"
#include "support/TemporaryFolder.h"
#include "ui/DialogDriver.h"
#include "ui/dialogs/CheckList.h"
#include "ui/QtDesktop.h"
#include "ui/QtSettings.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>

#include <gmock/gmock.h>
#include <map>

namespace kestrabel::test {
namespace {

/// The desktop over a window of its own, an event, and a struct for every dialog.
struct SDialogs
{
    SDialogs()
    {
        window.show();
        for (const char* pName : {"10 sec", "Laps"}) {
            auto pDivision = std::make_unique<CDivision>();
            pDivision->m_strName = pName;
            event.m_divisions.Add(std::move(pDivision));
        }
        auto pPerson = std::make_unique<CPerson>();
        pPerson->m_strName = "Anna";
        pPerson->m_divisionNames = {"Laps"};
        event.m_persons.Add(std::move(pPerson));
        series.m_strName = "morning";
        series.m_strFileName = "/data/morning.gpx";

        editCompetitor = SEditCompetitorDialog::From(event, event.m_persons[0]);
        editDivision = SEditDivisionDialog::From(event, event.m_divisions[0]);
        extract = SExtractTrackDialog::From(series);
        options = SOptionsDialog::From(event);
        selectDivision = SSelectDivisionDialog::From(editCompetitor);
        selected = SSelectedPropertiesDialog::From(event, {});
        selectWayPoint = SSelectWayPointDialog::From(editDivision);
        slow = SDeleteSlowPointsDialog::From(event);
        speed = SSpeedDialog::From(event, DATE(45521.5));
        properties = STrackFilePropertiesDialog::From(event, series);
    }
    /// Every dialog by its title.
    std::map<std::string, std::function<bool()>> All()
    {
        const auto run = [this](auto& dialog) { return [this, &dialog] { return desktop.Run(dialog); }; };
        return {{"About Kestro", run(about)},
                {"Command Dialog", run(command)},
                {"Delete Slow Points Dialog", run(slow)},
                {"Edit Competitor Dialog", run(editCompetitor)},
                {"Edit Division Dialog", run(editDivision)},
                {"Extract Track Dialog", run(extract)},
                {"Select Grid Fields", run(gridFields)},
                {"Kestrabel Properties", run(options)},
                {"Select Competitor Dialog", run(selectCompetitor)},
                {"Select Division Dialog", run(selectDivision)},
                {"Selected Properties", run(selected)},
                {"Select Way Point Dialog", run(selectWayPoint)},
                {"Sort TrackPoints Dialog", run(sort)},
                {"Speed Dialog", run(speed)},
                {"Track File Properties", run(properties)},
                {"Check Point Dialog", run(checkPoint)},
                {"Way Point Dialog", run(wayPoint)}};
    }

    CTemporaryFolder folder;
    CQtSettings settings{ToQt(folder.Path("settings.ini"))};
    QWidget window;
    CQtDesktop desktop{window, settings};
    CEvent event;
    CSeries series;

    SAboutDialog about = SAboutDialog::From("Version 1.917");
    SCommandDialog command;
    SDeleteSlowPointsDialog slow;
    SEditCompetitorDialog editCompetitor;
    SEditDivisionDialog editDivision;
    SExtractTrackDialog extract;
    SGridFieldsDialog gridFields{{{"Latitude", true}, {"Longitude", false}}};
    SOptionsDialog options;
    SSelectCompetitorDialog selectCompetitor{{"Anna", "Ben"}, 0};
    SSelectDivisionDialog selectDivision;
    SSelectedPropertiesDialog selected;
    SSelectWayPointDialog selectWayPoint;
    SSortTrackPointsDialog sort{"morning"};
    SSpeedDialog speed;
    STrackFilePropertiesDialog properties;
    SWayPointDialog checkPoint = SWayPointDialog::From(CWayPoint(), true);
    SWayPointDialog wayPoint = SWayPointDialog::From(CWayPoint(), false);
};

TEST(Dialogs, OpenFitTheScreenAndEndByTheKeyboard)
{
    SDialogs dialogs;
    dialogs.editDivision.strName = "Alpha";
    for (const auto& [strTitle, open] : dialogs.All()) {
        SCOPED_TRACE(strTitle);
        const bool bEscaped = Drive(open, [&, strWanted = strTitle](QDialog& dialog) {
            EXPECT_EQ(FromQt(dialog.windowTitle()), strWanted);
            EXPECT_LE(dialog.width(), 1024);
            EXPECT_LE(dialog.height(), 700);
            QTest::keyClick(&dialog, Qt::Key_Escape);
        });
        EXPECT_FALSE(bEscaped);
        if (strTitle == "Speed Dialog") // which only closes
            continue;
        EXPECT_TRUE(Drive(open, [](QDialog& dialog) {
            QWidget* pFocus = dialog.focusWidget() == nullptr ? &dialog : dialog.focusWidget();
            QTest::keyClick(pFocus, Qt::Key_Return);
        }));
    }
}

TEST(Dialogs, EveryControlIsNamedAndReachedByTab)
{
    SDialogs dialogs;
    for (const auto& [strTitle, open] : dialogs.All()) {
        SCOPED_TRACE(strTitle);
        Drive(open, [](QDialog& dialog) {
            QWidgetList reached;
            for (int i = 0; i < 60; ++i) { // Tab also goes through the parts of a date
                reached.append(QApplication::focusWidget());
                QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            }
            QSet<QChar> letters;
            for (QWidget* pWidget : dialog.findChildren<QWidget*>()) {
                const QString strText = pWidget->property("text").toString();
                if (const qsizetype nMark = strText.indexOf('&');
                    nMark >= 0 && !qobject_cast<QLineEdit*>(pWidget)) {
                    EXPECT_FALSE(letters.contains(strText[nMark + 1].toLower())) << FromQt(strText);
                    letters.insert(strText[nMark + 1].toLower());
                }
                const bool bPart = pWidget->parentWidget() != &dialog &&
                                   pWidget->parentWidget()->focusPolicy() != Qt::NoFocus;
                if ((pWidget->focusPolicy() & Qt::TabFocus) == 0 || bPart || !pWidget->isVisible())
                    continue;
                EXPECT_FALSE(pWidget->accessibleName().isEmpty() && strText.isEmpty())
                    << pWidget->metaObject()->className();
                const bool bOtherRadio = qobject_cast<QRadioButton*>(pWidget) != nullptr;
                EXPECT_TRUE(reached.contains(pWidget) || bOtherRadio || !pWidget->isEnabled())
                    << FromQt(pWidget->accessibleName() + strText);
            }
            dialog.reject();
        });
    }
}

/// A value that a field does not take, what is said then, and one that it takes.
struct SRangeCase
{
    const char* pTitle;
    const char* pField;
    const char* pBad;
    const char* pMessage;
    const char* pGood;
    std::function<std::string(const SDialogs&)> value; ///< in the struct, after OK
};

TEST(Dialogs, ValuesOutOfRangeKeepThemOpenInTheField)
{
    const std::vector<SRangeCase> cases = {
        {"Way Point Dialog", "Longitude", "-200", "from -180 to 360", "200",
         [](const SDialogs& d) { return d.wayPoint.longitude.strText; }},
        {"Check Point Dialog", "Proximity", "1000.5", "from 0 to 1000", "1e3",
         [](const SDialogs& d) { return d.checkPoint.proximity.strText; }},
        {"Edit Division Dialog", "Metres", "1.5", "whole number from 0", "250",
         [](const SDialogs& d) { return d.editDivision.metres.strText; }},
        {"Edit Division Dialog", "Average", "100", "from 1 to 99", "5",
         [](const SDialogs& d) { return d.editDivision.averageRuns.strText; }},
        {"Edit Division Dialog", "Division Name", "laps", "Another division has the name laps.", "Mile",
         [](const SDialogs& d) { return d.editDivision.strName; }},
        {"Kestrabel Properties", "Zoom (1-3)", "4", "from 0.2 to 3", "2.5",
         [](const SDialogs& d) { return d.options.zoom.strText; }},
        {"Kestrabel Properties", "Speed Precision", "x", "whole number", "7",
         [](const SDialogs& d) { return d.options.speedPrecision.strText; }},
        {"Kestrabel Properties", "Stop Run Angle", "", "from 1 to 180", "45",
         [](const SDialogs& d) { return d.options.stopRunAngle.strText; }},
        {"Delete Slow Points Dialog", "Kestrabel will delete all points less than", "1001", "from 0 to 1000",
         "12.5", [](const SDialogs& d) { return d.slow.speed.strText; }},
        {"Extract Track Dialog", "Every", "-1", "whole number from 0", "3",
         [](const SDialogs& d) { return d.extract.every.strText; }},
        {"Track File Properties", "Name", "a/b", "slash", "a b",
         [](const SDialogs& d) { return d.properties.strName; }},
        {"Track File Properties", "Wind Direction", "north", "please enter a number", "270",
         [](const SDialogs& d) { return d.properties.windDirection.strText; }},
    };
    for (const SRangeCase& test : cases) {
        SCOPED_TRACE(std::string(test.pTitle) + ": " + test.pField);
        SDialogs dialogs;
        const bool bAccepted = Drive(dialogs.All().at(test.pTitle), [&](QDialog& dialog) {
            QWidget* pField = Control(dialog, test.pField);
            Type(pField, test.pBad);
            const std::string strMessage = MessageAfter([&] { QTest::keyClick(pField, Qt::Key_Return); });
            EXPECT_THAT(strMessage, testing::HasSubstr(test.pMessage));
            EXPECT_TRUE(dialog.isVisible());
            EXPECT_TRUE(pField->hasFocus() || pField->isAncestorOf(QApplication::focusWidget()));
            QTest::keyClicks(QApplication::focusWidget(), test.pGood); // what was there is selected
            EXPECT_EQ(MessageAfter([&] { QTest::keyClick(pField, Qt::Key_Return); }), "");
        });
        EXPECT_TRUE(bAccepted);
        EXPECT_EQ(test.value(dialogs), test.pGood);
    }
}

TEST(Dialogs, TheKindOfADivisionEnablesItsFields)
{
    SDialogs dialogs;
    Drive([&] { return dialogs.desktop.Run(dialogs.editDivision); },
          [](QDialog& dialog) {
              auto* pAccumulation = Control<QCheckBox>(dialog, "Accumulation Method");
              auto* pAltitude = Control<QCheckBox>(dialog, "Use Altitude");
              EXPECT_TRUE(Control(dialog, "Metres")->isEnabled());
              QTest::mouseClick(pAltitude, Qt::LeftButton);
              EXPECT_TRUE(pAltitude->isChecked());
              QTest::keyClick(Control(dialog, "Alpha Racing"), Qt::Key_Space);
              EXPECT_FALSE(pAltitude->isChecked() || pAltitude->isEnabled() || pAccumulation->isEnabled());
              EXPECT_TRUE(pAccumulation->isChecked());
              EXPECT_TRUE(Control(dialog, "Proximity")->isEnabled());
              for (const QLabel* pLabel : dialog.findChildren<QLabel*>())
                  EXPECT_TRUE(pLabel->buddy() == nullptr ||
                              pLabel->isEnabled() == pLabel->buddy()->isEnabled());
              EXPECT_FALSE(Control(dialog, "Add Waypoints...")->isEnabled());
              QTest::keyClick(Control(dialog, "Lap Racing"), Qt::Key_Space);
              EXPECT_TRUE(Control(dialog, "Add Waypoints...")->isEnabled());
              QTest::keyClick(Control(dialog, "Doppler"), Qt::Key_Space);
              dialog.accept();
          });
    EXPECT_EQ(dialogs.editDivision.nKind, DivisionKind::LapRacing);
    EXPECT_EQ(dialogs.editDivision.nCalcUsing, CalcUsing::Doppler);
}

TEST(Dialogs, WaypointsAreAddedEditedAndDeletedInDialogsOfTheirOwn)
{
    SDialogs dialogs;
    dialogs.editDivision.SetKind(DivisionKind::LapRacing);
    const auto press = [](QDialog& dialog, const char* pButton, const std::function<void(QDialog&)>& act) {
        Drive(
            [&] {
                QTest::mouseClick(Control(dialog, pButton), Qt::LeftButton);
                return true;
            },
            act);
    };
    const auto enter = [](const char* pName) {
        return [pName](QDialog& dialog) {
            Type(Control(dialog, "Name"), pName);
            dialog.accept();
        };
    };
    Drive([&] { return dialogs.desktop.Run(dialogs.editDivision); },
          [&](QDialog& division) {
              press(division, "Add Waypoints...", [&](QDialog& list) {
                  EXPECT_FALSE(Control(list, "Edit...")->isEnabled());
                  press(list, "Add...", enter("Start"));
                  press(list, "Add...", enter("Buoy"));
                  press(list, "Add...", [](QDialog& dialog) { dialog.reject(); });
                  auto* pList = list.findChild<CCheckList*>();
                  ASSERT_EQ(pList->topLevelItemCount(), 2);
                  QTest::keyClick(pList, Qt::Key_Up);
                  press(list, "Edit...", enter("Gate"));
                  EXPECT_EQ(pList->topLevelItem(0)->text(0), "Gate");
                  QTest::keyClick(pList, Qt::Key_Down);
                  QTest::mouseClick(Control(list, "Delete"), Qt::LeftButton);
                  EXPECT_EQ(pList->topLevelItemCount(), 1);
                  list.accept();
              });
              division.accept();
          });
    ASSERT_EQ(dialogs.editDivision.wayPoints.GetCount(), 1);
    EXPECT_EQ(dialogs.editDivision.wayPoints[0].m_strName, "Gate");
}

TEST(Dialogs, RowsOfAListAreTurnedByClicksAndSpace)
{
    SDialogs dialogs;
    const bool bAccepted =
        Drive([&] { return dialogs.desktop.Run(dialogs.editCompetitor); },
              [](QDialog& d) {
                  EXPECT_EQ(d.findChild<QListWidget*>()->count(), 1);
                  Drive(
                      [&] {
                          QTest::mouseClick(Control(d, "Edit..."), Qt::LeftButton);
                          return true;
                      },
                      [](QDialog& choice) {
                          auto* pList = choice.findChild<CCheckList*>();
                          const auto click = [&](int nRow) {
                              const QRect row = pList->visualItemRect(pList->topLevelItem(nRow));
                              QTest::mouseClick(pList->viewport(), Qt::LeftButton, {}, row.center());
                              return pList->topLevelItem(nRow)->checkState(0) == Qt::Checked;
                          };
                          EXPECT_TRUE(click(0)) << "10 sec";
                          EXPECT_FALSE(click(1)) << "Laps";
                          QTest::keyClick(pList, Qt::Key_Up);
                          QTest::keyClick(pList, Qt::Key_Space);
                          EXPECT_FALSE(pList->topLevelItem(0)->checkState(0) == Qt::Checked);
                          QTest::mouseDClick(pList->viewport(), Qt::LeftButton, {},
                                             pList->visualItemRect(pList->topLevelItem(0)).center());
                          EXPECT_FALSE(pList->topLevelItem(0)->checkState(0) == Qt::Checked)
                              << "by either click";
                          click(0);
                          choice.accept();
                      });
                  EXPECT_EQ(d.findChild<QListWidget*>()->item(0)->text(), "10 sec");
                  d.accept();
              });
    EXPECT_TRUE(bAccepted);
    EXPECT_THAT(dialogs.editCompetitor.divisionNames, testing::ElementsAre("10 sec"));
}

TEST(Dialogs, ChoicesChangeWhatStandsBesideThem)
{
    SDialogs dialogs;
    Drive([&] { return dialogs.desktop.Run(dialogs.options); },
          [](QDialog& dialog) {
              auto* pUnits = Control<QComboBox>(dialog, "Speed Units");
              pUnits->setFocus();
              QTest::keyClicks(pUnits, "k"); // "kmh"
              EXPECT_EQ(Control<QLineEdit>(dialog, "Stop Run Speed")->text(), "18.52");
              QTest::mouseClick(Control(dialog, "Capture focus on mouse move"), Qt::LeftButton, {},
                                QPoint(5, 5));
              dialog.accept();
          });
    EXPECT_EQ(dialogs.options.strUnit, "kmh");

    Drive([&] { return dialogs.desktop.Run(dialogs.extract); },
          [](QDialog& dialog) {
              QTest::keyClick(Control(dialog, "By Minimum Speed"), Qt::Key_Space);
              EXPECT_FALSE(Control(dialog, "Every")->isEnabled());
              EXPECT_TRUE(Control(dialog, "Faster than")->isEnabled() &&
                          Control(dialog, "Unit")->isEnabled());
              dialog.accept();
          });
    EXPECT_EQ(dialogs.extract.mode, EExtractBy::MinimumSpeed);

    dialogs.selectCompetitor.nSelected = -1;
    Drive([&] { return dialogs.desktop.Run(dialogs.selectCompetitor); },
          [](QDialog& dialog) {
              EXPECT_EQ(MessageAfter([&] { dialog.accept(); }), "Invalid competitor selected");
              QTest::keyClicks(Control(dialog, "Competitor"), "B");
              dialog.accept();
          });
    EXPECT_EQ(dialogs.selectCompetitor.nSelected, 1);
}

TEST(Dialogs, SpeedIsCalculatedWhileItIsOpen)
{
    SDialogs dialogs;
    Drive([&] { return dialogs.desktop.Run(dialogs.speed); },
          [&](QDialog& dialog) {
              const auto calculate = [&] {
                  return MessageAfter(
                      [&] { QTest::mouseClick(Control(dialog, "Calculate Now"), Qt::LeftButton); });
              };
              auto* pLatitude = Control<QLineEdit>(dialog, "Latitude");
              Type(pLatitude, "91");
              EXPECT_THAT(calculate(), testing::HasSubstr("from -90 to 90"));
              EXPECT_TRUE(pLatitude->hasFocus());
              Type(pLatitude, "-37.6528211388889");
              Type(Control(dialog, "Longitude"), "143.926495527778");
              Control<QDateTimeEdit>(dialog, "Time", 1)
                  ->setDateTime(QDateTime({2024, 8, 17}, {13, 0}, Qt::UTC));
              EXPECT_EQ(calculate(), "");
              EXPECT_EQ(Control<QLabel>(dialog, "Distance")->text(), "0") << "both ends are one place";
              Type(pLatitude, "-36.6528211388889");
              EXPECT_EQ(calculate(), "");
              const double dDistance = Control<QLabel>(dialog, "Distance")->text().toDouble();
              EXPECT_GT(dDistance, 110.0);
              EXPECT_NEAR(Control<QLabel>(dialog, "Speed")->text().toDouble(), dDistance, 0.001)
                  << "in one hour";
              dialog.reject();
          });
    EXPECT_NEAR(dialogs.speed.end.time.m_dDays, 45521.0 + 13.0 / 24.0, 0.0005 / 86400.0);
}

TEST(Dialogs, TextsOfACommandCountHoweverItIsClosed)
{
    SDialogs dialogs;
    EXPECT_FALSE(Drive([&] { return dialogs.desktop.Run(dialogs.command); },
                       [](QDialog& dialog) {
                           Type(Control(dialog, "Command line string to run"), "convert \"@FileOut\"");
                           dialog.reject();
                       }));
    EXPECT_EQ(dialogs.command.strCommand, "convert \"@FileOut\"");
}

TEST(Dialogs, LongMessagesScroll)
{
    SDialogs dialogs;
    std::string strLong;
    for (int i = 0; i < 500; ++i)
        strLong += "<b>line</b> " + std::to_string(i) + '\n';
    Drive(
        [&] {
            dialogs.desktop.ShowMessage(strLong);
            return true;
        },
        [&](QDialog& dialog) {
            EXPECT_EQ(FromQt(dialog.findChild<QPlainTextEdit*>()->toPlainText()), strLong);
            EXPECT_LE(dialog.height(), 700);
            dialog.accept();
        });
    EXPECT_EQ(MessageAfter([&] { dialogs.desktop.ShowMessage("<b>short</b>"); }), "<b>short</b>");
}

} // namespace
} // namespace kestrabel::test
