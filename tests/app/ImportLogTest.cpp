#include "app/AppWorld.h"
#include "app/ProgramFolder.h"
#include "app/TrackFileCommands.h"

#include <filesystem>

namespace kestrabel::test {
namespace {

TEST(ImportLog, TellsFileByFileWhatWasReadAndWhy)
{
    SAppWorld world;
    ASSERT_TRUE(world.document.OnNewDocument());
    const std::string strGood = world.WriteTrack("good.nmea", 20);
    const std::string strTorn = world.WriteTrack("torn.nmea", 5);
    std::string strLog = CTemporaryFolder::Read(strTorn);
    strLog += "$GPRMC,100005,A,garbage\nnoise\n";
    world.folder.Write("torn.nmea", strLog);
    const std::string strGone = world.folder.Path("gone.gpx");

    CImportLog& log = world.document.m_importLog;
    EXPECT_EQ(log.Summary(), "");
    EXPECT_TRUE(ImportSeries(world.document, world.Person(), strGood));
    EXPECT_EQ(log.Summary(), "good.nmea: 20 fixes read");
    const std::string paths[] = {strGood, strTorn, strGone};
    world.desktop.Question("A series of this name already exists.", "Yes");
    world.desktop.Question("Unknown file format.", "OK").Message(strGone);
    EXPECT_TRUE(ImportSeveral(world.document, world.Person(), paths));
    EXPECT_EQ(log.Summary(), "3 files: 25 fixes read; 1 line or record skipped; nothing from 1 file");
    EXPECT_EQ(log.Details(),
              strGood + ": 20 fixes read\n" + strTorn +
                  ": 5 fixes read; 1 line skipped: line 6: $GPRMC with 4 fields instead of 9\n"
                  "  line 6: $GPRMC with 4 fields instead of 9\n" +
                  strGone +
                  ": 0 fixes read; failed to load XML document (The file could not be located)\n"
                  "  The file could not be located\n");
}

TEST(ProgramFolder, TheUsersOwnWhereTheProgramsIsReadOnly)
{
    const CTemporaryFolder folder;
    const std::string strUser = folder.Path("user/data/");
    EXPECT_EQ(ProgramFolder(folder.Path(""), strUser), folder.Path(""));
    EXPECT_FALSE(std::filesystem::exists(strUser));
    EXPECT_EQ(ProgramFolder(folder.Path("missing/"), strUser), strUser);
    EXPECT_TRUE(std::filesystem::exists(strUser));
}

} // namespace
} // namespace kestrabel::test
