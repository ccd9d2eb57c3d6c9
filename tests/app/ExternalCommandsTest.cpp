#include "app/ExternalCommands.h"

#include "app/AppWorld.h"
#include "app/CommandPlaceholders.h"
#include "app/CommandWords.h"
#include "platform/PosixProcessStarter.h"
#include "present/CommandDialog.h"

#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <thread>
#include <unistd.h>

namespace kestrabel::test {
namespace {

namespace fs = std::filesystem;

/// What no shell may ever get to see.
constexpr const char* EvilName = "Kim $(touch pwned) `id` \"q\" 'r' ; & | > x * ~ %TEMP% \\ @Date -é";

TEST(ExternalCommands, QuotesGroupAndNothingElseHasAMeaning)
{
    using CWords = std::vector<std::string>;
    const std::pair<const char*, CWords> cases[] = {
        {"", {}},
        {" \t ", {}},
        {R"(c:\tools\conv.exe  -o	"")", {R"(c:\tools\conv.exe)", "-o", ""}},
        {R"("c:\Program Files\x.exe" a"b c"d "open end)", {R"(c:\Program Files\x.exe)", "ab cd", "open end"}},
        {R"(\"a\\"b c\\\"d" e\\ "f""g")", {R"("a\b c\"d)", R"(e\\)", R"(f"g)"}},
        {"$HOME;'a b' *", {"$HOME;'a", "b'", "*"}},
    };
    for (const auto& [pLine, words] : cases)
        EXPECT_EQ(CommandWords(pLine), words) << pLine;
}

TEST(ExternalCommands, PlaceholdersAreReplacedInThreeSpellings)
{
    const SCommandValues all = {.fileOut = "c:\\t\\a b.gpx",
                                .competitor = "Kim",
                                .strDataFolder = "D:\\data\\",
                                .strDate = "2024-06-01 10:00:00"};
    const SCommandValues noFile = {.competitor = "", .strDataFolder = "", .strDate = ""};
    const SCommandValues nothing = {.strDataFolder = "D:\\data\\", .strDate = ""};
    const SCommandValues evil = {
        .fileOut = "@Comp", .competitor = "@Date @FileIn", .strDataFolder = "", .strDate = "x"};
    const char *pNoFile = "Please select a file to apply this command",
               *pNobody = "Please select a competitor to import the file to";
    struct SCase
    {
        const SCommandValues& values;
        const char *pCommand, *pFileIn, *pArguments, *pFileInThen, *pProblem;
    };
    const SCase cases[] = {
        {all, "conv @FileOut @FILEOUT @fileout", "", "[conv][c:\\t\\a b.gpx][c:\\t\\a b.gpx][c:\\t\\a b.gpx]",
         "", ""},
        {all, "@Fileout @fileOut @ @@Comp @Time", "", "[@Fileout][@fileOut][@][@Kim][@Time]", "", ""},
        {all, "-d@CompDir @COMPDIR @compdir @Compdir", "", "[-dD:\\data\\][D:\\data\\][D:\\data\\][Kimdir]",
         "", ""},
        {all, "\"@Date\" @FileIn", "", "[2024-06-01 10:00:00][@FileIn]", "", ""},
        {all, "c @FileIn", "D:\\data\\@Comp.sbp", "[c][D:\\data\\Kim.sbp]", "D:\\data\\Kim.sbp", ""},
        {all, "c @comp", "@CompDir@COMP.sbp", "[c][Kim]", "@CompDirKim.sbp", ""}, // not looked for
        {all, "c @FileIn", "@FileIn x", "[c][@FileIn x]", "@FileIn x", ""},
        {evil, "c @FileOut @Comp @FileIn", "@FileOut@Comp", "[c][@Comp][@Date @FileIn][@Comp@Date @FileIn]",
         "@Comp@Date @FileIn", ""},
        {noFile, "c @Comp @Date", "", "[c][][]", "", ""},
        {noFile, "c @FileOut", "", "", "", pNoFile},
        {noFile, "c @FileIn", "@FILEOUT", "", "", pNoFile},
        {nothing, "c @fileout @comp", "", "", "", pNoFile},
        {nothing, "c @COMP", "", "", "", pNobody},
        {nothing, "c @CompDir", "", "", "", pNobody},
        {nothing, "c", "@Comp", "[c]", "@Comp", ""},
    };
    for (const SCase& row : cases) {
        const SExpandedCommand command = ExpandCommand(row.pCommand, row.pFileIn, row.values);
        std::string strArguments;
        for (const std::string& strArgument : command.arguments)
            strArguments += "[" + strArgument + "]";
        EXPECT_EQ(strArguments, row.pArguments) << row.pCommand;
        EXPECT_EQ(command.strFileIn, row.pFileInThen) << row.pCommand;
        EXPECT_EQ(command.strProblem, row.pProblem) << row.pCommand;
    }
}

TEST(ExternalCommands, BackupsAreNamedBeforeTheLastFourCharacters)
{
    const std::pair<const char*, const char*> cases[] = {
        {"c:\\data\\out.sbp", "c:\\data\\out_BAK.sbp"},
        {"/d.x/.gpx", "/d.x/_BAK.gpx"},
        {"/data/b.x", "/data/_BAKb.x"},
        {"abc", "_BAKabc"},
        {"/data/aéöü1", "/data/a_BAKéöü1"},
        {"", "_BAK"},
    };
    for (const auto& [pPath, pBackup] : cases)
        EXPECT_EQ(BackupName(pPath), pBackup);
}

/// A world whose programs really run. The script "tool" writes its arguments to "said", a line each, and
/// copies the first to the second when there are two.
struct SRealWorld : SAppWorld
{
    CPosixProcessStarter starter;
    CApplication real{{desktop, NoProgress(), settings, starter, folder.Path(""), folder.Path("tool")}};
    CKestroDoc& realDocument = real.m_document;
    std::string strTool = AddScript("tool", "printf '%s\\n' \"$@\" > '" + folder.Path("said") +
                                                "'\n[ $# = 2 ] && cp \"$1\" \"$2\"\nexit 0\n");

