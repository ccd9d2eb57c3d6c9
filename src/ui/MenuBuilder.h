#pragma once

#include "app/CommandRouter.h"

#include <functional>
#include <span>
#include <string>
#include <vector>

class QMenu;
class QPoint;
class QWidget;

namespace kestrabel {

/// Tells where a menu's command was chosen, when it is chosen.
using CPlaceOf = std::function<SCommandPlace()>;

/// Fills a menu from its table. Each time the menu is shown, texts, check marks and disabled items are
/// brought up to date. The router outlives the menu. What keys do is not the menu's: see `Shortcuts`.
void FillMenu(QMenu& menu, std::span<const SMenuItem> items, CCommandRouter& router, const CPlaceOf& placeOf);

/// Has the recent files stand in a menu where its table has their place, newest first.
void ShowRecentFiles(QMenu& menu, std::span<const SMenuItem> items,
                     const std::function<std::vector<std::string>()>& recentPaths,
                     const std::function<void(const std::string& strPath)>& open);

/// Shows a context menu at the mouse and carries out what is chosen.
void ShowContextMenu(QWidget& pane, EContextMenu menu, CCommandRouter& router, const SCommandPlace& place,
                     const QPoint& globalPosition);

} // namespace kestrabel
