#include "app/ProjectSave.h"

#include "app/NewProject.h"
#include "model/ProjectFile.h"
#include "support/TemporaryFolder.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace kestrabel::test {
namespace {

TEST(ProjectSave, TheDataFolderIsBesideTheFile)
{
    const CTemporaryFolder folder;
    std::filesystem::create_directory(folder.Path("Events"));
    const struct
    {
        std::string strPath, strBefore, strDataFolder;
    } cases[] = {
        {folder.Path("x.rsp"), "", folder.Path("data/")},
        {folder.Path("Events\\x.rsp"), "", folder.Path("Events\\data\\")},
        {folder.Path("x.rsp"), "C:\\Elsewhere\\", "C:\\Elsewhere\\"},
    };
    for (const auto& test : cases) {
        CEvent event(DATE(45444.0));
        FillNewProject(event, DATE(45444.0));
        event.m_strDataFolder = test.strBefore;
        std::string strProjectPath = "before";
        SaveProjectUnder(test.strPath, event, strProjectPath);
        EXPECT_EQ(strProjectPath, test.strPath);
        EXPECT_EQ(event.m_strDataFolder, test.strDataFolder);

        CEvent loaded(DATE(1.0));
        std::string strStored;
        LoadProject(test.strPath, loaded, strStored);
        EXPECT_EQ(strStored, test.strPath);
        EXPECT_EQ(loaded.m_strDataFolder, test.strDataFolder);
        EXPECT_EQ(loaded.m_divisions.GetCount(), 6);
    }
}

TEST(ProjectSave, AFailedSaveLeavesEventAndPath)
{
    const CTemporaryFolder folder;
    CEvent event(DATE(45444.0));
    std::string strProjectPath = "before";
    EXPECT_THROW(SaveProjectUnder(folder.Path("nowhere/x.rsp"), event, strProjectPath), CFileException);
    EXPECT_EQ(event.m_strDataFolder, "") << "the next save, elsewhere, chooses the folder";
    EXPECT_EQ(strProjectPath, "before");
}

} // namespace
} // namespace kestrabel::test
