#pragma once

#include "present/Command.h"

#include <span>
#include <string_view>
#include <vector>

namespace kestrabel {

// The menus and the toolbar as constant tables; a window only walks them.

/// An item of a menu; a separator has no text and no command. "&" stands before the mnemonic, a tab before
/// the shortcut's label. The label is shown; what a key does is each pane's own matter.
struct SMenuItem
{
    std::string_view strText;
    ECommand command = ECommand::None;
};

struct SMenu
{
    std::string_view strTitle;
    std::span<const SMenuItem> items;
};

std::span<const SMenu> MainMenu();

/// The menus of a right click.
enum class EContextMenu
{
    TrackFilesNode, ///< the competitor
    TrackFileNode,
    DivisionsNode,
    DivisionNode,
    ResultGrid,
    PointGrid,
    Graph,
    Map,
};

std::span<const SMenuItem> ContextMenu(EContextMenu menu);

/// The buttons of the toolbar, from left to right; a separator is ECommand::None. The number of a button that
/// is none is that of its picture.
std::span<const ECommand> Toolbar();

/// The text without the shortcut's label.
std::string_view LabelOf(std::string_view strMenuText);
/// The shortcut's label, such as "Ctrl+O"; empty when there is none.
std::string_view ShortcutOf(std::string_view strMenuText);

struct SShortcut
{
    std::string_view strKey; ///< "Ctrl+Alt+D"
    ECommand command;
};

/// The keys that act wherever the focus is: those that the main menu shows. Of two items with the same one
/// the first has it.
std::vector<SShortcut> Shortcuts();

/// What a command does, in a few words: for the status bar and as the tip of a toolbar button. Empty for a
/// separator.
std::string_view PromptOf(ECommand command);

} // namespace kestrabel
