#include "cli/SteadyTrack.h"
#include "cli/ToolRun.h"

#include <gtest/gtest.h>

namespace kestrabel {
namespace {

using test::SToolRun;
using test::Words;

/// A log of ten fixes with unreadable lines behind the fifth.
std::string LogWithBadLines(int nBadLines)
{
    std::string strLog = test::SteadyNmea(10, 0.006);
    for (int i = 0; i < nBadLines; ++i)
        strLog.insert(strLog.find("$GPRMC,100005"), "$GPGGA,1,2\n");
    return strLog;
}

TEST(ImportMessages, EachFileIsToldAboutAndTheOthersAreStillUsed)
{
    const test::CToolTest tool;
    tool.m_folder.Write("good.nmea", test::SteadyNmea(10, 0.006));
    tool.m_folder.Write("one.gpx", "<gpx><trk><trkseg><trkpt lat='50' lon='1'/></trkseg></trk></gpx>");
    tool.m_folder.Write("open.gpx", "<gpx>\n<trk>\n</gpx>");
    tool.m_folder.Write("notes.doc", "x");
    tool.m_folder.Write("skip.nmea", LogWithBadLines(1));
    tool.m_folder.Write("zo\xeb.nmea", LogWithBadLines(3));
    std::filesystem::create_directory(tool.m_folder.Path("folder.nmea"));
    const std::string strLine = ": line 6: $GPGGA with 3 fields instead of 12\n";
    const std::string strAnswered = " whether to continue answered OK; --strict answers Cancel\n";
    // The file, the status with it alone and beside a good one, and what is told about it.
    const std::tuple<std::string, int, int, std::string> cases[] = {
        {"a\nb\x1b[2J.nmea", 3, 3, "a?b?[2J.nmea: The file could not be located\n"},
        {"missing.gpx", 3, 3, "missing.gpx: failed to load XML document (The file could not be located)\n"},
        {"folder.nmea", 3, 3, "folder.nmea: The file could not be accessed\n"},
        {"notes.doc", 3, 3, "notes.doc: The file type is not recognised\n"},
        {"open.gpx", 3, 3, "open.gpx: failed to load XML document (line 3: mismatched tag)\n"},
        {"one.gpx", 1, 0, "one.gpx: fewer than 2 track points\n"},
        {"skip.nmea", 0, 0,
         "skip.nmea: 1 line skipped" + strLine + "kestrabel-cli: 1 question" + strAnswered},
        {"zo\xeb.nmea", 0, 0,
         "zoë.nmea: 3 lines skipped, the first" + strLine + "kestrabel-cli: 3 questions" + strAnswered},
    };
    for (const auto& [strFile, nStatus, nWithGood, strMessages] : cases) {
        const SToolRun alone = tool.Run({"info", strFile, "--format", "json"});
        EXPECT_EQ(std::pair(alone.nStatus, alone.strErr), std::pair(nStatus, strMessages));
        const SToolRun both = tool.Run({"info", strFile, "good.nmea", "--format", "json"});
        EXPECT_EQ(std::pair(both.nStatus, both.strErr), std::pair(nWithGood, strMessages));
        EXPECT_EQ(both.Json()["trackFiles"].size(), nStatus == 0 ? 2U : 1U) << strFile;
    }
    const SToolRun ranked = tool.Run(Words("results --entry Andr\xe9=skip.nmea,zo\xeb.nmea --format csv"));
    EXPECT_EQ(test::Lines(ranked.strErr).back() + "\n", "kestrabel-cli: 4 questions" + strAnswered);
    EXPECT_NE(ranked.strOut.find("\nAndré, \"2 sec\", , zoë, "), std::string::npos) << ranked.strOut;

    const SToolRun strict = tool.Run(Words("convert zo\xeb.nmea \xe9.gpx --strict"));
    EXPECT_EQ(strict.nStatus, 3);
    EXPECT_EQ(strict.strErr, "zoë.nmea: stopped at" + strLine.substr(1));
    EXPECT_EQ(test::Lines(tool.Run(Words("points \xe9.gpx")).strOut).size(), 5U) << "what was read";
}

TEST(StandardOutput, AFailingOneIsToldAndAReaderThatLeavesDoesNotKillTheTool)
{
    const test::CToolTest tool;
    tool.m_folder.Write("a.nmea", test::SteadyNmea(3000, 0.002)); // more points than a buffer takes
    for (const char* pCommand : {"--help", "distance 0 0 1 1", "results a.nmea", "points a.nmea"}) {
        const SToolRun run = tool.Run(Words(pCommand), "/dev/full");
        EXPECT_EQ(run.strErr, "standard output: No space left on device\n") << pCommand;
        EXPECT_EQ(run.nStatus, 1);
    }
    EXPECT_EQ(tool.Run(Words("info a.nmea missing.nmea"), "/dev/full").nStatus, 3) << "counts more";
    const std::string strPipe = "(" KESTRABEL_CLI " points a.nmea 2>err; echo $? >>err) | :";
    ASSERT_EQ(std::system(("cd '" + tool.m_folder.Path("") + "' && " + strPipe).c_str()), 0);
    EXPECT_EQ(test::CTemporaryFolder::Read(tool.m_folder.Path("err")), "standard output: Broken pipe\n1\n");
}

TEST(StandardOutput, ALimitOfTheFileSizeIsToldAsAFullDiskAndLeavesNothingBehind)
{
    const test::CToolTest tool;
    tool.m_folder.Write("a.nmea", test::SteadyNmea(300, 0.002));
    const std::pair<const char*, const char*> cases[] = {
        {"convert a.nmea old.gpx", "old.gpx: Failed to write file (old.gpx: The disk is full)\n1\n"},
        {"project new old.rsp --force", "old.rsp: The disk is full\n1\n"},
        {"points a.nmea >old.csv", "standard output: File too large\n1\n"},
    };
    tool.m_folder.Write("old.gpx", "old");
    tool.m_folder.Write("old.rsp", "old");
    for (const auto& [pCommand, pExpected] : cases) {
        const std::string strRun =
            std::string("(ulimit -f 1; " KESTRABEL_CLI " ").append(pCommand).append(") 2>err; echo $? >>err");
        ASSERT_EQ(std::system(("cd '" + tool.m_folder.Path("") + "' && " + strRun).c_str()), 0);
        EXPECT_EQ(test::CTemporaryFolder::Read(tool.m_folder.Path("err")), pExpected);
    }
    for (const char* pOld : {"old.gpx", "old.rsp"})
        EXPECT_EQ(test::CTemporaryFolder::Read(tool.m_folder.Path(pOld)), "old");
    using CEntries = std::filesystem::directory_iterator;
    EXPECT_EQ(std::distance(CEntries(tool.m_folder.Path("")), CEntries()), 5) << "no new file is left";
}

TEST(Locale, ADecimalCommaChangesNothing)
{
    const test::CToolTest tool;
    tool.m_folder.Write("a.nmea", test::SteadyNmea(60, 0.006));
    const std::string strCompile = "localedef -i de_DE -f UTF-8 '" + tool.m_folder.Path("de_DE.UTF-8") + "'";
    if (std::system((strCompile + " >/dev/null 2>&1").c_str()) != 0)
        GTEST_SKIP() << "no German locale can be made";
    const std::vector<std::string> german = {"LC_ALL=de_DE.UTF-8", "LOCPATH=" + tool.m_folder.Path("")};
    for (const char* pCommand :
         {"results a.nmea --set Timezone=1.5", "leaderboard a.nmea --format csv",
          "points a.nmea --format json", "info a.nmea", "distance 50.5 -1.25 50.75 -1.5"})
        EXPECT_EQ(tool.Run(Words(pCommand), {}, german).strOut, tool.Run(Words(pCommand)).strOut);
}

} // namespace
} // namespace kestrabel
