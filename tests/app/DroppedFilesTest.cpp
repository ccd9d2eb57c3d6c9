#include "app/DroppedFiles.h"
#include "app/AppWorld.h"

#include <filesystem>
#include <gmock/gmock.h>

namespace kestrabel::test {
namespace {

TEST(DroppedFiles, ProjectsOpenTracksAreImportedFoldersAreWalked)
{
    SAppWorld world;
    ASSERT_TRUE(world.application.InitInstance({}));
    std::filesystem::create_directories(world.folder.Path("day/morning"));
    const std::string strTwo = world.WriteTrack("day/2.nmea", 10);
    const std::string strOne = world.WriteTrack("day/morning/1.txt", 20);
    world.folder.Write("day/notes.pdf", "");
    const std::string strProject =
        world.folder.Write("day/event.rsp", CTemporaryFolder::Read(world.folder.Path("Default.rsp")));
    const std::string paths[] = {world.folder.Path("day"), world.WriteTrack("3.nmea", 5)};
    EXPECT_THAT(FilesOf(paths), testing::ElementsAre(strTwo, strProject, strOne, paths[1]));

    DropFiles(world.application, paths);
    EXPECT_EQ(world.document.m_strProjectPath, strProject);
    EXPECT_EQ(world.Person().m_series.GetCount(), 3);
    EXPECT_EQ(world.document.m_importLog.Summary(), "3 files: 35 fixes read");

    // The command line names them alike.
    SAppWorld next;
    const std::string named[] = {strTwo, strProject, strOne};
    ASSERT_TRUE(next.application.InitInstance(named));
    EXPECT_EQ(next.document.m_strProjectPath, strProject);
    EXPECT_EQ(next.Person().m_series.GetCount(), 2);

    // A project is not opened over what the user wants to keep.
    world.Series(0).m_bModified = 1;
    world.desktop.Question("has changed.Do you wish to save it?", "Cancel");
    DropFiles(world.application, paths);
    EXPECT_EQ(world.Person().m_series.GetCount(), 3);
}

} // namespace
} // namespace kestrabel::test
