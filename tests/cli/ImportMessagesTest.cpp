#include "cli/SteadyTrack.h"
#include "cli/ToolRun.h"

#include <clocale>
#include <cstdlib>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace kestrabel {
namespace {

using test::CToolTest;
using test::RmcLine;
using test::SToolRun;

/// A log of ten fixes with unreadable lines behind the fifth.
std::string LogWithBadLines(int nBadLines)
{
    std::string strLog;
    for (int i = 0; i < 10; ++i) {
        strLog += RmcLine(i, i * 0.006);
        for (int j = 0; i == 4 && j < nBadLines; ++j)
            strLog += "$GPGGA,1,2\n";
    }
    return strLog;
}

TEST(ImportMessages, EachFileIsToldAboutAndTheOthersAreStillUsed)
{
    const CToolTest tool;
    tool.m_folder.Write("good.nmea", test::SteadyNmea(10, 0.006));
    tool.m_folder.Write("one.gpx", "<gpx><trk><trkseg><trkpt lat=\"50\" lon=\"1\"/></trkseg></trk></gpx>");
    tool.m_folder.Write("open.gpx", "<gpx>\n<trk>\n</gpx>");
    tool.m_folder.Write("nolat.gpx", "<gpx><trk><trkseg><trkpt lon=\"1\"/></trkseg></trk></gpx>");
    tool.m_folder.Write("notes.doc", "x");
    tool.m_folder.Write("empty.nmea", "");
    tool.m_folder.Write("skip1.nmea", LogWithBadLines(1));
    tool.m_folder.Write("skip3.nmea", LogWithBadLines(3));
    std::filesystem::create_directory(tool.m_folder.Path("folder.nmea"));

    struct SCase
    {
        const char* pFile;
        int nStatus; ///< with the file alone
        const char* pMessages;
        int nWithGood; ///< with a good file beside it
    };
    const SCase cases[] = {
        {"good.nmea", 0, "", 0},
        {"missing.gpx", 3, "missing.gpx: failed to load XML document (The file could not be located)\n", 3},
        {"missing.nmea", 3, "missing.nmea: The file could not be located\n", 3},
        {"folder.nmea", 3, "folder.nmea: The file could not be accessed\n", 3},
        {"notes.doc", 3, "notes.doc: The file type is not recognised\n", 3},
        {"open.gpx", 3, "open.gpx: failed to load XML document (line 3: mismatched tag)\n", 3},
        {"nolat.gpx", 3, "nolat.gpx: Failed to read xml file (track point 1 has no lat)\n", 3},
        {"one.gpx", 1, "one.gpx: fewer than 2 track points\n", 0},
        {"empty.nmea", 1, "empty.nmea: fewer than 2 track points\n", 0},
        {"skip1.nmea", 0,
         "skip1.nmea: 1 line skipped: line 6: $GPGGA with 3 fields instead of 12\n"
         "kestrabel-cli: 1 question whether to continue answered OK; --strict answers Cancel\n",
         0},
        {"skip3.nmea", 0,
         "skip3.nmea: 3 lines skipped, the first: line 6: $GPGGA with 3 fields instead of 12\n"
         "kestrabel-cli: 3 questions whether to continue answered OK; --strict answers Cancel\n",
         0},
    };
    for (const SCase& test : cases) {
        SCOPED_TRACE(test.pFile);
        const SToolRun alone = tool.Run({"info", test.pFile, "--format", "json"});
        EXPECT_EQ(alone.nStatus, test.nStatus);
        EXPECT_EQ(alone.strErr, test.pMessages);
        const bool bHasPoints = test.nStatus == 0;
        EXPECT_EQ(alone.strOut.starts_with('{'), bHasPoints);

        const SToolRun both = tool.Run({"info", test.pFile, "good.nmea", "--format", "json"});
        EXPECT_EQ(both.nStatus, test.nWithGood);
        EXPECT_EQ(both.strErr, test.pMessages);
        EXPECT_EQ(both.Json()["trackFiles"].size(), bHasPoints ? 2U : 1U);
    }
}

TEST(ImportMessages, StrictStopsAtTheLineAndUsesWhatWasRead)
{
    const CToolTest tool;
    tool.m_folder.Write("skip.nmea", LogWithBadLines(3));
    const SToolRun run = tool.Run({"points", "skip.nmea", "--strict", "--format", "json"});
    EXPECT_EQ(run.nStatus, 3);
    EXPECT_EQ(run.strErr, "skip.nmea: stopped at line 6: $GPGGA with 3 fields instead of 12\n");
    EXPECT_EQ(run.Json()["points"].size(), 4U) << "the fifth fix was not complete";
    EXPECT_EQ(tool.Run({"points", "skip.nmea", "--format", "json"}).Json()["points"].size(), 10U);
}

TEST(ImportMessages, AnswersOfAllFilesAreCountedInOneLine)
{
    const CToolTest tool;
    tool.m_folder.Write("a.nmea", LogWithBadLines(2));
    tool.m_folder.Write("b.nmea", LogWithBadLines(3));
    const std::vector<std::string> lines =
        test::Lines(tool.Run({"leaderboard", "--entry", "Ann=a.nmea,b.nmea"}).strErr);
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_EQ(lines[2],
              "kestrabel-cli: 5 questions whether to continue answered OK; --strict answers Cancel");
}

TEST(ImportMessages, NamesThatAreNotUtf8AreShownConverted)
{
    const CToolTest tool;
    const std::string strName = "zo\xeb.nmea";
    tool.m_folder.Write(strName, LogWithBadLines(1));
    for (const std::string strFormat : {"table", "csv", "json"}) {
        const SToolRun run = tool.Run(
            {"results", "--entry", "Andr\xe9=" + strName, "--division", "2 sec", "--format", strFormat});
        EXPECT_EQ(run.nStatus, 0);
        EXPECT_TRUE(run.strErr.starts_with("zoë.nmea: 1 line skipped")) << run.strErr;
        EXPECT_NE(run.strOut.find("André"), std::string::npos) << run.strOut;
        EXPECT_NE(run.strOut.find("zoë"), std::string::npos) << run.strOut;
    }
    EXPECT_EQ(tool.Run({"info", strName, "--format", "json"}).Json()["trackFiles"][0]["fileName"],
              "zoë.nmea");
    EXPECT_EQ(tool.Run({"convert", strName, "\xe9.gpx"}).nStatus, 0);
    EXPECT_TRUE(std::filesystem::exists(tool.m_folder.Path("\xe9.gpx")));
}

TEST(ImportMessages, ANameWithControlCharactersStaysOneLine)
{
    const CToolTest tool;
    const SToolRun run = tool.Run({"info", "a\nb\x1b[2J.gpx"});
    EXPECT_EQ(run.nStatus, 3);
    EXPECT_EQ(run.strErr, "a?b?[2J.gpx: failed to load XML document (The file could not be located)\n");
}

TEST(StandardOutput, AFailingOneIsToldAndStatus1)
{
    const CToolTest tool;
    tool.m_folder.Write("a.nmea", test::SteadyNmea(3000, 0.002)); // more points than the buffer takes
    const std::vector<std::vector<std::string>> commands = {
        {"--help"},
        {"distance", "0", "0", "1", "1"},
        {"results", "a.nmea"},
        {"results", "a.nmea", "--format", "csv"},
        {"points", "a.nmea", "--format", "json"},
    };
    for (const std::vector<std::string>& command : commands) {
        const SToolRun run = tool.Run(command, "/dev/full");
        EXPECT_EQ(run.nStatus, 1) << command[0];
        EXPECT_EQ(run.strErr, "standard output: No space left on device\n") << command[0];
    }
    const SToolRun unreadable = tool.Run({"info", "a.nmea", "missing.nmea"}, "/dev/full");
    EXPECT_EQ(unreadable.nStatus, 3) << "the file that could not be read counts more";
}

TEST(StandardOutput, AReaderThatLeavesDoesNotKillTheTool)
{
    const CToolTest tool;
    tool.m_folder.Write("a.nmea", test::SteadyNmea(3000, 0.002));
    // A FIFO whose reader has gone before the tool writes.
    const std::string strFifo = tool.m_folder.Path("fifo");
    ASSERT_EQ(::mkfifo(strFifo.c_str(), 0600), 0);
    const pid_t nReader = ::fork();
    if (nReader == 0) {
        const int nHandle = ::open(strFifo.c_str(), O_RDONLY);
        ::close(nHandle);
        ::_exit(0);
    }
    const SToolRun run = tool.Run({"points", "a.nmea"}, strFifo);
    ::waitpid(nReader, nullptr, 0);
    EXPECT_EQ(run.nStatus, 1);
    EXPECT_EQ(run.strErr, "standard output: Broken pipe\n");
}

TEST(Locale, ADecimalCommaChangesNothing)
{
    // Where the system has no German locale, one is compiled for the test.
    const CToolTest tool;
    const std::string strLocale = tool.m_folder.Path("de_DE.UTF-8");
    const std::string strCompile = "localedef -i de_DE -f UTF-8 '" + strLocale + "' >/dev/null 2>&1";
    const bool bCompiled = std::system(strCompile.c_str()) == 0;
    if (!bCompiled && std::setlocale(LC_ALL, "de_DE.UTF-8") == nullptr)
        GTEST_SKIP() << "no German locale, and none can be made";
    std::setlocale(LC_ALL, "C");
    std::vector<std::string> german = {"LC_ALL=de_DE.UTF-8"};
    if (bCompiled)
        german.push_back("LOCPATH=" + tool.m_folder.Path(""));

    tool.m_folder.Write("a.nmea", test::SteadyNmea(60, 0.006));
    const std::vector<std::vector<std::string>> commands = {
        {"results", "a.nmea"},
        {"results", "a.nmea", "--format", "json", "--set", "Timezone=1.5"},
        {"leaderboard", "a.nmea", "--format", "csv"},
        {"points", "a.nmea"},
        {"points", "a.nmea", "--format", "json"},
        {"info", "a.nmea"},
        {"distance", "50.5", "-1.25", "50.75", "-1.5"},
    };
    for (const std::vector<std::string>& command : commands) {
        const SToolRun plain = tool.Run(command, {}, {"LC_ALL=C"});
        EXPECT_EQ(plain.nStatus, 0);
        EXPECT_NE(plain.strOut.find('.'), std::string::npos);
        EXPECT_EQ(tool.Run(command, {}, german).strOut, plain.strOut) << command[0];
    }
}

} // namespace
} // namespace kestrabel
