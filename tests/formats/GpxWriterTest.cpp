#include "formats/GpxWriter.h"

#include "formats/GpxReader.h"
#include "formats/ScriptedPrompt.h"
#include "model/TimeText.h"
#include "support/FileSizeLimit.h"
#include "support/TemporaryFolder.h"
#include "support/Track.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <functional>
#include <random>
#include <sys/resource.h>
#include <unistd.h>

namespace kestrabel::test {
namespace {

constexpr std::string_view Head =
    "<?xml version=\"1.0\"?>\r\n"
    "<gpx version=\"1.0\" creator=\"Kestrabel V1.917 - https://kestrabel.example/\"\r\n"
    "  xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\"\r\n"
    "  xmlns=\"http://www.topografix.com/GPX/1/0\"\r\n"
    "  xsi:schemaLocation=\"http://www.topografix.com/GPX/1/0 "
    "http://www.topografix.com/GPX/1/0/gpx.xsd\">\r\n";

/// What stands behind the time line of the head; the time must be now and end as told.
std::string BodyOf(const std::string& strText, std::string_view strTimeEnd)
{
    EXPECT_TRUE(strText.starts_with(Head)) << strText.substr(0, 400);
    const std::size_t nTime = std::min(Head.size(), strText.size());
    const std::size_t nBody = strText.find("\r\n", nTime) + 2;
    const std::string strTime = strText.substr(nTime, nBody - nTime);
    // The writer's second is one of those around this moment.
    const DATE now = DATE::Now();
    std::vector<std::string> likely;
    for (int nAgo = 0; nAgo < 60; ++nAgo) {
        likely.push_back("  <time>" + FormatIsoSecond(now.Plus(-nAgo * DaysPerSecond)) +
                         std::string(strTimeEnd) + "</time>\r\n");
    }
    EXPECT_THAT(likely, testing::Contains(strTime));
    return strText.substr(nBody);
}

CTrackPoint& AddPoint(CObjectArray<CTrackPoint>& points, double dSecond, double dLatitude, double dLongitude,
                      double dDoppler = 0.0)
{
    CTrackPoint& point = points.Add(MakePoint(dSecond, dLatitude, dLongitude));
    point.m_nAltitude = -3;
    point.m_dDoppler = dDoppler;
    point.m_dHDOP = 0.9;
    point.m_nSats = 8;
    return point;
}

std::string Written(const CObjectArray<CTrackPoint>& points, std::string_view strName = "run.1.gpx")
{
    const CTemporaryFolder folder;
    CImportMonitor monitor;
    EXPECT_TRUE(WriteGpx(monitor, folder.Path(strName), points)) << monitor.Message();
    EXPECT_EQ(monitor.Message(), "");
    return CTemporaryFolder::Read(folder.Path(strName));
}

std::string WrittenEvent(const CEvent& event, int nPerson = -1, int nSeries = -1)
{
    const CTemporaryFolder folder;
    CImportMonitor monitor;
    EXPECT_TRUE(WriteEventGpx(monitor, event, nPerson, nSeries, folder.Path("all.gpx"))) << monitor.Message();
    return CTemporaryFolder::Read(folder.Path("all.gpx"));
}

CSeries& AddSeries(CEvent& event, int nPerson, std::string_view strName)
{
    while (event.m_persons.GetCount() <= nPerson)
        event.m_persons.Add(std::make_unique<CPerson>());
    CSeries& series = event.m_persons[nPerson].m_series.Add(std::make_unique<CSeries>());
    series.m_strName = strName;
    return series;
}

TEST(GpxWriter, TrackFileText)
{
    CObjectArray<CTrackPoint> points;
    AddPoint(points, 0.0, 0.5, -33.8);
    AddPoint(points, 1.4, -33.8, 0.0);
    AddPoint(points, 2.5, 48.12345678912, 0.05).m_nAltitude = 1234;
    EXPECT_EQ(
        BodyOf(Written(points), ":00Z"),
        "<trk>\r\n<name>\"run\"</name>\r\n<trkseg>\r\n"
        "<trkpt lat=\"+.5000000000\" lon=\"-33.8000000000\"> <ele>-3</ele> <time>2024-06-01T10:00:00Z</time> "
        "</trkpt>\r\n"
        "<trkpt lat=\"-33.8000000000\" lon=\"+0\"> <ele>-3</ele> <time>2024-06-01T10:00:01Z</time> "
        "</trkpt>\r\n"
        "<trkpt lat=\"+48.1234567891\" lon=\"+.05\"> <ele>1234</ele> <time>2024-06-01T10:00:03Z</time> "
        "</trkpt>\r\n"
        "</trkseg>\r\n</trk>\r\n</gpx>\r\n");

    points[1].m_dDoppler = 1.8;
    points[2].m_dDoppler = 36.0;
    points[2].m_dHDOP = 12.34;
    points[2].m_nSats = 0;
    EXPECT_EQ(
        BodyOf(Written(points), ":00Z"),
        "<trk>\r\n<name>\"run\"</name>\r\n<trkseg>\r\n"
        "<trkpt lat=\"+.5000000000\" lon=\"-33.8000000000\"> <ele>-3</ele> <time>2024-06-01T10:00:00Z</time> "
        "<speed>0</speed> <HDOP>.9</HDOP> <sat>8</sat> </trkpt>\r\n"
        "<trkpt lat=\"-33.8000000000\" lon=\"+0\"> <ele>-3</ele> <time>2024-06-01T10:00:01Z</time> "
        "<speed>.50</speed> <HDOP>.9</HDOP> <sat>8</sat> </trkpt>\r\n"
        "<trkpt lat=\"+48.1234567891\" lon=\"+.05\"> <ele>1234</ele> <time>2024-06-01T10:00:03Z</time> "
        "<speed>10.00</speed> <HDOP>12.3</HDOP> <sat>0</sat> </trkpt>\r\n"
        "</trkseg>\r\n</trk>\r\n</gpx>\r\n");

    points.RemoveAll();
    EXPECT_EQ(BodyOf(Written(points), ":00Z"),
              "<trk>\r\n<name>\"run\"</name>\r\n<trkseg>\r\n</trkseg>\r\n</trk>\r\n</gpx>\r\n");
}

TEST(GpxWriter, EventText)
{
    CEvent event;
    CSeries& first = AddSeries(event, 0, "Ann & <1>");
    AddPoint(first.m_points, 0.0, 1.0, 2.0, 1.8);
    AddPoint(first.m_points, 0.5, 1.0, 2.0);
    AddSeries(event, 0, "empty");
    CSeries& third = AddSeries(event, 1, "Bo");
    AddPoint(third.m_points, 59.999, 1.0, 2.0);
    third.m_points.Add(std::make_unique<CTrackPoint>()).m_time = DATE::MakeInvalid();

    const std::string strFirst =
        "<trk>\r\n<name>\"Ann &amp; &lt;1&gt;\"</name>\r\n<trkseg>\r\n"
        "<trkpt lat=\"+1.0000000000\" lon=\"+2.0000000000\"> <ele>-3</ele> <time>2024-06-01T10:00:00Z</time> "
        "<speed>.50</speed> <HDOP>.9</HDOP> <sat>8</sat> </trkpt>\r\n"
        "<trkpt lat=\"+1.0000000000\" lon=\"+2.0000000000\"> <ele>-3</ele> "
        "<time>2024-06-01T10:00:00.500Z</time> "
        "<speed>0</speed> <HDOP>.9</HDOP> <sat>8</sat> </trkpt>\r\n</trkseg>\r\n</trk>\r\n";
    const std::string strSecond = "<trk>\r\n<name>\"empty\"</name>\r\n<trkseg>\r\n</trkseg>\r\n</trk>\r\n";
    const std::string strThird =
        "<trk>\r\n<name>\"Bo\"</name>\r\n<trkseg>\r\n"
        "<trkpt lat=\"+1.0000000000\" lon=\"+2.0000000000\"> <ele>-3</ele> "
        "<time>2024-06-01T10:00:59.999Z</time> "
        "</trkpt>\r\n"
        "<trkpt lat=\"+0\" lon=\"+0\"> <ele>0</ele> <time>Z</time> </trkpt>\r\n</trkseg>\r\n</trk>\r\n";
    struct SCase
    {
        int nPerson;
        int nSeries;
        std::string strTracks;
    };
    const SCase cases[] = {
        {-1, -1, strFirst + strSecond + strThird},
        {0, -1, strFirst + strSecond},
        {1, -1, strThird},
        {0, 1, strSecond},
        {-1, 0, strFirst + strThird},
        {1, 1, ""},
        {2, -1, ""},
    };
    for (const SCase& one : cases) {
        EXPECT_EQ(BodyOf(WrittenEvent(event, one.nPerson, one.nSeries), "Z"), one.strTracks + "</gpx>\r\n")
            << one.nPerson << " " << one.nSeries;
    }
}

// A saved track file asks its first 1000 points for a Doppler speed, the event's document all of them.
TEST(GpxWriter, WhichPointsDecideAboutDoppler)
{
    for (const int nAt : {0, 999, 1000, 1001}) {
        CEvent event;
        CSeries& series = AddSeries(event, 0, "a");
        for (int n = 0; n < 1002; ++n)
            AddPoint(series.m_points, n, 1.0, 2.0, n == nAt ? 0.001 : n == 5 ? -1.0 : 0.0);
        const auto Speeds = [](const std::string& strText) {
            int nCount = 0;
            for (std::size_t n = strText.find("<speed>"); n != std::string::npos;
                 n = strText.find("<speed>", n + 1))
                ++nCount;
            return nCount;
        };
        EXPECT_EQ(Speeds(Written(series.m_points)), nAt < 1000 ? 1002 : 0) << nAt;
        EXPECT_EQ(Speeds(WrittenEvent(event)), 1002) << nAt;
    }
    CEvent event;
    AddPoint(AddSeries(event, 0, "with").m_points, 0, 1, 2, 5.0);
    AddPoint(AddSeries(event, 0, "without").m_points, 0, 1, 2, -5.0);
    const std::string strText = WrittenEvent(event);
    EXPECT_EQ(strText.find("<speed>"), strText.rfind("<speed>")) << "each track file decides for itself";
}

TEST(GpxWriter, AnyNameStaysReadable)
{
    const std::pair<std::string, std::string> cases[] = {
        {"plain", "plain"},
        {"a & b < c > d \" e ' f", "a &amp; b &lt; c &gt; d \" e ' f"},
        {"&amp;", "&amp;amp;"},
        {"]]>", "]]&gt;"},
        {"Zo\xC3\xA9", "Zo\xC3\xA9"},
        {"Zo\xE9 \x80", "Zo\xC3\xA9 \xE2\x82\xAC"}, // not UTF-8: taken as Windows-1252
        {"cut \xC3", "cut \xC3\x83"},
        {"a\x01\x1F\r\n\tb", "a\tb"},
        {std::string("a\0b", 3), "ab"},
        {"\xEF\xBF\xBE\xEF\xBF\xBF", ""}, // well-formed UTF-8, but no characters of XML
        {"\xF0\x9F\x8F\x84", "\xF0\x9F\x8F\x84"},
    };
    for (const auto& [strName, strExpected] : cases) {
        CEvent event;
        AddPoint(AddSeries(event, 0, strName).m_points, 0, 1, 2);
        const std::string strText = WrittenEvent(event);
        EXPECT_THAT(strText, testing::HasSubstr("<name>\"" + strExpected + "\"</name>\r\n"));
        const CTemporaryFolder folder;
        CImportMonitor monitor;
        CObjectArray<CTrackPoint> points;
        EXPECT_EQ(ReadGpx(monitor, folder.Write("a.gpx", strText), points), EReadEnd::Complete)
            << strExpected;
        EXPECT_EQ(points.GetCount(), 1);
    }
    EXPECT_THAT(Written(CObjectArray<CTrackPoint>(), "R&D \xE9.gpx"),
                testing::HasSubstr("<name>\"R&amp;D \xC3\xA9\"</name>"));
}

TEST(GpxWriter, RoundTrip)
{
    std::mt19937 random(7);
    const auto Between = [&](double dLow, double dHigh) {
        return std::uniform_real_distribution<double>(dLow, dHigh)(random);
    };
    CEvent event;
    CSeries& series = AddSeries(event, 0, "a");
    for (int n = 0; n < 2000; ++n) {
        // Every millisecond value twice; the halves of a second are where rounding goes wrong.
        CTrackPoint& point = AddPoint(series.m_points, n * 7 + (n % 1000) * 0.001, Between(-90, 90),
                                      Between(-180, 180), Between(0, 100));
        point.m_nAltitude = static_cast<std::int32_t>(Between(-500, 9000));
        point.m_dHDOP = Between(0, 60);
        point.m_nSats = static_cast<std::int32_t>(Between(0, 30));
    }
    for (const bool bEvent : {false, true}) {
        const CTemporaryFolder folder;
        CImportMonitor monitor;
        CObjectArray<CTrackPoint> back;
        const std::string strText = bEvent ? WrittenEvent(event) : Written(series.m_points);
        ASSERT_EQ(ReadGpx(monitor, folder.Write("a.gpx", strText), back), EReadEnd::Complete);
        ASSERT_EQ(back.GetCount(), series.m_points.GetCount());
        for (int n = 0; n < back.GetCount(); ++n) {
            const CTrackPoint& point = series.m_points[n];
            ASSERT_NEAR(back[n].m_position.m_dLatitude, point.m_position.m_dLatitude, 0.51e-10);
            ASSERT_NEAR(back[n].m_position.m_dLongitude, point.m_position.m_dLongitude, 0.51e-10);
            ASSERT_EQ(back[n].m_nAltitude, point.m_nAltitude);
            ASSERT_NEAR(back[n].m_dDoppler, point.m_dDoppler, 0.0051 * 3.6);
            ASSERT_NEAR(back[n].m_dHDOP, point.m_dHDOP, 0.051);
            ASSERT_EQ(back[n].m_nSats, point.m_nSats);
            if (bEvent)
                ASSERT_EQ(FormatIsoMillisecond(back[n].m_time), FormatIsoMillisecond(point.m_time));
            else
                ASSERT_EQ(FormatIsoMillisecond(back[n].m_time), FormatIsoSecond(point.m_time) + ".000");
        }
    }
}

// Failures. Each writer has to report them alike.

using CWrite = std::function<bool(CImportMonitor&, const std::string&)>;

struct SWriters
{
    SWriters()
    {
        CSeries& series = AddSeries(event, 0, "a");
        for (int n = 0; n < 3000; ++n)
            AddPoint(series.m_points, n, 1.0, 2.0);
        const CObjectArray<CTrackPoint>& points = series.m_points;
        writers = {
            [&points](CImportMonitor& monitor, const std::string& strPath) {
                return WriteGpx(monitor, strPath, points);
            },
            [this](CImportMonitor& monitor, const std::string& strPath) {
                return WriteEventGpx(monitor, event, -1, -1, strPath);
            },
        };
    }

