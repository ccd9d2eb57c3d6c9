#include "present/Menus.h"

#include <algorithm>
#include <array>

namespace kestrabel {

namespace {

using enum ECommand;

constexpr SMenuItem Separator;

constexpr SMenuItem FileMenu[] = {
    {"&Open...\tCtrl+O", Open},
    {"&Save\tCtrl+S", Save},
    {"Save &As...\tCtrl+A", SaveAs},
    Separator,
    {"Import...", ImportTrackFiles},
    {"Export Track Points... \tCtrl+T", ExportTrackPoints},
    {"Export Results...", ExportResults},
    {"Close All Track Files", CloseAllTrackFiles},
    Separator,
    {"&Properties...", TrackFileProperties},
    Separator,
    {"&Print...\tCtrl+P", Print},
    {"Print Pre&view", PrintPreview},
    {"P&rint Setup...", PrintSetup},
    Separator,
    {"Recent File", RecentFiles},
    Separator,
    {"E&xit", Exit},
};

constexpr SMenuItem EditMenu[] = {
    {"&Undo\tCtrl+Z", Undo},
    {"&Redo\tCtrl+Shift+Z", Redo},
    Separator,
    {"Delete Invalid\tCtrl+D", DeleteInvalid},
    {"Delete Slow Points...", DeleteSlowPoints},
    {"Sort Track Points", SortTrackPoints},
    {"Split File", SplitFile},
    {"Extract Track...", ExtractTrack},
    Separator,
    {"Add Division...", AddDivision},
    {"Add Competitor...", AddCompetitor},
    {"Delete Competitor...", DeleteCompetitor},
};

constexpr SMenuItem ViewMenu[] = {
    {"Show Neighborhood", ShowNeighborhood},
    {"Show Calculated Results", ShowCalculatedResults},
    {"Show Division Results", ShowDivisionResults},
    Separator,
    {"&Toolbar", ShowToolbar},
    {"&Status Bar", ShowStatusBar},
    {"&Divisions\t Cntrl+Alt+D", ShowTree},
    Separator,
    {"View in Notepad.exe", ViewInNotepad},
};

// The names of the commands are the user's; these stand where none was given.
constexpr SMenuItem ToolsMenu[] = {
    {"Recalculate", Recalculate},
    Separator,
    {"Command 1\t(+Ctrl)", ExternalCommand1},
    {"Command 2\t(+Ctrl)", ExternalCommand2},
    {"Command 3\t(+Ctrl)", ExternalCommand3},
    {"Command 4\t(+Ctrl)", ExternalCommand4},
    {"Command 5\t(+Ctrl)", ExternalCommand5},
    Separator,
    {"Calc Speed...", CalculateSpeed},
    {"Options...\tCtrl+O", Options},
};

constexpr SMenuItem HelpMenu[] = {
    {"&About Kestro...", About},
};

constexpr SMenu Menus[] = {
    {"&File", FileMenu}, {"&Edit", EditMenu}, {"&View", ViewMenu}, {"Tools", ToolsMenu}, {"&Help", HelpMenu},
};

constexpr SMenuItem TrackFilesNodeMenu[] = {
    {"&Edit", EditNode},
    {"Import Trackpoints", ImportTrackFiles},
    {"Read from GPS", ReadFromGps},
    {"Export Results", ExportResults},
    {"Create Combined File", CreateCombinedFile},
    {"Print...", Print},
    {"Print Preview", PrintPreview},
};

constexpr SMenuItem TrackFileNodeMenu[] = {
    {"&Properties...", TrackFileProperties},
    {"&Recalculate", Recalculate},
    {"Delete Spikes...\tCtrl+D", DeleteInvalid},
    {"Save\tCtrl+S", SaveTrackFile},
    {"Reload\tCtrl+R", Reload},
    {"Export Results", ExportResults},
    {"Export Div Results", ExportResultsOfDivisions},
    {"Export Track Points...", ExportTrackPoints},
    {"Close", CloseTrackFile},
    {"View in Notepad.exe", ViewInNotepad},
};

constexpr SMenuItem DivisionsNodeMenu[] = {
    {"&New", NewNode},
    {"Export Results", ExportResults},
    {"Print...", Print},
    {"Print Preview", PrintPreview},
};

constexpr SMenuItem DivisionNodeMenu[] = {
    {"&Edit", EditNode},
    {"Delete", DeleteDivision},
    {"Move Up", MoveUp},
    {"Export Results", ExportResults},
};

constexpr SMenuItem ResultGridMenu[] = {
    {"Grid &Fields...", Fields},
    {"Print...", Print},
    {"Print Preview", PrintPreview},
};

constexpr SMenuItem PointGridMenu[] = {
    {"Mark as &Valid", MarkValid},
    {"Mark as &Invalid", MarkInvalid},
    {"Delete Trackpoints", DeleteTrackPoints},
    {"Export Trackpoints...", ExportSelectedPoints},
    {"Split Track File...", SplitFile},
    {"Add Waypoint...", AddWaypoint},
    {"Add CheckPoint...", AddCheckPoint},
    {"Selected Properties...", SelectedProperties},
    {"Grid &Fields...", Fields},
    {"Print...", Print},
    {"Print Preview", PrintPreview},
};

constexpr SMenuItem GraphMenu[] = {
    {"Mark as &Valid", MarkValid},
    {"Mark as &Invalid", MarkInvalid},
    {"Delete Trackpoints", DeleteTrackPoints},
    {"Split Track File", SplitFile},
    {"Add Waypoint...", AddWaypoint},
    {"Add CheckPoint...", AddCheckPoint},
    {"Graph &Fields...", Fields},
    {"Zoom In", ZoomIn},
    {"Zoom Out", ZoomOut},
    {"Zoom All", ZoomAll},
    {"Print...", Print},
    {"Print Preview", PrintPreview},
};

constexpr SMenuItem MapMenu[] = {
    {"Mark as &Valid", MarkValid},
    {"Mark as &Invalid", MarkInvalid},
    {"Delete Trackpoints", DeleteTrackPoints},
    {"Split Track File...", SplitFile},
    {"Add Waypoint...", AddWaypoint},
    {"Add CheckPoint...", AddCheckPoint},
    {"Graph &Fields...", Fields},
    {"Zoom In", ZoomIn},
    {"Zoom Out", ZoomOut},
    {"Zoom All", ZoomAll},
    {"Show Neighborhood", ShowNeighborhood},
    {"Print...", Print},
    {"Print Preview", PrintPreview},
};

/// The scissors delete what is invalid.
constexpr ECommand Buttons[] = {
    New,  Open,  Save, None,     DeleteInvalid,   Copy, Paste,
    None, Print, None, ShowTree, ShowTrackPoints, None, About,
};

struct SPrompt
{
    ECommand command;
    std::string_view strText;
};

constexpr SPrompt Prompts[] = {
    {New, "Start a new project"},
    {Open, "Open a project or track files"},
    {Save, "Save the current track file or project"},
    {SaveAs, "Save the current track file or the project under a new name"},
    {RecentFiles, "Open a file that was open lately"},
    {Exit, "End the program; asks to save what has changed"},
    {Print, "Print the track-point grid"},
    {PrintPreview, "Show the track-point grid as it will be printed"},
    {PrintSetup, "Choose the printer and its paper"},
    {ImportTrackFiles, "Add track files to a competitor"},
    {ExportTrackPoints, "Write the points of the current track file to another file"},
    {ExportResults, "Write the results to a text file"},
    {ExportResultsOfDivisions, "Write the track file's best result of each division to a text file"},
    {TrackFileProperties, "Show and change the properties of a track file"},
    {SaveTrackFile, "Save the track file in its own format"},
    {Reload, "Read the track file from the disk again"},
    {CloseTrackFile, "Take the track file out of the event; it stays on the disk"},
    {CloseAllTrackFiles, "Take all track files of the competitor out of the event"},
    {ReadFromGps, "Not available"},
    {CreateCombinedFile, "Merge all track files of the competitor into a new one"},
    {ViewInNotepad, "Show the track file in a text editor"},
    {Undo, "Undo the last change"},
    {Redo, "Do again what was undone"},
    {Copy, "Copy the selected rows of a grid"},
    {Paste, "Not available"},
    {DeleteInvalid, "Delet the invalid points from the selected track file"},
    {DeleteSlowPoints, "Delete slow points from the selected file(s)"},
    {SortTrackPoints, "Sort the points by date and time"},
    {SplitFile, "Split the current file at the focus point"},
    {ExtractTrack, "Extract a new track from the current track"},
    {MarkValid, "Clear the marks of the points"},
    {MarkInvalid, "Mark the points as invalid"},
    {DeleteTrackPoints, "Delete the points"},
    {ExportSelectedPoints, "Write the selected points to a file"},
    {SelectedProperties, "Show the statistics of the selected points"},
    {AddWaypoint, "Add a waypoint to the event"},
    {AddCheckPoint, "Add a checkpoint to the track file"},
    {NewNode, "Add a division"},
    {EditNode, "Change what is selected"},
    {AddDivision, "Add a division"},
    {DeleteDivision, "Delete the division and its results"},
    {MoveUp, "Move the division before the one above it"},
    {AddCompetitor, "Add a competitor"},
    {EditCompetitor, "Change the competitor"},
    {DeleteCompetitor, "Remove the competitor with all results"},
    {ShowToolbar, "Show or hide the toolbar"},
    {ShowStatusBar, "Show or hide the status bar"},
    {ShowTree, "Show or hide the project tree"},
    {ShowTrackPoints, "Show or hide the track-point grid"},
    {ShowNeighborhood, "Show what lies around the track on the map"},
    {ShowCalculatedResults, "List the results of what is selected"},
    {ShowDivisionResults, "Not available"},
    {Fields, "Choose what is shown"},
    {ZoomIn, "Show less, larger"},
    {ZoomOut, "Show more, smaller"},
    {ZoomAll, "Show everything"},
    {Recalculate, "Calculate points and results anew"},
    {ExternalCommand1, "Run the first external command; with Ctrl, change it"},
    {ExternalCommand2, "Run the second external command; with Ctrl, change it"},
    {ExternalCommand3, "Run the third external command; with Ctrl, change it"},
    {ExternalCommand4, "Run the fourth external command; with Ctrl, change it"},
    {ExternalCommand5, "Run the fifth external command; with Ctrl, change it"},
    {CalculateSpeed, "Calculate the speed between two positions"},
    {Options, "Change the settings of calculation and display"},
    {About, "Show the version of the program"},
};

} // namespace

std::span<const SMenu> MainMenu()
{
    return Menus;
}

std::span<const SMenuItem> ContextMenu(EContextMenu menu)
{
    switch (menu) {
    case EContextMenu::TrackFilesNode: return TrackFilesNodeMenu;
    case EContextMenu::TrackFileNode: return TrackFileNodeMenu;
    case EContextMenu::DivisionsNode: return DivisionsNodeMenu;
    case EContextMenu::DivisionNode: return DivisionNodeMenu;
    case EContextMenu::ResultGrid: return ResultGridMenu;
    case EContextMenu::PointGrid: return PointGridMenu;
    case EContextMenu::Graph: return GraphMenu;
    case EContextMenu::Map: break;
    }
    return MapMenu;
}

std::span<const ECommand> Toolbar()
{
    return Buttons;
}

std::string_view LabelOf(std::string_view strMenuText)
{
    const std::string_view strLabel = strMenuText.substr(0, strMenuText.find('\t'));
    return strLabel.substr(0, strLabel.find_last_not_of(' ') + 1);
}

std::string_view ShortcutOf(std::string_view strMenuText)
{
    const std::size_t nBegin = strMenuText.find_first_not_of("\t ", strMenuText.find('\t'));
    return nBegin == std::string_view::npos ? std::string_view() : strMenuText.substr(nBegin);
}

std::vector<SShortcut> Shortcuts()
{
    std::vector<SShortcut> shortcuts;
    for (const SMenu& menu : Menus) {
        for (const SMenuItem& item : menu.items) {
            std::string_view strKey = ShortcutOf(item.strText);
            if (strKey == "Cntrl+Alt+D") // as the menu spells it
                strKey = "Ctrl+Alt+D";
            const bool bKey = strKey.starts_with("Ctrl+");
            if (bKey && std::ranges::find(shortcuts, strKey, &SShortcut::strKey) == shortcuts.end())
                shortcuts.push_back({strKey, item.command});
        }
    }
    return shortcuts;
}

std::string_view PromptOf(ECommand command)
{
    const auto pFound = std::ranges::find(Prompts, command, &SPrompt::command);
    return pFound == std::end(Prompts) ? std::string_view() : pFound->strText;
}

} // namespace kestrabel
