#include "platform/FileSettings.h"

#include "support/TemporaryFolder.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace kestrabel {
namespace {

using test::CTemporaryFolder;

TEST(FileSettings, KeepEveryTextInSectionsWithinSections)
{
    const CTemporaryFolder folder;
    const std::string strPath = folder.Path("kestro.ini");
    const std::string texts[] = {"plain",        "",          " blanks ", "a=b;c#d", "[x]",
                                 "line\nfeed\r", "C:\\new\\", "Zoë"};
    {
        CFileSettings settings(strPath);
        for (std::size_t i = 0; i < std::size(texts); ++i)
            settings.Write("Grid Fields/Results/WayPoint", std::to_string(i), texts[i]);
        settings.Write("Grid", "Width", "1");
        EXPECT_EQ(settings.Problem(), "");
    }
    CFileSettings settings(strPath);
    for (std::size_t i = 0; i < std::size(texts); ++i)
        EXPECT_EQ(settings.Read("Grid Fields/Results/WayPoint", std::to_string(i), "none"), texts[i]);
    EXPECT_EQ(settings.Read("Grid Fields/Results/WayPoint", "99", "none"), "none");
    EXPECT_TRUE(settings.HasSection("Grid Fields/Results"));
    EXPECT_FALSE(settings.HasSection("Grid Fields/Res"));
    settings.RemoveSection("Grid Fields");
    EXPECT_FALSE(settings.HasSection("Grid Fields/Results"));
    EXPECT_EQ(settings.Read("Grid", "Width"), "1");
}

TEST(FileSettings, WhatCannotBeReadOrWrittenIsToldOnceAndNeverWrittenOver)
{
    const CTemporaryFolder folder;
    const std::string damaged[] = {"[Files\nno entry here\n", std::string("[Files]\nLast\0Document=x\n", 24)};
    for (const std::string& strDamaged : damaged) {
        const std::string strPath = folder.Write("damaged.ini", strDamaged);
        {
            CFileSettings settings(strPath);
            EXPECT_TRUE(settings.Problem().starts_with(strPath + ": ")) << settings.Problem();
            settings.Write("Files", "LastDocument", "new");
            EXPECT_EQ(settings.Read("Files", "LastDocument"), "new") << "as long as the program runs";
        }
        EXPECT_EQ(CTemporaryFolder::Read(strPath), strDamaged);
    }
    const std::string strNowhere = folder.Path("missing/kestro.ini");
    CFileSettings settings(strNowhere);
    EXPECT_EQ(settings.Problem(), "") << "the first start";
    settings.Write("Files", "LastDocument", "new");
    settings.Flush();
    EXPECT_TRUE(settings.Problem().starts_with(strNowhere)) << settings.Problem();
    std::filesystem::create_directory(folder.Path("folder.ini"));
    EXPECT_NE(CFileSettings(folder.Path("folder.ini")).Problem(), "");
}

} // namespace
} // namespace kestrabel