    CEvent event;
    std::vector<CWrite> writers;
};

void ExpectOpenFailure(const CWrite& write, const std::string& strPath, std::string_view strCause)
{
    CScriptedPrompt prompt;
    CImportMonitor monitor(&prompt, 10000);
    EXPECT_FALSE(write(monitor, strPath)) << strPath;
    EXPECT_THAT(monitor.Message(), testing::HasSubstr(std::string(strCause))) << strPath;
    EXPECT_THAT(monitor.Message(), testing::HasSubstr(strPath));
    EXPECT_TRUE(monitor.IsAborted());
    EXPECT_EQ(prompt.m_shown, std::vector<std::string>{std::string(strCause)});
    CImportMonitor silent;
    EXPECT_FALSE(write(silent, strPath));
}

TEST(GpxWriter, FileThatCannotBeCreated)
{
    const SWriters setting;
    const CTemporaryFolder folder;
    std::filesystem::create_directory(folder.Path("folder.gpx"));
    const std::string strFile = folder.Write("file", "x");
    for (const CWrite& write : setting.writers) {
        ExpectOpenFailure(write, folder.Path("missing") + "/a.gpx", "All or part of the path is invalid");
        ExpectOpenFailure(write, strFile + "/a.gpx", "All or part of the path is invalid");
        ExpectOpenFailure(write, folder.Path("folder.gpx"), "The file could not be accessed");
        ExpectOpenFailure(write, folder.Path(std::string(300, 'a')) + "/a.gpx",
                          "All or part of the path is invalid");
    }
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.Path("")), {}), 2);
}

