#include "formats/NmeaReader.h"

#include "formats/PointText.h"
#include "formats/ScriptedPrompt.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <sstream>

namespace kestrabel::test {
namespace {

using CLines = std::vector<std::string>;

constexpr std::string_view Question = "Unknown file format. Failed to read line. \n Do you wish to continue?";

/// What a letter and the second after noon of 1 June 2024 stand for: a sentence at 48.5 N, 11.5 E (small
/// letters: without a position), x and y one with too few fields, e one without a date.
/// Anything else is a line as it is.
std::string Line(const std::string& strCode)
{
    const std::string strTime = "12000" + strCode.substr(1);
    switch (strCode[0]) {
    case 'R': return "$GPRMC," + strTime + ",A,4830.0,N,01130.0,E,10.0,090.0,010624,,*00";
    case 'r': return "$GPRMC," + strTime + ",A,,N,01130.0,E,10.0,090.0,010624,,";
    case 'e': return "$GPRMC," + strTime + ",A,4830.0,N,01130.0,E,10.0,090.0,,,";
    case 'x': return "$GPRMC," + strTime + ",A,4830.0,N,01130.0,E,10.0*6A,,,,,,";
    case 'G': return "$GPGGA," + strTime + ",4830.0,N,01130.0,E,1,08,0.9,5.0,M,46.9";
    case 'g': return "$GPGGA," + strTime + ",,N,01130.0,E,1,08,0.9,5.0,M,46.9,M,,";
    case 'y': return "$GPGGA," + strTime + ",4830.0,N,01130.0,E,1,08,0.9,5.0,M";
    case 'L': return "$GPGLL,4730.0,N,01230.0,E," + strTime + ",A";
    case 'Z': return "$GPZDA," + strTime + ",01,06,2024,00";
    case 'V': return "$GPVTG,90.0,T,,M,30.0,N,55.5,K";
    case 'S': return "$GPGSA,A,3,01,02,03,04,05,06,07,08,,,,,2.5,1.7,2.1";
    default: return strCode;
    }
}

std::string Log(const std::string& strCodes, const std::string& strEnd = "\r\n")
{
    std::istringstream codes(strCodes);
    std::string strText, strCode;
    while (codes >> strCode)
        strText += Line(strCode) + strEnd;
    return strText;
}

/// What becomes of R, of R and then G (M), and of G and then R (C).
std::string Point(const std::string& strCode)
{
    if (std::string_view("RMC").find(strCode[0]) == std::string_view::npos)
        return strCode;
    return "2024-06-01T12:00:0" + strCode.substr(1) + " 48.5 11.5 dop=18.52" +
           (strCode[0] == 'M' ? "" : " dir=1.5708") +
           (strCode[0] == 'R' ? "" : " alt=5 hdop=.9 sats=8 fix=1");
}

/// The points, a question mark for every question, an exclamation mark when reading was stopped.
CLines Read(const std::string& strBytes, std::deque<bool> okAnswers = {})
{
    const CTemporaryFolder folder;
    CScriptedPrompt prompt(std::move(okAnswers));
    CImportMonitor monitor(&prompt);
    CObjectArray<CTrackPoint> points;
    const EReadEnd end = ReadNmea(monitor, folder.Write("a.nmea", strBytes), points);
    CLines read = PointTexts(points);
    for (const std::string& strAsked : prompt.m_asked)
        read.push_back(strAsked == Question ? "?" : strAsked);
    if (end == EReadEnd::Stopped)
        read.emplace_back("!");
    return read;
}

TEST(NmeaReader, MergesSentencesOfOneEpoch)
{
    const struct
    {
        std::string strLog;
        std::deque<bool> okAnswers;
        CLines points;
    } cases[] = {
        {"R3 R1 R1 R2", {}, {"R3", "R1", "R2"}},
        {"R1 G1 R1 R2 G2", {}, {"C1", "M2"}},    // GGA loses the direction; the last epoch counts too
        {"G1 R1 G2 R2", {}, {"R1", "C2"}},       // no GGA before the first RMC
        {"R1 R2 G1 R3", {}, {"R1", "R2", "R3"}}, // interleaved epochs do not merge
        {"Z1 L1 Z2 L2 S", {}, {}},
        // No position.
        {"R1 G1 r2 R3", {}, {"M1", "R3"}},
        {"r1 G1 R2 G3 r3", {}, {"R2"}}, // no date source, no position
        {"R1 g1", {}, {"2024-06-01T12:00:01 0 11.5 dop=18.52 alt=5 hdop=.9 sats=8 fix=1"}},
        // ZDA, GLL and VTG only before the first RMC; GLL needs its date and so is never used.
        {"Z1 r1 G1", {}, {"M1"}}, // ZDA is the date source
        {"r1 Z1 G1", {}, {}},
        {"Z1 V R1 Z2 V L2 G1", {}, {"M1"}},
        // GSA is of the current point.
        {"R1 S R2 S G2", {}, {Point("R1") + " hdop=1.7", "M2"}},
        // GGA waits for a date again; a date that is none.
        {"R1 e2 G3 R3", {}, {"R1", "2000-01-01T12:00:02 48.5 11.5 dop=18.52 dir=1.5708", "R3"}},
        {"$GPRMC,\"120001\",A,4830.0,s,01130.0,w,0,-,310224", {}, {"invalid -48.5 -11.5"}},
        // Checksums are not verified, other lines not read.
        {"R1 R2 $ $GNRMC,1 $gprmc,1 !AIVDM,1 $GPGSV", {}, {"R1", "R2"}},
        // Too few fields: OK goes on, Cancel keeps the points so far and drops the current one.
        {"R1 R2 y2 G2 R3", {true}, {"R1", "M2", "R3", "?"}},
        {"R1 R2 x3 y2 G2 R3", {true, false}, {"R1", "?", "?", "!"}},
        {"x1 Z1 r1 G1 x2", {true, true}, {"M1", "?", "?"}}, // a refused RMC has not been seen
        {"$GPZDA,120005,01,06,2024 $GPVTG,90.0,T,,M,30.0,N,55.5", {}, {"?", "?"}},
        {"$GPGSA,A,3,01,02,03,04,05,06,07,08,,,,,2.5,1.7", {}, {"?"}},
    };
    for (const auto& one : cases) {
        CLines expected;
        for (const std::string& strCode : one.points)
            expected.push_back(Point(strCode));
        for (const std::string strEnd : {"\r\n", "\n"})
            EXPECT_EQ(Read(Log(one.strLog, strEnd), one.okAnswers), expected) << one.strLog;
    }
}

// However a log breaks off, only its last point can suffer.
TEST(NmeaReader, EveryPrefixOfALogLoads)
{
    const std::string strWhole = Log("Z0 G0 V L0 R0 G0 S G1 R1 S R2 G2 S G3 R3 S R4 G4");
    CLines all = Read(strWhole);
    ASSERT_EQ(all.size(), 5U);
    for (std::size_t nLength = strWhole.size(); nLength-- > 0;) {
        CLines points = Read(strWhole.substr(0, nLength));
        std::erase(points, "?");
        ASSERT_LE(points.size(), 5U);
        for (std::size_t n = 0; n + 1 < points.size(); ++n)
            ASSERT_EQ(points[n], all[n]) << nLength;
    }
}

} // namespace
} // namespace kestrabel::test
