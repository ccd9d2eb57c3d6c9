#include "ui/MenuBuilder.h"

#include "ui/QtText.h"

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QPoint>

namespace kestrabel {

namespace {

constexpr const char* IsRecent = "recent";

void BringUpToDate(QAction& action, const SMenuItem& item, const CCommandRouter& router,
                   const SCommandPlace& place)
{
    const SCommandState state = router.State(item.command, place);
    const std::string strText = router.TextOf(item);
    const std::string_view strShortcut = ShortcutOf(strText);
    QString strShown = ToQt(LabelOf(strText));
    if (!strShortcut.empty())
        strShown += '\t' + ToQt(strShortcut);
    action.setText(strShown);
    action.setEnabled(state.bEnabled);
    action.setCheckable(state.bChecked);
    action.setChecked(state.bChecked);
}

} // namespace

void FillMenu(QMenu& menu, std::span<const SMenuItem> items, CCommandRouter& router, const CPlaceOf& placeOf)
{
    for (const SMenuItem& item : items) {
        if (item.command == ECommand::None) {
            menu.addSeparator();
            continue;
        }
        QAction* pAction = menu.addAction(QString());
        pAction->setStatusTip(ToQt(PromptOf(item.command)));
        BringUpToDate(*pAction, item, router, placeOf());
        QObject::connect(&menu, &QMenu::aboutToShow, pAction, [pAction, item, &router, placeOf] {
            BringUpToDate(*pAction, item, router, placeOf());
        });
        QObject::connect(pAction, &QAction::triggered, &menu, [item, &router, placeOf] {
            SCommandPlace place = placeOf();
            place.bCtrlHeld = QApplication::keyboardModifiers().testFlag(Qt::ControlModifier);
            router.CarryOut(item.command, place);
        });
    }
}

void ShowRecentFiles(QMenu& menu, std::span<const SMenuItem> items,
                     const std::function<std::vector<std::string>()>& recentPaths,
                     const std::function<void(const std::string& strPath)>& open)
{
    const auto item = std::ranges::find(items, ECommand::RecentFiles, &SMenuItem::command);
    if (item == items.end())
        return;
    // The item itself stays, disabled, as long as there are none.
    QAction* pPlace = menu.actions().at(item - items.begin());
    QObject::connect(&menu, &QMenu::aboutToShow, pPlace, [&menu, pPlace, recentPaths, open] {
        for (QAction* pAction : menu.actions()) {
            if (pAction->property(IsRecent).toBool())
                delete pAction;
        }
        int nNumber = 0;
        for (const std::string& strPath : recentPaths()) {
            QString strText = ToQt(strPath);
            strText.replace('&', "&&"); // no mnemonic in the middle of a name
            auto* pAction = new QAction(QString("&%1 %2").arg(++nNumber).arg(strText), &menu);
            pAction->setProperty(IsRecent, true);
            QObject::connect(pAction, &QAction::triggered, &menu, [open, strPath] { open(strPath); });
            menu.insertAction(pPlace, pAction);
        }
        pPlace->setVisible(nNumber == 0);
    });
}

void ShowContextMenu(QWidget& pane, EContextMenu menu, CCommandRouter& router, const SCommandPlace& place,
                     const QPoint& globalPosition)
{
    QMenu popup(&pane);
    FillMenu(popup, ContextMenu(menu), router, [&] { return place; });
    popup.exec(globalPosition);
}

} // namespace kestrabel
