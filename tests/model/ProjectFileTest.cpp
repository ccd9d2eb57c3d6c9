#include "model/ProjectFile.h"

#include "model/ArchiveBytes.h"
#include "model/EventSettings.h"
#include "model/OldForms.h"
#include "model/StoredForms.h"
#include "support/KilledSave.h"
#include "support/SmallDisk.h"
#include "support/TemporaryFolder.h"
#include "support/Track.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <random>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace kestrabel::test {
namespace {

/// Everything of an event that a project file keeps, as bytes.
std::string Stored(const CEvent& event)
{
    CArchiveWriter writer;
    WriteEvent(writer, event);
    return writer.Bytes();
}

CDivision& AddDivision(CEvent& event, std::string_view strName, std::uint8_t nKind)
{
    CDivision& division = event.m_divisions.Add(std::make_unique<CDivision>());
    division.m_strName = strName;
    division.m_nKind = nKind;
    return division;
}

CWayPoint& AddWayPoint(CObjectArray<CWayPoint>& waypoints, std::string_view strName)
{
    CWayPoint& wayPoint = waypoints.Add(std::make_unique<CWayPoint>());
    wayPoint.m_strName = strName;
    wayPoint.m_position = MakePosition(-38.84, 146.16);
    wayPoint.m_dProximity = 0.02;
    return wayPoint;
}

/// An event in which nothing that is stored is at its default.
void FillProject(CEvent& event)
{
    double dValue = 1.5;
    for (const SEventSetting& setting : EventSettings()) {
        const std::string strNumber = std::to_string(static_cast<int>(dValue));
        if (std::holds_alternative<CEllipsoid CEvent::*>(setting.field))
            EXPECT_EQ(SetEventSetting(event, setting.strName, "6,6377000.5,300.25"), "");
        else if (std::holds_alternative<CPosition CEvent::*>(setting.field))
            EXPECT_EQ(SetEventSetting(event, setting.strName, strNumber + ".5,-" + strNumber), "");
        else if (std::holds_alternative<DATE CEvent::*>(setting.field))
            EXPECT_EQ(SetEventSetting(event, setting.strName, "4544" + strNumber + ".25"), "");
        else
            EXPECT_EQ(SetEventSetting(event, setting.strName, strNumber), "");
        dValue += 1.0;
    }
    event.m_strLocation = "Zoë's \"bay\"";
    CDivision& laps = AddDivision(event, "Laps", DivisionKind::LapRacing);
    AddWayPoint(laps.m_waypoints, "Gate 1");
    AddWayPoint(laps.m_waypoints, "Gate 2");
    laps.m_dFurther1 = 1.25;
    laps.m_dFurther2 = -2.5;
    laps.m_dateFrom = DATE(45444.5);
    laps.m_dateTo = DATE::MakeInvalid();
    laps.m_dMinCalcInterval = 3.5;
    laps.m_nStartAt = -4;
    laps.m_nSeconds = 50000;
    laps.m_dProximity = 0.125;
    laps.m_nAverageRuns = 99;
    laps.m_bAccumulation = laps.m_bUseAltitude = laps.m_nCalcUsing = 1;
    laps.m_bOneResultPerRun = 0;
    laps.m_bStrict = 0;
    AddDivision(event, "Alpha", DivisionKind::AlphaRacing).m_dMetres = 250.0;
    AddWayPoint(event.m_waypoints, "Buoy");
}

/// An event of a person with a result, the record of another file and a combined record.
struct SJudgedEvent
{
    SJudgedEvent()
    {
        for (const char* pName : {"Ann", "Ben"}) {
            CPerson& person = m_event.m_persons.Add(std::make_unique<CPerson>());
            person.m_strName = pName;
            person.m_divisionNames = {"Old", "Alpha"};
            CSeries& series = person.m_series.Add(std::make_unique<CSeries>());
            series.m_points.Add(MakePoint(0, 1, 2));
            for (CSeries* pSeries : {&series, &person.m_combined}) {
                CSeriesDivision& record = pSeries->m_divisions.Add(std::make_unique<CSeriesDivision>());
                record.m_strDivision = "Alpha";
                person.m_results.Borrow(record.m_results.Add(std::make_unique<CResult>()));
            }
        }
        AddDivision(m_event, "Old", DivisionKind::Time);
        AddWayPoint(m_event.m_waypoints, "Mine");
    }