/// Root may write anywhere: for the time of a test it becomes nobody.
class CWithoutPrivileges
{
public:
    CWithoutPrivileges() : m_bDropped(::geteuid() == 0 && ::setresuid(65534, 65534, 0) == 0) {}
    ~CWithoutPrivileges()
    {
        if (m_bDropped && ::setresuid(0, 0, 0) != 0)
            std::abort();
    }
    CWithoutPrivileges(const CWithoutPrivileges&) = delete;
    CWithoutPrivileges& operator=(const CWithoutPrivileges&) = delete;

private:
    bool m_bDropped;
};

TEST(GpxWriter, ProtectedFolderAndFile)
{
    namespace fs = std::filesystem;
    const SWriters setting;
    const CTemporaryFolder folder;
    const std::string strOld = folder.Write("old.gpx", "old");
    const auto readOnly = fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read;
    const auto enter = fs::perms::owner_exec | fs::perms::group_exec | fs::perms::others_exec;
    for (const bool bProtectFolder : {true, false}) {
        fs::permissions(strOld, bProtectFolder ? fs::perms::all : readOnly);
        fs::permissions(folder.Path(""), bProtectFolder ? readOnly | enter : fs::perms::all);
        {
            const CWithoutPrivileges nobody;
            if (::geteuid() == 0)
                GTEST_SKIP() << "privileges cannot be dropped here";
            for (const CWrite& write : setting.writers)
                ExpectOpenFailure(write, strOld, "The file could not be accessed");
        }
        fs::permissions(folder.Path(""), fs::perms::all);
        EXPECT_TRUE(CTemporaryFolder::Read(strOld) == "old");
    }
}

