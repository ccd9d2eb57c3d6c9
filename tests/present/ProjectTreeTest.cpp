#include "present/ProjectTree.h"

#include "present/StatusBar.h"

#include <gtest/gtest.h>

namespace kestrabel {
namespace {

constexpr STreeNode FirstDivision = {NodeKind::Division, 0};
constexpr STreeNode SecondFile = {NodeKind::TrackFile, 1};

/// The tree as it looks: "-" expanded, "+" collapsed, ">" selected.
std::string Picture(const CProjectTree& tree)
{
    std::string strPicture;
    for (const STreeRow& row : tree.Rows()) {
        strPicture += row.bButton ? (row.bExpanded ? "-" : "+") : "";
        strPicture += (tree.Selected() == row.node ? ">" : "") + row.strText + std::to_string(row.nImage) +
                      (row.nLevel == 0 ? " " : ", ");
    }
    return strPicture;
}

struct SWorld
{
    SWorld()
    {
        for (const char* pName : {"2 sec", "Mile"})
            event.m_divisions.Add(std::make_unique<CDivision>()).m_strName = pName;
        tree.m_changed = [this] { ++nChanges; };
    }
    void AddFile(const char* pName)
    {
        event.m_persons[0].m_series.Add(std::make_unique<CSeries>()).m_strName = pName;
    }

    CEvent event;
    CUpdateHub hub;
    CProjectTree tree{event, hub, [this] {
                          event.m_persons.Add(std::make_unique<CPerson>());
                          AddFile("");
                      }};
    int nChanges = 0;
};

TEST(ProjectTree, ShowsTheEventAsItIsNow)
{
    SWorld world;
    CProjectTree& tree = world.tree;
    EXPECT_EQ(Picture(tree), "-Divisions2 2 sec2, Mile2, +Track Files1 ");
    EXPECT_EQ(tree.Selected(), std::nullopt);
    world.hub.UpdateAllViews(nullptr, HINT_TRACKFILE_CHANGED);
    EXPECT_EQ(Picture(tree), "-Divisions2 2 sec2, Mile2, -Track Files1 ")
        << "showing the tree makes no competitor";
    tree.Toggle(TrackFilesRoot);
    tree.Toggle(TrackFilesRoot);
    EXPECT_EQ(Picture(tree), "-Divisions2 2 sec2, Mile2, -Track Files1 5, ") << "expanding does";

    world.event.m_persons[0].m_series[0].m_strName = "one";
    world.AddFile("two");
    tree.Select(SecondFile);
    world.event.m_persons[0].m_series[1].m_bModified = 1;
    world.nChanges = 0;
    for (const EUpdateHint hint : {HINT_ALL, HINT_FOCUS_MOVED, HINT_POINTS_CHANGED})
        world.hub.UpdateAllViews(nullptr, hint);
    EXPECT_EQ(world.nChanges, 2) << "a moved focus changes nothing here";
    EXPECT_EQ(Picture(tree), "-Divisions2 2 sec2, Mile2, -Track Files1 one5, >two*5, ");
    world.event.m_persons[0].m_series.RemoveAt(1);
    EXPECT_EQ(tree.Selected(), std::nullopt) << "it is closed";
}

TEST(ProjectTree, KeysAndClicksExpandAndCollapseTheRoots)
{
    SWorld world;
    CProjectTree& tree = world.tree;
    EXPECT_FALSE(tree.OnKey(ETreeKey::Left)) << "nothing is selected";
    tree.Select(FirstDivision);
    for (const ETreeKey key : {ETreeKey::Left, ETreeKey::Minus, ETreeKey::Right, ETreeKey::Plus})
        EXPECT_FALSE(tree.OnKey(key)) << "a division has no children";
    tree.Toggle(FirstDivision);
    tree.Toggle(DivisionsRoot);
    EXPECT_EQ(Picture(tree), "+>Divisions2 +Track Files1 ") << "the selection goes up";
    const std::tuple<ETreeKey, bool, const char*> keys[] = {
        {ETreeKey::Left, false, "+>Divisions2 +Track Files1 "},
        {ETreeKey::Plus, true, "->Divisions2 2 sec2, Mile2, +Track Files1 "},
        {ETreeKey::Right, false, "->Divisions2 2 sec2, Mile2, +Track Files1 "},
        {ETreeKey::Minus, true, "+>Divisions2 +Track Files1 "},
        {ETreeKey::Right, true, "->Divisions2 2 sec2, Mile2, +Track Files1 "},
    };
    for (const auto& [key, bHandled, pPicture] : keys) {
        EXPECT_EQ(tree.OnKey(key), bHandled);
        EXPECT_EQ(Picture(tree), pPicture);
    }
    tree.Toggle(TrackFilesRoot);
    tree.Select(TrackFilesRoot);
    EXPECT_TRUE(tree.OnKey(ETreeKey::F5));
    EXPECT_EQ(Picture(tree), "->Divisions2 2 sec2, Mile2, +Track Files1 ");
    tree.OnUpdate(HINT_TRACKFILE_CHANGED);
    EXPECT_EQ(Picture(tree), "->Divisions2 2 sec2, Mile2, -Track Files1 5, ");
    world.hub.InitialUpdate();
    EXPECT_EQ(Picture(tree), "-Divisions2 2 sec2, Mile2, +Track Files1 ") << "as at the start";
}

TEST(ProjectTree, NodesFitIntoTheDataOfATreeItemAndRowsOnPages)
{
    for (const STreeNode& node : {DivisionsRoot, TrackFilesRoot, STreeNode{NodeKind::Division, 0xFFFF}})
        EXPECT_EQ(NodeOf(TreeData(node)), node);
    EXPECT_EQ(TreeData({NodeKind::TrackFile, 3}), 0x00030068U);
    const std::tuple<int, int, std::string> cases[] = {{0, 5, "0+0 Page 1/1;"},
                                                       {5, 5, "0+5 Page 1/1;"},
                                                       {11, 5, "0+5 Page 1/3;5+5 Page 2/3;10+1 Page 3/3;"}};
    for (const auto& [nRows, nPerPage, strExpected] : cases) {
        std::string strPages;
        for (const STreePage& page : TreePages(nRows, nPerPage, "event"))
            strPages += std::to_string(page.nFirstRow) + "+" + std::to_string(page.nRowCount) + " " +
                        page.strFooter + ";";
        EXPECT_EQ(strPages, strExpected);
    }
}

TEST(Menus, TextsSplitIntoLabelAndShortcut)
{
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"&Open...\tCtrl+O", "&Open...", "Ctrl+O"},
        {"Export Track Points... \tCtrl+T", "Export Track Points...", "Ctrl+T"},
        {"&Divisions\t Cntrl+Alt+D", "&Divisions", "Cntrl+Alt+D"},
        {"E&xit", "E&xit", ""},
        {"", "", ""},
    };
    for (const auto& [pText, pLabel, pShortcut] : cases) {
        EXPECT_EQ(LabelOf(pText), pLabel);
        EXPECT_EQ(ShortcutOf(pText), pShortcut);
    }
}

TEST(StatusBar, TheProgressBarHasAFifthOfWhatTheMessageLeaves)
{
    for (const auto& [nMessage, nWidth] : {std::pair(100, 80), std::pair(500, 0), std::pair(600, 0)}) {
        const SPixelArea area = ProgressArea(500, 25, nMessage);
        EXPECT_EQ(std::tuple(area.nLeft, area.nTop, area.nWidth, area.nHeight),
                  std::tuple(nMessage, 2, nWidth, 21));
    }
}

} // namespace
} // namespace kestrabel