    /// What must not change when a load fails.
    std::string Everything() const
    {
        std::string strAll = Stored(m_event);
        for (const CPerson* pPerson : m_event.m_persons) {
            for (const std::string& strName : pPerson->m_divisionNames)
                strAll += strName;
            strAll += std::to_string(pPerson->m_results.GetCount()) +
                      std::to_string(pPerson->m_combined.m_divisions.GetCount()) +
                      std::to_string(pPerson->m_series[0].m_divisions.GetCount()) +
                      std::to_string(pPerson->m_series[0].m_points.GetCount());
        }
        return strAll;
    }

    CEvent m_event{DATE(45000.5)};
};

/// Why a file is not loaded: it is no project, or it cannot be read.
std::string FailureOf(const std::string& strPath, CEvent& event, std::string& strProjectPath)
{
    try {
        LoadProject(strPath, event, strProjectPath);
    } catch (const CArchiveException& exception) {
        return std::string("no project: ") + exception.what();
    } catch (const CFileException& exception) {
        return std::string("unreadable: ") + exception.what();
    }
    return "";
}

TEST(ProjectFile, EverythingThatIsStoredComesBackAndCompetitorsAreEnteredInIt)
{
    const CTemporaryFolder folder;
    for (const bool bDivisions : {true, false}) {
        CEvent event(DATE(45444.0));
        FillProject(event);
        if (!bDivisions)
            event.m_divisions.RemoveAll();
        SaveProject(folder.Path("e.rsp"), event, "C:\\Events\\event.rsp");
        SJudgedEvent judged;
        const CEvent& loaded = judged.m_event;
        std::string strProjectPath = "old";
        LoadProject(folder.Path("e.rsp"), judged.m_event, strProjectPath);
        EXPECT_EQ(strProjectPath, "C:\\Events\\event.rsp");
        for (const SEventSetting& setting : EventSettings())
            EXPECT_TRUE(
                std::visit([&](auto pField) { return loaded.*pField == event.*pField; }, setting.field))
                << setting.strName;
        EXPECT_EQ(Stored(loaded), Stored(event)) << "divisions and waypoints";
        EXPECT_EQ(loaded.m_divisions.GetCount(), bDivisions ? 2 : 0);
        EXPECT_EQ(loaded.m_waypoints[0].m_dProximity, 0.02);
        ASSERT_EQ(loaded.m_persons.GetCount(), 2);
        for (const CPerson* pPerson : loaded.m_persons) {
            const std::vector<std::string> names = {"Laps", "Alpha"};
            EXPECT_EQ(pPerson->m_divisionNames, bDivisions ? names : std::vector<std::string>());
            EXPECT_TRUE(pPerson->m_results.IsEmpty() && pPerson->m_combined.m_divisions.IsEmpty());
            EXPECT_TRUE(pPerson->m_series[0].m_divisions.IsEmpty());
            EXPECT_EQ(pPerson->m_series[0].m_points.GetCount(), 1);
        }
    }
}

/// The bytes of a small project, put together by hand.
TEST(ProjectFile, TheBytesAreThoseOfTheFormat)
{
    const CTemporaryFolder folder;
    CEvent event(DATE(45444.25));
    event.m_strDescription = "New Event";
    event.m_dateEnd = DATE(45445.0);
    event.m_nReserved = -7;
    AddWayPoint(AddDivision(event, "Laps", DivisionKind::LapRacing).m_waypoints, "G");
    AddWayPoint(event.m_waypoints, "B");
    SaveProject(folder.Path("e.rsp"), event, "/events/e.rsp");

    CArchiveBytes bytes;
    bytes.Text("New Event").Text("").Text("2024-06-01 06:00:00").Text("2024-06-02");
    bytes.Dword(10).Dword(0).Dword(0).Dword(0).Dword(0xFFFFFFF9).Double(9.26).Dword(200);
    bytes.Position(-38.83, 146.155).Position(-38.86, 146.175);
    bytes.Word(0).Word(1).Word(0xFFFF).Word(10).Word(9).Raw("CDivision"); // class 1, object 2
    bytes.Text("Laps").Double(500).Double(0).Double(0).Byte(1).Byte(0).Text("00:00:00").Text("00:00:00");
    bytes.Byte(4).Byte(0).Byte(1).Byte(0).Dword(10).Dword(0).Dword(1).Dword(0);
    bytes.Double(0).Double(0.05).Double(0).Double(0);
    bytes.Word(1).Word(0xFFFF).Word(2).Word(9).Raw("CWayPoint"); // class 3, object 4
    bytes.Text("G").Dword(0).Double(0.02).Position(-38.84, 146.16);
    bytes.Dword(1).Double(6378137.0).Double(298.2572236);
    bytes.Dword(10).Text("").Double(1000).Dword(0).Double(18.52).Double(92.6).Dword(0);
    bytes.Double(1.3).Double(18.52).Double(1.5707963267948966).Double(0).Double(0).Double(0).Double(0);
    bytes.Dword(1).Dword(3).Dword(0).Dword(2).Dword(7).Dword(0);
    bytes.Word(1).Word(0x8003).Text("B").Dword(0).Double(0.02).Position(-38.84, 146.16);
    bytes.Dword(1).Text("/events/e.rsp");
    EXPECT_EQ(CTemporaryFolder::Read(folder.Path("e.rsp")), bytes.Get());
}

TEST(ProjectFile, SavingTakesTheWaypointsOfOtherKinds)
{
    const CTemporaryFolder folder;
    CEvent event(DATE(45444.0));
    AddWayPoint(AddDivision(event, "500 m", DivisionKind::Distance).m_waypoints, "lost");
    AddWayPoint(AddDivision(event, "Laps", DivisionKind::LapRacing).m_waypoints, "kept");
    EXPECT_THROW(SaveProject(folder.Path("nowhere/e.rsp"), event, ""), CFileException);
    EXPECT_EQ(event.m_divisions[0].m_waypoints.GetCount(), 1) << "nothing was saved";
    SaveProject(folder.Path("e.rsp"), event, "");
    EXPECT_EQ(event.m_divisions[0].m_waypoints.GetCount(), 0);
    EXPECT_EQ(event.m_divisions[1].m_waypoints.GetCount(), 1);
}

/// A file of an early version with a competitor whose track file holds points, records and results, in front
/// of a division and the trailing double word.
std::string OldFile(int nSeriesSchema, std::uint32_t nTrailing, std::string_view strPath,
                    std::string_view strBehind = "")
{
    CArchiveBytes bytes;
    bytes.Raw(EventHeadLayout().Body(3));
    bytes.Word(1).NewClass("CPerson", 2);
    SeriesLayout().PutOne(bytes, nSeriesSchema);
    bytes.Word(2).Text("A").Text("B").Text("Ann").Text("").Text("").Text("7");
    DivisionLayout().PutOne(bytes, 5);
    bytes.Dword(1).Double(0).Double(0).Dword(nTrailing).Text(strPath).Raw(strBehind);
    return bytes.Get();
}

TEST(ProjectFile, CompetitorsOfOldFilesAreReadOver)
{
    const std::string strName = DivisionLayout().Body(5).substr(1, 2);
    for (int nSchema = 1; nSchema <= 11; ++nSchema) {
        SJudgedEvent judged;
        std::string strProjectPath;
        ReadProject(OldFile(nSchema, 1, "a/b"), judged.m_event, strProjectPath);
        EXPECT_EQ(strProjectPath, "a/b") << nSchema;
        EXPECT_EQ(judged.m_event.m_persons.GetCount(), 2);
        EXPECT_EQ(judged.m_event.m_persons[0].m_divisionNames, std::vector<std::string>{strName});
        ASSERT_EQ(judged.m_event.m_waypoints.GetCount(), 1) << "an old file says nothing about them";
        EXPECT_EQ(judged.m_event.m_waypoints[0].m_strName, "Mine");
    }
    // Without a path, and with something behind it.
    for (const auto& [nTrailing, strBehind] : {std::pair(0U, ""), {2U, ""}, {1U, "more"}}) {
        SJudgedEvent judged;
        std::string strProjectPath = "before";
        ReadProject(OldFile(5, nTrailing, "a/b", strBehind), judged.m_event, strProjectPath);
        EXPECT_EQ(strProjectPath, nTrailing == 0 ? "" : "a/b");
    }
}

/// A file of today and two old ones.
std::vector<std::string> Samples()
{
    const CTemporaryFolder folder;
    CEvent event(DATE(45444.0));
    FillProject(event);
    SaveProject(folder.Path("new.rsp"), event, "/events/new.rsp");
    return {CTemporaryFolder::Read(folder.Path("new.rsp")), OldFile(5, 1, "a/b"), OldFile(11, 1, "p")};
}

TEST(ProjectFile, AFileThatEndsAnywhereChangesNothing)
{
    for (const std::string& bytes : Samples()) {
        const SJudgedEvent untouched;
        SJudgedEvent judged;
        for (std::size_t nSize = 0; nSize < bytes.size(); ++nSize) {
            std::string strProjectPath = "before";
            ASSERT_THROW(ReadProject(bytes.substr(0, nSize), judged.m_event, strProjectPath),
                         CArchiveException)
                << nSize << " of " << bytes.size();
            ASSERT_EQ(strProjectPath, "before");
            ASSERT_EQ(judged.Everything(), untouched.Everything()) << nSize;
        }
    }
}

/// Nothing here says what a damaged file gives; only that the program survives it.
TEST(ProjectFile, DamagedFilesLoadOrFailCleanly)
{
    std::mt19937 random(1);
    int nFailed = 0;
    int nLoaded = 0;
    for (const std::string& whole : Samples()) {
        for (int i = 0; i < 1000; ++i) {
            std::string bytes = whole;
            for (auto nLeft = random() % 3 + 1; nLeft > 0; --nLeft) {
                const char choices[] = {'\0', '\1', '\x7F', '\x80', '\xFF', static_cast<char>(random())};
                bytes[random() % bytes.size()] = choices[random() % std::size(choices)];
            }
            SJudgedEvent judged;
            const std::string strBefore = judged.Everything();
            std::string strProjectPath;
            try {
                ReadProject(bytes, judged.m_event, strProjectPath);
                ++nLoaded;
            } catch (const CArchiveException&) {
                ASSERT_EQ(judged.Everything(), strBefore);
                ++nFailed;
            }
        }
    }
    EXPECT_GT(nFailed, 100);
    EXPECT_GT(nLoaded, 100);
}

#if !defined(__SANITIZE_ADDRESS__) // which needs the address space for itself
TEST(ProjectFile, WhatAFileAnnouncesIsNotAllocated)
{
    const CTemporaryFolder folder;
    const std::string head = EventHeadLayout().Body(3);
    const std::string room(70'000, '\0'); // so that the long form itself is there
    const CArchiveBytes person = CArchiveBytes().Word(1).NewClass("CPerson", 2);
    const std::string cases[] = {
        CArchiveBytes().Byte(0xFF).Word(0xFFFF).Dword(0xFFFFFFF0).Raw(room).Get(),
        CArchiveBytes().Byte(0xFF).Word(0xFFFE).Byte(0xFF).Word(0xFFFF).Dword(0x7FFFFFF0).Raw(room).Get(),
        head + CArchiveBytes().Word(0xFFFF).Dword(0xFFFFFFF0).Raw(room).Get(),
        head + person.Get() + CArchiveBytes().Word(0xFFFF).Dword(0x10000000).Raw(room).Get(),
        head + person.Get() + CArchiveBytes().Word(0).Word(0xFFFF).Dword(0x10000000).Raw(room).Get(),
    };
    for (const std::string& bytes : cases) {
        const std::string strPath = folder.Write("e.rsp", bytes);
        const pid_t nChild = ::fork();
        if (nChild == 0) {
            const rlimit limit{.rlim_cur = 256U << 20U, .rlim_max = 256U << 20U};
            ::setrlimit(RLIMIT_AS, &limit);
            CEvent event(DATE(1.0));
            std::string strProjectPath;
            try {
                ::_exit(FailureOf(strPath, event, strProjectPath).starts_with("no project") ? 0 : 1);
            } catch (const std::exception&) {
                ::_exit(2); // out of memory
            }
        }
        int nStatus = 0;
        ::waitpid(nChild, &nStatus, 0);
        EXPECT_TRUE(WIFEXITED(nStatus));
        EXPECT_EQ(WEXITSTATUS(nStatus), 0) << (&bytes - cases);
    }
}
#endif

TEST(ProjectFile, WhatIsNoProject)
{
    const CTemporaryFolder folder;
    std::filesystem::create_directory(folder.Path("folder.rsp"));
    const std::string strHuge = folder.Write("huge.rsp", "");
    std::filesystem::resize_file(strHuge, MaxProjectFileSize + 1); // takes no room on the disk
    const std::pair<std::string, const char*> cases[] = {
        {folder.Path("none.rsp"), "none.rsp: The file could not be located"},
        {folder.Path("nowhere/e.rsp"), "e.rsp: All or part of the path is invalid"},
        {folder.Path("folder.rsp"), "folder.rsp: The file could not be accessed"},
        {folder.Write("empty.rsp", ""), "no project: byte 0: the file ends in the middle of a value"},
        {folder.Write("run.gpx", "<?xml version=\"1.0\"?><gpx></gpx>"),
         "no project: byte 1: 60 characters of text do not fit in the 31 bytes that are left"},
        {strHuge, "no project: byte 1073741824: the file is too large for a project"}};
    for (const auto& [strPath, pFailure] : cases) {
        SJudgedEvent judged;
        std::string strProjectPath = "before";
        const std::string strFailure = FailureOf(strPath, judged.m_event, strProjectPath);
        EXPECT_TRUE(strFailure.ends_with(pFailure)) << strFailure;
        EXPECT_EQ(strFailure.starts_with("no project"), std::string_view(pFailure).starts_with("no project"));
        EXPECT_EQ(judged.Everything(), SJudgedEvent().Everything());
        EXPECT_EQ(strProjectPath, "before");
    }
}

/// Two projects of some hundred kilobytes that differ from the first byte to the last.
std::string LargeProject(CEvent& event, char cMark)
{
    event.m_strDescription = std::string(10, cMark);
    for (int i = 0; i < 5000; ++i)
        AddWayPoint(event.m_waypoints, std::string(20, cMark));
    const std::string strPath(30, cMark);
    return Stored(event) + CArchiveBytes().Dword(1).Text(strPath).Get();
}

TEST(ProjectFile, AFullDiskLeavesTheOldProject)
{
    const CTemporaryFolder folder;
    CEvent oldEvent(DATE(1.0));
    FillProject(oldEvent);
    const std::string strPath = folder.Path("e.rsp");
    SaveProject(strPath, oldEvent, "old");
    const std::string strOld = CTemporaryFolder::Read(strPath);

    CEvent event(DATE(1.0));
    const std::size_t nSize = LargeProject(event, 'n').size();
    for (const std::size_t nRoom : {std::size_t{0}, std::size_t{1}, nSize / 2, nSize - 1}) {
        const CSmallDisk disk(nRoom);
        EXPECT_THROW(SaveProject(strPath, event, std::string(30, 'n')), CFileException) << nRoom;
        EXPECT_TRUE(CTemporaryFolder::Read(strPath) == strOld) << nRoom;
    }
    {
        const CSmallDisk disk(nSize);
        EXPECT_NO_THROW(SaveProject(strPath, event, std::string(30, 'n')));
    }
    EXPECT_EQ(CTemporaryFolder::Read(strPath).size(), nSize);
    std::filesystem::directory_iterator files(folder.Path(""));
    EXPECT_EQ(std::distance(begin(files), end(files)), 1) << "something was left behind";
}

TEST(ProjectFile, KilledWhileSavingItIsTheOldOneOrTheNewOne)
{
    const CTemporaryFolder folder;
    const std::string strPath = folder.Path("e.rsp");
    CEvent events[2] = {CEvent(DATE(1.0)), CEvent(DATE(1.0))};
    LargeProject(events[0], 'a');
    LargeProject(events[1], 'b');
    KillWhileSaving(strPath, 60, [&](int nContent) { SaveProject(strPath, events[nContent], "path"); });
}

} // namespace
} // namespace kestrabel::test
