#include "app/CommandRouter.h"

#include "app/AppWorld.h"
#include "app/NodeCommands.h"
#include "app/RecentFiles.h"
#include "app/TrackFileCommands.h"
#include "present/AboutDialog.h"
#include "present/EditCompetitorDialog.h"
#include "present/EditDivisionDialog.h"
#include "present/OptionsDialog.h"
#include "present/SelectedPropertiesDialog.h"
#include "present/SpeedDialog.h"
#include "present/WayPointDialog.h"

#include <algorithm>
#include <filesystem>

namespace kestrabel::test {
namespace {

SCommandPlace OnNode(int nKind, int nIndex)
{
    return {.pane = EPane::Tree, .node = {nKind, nIndex}};
}

/// Two track files of 20 points, the first one shown, and the six divisions of a new project.
struct SRoutedWorld : SAppWorld
{
    CCommandRouter router{application};

    SRoutedWorld()
    {
        EXPECT_TRUE(document.OnNewDocument());
        EXPECT_TRUE(application.OpenFiles({WriteTrack("one.nmea", 20), WriteTrack("two.nmea", 20, 0.007)}));
        document.SetModifiedFlag(false);
    }
    void Do(ECommand command, const SCommandPlace& place = {})
    {
        EXPECT_TRUE(router.CarryOut(command, place)) << static_cast<int>(command);
    }
    /// The points of each file, and the marked ones among them.
    std::string Counts()
    {
        std::string strCounts;
        for (const CSeries* p : Person().m_series) {
            const auto nMarked = std::ranges::count_if(p->m_points, [](const CTrackPoint* pPoint) {
                return (pPoint->m_nInvalidFlags & InvalidFlag::User) != 0;
            });
            strCounts += p->m_strName + " " + std::to_string(p->m_points.GetCount()) +
                         (nMarked > 0 ? "-" + std::to_string(nMarked) : "") + ";";
        }
        return strCounts;
    }
    std::string Divisions()
    {
        std::string strNames;
        for (const CDivision* p : event.m_divisions)
            strNames += p->m_strName + ";";
        return strNames;
    }
};

/// Cancels whatever is asked.
class CUnwillingDesktop : public CScriptedDesktop
{
public:
    void ShowMessage(std::string_view) override {}
    bool AskOkCancel(std::string_view) override { return false; }
    bool AskYesNo(std::string_view) override { return false; }
    bool AskYesNo(std::string_view, std::string_view, bool&) override { return false; }
    EAnswer AskYesNoCancel(std::string_view) override { return EAnswer::Cancel; }
    std::vector<std::string> ChooseFilesToOpen(const SFileChoice&) override { return {}; }
    std::string ChooseFileToSave(const SFileChoice&) override { return {}; }
    void RefuseDialogs()
    {
        Refuse<SAboutDialog, SCommandDialog, SDeleteSlowPointsDialog, SEditCompetitorDialog,
               SEditDivisionDialog, SExtractTrackDialog, SOptionsDialog, SSelectedPropertiesDialog,
               SSortTrackPointsDialog, SSpeedDialog, STrackFilePropertiesDialog, SWayPointDialog>();
    }

private:
    template <class... TDialogs>
    void Refuse()
    {
        (Dialog<TDialogs>([](TDialogs&) { return false; }), ...);
    }
};

TEST(CommandRouter, TheFirstItemThatShowsAKeyHasIt)
{
    std::string strKeys;
    for (const SShortcut& shortcut : Shortcuts())
        strKeys += std::string(shortcut.strKey) + " " + std::string(PromptOf(shortcut.command)) + "\n";
    EXPECT_EQ(strKeys, "Ctrl+O Open a project or track files\n"
                       "Ctrl+S Save the current track file or project\n"
                       "Ctrl+A Save the current track file or the project under a new name\n"
                       "Ctrl+T Write the points of the current track file to another file\n"
                       "Ctrl+P Print the track-point grid\n"
                       "Ctrl+Z Undo the last change\n"
                       "Ctrl+Shift+Z Do again what was undone\n"
                       "Ctrl+D Delet the invalid points from the selected track file\n"
                       "Ctrl+Alt+D Show or hide the project tree\n");
}

TEST(CommandRouter, NoItemIsDead)
{
    SRoutedWorld world;
    CRecentFiles(world.settings).Add("x.gpx");
    std::vector<std::pair<SCommandPlace, SMenuItem>> items;
    const auto add = [&](const SCommandPlace& place, std::span<const SMenuItem> menu) {
        for (const SMenuItem& item : menu)
            items.emplace_back(place, item);
    };
    for (const SMenu& menu : MainMenu())
        add({}, menu.items);
    for (const ECommand command : Toolbar())
        items.push_back({{}, {"a button", command}});
    for (const int nKind :
         {NodeKind::Divisions, NodeKind::Division, NodeKind::TrackFiles, NodeKind::TrackFile})
        add(OnNode(nKind, 0), ContextMenu(ContextMenuOf({nKind, 0})));
    add({.pane = EPane::ResultGrid}, ContextMenu(EContextMenu::ResultGrid));
    add({.pane = EPane::PointGrid}, ContextMenu(EContextMenu::PointGrid));
    add({.pane = EPane::Graph}, ContextMenu(EContextMenu::Graph));
    add({.pane = EPane::Map}, ContextMenu(EContextMenu::Map));
    ASSERT_GT(items.size(), 100U);

    std::string strDisabled;
    for (const auto& [place, item] : items) {
        if (item.command == ECommand::None)
            continue;
        EXPECT_NE(PromptOf(item.command), "") << item.strText;
        EXPECT_NE(world.router.TextOf(item), "");
        if (!world.router.State(item.command, place).bEnabled)
            strDisabled += std::string(LabelOf(item.strText)) + ";";
    }
    EXPECT_EQ(strDisabled,
              "&Print...;Print Pre&view;P&rint Setup...;E&xit;&Undo;&Redo;Show Division Results;a button;"
              "a button;a button;a button;Print...;Print Preview;Print...;Print Preview;Grid &Fields...;"
              "Print...;Print Preview;Grid &Fields...;Print...;Print Preview;Graph &Fields...;Zoom In;"
              "Zoom Out;Zoom All;Print...;Print Preview;Graph &Fields...;Zoom In;Zoom Out;Zoom All;Print...;"
              "Print Preview;");

    // Somebody carries out what is enabled, though the user cancels everything.
    CUnwillingDesktop unwilling;
    CApplication application(
        {unwilling, NoProgress(), world.settings, world.processes, world.folder.Path("")});
    CCommandRouter router(application);
    ASSERT_TRUE(application.OpenFiles({world.folder.Path("one.nmea"), world.folder.Path("two.nmea")}));
    for (const auto& [place, item] : items) {
        if (item.command == ECommand::None || item.command == ECommand::RecentFiles)
            continue;
        unwilling.RefuseDialogs();
        const bool bEnabled = router.State(item.command, place).bEnabled;
        EXPECT_EQ(router.CarryOut(item.command, place), bEnabled) << item.strText;
    }
    int nEdited = 0;
    router.Plug(ECommand::EditCompetitor, [&](const SCommandPlace& place) {
        EXPECT_EQ(place.node, TrackFilesRoot);
        ++nEdited;
    });
    EXPECT_TRUE(router.CarryOut(ECommand::EditNode, OnNode(NodeKind::TrackFiles, 1)));
    EXPECT_EQ(nEdited, 1);
}

TEST(CommandRouter, CommandsOfTheTreeActOnTheirNode)
{
    SRoutedWorld world;
    CViewSelection& selection = world.selection;
    world.Series(0).m_points[3].m_nInvalidFlags = InvalidFlag::User;
    world.Series(1).m_points[4].m_nInvalidFlags = InvalidFlag::User;
    const SCommandPlace first = OnNode(NodeKind::TrackFile, 0);
    const SCommandPlace second = OnNode(NodeKind::TrackFile, 1);
    world.Do(ECommand::DeleteInvalid, second);
    EXPECT_EQ(world.Counts(), "one 20-1;two 19;");

    world.Series(1).m_points[7].m_dSpeed = 1234.0;
    world.Do(ECommand::Recalculate, second);
    EXPECT_LT(world.Series(1).m_points[7].m_dSpeed, 1000.0);
    EXPECT_EQ(selection.m_nSeries, 0) << "what is shown stays";

    world.desktop.Files("*.gpx", {world.folder.Path("out.gpx")});
    world.Do(ECommand::ExportTrackPoints, second);
    EXPECT_EQ(selection.m_nSeries, 1) << "the points of the current file are those of the node";
    EXPECT_TRUE(std::filesystem::exists(world.folder.Path("out.gpx")));

    world.Series(1).m_strFileName = world.folder.Path("saved.gpx");
    bool bTold = false;
    CProjectTree tree(world.event, world.document.m_hub, [] {});
    tree.m_changed = [&] { bTold = true; };
    world.Do(ECommand::SaveTrackFile, second);
    EXPECT_TRUE(bTold) << "the tree's mark goes";
    EXPECT_EQ(world.Series(1).m_bModified, 0);
    EXPECT_TRUE(std::filesystem::exists(world.folder.Path("saved.gpx")));
    world.Do(ECommand::DeleteInvalid, first);
    world.Do(ECommand::Reload, first);
    EXPECT_EQ(world.Counts(), "one 20;two 19;");

    ImportSeries(world.document, AddCompetitor(world.event, "Kim"), world.folder.Path("two.nmea"));
    const std::pair<SCommandPlace, ECommand> exports[] = {
        {first, ECommand::ExportResults},
        {first, ECommand::ExportResultsOfDivisions},
        {OnNode(NodeKind::TrackFiles, 1), ECommand::ExportResults},
        {OnNode(NodeKind::Divisions, 0), ECommand::ExportResults},
        {OnNode(NodeKind::Division, 1), ECommand::ExportResults},
        {OnNode(NodeKind::Division, 2), ECommand::ExportResults},
    };
    std::vector<std::string> texts;
    for (const auto& [place, command] : exports) {
        world.desktop.Files("*.csv", {world.folder.Path("results.csv")});
        world.Do(command, place);
        const std::string strText = CTemporaryFolder::Read(world.folder.Path("results.csv"));
        EXPECT_EQ(std::ranges::find(texts, strText), texts.end()) << "each says something else";
        texts.push_back(strText);
    }
    const std::tuple<std::size_t, const char*, const char*> contents[] = {
        {0, "one", "two"}, {1, "one", "two"}, {2, "two", "Kim"}, {3, "Kim", "x"}, {4, "Kim", "x"}};
    for (const auto& [i, pIn, pNotIn] : contents) {
        EXPECT_NE(texts[i].find(pIn), std::string::npos) << texts[i];
        EXPECT_EQ(texts[i].find(pNotIn), std::string::npos) << texts[i];
    }

    const std::string strDivisions = world.Divisions();
    world.Do(ECommand::MoveUp, OnNode(NodeKind::Division, 2));
    EXPECT_TRUE(world.Divisions().starts_with("2 sec;10 sec;10 sec (best of 5);")) << world.Divisions();
    world.Do(ECommand::DeleteDivision, OnNode(NodeKind::Division, 2));
    world.desktop.Dialog<SEditDivisionDialog>([](SEditDivisionDialog& dialog) {
        EXPECT_EQ(dialog.strName, "10 sec");
        dialog.strName = "Ten";
        return true;
    });
    world.Do(ECommand::EditNode, OnNode(NodeKind::Division, 1));
    world.desktop.Dialog<SEditDivisionDialog>([](SEditDivisionDialog& dialog) {
        dialog.strName = "Added";
        return true;
    });
    world.Do(ECommand::NewNode, OnNode(NodeKind::Divisions, 0));
    EXPECT_EQ(world.Divisions(), "2 sec;Ten;100 meters Accum;250 meters Accum;500 meters Accum;Added;");
    EXPECT_EQ(world.router.TextOf({"&Undo\tCtrl+Z", ECommand::Undo}), "&Undo Add Division\tCtrl+Z");
    for (int i = 0; i < 4; ++i)
        world.Do(ECommand::Undo);
    EXPECT_EQ(world.Divisions(), strDivisions);
    EXPECT_EQ(world.router.TextOf({"&Redo\tCtrl+Shift+Z", ECommand::Redo}), "&Redo Move Up\tCtrl+Shift+Z");
    EXPECT_EQ(world.router.TextOf({"&Undo\tCtrl+Z", ECommand::Undo}), "&Undo\tCtrl+Z")
        << "reloading a file ended what could be undone";

    world.Do(ECommand::CreateCombinedFile, OnNode(NodeKind::TrackFiles, 1));
    EXPECT_EQ(world.Person().m_series.GetCount(), 3);
    world.selection.SelectSeries(1, false, true);
    world.selection.SetFocusPoint(1, 9);
    world.desktop.Question("Are you sure you wish to close two?", "OK");
    world.Do(ECommand::CloseTrackFile, second);
    EXPECT_EQ(world.Person().m_series.GetCount(), 2);
    EXPECT_EQ(selection.m_dFocusPoint, 9.0) << "the same point of the file that follows";
    const int nCount = world.Series(1).m_points.GetCount();
    for (const auto& [nPoint, dFocus] : {std::pair(nCount, nCount - 1.0), std::pair(nCount + 1, 0.0)}) {
        EXPECT_TRUE(ImportSeries(world.document, world.Person(), world.WriteTrack("long.nmea", nCount + 5)));
        selection.SelectSeries(2, false, true);
        world.desktop.Question("Are you sure you wish to close long?", "OK");
        CloseSeries(world.document, 2, nPoint);
        EXPECT_EQ(selection.m_nSeries, 1);
        EXPECT_EQ(selection.m_dFocusPoint, dFocus);
    }
    world.Do(ECommand::ViewInNotepad, first);
    EXPECT_EQ(world.processes.m_started.at(1), world.Series(0).m_strFileName);
    selection.SelectSeries(1, false, true);
    world.Do(ECommand::ViewInNotepad);
    EXPECT_EQ(world.processes.m_started.at(1), world.Series(1).m_strFileName);
    world.Do(ECommand::CloseTrackFile, OnNode(NodeKind::TrackFile, 7)); // gone: asks nothing
    for (const ECommand command : {ECommand::ZoomIn, ECommand::NewNode, ECommand::EditNode})
        EXPECT_FALSE(world.router.CarryOut(command, second)) << "nothing for a track file";

    EXPECT_EQ(tree.Rows().size(), 2U + 6U + 2U) << "with the files";
    world.desktop.Question("Do you wish to save it?", "No");
    world.Do(ECommand::New);
    EXPECT_EQ(tree.Rows().size(), 2U + 6U) << "a new project shows its divisions only";
}

TEST(CommandRouter, CommandsOnPointsActOnSelectedRowsOrTheFocus)
{
    SRoutedWorld world;
    CViewSelection& selection = world.selection;
    std::vector<CTrackPoint*> rows = {world.Series(0).m_points.At(5), world.Series(0).m_points.At(6)};
    const SCommandPlace grid = {.pane = EPane::PointGrid, .points = rows};
    const SCommandPlace map = {.pane = EPane::Map};
    selection.SetFocusPoint(0, 15.0);
    world.Do(ECommand::MarkInvalid, grid);
    EXPECT_EQ(world.Counts(), "one 20-2;two 20;");
    world.Do(ECommand::MarkInvalid, map);
    EXPECT_EQ(world.Counts(), "one 20-3;two 20;");
    world.Do(ECommand::MarkValid, grid);
    EXPECT_EQ(world.Counts(), "one 20-1;two 20;");

    world.desktop.Files("*.gpx", {world.folder.Path("two points.csv")});
    world.router.m_shownColumns = {EPointColumn::Track};
    world.Do(ECommand::ExportSelectedPoints, grid);
    EXPECT_EQ(CTemporaryFolder::Read(world.folder.Path("two points.csv")), "Track,\r\n6,\r\n7,\r\n");

    world.desktop.Dialog<SWayPointDialog>([&](SWayPointDialog& dialog) {
        EXPECT_NEAR(dialog.latitude.Value(), rows[0]->m_position.m_dLatitude, 1e-9);
        return true;
    });
    world.Do(ECommand::AddWaypoint, grid);
    world.Do(ECommand::DeleteTrackPoints, grid);
    EXPECT_EQ(world.Counts(), "one 18-1;two 20;");
    world.Do(ECommand::Undo);

    // A division lists runs of both files; the focus follows the picked one into a file that is not selected.
    selection.ShowDivisionResults(0);
    const auto found = std::ranges::find_if(
        selection.m_Results, [](const CResult* pResult) { return pResult->m_nSeriesIndex == 1; });
    ASSERT_NE(found, selection.m_Results.end());
    selection.PickResult(nullptr, *found);
    ASSERT_EQ(std::pair(selection.m_nSeries, selection.m_nFocusSeries), std::pair(0, 1));
    const CTrackPoint* pFocus = world.Series(1).m_points.At(static_cast<int>(selection.m_dFocusPoint));
    world.Do(ECommand::DeleteTrackPoints, map);
    EXPECT_EQ(world.Counts(), "one 20-1;two 19;");
    EXPECT_EQ(std::ranges::find(world.Series(1).m_points, pFocus), world.Series(1).m_points.end());

    selection.SelectSeries(0, false, true);
    selection.SetFocusPoint(0, 15.0);
    rows = {world.Series(0).m_points.At(4)};
    world.Do(ECommand::SplitFile, {.pane = EPane::PointGrid, .points = rows});
    EXPECT_EQ(world.Counts(), "one_0 4;two 19;one_2 16-1;");
    world.desktop.Message("Please select the file and point at which you wish to split.");
    world.Do(ECommand::SplitFile);
}

TEST(CommandRouter, ClicksOnNodesChooseWhatIsListed)
{
    SRoutedWorld world;
    CViewSelection& selection = world.selection;
    struct SCase
    {
        STreeNode node;
        int nSeries, nKind;
        const char* pCaption;
    };
    const SCase cases[] = {
        {{NodeKind::TrackFile, 1}, 1, NodeKind::TrackFiles, "two"},
        {{NodeKind::Division, 3}, 1, NodeKind::Division, "100 meters Accum"},
        {DivisionsRoot, 1, NodeKind::TrackFiles, "two"},
        {TrackFilesRoot, -1, NodeKind::TrackFiles, ""},
    };
    for (const SCase& row : cases) {
        ClickNode(world.document, row.node);
        EXPECT_EQ(std::tuple(selection.m_nSeries, selection.m_nNodeKind, selection.m_strCaption),
                  std::tuple(row.nSeries, row.nKind, row.pCaption));
    }
    world.event.m_persons.RemoveAll();
    selection.Reset();
    world.Do(ECommand::DeleteInvalid, OnNode(NodeKind::TrackFile, 0));
    EXPECT_TRUE(world.event.m_persons.IsEmpty()) << "a file's command needs no competitor";
    ClickNode(world.document, TrackFilesRoot);
    EXPECT_EQ(world.event.m_persons.GetCount(), 1);
    EXPECT_EQ(selection.m_nSeries, 0);
}

TEST(CommandRouter, WhatIsShownIsCheckedAndNewAsksFirst)
{
    SRoutedWorld world;
    CCommandRouter& router = world.router;
    int nShown = 0;
    router.Plug(ECommand::ShowTree, [&](const SCommandPlace&) { nShown += router.m_frame.bTree ? 1 : 10; });
    const std::pair<ECommand, bool> parts[] = {{ECommand::ShowTree, false},
                                               {ECommand::ShowToolbar, true},
                                               {ECommand::ShowStatusBar, true},
                                               {ECommand::ShowNeighborhood, false}};
    for (const auto& [command, bAtFirst] : parts) {
        EXPECT_EQ(router.State(command).bChecked, bAtFirst);
        world.Do(command);
        EXPECT_EQ(router.State(command).bChecked, !bAtFirst);
        world.Do(command);
        EXPECT_EQ(router.State(command).bChecked, bAtFirst);
    }
    EXPECT_EQ(nShown, 11);

    world.Series(0).m_bModified = 1;
    world.desktop.Question("has changed.Do you wish to save it?", "Cancel");
    world.Do(ECommand::New);
    EXPECT_EQ(world.Counts(), "one 20;two 20;");
    world.desktop.Question("has changed.Do you wish to save it?", "No");
    world.Do(ECommand::New);
    EXPECT_EQ(world.Counts(), " 0;");
    world.settings.Write("Command2", "Name", "Convert");
    world.settings.Write("Command2", "Command", "conv now");
    EXPECT_EQ(router.TextOf({"Command 2\t(+Ctrl)", ECommand::ExternalCommand2}), "Convert\t(+Ctrl)");
    world.Do(ECommand::ExternalCommand2);
    EXPECT_EQ(world.processes.m_started, (std::vector<std::string>{"conv", "now"}));
}

} // namespace
} // namespace kestrabel::test