TEST(GpxWriter, FullDiskLeavesTheOldFile)
{
    const SWriters setting;
    const CTemporaryFolder folder;
    const std::string strOld = folder.Write("old.gpx", "old");
    for (const CWrite& write : setting.writers) {
        const std::string strWhole = folder.Path("new.gpx"); // the name stands in the file
        CImportMonitor good;
        ASSERT_TRUE(write(good, strWhole));
        const auto nSize = std::filesystem::file_size(strWhole);
        std::filesystem::remove(strWhole);
        // In the first flush, in the middle, and one byte before the end.
        for (const auto nLimit : {std::uintmax_t(0), nSize / 2, nSize - 1}) {
            for (const std::string& strPath : {strOld, folder.Path("new.gpx")}) {
                CScriptedPrompt prompt;
                CImportMonitor monitor(&prompt);
                bool bWritten = true;
                {
                    const CFileSizeLimit limit(nLimit);
                    bWritten = write(monitor, strPath);
                }
                EXPECT_FALSE(bWritten) << nLimit;
                EXPECT_EQ(monitor.Message(), "Failed to write file") << nLimit;
                EXPECT_TRUE(monitor.IsAborted());
                ASSERT_EQ(monitor.Issues().size(), 1U);
                EXPECT_THAT(monitor.Issues()[0].strReason, testing::HasSubstr("The disk is full"));
                EXPECT_EQ(prompt.m_shown, std::vector<std::string>());
            }
            EXPECT_EQ(CTemporaryFolder::Read(strOld), "old") << nLimit;
            EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.Path("")), {}), 1)
                << "nothing half-written is left";
        }
    }
}

} // namespace
} // namespace kestrabel::test
