#include "formats/NmeaReader.h"

#include "formats/PointText.h"
#include "formats/ScriptedPrompt.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>

namespace kestrabel::test {
namespace {

using CLines = std::vector<std::string>;

constexpr std::string_view Question = "Unknown file format. Failed to read line. \n Do you wish to continue?";

// Sentences of second `n` after noon of 1 June 2024 at 48.5 N, 11.5 E.
std::string Rmc(int n, std::string_view strLatitude = "4830.0", std::string_view strDate = "010624")
{
    return "$GPRMC,12000" + std::to_string(n) + ",A," + std::string(strLatitude) +
           ",N,01130.0,E,10.0,090.0," + std::string(strDate) + ",,";
}
std::string Gga(int n, std::string_view strLatitude = "4830.0")
{
    return "$GPGGA,12000" + std::to_string(n) + "," + std::string(strLatitude) +
           ",N,01130.0,E,1,08,0.9,5.0,M,46.9,M,,";
}
std::string Gll(int n)
{
    return "$GPGLL,4730.0,N,01230.0,E,12000" + std::to_string(n) + ",A";
}
std::string Zda(int n, std::string_view strYear = "2024")
{
    return "$GPZDA,12000" + std::to_string(n) + ",01,06," + std::string(strYear) + ",00,00";
}
std::string Gsa(std::string_view strHdop)
{
    return "$GPGSA,A,3,01,02,03,04,05,06,07,08,,,,,2.5," + std::string(strHdop) + ",2.1";
}
const std::string Vtg = "$GPVTG,90.0,T,,M,30.0,N,55.5,K";

// What the points come out as.
std::string RmcPoint(int n)
{
    return "2024-06-01T12:00:0" + std::to_string(n) + " 48.5 11.5 dop=18.52 dir=1.5708";
}
std::string RmcThenGga(int n)
{
    return "2024-06-01T12:00:0" + std::to_string(n) + " 48.5 11.5 dop=18.52 alt=5 hdop=.9 sats=8 fix=1";
}
std::string GgaThenRmc(int n)
{
    return "2024-06-01T12:00:0" + std::to_string(n) +
           " 48.5 11.5 dop=18.52 dir=1.5708 alt=5 hdop=.9 sats=8 fix=1";
}

std::string Join(const CLines& lines)
{
    std::string strText;
    for (const std::string& strLine : lines)
        strText += strLine + "\r\n";
    return strText;
}

struct SRead
{
    CLines points;
    bool bComplete = false;
    std::string strMessage;
    bool bAborted = false;
    std::vector<std::string> asked;
    std::vector<SImportIssue> issues;
};

SRead ReadPath(const std::string& strPath, std::deque<bool> okAnswers = {})
{
    CScriptedPrompt prompt(std::move(okAnswers));
    CImportMonitor monitor(&prompt);
    CObjectArray<CTrackPoint> points;
    SRead read;
    read.bComplete = ReadNmea(monitor, strPath, points) == EReadEnd::Complete;
    read.points = PointTexts(points);
    read.strMessage = monitor.Message();
    read.bAborted = monitor.IsAborted();
    read.asked = prompt.m_asked;
    read.issues = monitor.Issues();
    EXPECT_TRUE(prompt.m_shown.empty()) << "readers show no box";
    return read;
}

SRead Read(const std::string& strBytes, std::deque<bool> okAnswers = {})
{
    const CTemporaryFolder folder;
    return ReadPath(folder.Write("a.nmea", strBytes), std::move(okAnswers));
}

TEST(NmeaReader, MergesSentencesOfOneEpoch)
{
    struct SCase
    {
        std::string strName;
        CLines lines;
        CLines points;
    };
    const SCase cases[] = {
        {"nothing", {}, {}},
        {"RMC alone", {Rmc(1), Rmc(2)}, {RmcPoint(1), RmcPoint(2)}},
        {"RMC, GGA: the direction is lost", {Rmc(1), Gga(1)}, {RmcThenGga(1)}},
        {"GGA, RMC: the direction stays", {Rmc(1), Gga(2), Rmc(2)}, {RmcPoint(1), GgaThenRmc(2)}},
        {"GGA before the first RMC is ignored", {Gga(1), Rmc(1)}, {RmcPoint(1)}},
        {"only GGA", {Gga(1), Gga(2)}, {}},
        {"only ZDA and GLL", {Zda(1), Gll(1), Zda(2), Gll(2)}, {}},
        {"GGA without RMC in its epoch", {Rmc(1), Gga(2), Rmc(3)}, {RmcPoint(1), RmcPoint(3)}},
        {"the last epoch counts too", {Rmc(1), Rmc(2), Gga(2)}, {RmcPoint(1), RmcThenGga(2)}},
        {"an unfinished last epoch does not", {Rmc(1), Gga(2)}, {RmcPoint(1)}},
        {"RMC, GGA, RMC", {Rmc(1), Gga(1), Rmc(1)}, {GgaThenRmc(1)}},
        {"RMC twice", {Rmc(1), Rmc(1)}, {RmcPoint(1)}},
        {"file order", {Rmc(3), Rmc(1), Rmc(2)}, {RmcPoint(3), RmcPoint(1), RmcPoint(2)}},
        {"interleaved epochs do not merge",
         {Rmc(1), Rmc(2), Gga(1), Rmc(3)},
         {RmcPoint(1), RmcPoint(2), RmcPoint(3)}},
        // No position.
        {"RMC without fix behind complete points",
         {Rmc(1), Gga(1), Rmc(2, ""), Rmc(3)},
         {RmcThenGga(1), RmcPoint(3)}},
        {"RMC without fix, then GGA with one: no date source", {Rmc(1, ""), Gga(1), Rmc(2)}, {RmcPoint(2)}},
        {"GGA with a fix, then RMC without", {Rmc(1), Gga(2), Rmc(2, "")}, {RmcPoint(1)}},
        {"RMC with a fix, then GGA without: complete, the position is the later one",
         {Rmc(1), Gga(1, "")},
         {"2024-06-01T12:00:01 0 11.5 dop=18.52 alt=5 hdop=.9 sats=8 fix=1"}},
        {"latitude 0 is no position", {Rmc(1, "0000.0"), Rmc(2)}, {RmcPoint(2)}},
        // ZDA, only before the first RMC.
        {"ZDA, RMC", {Zda(1), Rmc(1)}, {RmcPoint(1)}},
        {"ZDA is the date source of GGA",
         {Zda(1), Rmc(1, ""), Gga(1)},
         {"2024-06-01T12:00:01 48.5 11.5 dop=18.52 alt=5 hdop=.9 sats=8 fix=1"}},
        {"ZDA behind RMC is ignored", {Rmc(1, ""), Zda(1), Gga(1)}, {}},
        {"ZDA of another time does not end the epoch", {Rmc(1), Zda(2), Gga(1)}, {RmcThenGga(1)}},
        {"ZDA of an unreadable date is a source all the same",
         {Zda(1, "24"), Rmc(1, "", "310224"), Gga(1)},
         {"invalid 48.5 11.5 dop=18.52 alt=5 hdop=.9 sats=8 fix=1"}},
        // GLL and VTG, only before the first RMC; GLL needs its date and so is never used.
        {"GLL behind RMC", {Rmc(1), Gll(1), Gll(2)}, {RmcPoint(1)}},
        {"VTG behind RMC", {Rmc(1), Vtg}, {RmcPoint(1)}},
        {"VTG before RMC is overwritten", {Zda(1), Vtg, Rmc(1)}, {RmcPoint(1)}},
        // GSA is of the current point.
        {"GSA behind GGA",
         {Rmc(1), Gga(1), Gsa("1.7")},
         {"2024-06-01T12:00:01 48.5 11.5 dop=18.52 alt=5 hdop=1.7 sats=8 fix=1"}},
        {"GSA before GGA is overwritten", {Rmc(1), Gsa("1.7"), Gga(1)}, {RmcThenGga(1)}},
        {"GSA before RMC of the next epoch is of the last one",
         {Rmc(1), Gsa("1.7"), Rmc(2)},
         {RmcPoint(1) + " hdop=1.7", RmcPoint(2)}},
        {"GSA first of all", {Gsa("1.7"), Rmc(1)}, {RmcPoint(1)}},
        // What is no sentence.
        {"other lines",
         {"", "hello", " " + Rmc(9), "$", "$GP", "$GPRMB,1", "$GNRMC,1", "$gprmc,1", "!AIVDM,1", "GPRMC,1",
          "$GPGSV", "$PGRME,1", Rmc(1), "$GPGSV,3,1"},
         {RmcPoint(1)}},
        {"names longer than theirs", {"$GPRMCX" + Rmc(1).substr(6)}, {RmcPoint(1)}},
        // Checksums.
        {"right, wrong, none, short",
         {Rmc(1) + "*6A", Rmc(2) + "*00", Rmc(3), Rmc(4) + "*", Rmc(5) + "*6A*7B,,,"},
         {RmcPoint(1), RmcPoint(2), RmcPoint(3), RmcPoint(4), RmcPoint(5)}},
        // The date of GGA is that of the last RMC.
        {"empty date: GGA waits again",
         {Rmc(1), Rmc(2, "4830.0", ""), Gga(3), Rmc(3)},
         {RmcPoint(1), "2000-01-01T12:00:02 48.5 11.5 dop=18.52 dir=1.5708", RmcPoint(3)}},
        {"a missing date field changes nothing for GGA",
         {Rmc(1), "$GPRMC,120002,A,4830.0,N,01130.0,E,10.0,090.0", Gga(3), Rmc(3)},
         {RmcPoint(1), "2000-01-01T12:00:02 48.5 11.5 dop=18.52 dir=1.5708", GgaThenRmc(3)}},
        {"the date is kept to 79 characters, here 2002 for GGA",
         {Rmc(1, "4830.0", "0106" + std::string(74, '0') + "24"), Gga(1)},
         {"2024-06-01T12:00:01 48.5 11.5 dop=18.52 dir=1.5708"}},
        {"a date that is none: kept, with an invalid time",
         {Rmc(1), Rmc(2, "4830.0", "310224"), Gga(2), Rmc(3)},
         {RmcPoint(1), "invalid 48.5 11.5 dop=18.52 alt=5 hdop=.9 sats=8 fix=1", RmcPoint(3)}},
        {"epochs without a date stay apart",
         {Rmc(1, "4830.0", "310224"), Rmc(2, "4830.0", "310224"), Rmc(2, "4830.0", "310224")},
         {"invalid 48.5 11.5 dop=18.52 dir=1.5708", "invalid 48.5 11.5 dop=18.52 dir=1.5708"}},
        {"garbage numbers",
         {"$GPRMC,120001,A,4830.0,N,01130.0,E,abc,-,010624,,"},
         {"2024-06-01T12:00:01 48.5 11.5"}},
        {"negative numbers",
         {"$GPRMC,120001,A,4830.0,s,01130.0,w,-10.0,-090.0,010624,,"},
         {"2024-06-01T12:00:01 -48.5 -11.5 dop=-18.52 dir=-1.5708"}},
        {"a NUL ends the line", {std::string("\0junk", 5), Rmc(1) + std::string("\0,,,", 4)}, {RmcPoint(1)}},
        {"quoted fields", {"$GPRMC,\"120001\",A,4830.0,N,01130.0,E,10.0,090.0,\"010624\",,"}, {RmcPoint(1)}},
    };
    for (const SCase& one : cases) {
        const SRead read = Read(Join(one.lines));
        EXPECT_EQ(read.points, one.points) << one.strName;
        EXPECT_TRUE(read.bComplete) << one.strName;
        EXPECT_EQ(read.asked, std::vector<std::string>()) << one.strName;
        EXPECT_EQ(read.strMessage, "") << one.strName;
        EXPECT_FALSE(read.bAborted) << one.strName;
        // The same log through a system that ends lines with LF.
        std::string strUnix = Join(one.lines);
        std::erase(strUnix, '\r');
        EXPECT_EQ(Read(strUnix).points, one.points) << one.strName << " (LF)";
    }
}

TEST(NmeaReader, ReferenceSentence)
{
    const CTemporaryFolder folder;
    CImportMonitor monitor;
    CObjectArray<CTrackPoint> points;
    const std::string strPath =
        folder.Write("a.nmea", "$GPRMC,123519.50,A,4807.038,N,01131.000,E,022.4,084.4,230394,003.1,W*6A\r\n");
    ASSERT_EQ(ReadNmea(monitor, strPath, points), EReadEnd::Complete);
    ASSERT_EQ(points.GetCount(), 1);
    EXPECT_EQ(FormatIsoMillisecond(points[0].m_time), "1994-03-23T12:35:19.500");
    EXPECT_NEAR(points[0].m_position.m_dLatitude, 48.1173, 1e-12);
    EXPECT_NEAR(points[0].m_position.m_dLongitude, 11.516666666666667, 1e-12);
    EXPECT_NEAR(points[0].m_dDoppler, 41.4848, 1e-12);
    EXPECT_NEAR(points[0].m_dDirection, 84.4 * std::acos(-1.0) / 180.0, 1e-12);
    // Points are appended to those that are there.
    ASSERT_EQ(ReadNmea(monitor, strPath, points), EReadEnd::Complete);
    EXPECT_EQ(points.GetCount(), 2);
}

TEST(NmeaReader, TooFewFieldsAsk)
{
    struct SCase
    {
        std::string strLine; ///< with the fewest fields
        bool bOnlyBeforeRmc; ///< ignored, so not asked about, behind an RMC
        bool bNeedsDate;     ///< ignored before one
    };
    const SCase cases[] = {
        {"$GPGGA,120005,4830.0,N,01130.0,E,1,08,0.9,5.0,M,46.9", false, true},
        {"$GPGLL,4730.0,N,01230.0,E,120005,A", true, true},
        {"$GPRMC,120005,A,4830.0,N,01130.0,E,10.0,090.0", false, false},
        {"$GPZDA,120005,01,06,2024,00", true, false},
        {Vtg, true, false},
        {Gsa("1.7"), false, false},
    };
    for (const SCase& one : cases) {
        const std::string strShort = one.strLine.substr(0, one.strLine.rfind(','));
        const std::string strStart = one.strLine.substr(0, 6);
        for (const bool bBehindRmc : {false, true}) {
            const CLines before = bBehindRmc ? CLines{Rmc(1)} : CLines{};
            const bool bUsed = bBehindRmc ? !one.bOnlyBeforeRmc : !one.bNeedsDate;
            CLines lines = before;
            lines.push_back(one.strLine);
            EXPECT_EQ(Read(Join(lines)).asked.size(), 0U) << one.strLine;
            for (const std::string& strBad : {strShort, strStart, strShort + "*6A,,,,,,,,,,,,,,,,,"}) {
                lines.back() = strBad;
                const SRead read = Read(Join(lines));
                EXPECT_EQ(read.asked, std::vector<std::string>(bUsed ? 1 : 0, std::string(Question)))
                    << strBad;
                EXPECT_TRUE(read.bComplete);
                std::vector<std::int64_t> issueLines;
                for (const SImportIssue& issue : read.issues)
                    issueLines.push_back(issue.nLine);
                EXPECT_EQ(issueLines,
                          std::vector<std::int64_t>(bUsed ? 1 : 0, static_cast<std::int64_t>(lines.size())))
                    << strBad;
            }
        }
    }
}

TEST(NmeaReader, AnswerToTheQuestion)
{
    const std::string strSevenFields = "$GPGGA,120002,4830.0,N,01130.0,E,1";
    const std::string strShortRmc = "$GPRMC,120001,A,4830.0,N,01130.0,E,10.0";
    struct SCase
    {
        std::string strName;
        CLines lines;
        std::deque<bool> okAnswers;
        CLines points;
        bool bComplete;
        std::size_t nAsked;
    };
    const SCase cases[] = {
        {"OK goes on with the next line",
         {Rmc(1), Rmc(2), strSevenFields, Gga(2), Rmc(3)},
         {true},
         {RmcPoint(1), RmcThenGga(2), RmcPoint(3)},
         true,
         1},
        {"Cancel keeps the points so far and drops the current one",
         {Rmc(1), Rmc(2), strSevenFields, Gga(2), Rmc(3)},
         {false},
         {RmcPoint(1)},
         false,
         1},
        {"Cancel before any point", {strShortRmc, Rmc(1), Rmc(2)}, {false}, {}, false, 1},
        {"OK, then Cancel",
         {Rmc(1), Rmc(2), strSevenFields, Rmc(3), strShortRmc, Rmc(4)},
         {true, false},
         {RmcPoint(1), RmcPoint(2)},
         false,
         2},
        {"a refused RMC tells no date: GGA still waits",
         {"$GPRMC,120001,A,,,,,010624", Gga(1), Rmc(1)},
         {true},
         {RmcPoint(1)},
         true,
         1},
        {"a refused RMC does not count as seen: ZDA is still used",
         {strShortRmc, Zda(1), Rmc(1, ""), Gga(1)},
         {true},
         {RmcThenGga(1)},
         true,
         1},
        {"a refused RMC leaves the date of the one before",
         {Rmc(1), "$GPRMC,120002,A,,,,", Gga(2), Rmc(2)},
         {true},
         {RmcPoint(1), GgaThenRmc(2)},
         true,
         1},
        {"no all-zero point for a refused sentence", {strShortRmc, strShortRmc}, {true, true}, {}, true, 2},
    };
    for (const SCase& one : cases) {
        const SRead read = Read(Join(one.lines), one.okAnswers);
        EXPECT_EQ(read.points, one.points) << one.strName;
        EXPECT_EQ(read.bComplete, one.bComplete) << one.strName;
        EXPECT_EQ(read.asked, std::vector<std::string>(one.nAsked, std::string(Question))) << one.strName;
    }
}

/// A monitor whose user stops after so many looks at the flag.
class CAbortingMonitor : public CImportMonitor
{
public:
    explicit CAbortingMonitor(int nLooks) : m_nLooks(nLooks) {}
    bool IsAborted() const override { return CImportMonitor::IsAborted() || --m_nLooks < 0; }

private:
    mutable int m_nLooks;
};

TEST(NmeaReader, AbortedMonitorStopsAfterTheLine)
{
    const CTemporaryFolder folder;
    const std::string strPath = folder.Write("a.nmea", Join({Rmc(1), Rmc(2), Rmc(3), Rmc(4)}));
    for (int nLooks = 0; nLooks <= 4; ++nLooks) {
        CAbortingMonitor monitor(nLooks);
        CObjectArray<CTrackPoint> points;
        EXPECT_EQ(ReadNmea(monitor, strPath, points), nLooks == 4 ? EReadEnd::Complete : EReadEnd::Stopped);
        EXPECT_EQ(points.GetCount(), nLooks == 4 ? 4 : std::max(0, nLooks - 1)) << nLooks;
    }
}

TEST(NmeaReader, OpenFailureAbortsAndReportsNameAndCause)
{
    const CTemporaryFolder folder;
    const std::pair<std::string, std::string> cases[] = {
        {folder.Path("missing.nmea"), "The file could not be located"},
        {folder.Path(""), "The file could not be accessed"},
        {folder.Path(std::string(300, 'a') + ".nmea"), "All or part of the path is invalid"},
        {folder.Write("file", "") + "/a.nmea", "All or part of the path is invalid"},
    };
    for (const auto& [strPath, strCause] : cases) {
        const SRead read = ReadPath(strPath);
        EXPECT_FALSE(read.bComplete);
        EXPECT_THAT(read.strMessage,
                    testing::AllOf(testing::HasSubstr(strPath), testing::HasSubstr(strCause)));
        EXPECT_TRUE(read.bAborted);
        EXPECT_EQ(read.points, CLines());
    }
}

// However a log breaks off, only its last point can suffer.
TEST(NmeaReader, EveryPrefixOfALogLoads)
{
    CLines lines = {"\xEF\xBB\xBF"
                    "#log",
                    Zda(0), Gga(0), Vtg, Gll(0)};
    for (int n = 0; n < 10; ++n) {
        lines.push_back((n % 2 == 0 ? Rmc(n) : Gga(n)) + "*5C");
        lines.push_back((n % 2 == 0 ? Gga(n) : Rmc(n)) + "*11");
        lines.push_back(Gsa("1." + std::to_string(n)));
    }
    const std::string strWhole = Join(lines);
    const CLines all = Read(strWhole).points;
    ASSERT_EQ(all.size(), 10U);
    const CTemporaryFolder folder;
    const std::string strPath = folder.Write("a.nmea", strWhole);
    for (std::size_t nLength = strWhole.size(); nLength-- > 0;) {
        std::filesystem::resize_file(strPath, nLength);
        CLines points = ReadPath(strPath).points;
        ASSERT_LE(points.size(), all.size()) << nLength;
        if (!points.empty())
            points.pop_back();
        ASSERT_EQ(points, CLines(all.begin(), all.begin() + static_cast<std::ptrdiff_t>(points.size())))
            << nLength;
    }
}

} // namespace
} // namespace kestrabel::test