    SRealWorld() { EXPECT_TRUE(realDocument.OnNewDocument()); }

    std::string AddScript(const std::string& strName, const std::string& strLines)
    {
        const std::string strPath = folder.Write(strName, "#!/bin/sh\n" + strLines);
        fs::permissions(strPath, fs::perms::owner_all);
        return strPath;
    }
    void Open(const std::string& strPath) { EXPECT_TRUE(real.OpenFiles({strPath})); }
    /// What the tool was given, once a program that nobody waited for has written it.
    std::string Said()
    {
        const auto lines = [&] { return CTemporaryFolder::Read(folder.Path("said")); };
        for (int i = 0; i < 500 && !lines().ends_with('\n'); ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        const std::string strSaid = lines();
        fs::remove(folder.Path("said"));
        return strSaid;
    }
};

TEST(ExternalCommands, ProgramsGetNamesAsTheyAreAndTheirFileIsImported)
{
    SRealWorld world;
    const std::string strLong = std::string(200, 'l') + "/" + std::string(120, 'f') + "/" + EvilName + "/";
    for (const std::string& strFolder :
         {std::string("plain/"), std::string("a b \"c\" $(touch pwned);'/"), strLong})
    {
        SCOPED_TRACE(strFolder);
        fs::create_directories(world.folder.Path(strFolder));
        const std::string strIn = world.WriteTrack(strFolder + "Run `id` \"1\".NMEA", 12);
        world.Open(strIn);
        CEvent& event = world.realDocument.m_event;
        CPerson& person = event.m_persons[0];
        person.m_strName = EvilName;
        event.m_strDataFolder = world.folder.Path(strFolder);

        // The name as it is on the disk, though the stored one is in lower case.
        RunExternalCommand(world.realDocument, world.strTool + " @FileOut \"-n @Comp\" @CompDir", "");
        EXPECT_EQ(world.Said(),
                  strIn + "\n-n " + std::string(EvilName) + "\n" + event.m_strDataFolder + "\n");
        EXPECT_EQ(person.m_series.GetCount(), 1) << "nothing to import";

        // An older file of the name is set aside, and another of that name in turn gives way.
        const std::string strTarget = world.folder.Path(strFolder + "out 'x'.nmea");
        world.folder.Write(strFolder + "out 'x'_BAK.nmea", "oldest");
        world.folder.Write(strFolder + "out 'x'.nmea", "older");
        RunExternalCommand(world.realDocument, world.strTool + " @FileOut @FileIn", "@CompDirout 'x'.nmea");
        EXPECT_EQ(world.Said(), strIn + "\n" + strTarget + "\n");
        EXPECT_EQ(CTemporaryFolder::Read(BackupName(strTarget)), "older");
        ASSERT_EQ(person.m_series.GetCount(), 2);
        EXPECT_EQ(person.m_series[1].m_points.GetCount(), 12);
        EXPECT_EQ(world.realDocument.m_selection.m_nSeries, 1) << "the import is shown";
    }
    EXPECT_FALSE(fs::exists(world.folder.Path("pwned")) || fs::exists("pwned"));
}

TEST(ExternalCommands, WhatFailsIsTold)
{
    SRealWorld world;
    const char *pFailed = "The command failed to run. Please check your command line string.",
               *pNoImport = "Failed to import the target file";
    const std::string strOut = world.folder.Path("out.nmea");
    const std::string strFailing = world.AddScript("failing", "exit 3\n");
    const std::string strNoShebang = world.folder.Write("plain text", "touch pwned\n");
    fs::permissions(strNoShebang, fs::perms::owner_all);
    const std::tuple<std::string, std::string, const char*> cases[] = {
        {"   ", "", pFailed},
        {"no-such-program-anywhere", "", pFailed},
        {world.folder.Path(""), "", pFailed},
        {"\"" + strNoShebang + "\"", "", pFailed}, // no shell makes sense of it
        {world.strTool + " a" + std::string(1, '\0') + "b", "", pFailed},
        {"touch pwned; " + world.strTool, "", nullptr}, // makes files of such names, and nothing of ours
        {"no-such-program-anywhere @FileOut", "", "Please select a file to apply this command"},
        {strFailing, "", nullptr},
        {strFailing, strOut, pNoImport},
        {strFailing, world.folder.Path(""), pNoImport},
    };
    const fs::path before = fs::current_path();
    fs::current_path(world.folder.Path(""));
    for (const auto& [strCommand, strFileIn, pMessage] : cases) {
        SCOPED_TRACE(strCommand);
        world.folder.Write("out.nmea", "stale: a failing program must not bring this in");
        if (pMessage != nullptr)
            world.desktop.Message(pMessage);
        RunExternalCommand(world.realDocument, strCommand, strFileIn);
    }
    fs::current_path(before);
    EXPECT_EQ(world.realDocument.m_event.m_persons[0].m_series.GetCount(), 1);
}

TEST(ExternalCommands, ProgramsInheritNeitherFilesNorSignals)
{
    SRealWorld world;
    const std::string strState = world.AddScript(
        "state", "{ [ -e /proc/$$/fd/57 ] && echo leaked; kill -PIPE $$; echo ignored; } > \"$1\"\n");
    const int nOpen = ::fcntl(0, F_DUPFD, 57);
    ASSERT_EQ(nOpen, 57);
    const auto before = std::signal(SIGPIPE, SIG_IGN);
    const std::string arguments[] = {strState, world.folder.Path("state of it")};
    EXPECT_EQ(world.starter.Start(arguments), EStart::Started);
    EXPECT_TRUE(world.starter.WaitUntilReady());
    std::signal(SIGPIPE, before);
    ::close(nOpen);
    EXPECT_TRUE(fs::exists(arguments[1]));
    EXPECT_EQ(CTemporaryFolder::Read(arguments[1]), "");
}

TEST(ExternalCommands, WaitingEndsWithTheProgramOrTheUser)
{
    SRealWorld world;
    const std::string strOpen = world.AddScript("open", "mkfifo \"$1\"\n");
    const std::string strSlow = world.AddScript("slow", "read line < \"$1\"\n");
    std::string strGate;
    bool bGoOn = false;
    CPosixProcessStarter starter([&](const std::string& strProgram, const std::function<bool()>& hasEnded) {
        EXPECT_EQ(strProgram, strSlow);
        EXPECT_FALSE(hasEnded());
        std::ofstream(strGate) << "go on\n";
        while (bGoOn && !hasEnded())
            std::this_thread::yield();
        EXPECT_TRUE(!bGoOn || hasEnded()) << "and keeps saying so";
        return bGoOn;
    });
    EXPECT_TRUE(starter.WaitUntilReady()) << "nothing to wait for";
    for (const char* pAnswer : {"cancel", "go on"}) {
        strGate = world.folder.Path(pAnswer);
        bGoOn = pAnswer == std::string("go on");
        const std::string open[] = {strOpen, strGate};
        const std::string slow[] = {strSlow, strGate};
        ASSERT_EQ(world.starter.Start(open), EStart::Started);
        ASSERT_TRUE(world.starter.WaitUntilReady());
        ASSERT_EQ(starter.Start(slow), EStart::Started);
        EXPECT_EQ(starter.WaitUntilReady(), bGoOn);
    }
}

TEST(ExternalCommands, TheMenuItemRunsOrAsksAndKeepsWhatWasEntered)
{
    SAppWorld world;
    ASSERT_TRUE(world.document.OnNewDocument());
    const auto enter = [&](const char* pExpectedName, const char* pName, const char* pCommand, bool bRun) {
        world.desktop.Dialog<SCommandDialog>([=](SCommandDialog& dialog) {
            EXPECT_EQ(dialog.strName, pExpectedName);
            dialog = {pName, pCommand, ""};
            return bRun;
        });
    };
    const auto invoke = [&](bool bCtrlHeld) {
        world.processes.m_started.clear();
        InvokeExternalCommand(world.document, 3, bCtrlHeld);
        return world.processes.m_started;
    };
    using CStarted = std::vector<std::string>;
    EXPECT_EQ(ExternalCommandLabel(world.settings, 3), "Command 3\t(+Ctrl)");
    enter("Command 3", "Convert", "conv a", false);
    EXPECT_EQ(invoke(false), CStarted()) << "nothing to run yet, and closed";
    EXPECT_EQ(ExternalCommandLabel(world.settings, 3), "Convert\t(+Ctrl)");
    EXPECT_EQ(invoke(false), (CStarted{"conv", "a"}));
    enter("Convert", "Other", "conv b", true);
    EXPECT_EQ(invoke(true), (CStarted{"conv", "b"}));
    EXPECT_EQ(invoke(false), (CStarted{"conv", "b"}));
    EXPECT_EQ(ExternalCommandLabel(world.settings, 4), "Command 4\t(+Ctrl)") << "each is its own";
}

TEST(ExternalCommands, TheEditorShowsTheSelectedOrTheOnlyFile)
{
    SRealWorld world;
    const std::string strOne = world.WriteTrack("One \"1\".nmea", 5);
    const std::string strTwo = world.WriteTrack("two.nmea", 5);
    world.Open(strOne);
    CKestroDoc& document = world.realDocument;
    ViewInNotepad(document, 0, 1);
    EXPECT_EQ(document.m_selection.m_nNodeKind, NodeKind::TrackFiles) << "there is no such file";
    ViewInNotepad(document, 0, -1);
    EXPECT_EQ(world.Said(), strOne + "\n") << "the named editor is not here, the user's is";
    EXPECT_EQ(document.m_selection.m_nNodeKind, NodeKind::Notepad);
    world.real.OpenFiles({strOne, strTwo});
    ViewInNotepad(document, 0, 1);
    EXPECT_EQ(world.Said(), strTwo + "\n");
    ViewInNotepad(document, 0, -1);
    EXPECT_FALSE(fs::exists(world.folder.Path("said"))) << "which of the two?";
}

} // namespace
} // namespace kestrabel::test
