#include "formats/GpxReader.h"

#include "formats/PointText.h"
#include "formats/ScriptedPrompt.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace kestrabel::test {
namespace {

using CTexts = std::vector<std::string>;

struct SRead
{
    CTexts points;
    bool bComplete = false;
    std::string strMessage;
    bool bAborted = false;
    std::size_t nIssues = 0;
};

SRead ReadPath(const std::string& strPath)
{
    CScriptedPrompt prompt;
    CImportMonitor monitor(&prompt);
    CObjectArray<CTrackPoint> points;
    SRead read;
    read.bComplete = ReadGpx(monitor, strPath, points) == EReadEnd::Complete;
    read.points = PointTexts(points);
    read.strMessage = monitor.Message();
    read.bAborted = monitor.IsAborted();
    read.nIssues = monitor.Issues().size();
    EXPECT_TRUE(prompt.m_shown.empty() && prompt.m_asked.empty()) << "the reader reports and shows nothing";
    return read;
}

SRead Read(std::string_view strBytes)
{
    const CTemporaryFolder folder;
    return ReadPath(folder.Write("a.gpx", strBytes));
}

std::string InSegment(std::string_view strPoints)
{
    return "<gpx><trk><trkseg>" + std::string(strPoints) + "</trkseg></trk></gpx>";
}

constexpr std::string_view Zero = "1899-12-30T00:00:00"; // the time of a point without one
const std::string Bare = std::string(Zero) + " 1 2";
constexpr std::string_view Point = "<trkpt lat='1' lon='2'/>";

void ExpectNotLoaded(const SRead& read, std::string_view strWhat)
{
    EXPECT_FALSE(read.bComplete) << strWhat;
    EXPECT_EQ(read.points, CTexts()) << strWhat;
    EXPECT_EQ(read.strMessage, "failed to load XML document") << strWhat;
    EXPECT_FALSE(read.bAborted) << strWhat;
    EXPECT_EQ(read.nIssues, 1U) << strWhat << ": the parser's own words are kept";
}

TEST(GpxReader, ValuesOfAPoint)
{
    struct SCase
    {
        std::string_view strChildren;
        std::string_view strValues;
    };
    const SCase cases[] = {
        {"", " 1 2"},
        {"<speed>5.0</speed>", " 1 2 dop=18"},
        {"<dplr>5</dplr>", " 1 2 dop=18"},
        {"<ele>1234.9</ele>", " 1 2 alt=1234"},
        {"<ele>-0.9</ele>", " 1 2"},
        {"<ele>-12.9</ele>", " 1 2 alt=-12"},
        {"<ele>1e99</ele>", " 1 2 alt=2147483647"},
        {"<sat>7</sat>", " 1 2 sats=7"},
        {"<sats>8.9</sats>", " 1 2 sats=8"},
        {"<HDOP>1.25</HDOP>", " 1 2 hdop=1.25"},
        {"<hdop>1.25</hdop><Speed>5</Speed><ELE>5</ELE><Sat>5</Sat>", " 1 2"},
        {"<x:speed>5</x:speed><speeds>5</speeds><course>5</course>", " 1 2"},
        // A later element of the same kind overwrites an earlier one, with nothing, too.
        {"<speed>5</speed><dplr>1</dplr>", " 1 2 dop=3.6"},
        {"<dplr>1</dplr><speed>5</speed>", " 1 2 dop=18"},
        {"<sat>7</sat><sats>8</sats><ele>1</ele><ele>2</ele>", " 1 2 alt=2 sats=8"},
        {"<sat>7</sat><sat/><speed>5</speed><speed>abc</speed>", " 1 2"},
        // Values that are no numbers.
        {"<speed>abc</speed><ele></ele><sat>-</sat><HDOP>nan</HDOP>", " 1 2"},
        {"<speed>inf</speed><HDOP>1,5</HDOP>", " 1 2 hdop=1"},
        // The text of an element, however it is put.
        {"<ele>\r\n  12 \n</ele>", " 1 2 alt=12"},
        {"<ele><![CDATA[12]]></ele>", " 1 2 alt=12"},
        {"<ele>1<!-- a comment -->2<?pi 9?>3</ele>", " 1 2 alt=123"},
        {"<ele>&#49;2</ele>", " 1 2 alt=12"},
        {"<ele><b>1<c>2</c></b>3</ele>", " 1 2 alt=123"},
        {"<ele unit='m'>12</ele>", " 1 2 alt=12"},
        {"text <ele>12</ele> text 9", " 1 2 alt=12"},
        {"<a>9</a><ele>12</ele><a>9</a>", " 1 2 alt=12"},
        {"<ele>1<speed>2</speed>3</ele>", " 1 2 alt=123"},
        // Extensions are not looked into.
        {"<extensions><speed>5</speed><a><ele>5</ele></a></extensions>", " 1 2"},
        {"<extensions><trkpt lat='3' lon='4'/></extensions>", " 1 2"},
        {"<trkpt lat='3' lon='4'><ele>5</ele></trkpt>", " 1 2"},
    };
    for (const SCase& one : cases) {
        const SRead read =
            Read(InSegment("<trkpt lat='1' lon='2'>" + std::string(one.strChildren) + "</trkpt>"));
        EXPECT_EQ(read.points, CTexts{std::string(Zero).append(one.strValues)}) << one.strChildren;
        EXPECT_TRUE(read.bComplete) << one.strChildren;
        EXPECT_EQ(read.strMessage, "") << one.strChildren;
    }
    EXPECT_EQ(Read(InSegment("<trkpt lat='1' lon='2'><time>2007-05-01T10:20:30.4567Z</time></trkpt>"
                             "<trkpt lat='1' lon='2'><time>2007-05-01T10:20:30Z</time><time/></trkpt>"
                             "<trkpt lat='1' lon='2'><time>2007-13-01T10:20:30Z</time></trkpt>"))
                  .points,
              (CTexts{"2007-05-01T10:20:30.457 1 2", Bare, "invalid 1 2"}));
}

TEST(GpxReader, AttributeTexts)
{
    const std::pair<std::string_view, std::string_view> cases[] = {
        {"lat='+.5000000000' lon='-33.8000000000'", " .5 -33.8"},
        {"lon='2' lat='1'", " 1 2"},
        {"lat=' 1.5 ' lon='\t2'", " 1.5 2"},
        {"lat='' lon='abc'", " 0 0"},
        {"lat='nan' lon='inf'", " 0 0"},
        {"lat='48,5' lon='1.5x'", " 48 1.5"},
        {"lat='1e1' lon='&#50;'", " 10 2"},
        {"lat='91' lon='-181'", " 91 -181"},
        {"lat='1' lon='2' LAT='9' x:lat='9' ele='9'", " 1 2"},
    };
    for (const auto& [strAttributes, strPosition] : cases) {
        const SRead read = Read(InSegment("<trkpt " + std::string(strAttributes) + "/>"));
        EXPECT_EQ(read.points, CTexts{std::string(Zero).append(strPosition)}) << strAttributes;
        EXPECT_TRUE(read.bComplete) << strAttributes;
    }
}

TEST(GpxReader, PointsAreTakenAtOnePlaceOnly)
{
    const std::pair<std::string, int> cases[] = {
        {"<gpx><trk><trkseg>P</trkseg></trk></gpx>", 1},
        {"<anything><child><trkseg>P</trkseg></child></anything>", 1}, // their names are not asked
        {"<gpx><rte><trkseg>P</trkseg></rte><wpt><trkseg>P</trkseg></wpt></gpx>", 2},
        {"<gpx><trk><trkseg>PP</trkseg><trkseg>P</trkseg></trk><trk><trkseg>P</trkseg></trk></gpx>", 4},
        {"<gpx><trk><name>x</name><trkseg>P</trkseg><x/></trk></gpx>", 1},
        {"<gpx><trk><trkseg>text<x/>P<x>P</x>P</trkseg></trk></gpx>", 2},
        {"<gpx><trk><trkseg><!--P-->P</trkseg></trk></gpx>", 1},
        {"<gpx><trk><trkseg/>P</trk></gpx>", 0},
        {"<gpx><trk><seg>P</seg><trkseg/><seg>P</seg></trk></gpx>", 0},
        {"<gpx><trk><Trkseg>P</Trkseg><x:trkseg>P</x:trkseg></trk></gpx>", 0},
        {"<gpx><trkseg>P</trkseg></gpx>", 0},
        {"<gpx><trkseg><trkseg>P</trkseg></trkseg></gpx>", 1},
        {"<trk><trkseg>P</trkseg></trk>", 0},
        {"<gpx><a><trk><trkseg>P</trkseg></trk></a></gpx>", 0},
        {"<gpx>P<trk>P</trk></gpx>", 0},
        {"<gpx><trk><trkseg><extensions>P</extensions></trkseg></trk></gpx>", 0},
        {"<gpx><trk><extensions><trkseg>P</trkseg></extensions></trk></gpx>", 0},
        {"<gpx><trk><trkseg><x:trkpt lat='1' lon='2'/><Trkpt lat='1' lon='2'/></trkseg></trk></gpx>", 0},
        {"<gpx><wpt lat='1' lon='2'/><rte><rtept lat='1' lon='2'/></rte></gpx>", 0},
        {"<x:gpx xmlns:x='u' xmlns='v'><trk><trkseg>P</trkseg></trk></x:gpx>", 1},
        {"<gpx/>", 0},
    };
    for (const auto& [strShape, nPoints] : cases) {
        std::string strBytes = strShape;
        for (std::size_t n = strBytes.find('P'); n != std::string::npos;
             n = strBytes.find('P', n + Point.size()))
            strBytes.replace(n, 1, Point);
        const SRead read = Read(strBytes);
        EXPECT_EQ(read.points, CTexts(static_cast<std::size_t>(nPoints), Bare)) << strShape;
        EXPECT_TRUE(read.bComplete) << strShape;
    }
}

TEST(GpxReader, MissingPositionEndsReading)
{
    for (const std::string_view strBad : {"<trkpt lon='2'/>", "<trkpt lat='2'/>", "<trkpt/>",
                                          "<trkpt Lat='1' lon='2'/>", "<trkpt lon='2'><ele>5</ele></trkpt>"})
    {
        const std::string strTwo = std::string(Point).append(Point);
        const std::string strBefore = strTwo + std::string(strBad);
        const SRead read = Read(InSegment(strBefore + strTwo + std::string(strBad)));
        EXPECT_EQ(read.points, (CTexts{Bare, Bare})) << strBad;
        EXPECT_FALSE(read.bComplete) << strBad;
        EXPECT_EQ(read.strMessage, "Failed to read xml file") << strBad;
        EXPECT_TRUE(read.bAborted) << strBad;

        const SRead first = Read(InSegment(std::string(strBad) + strTwo));
        EXPECT_EQ(first.points, CTexts()) << strBad;
        EXPECT_EQ(first.strMessage, "Failed to read xml file") << strBad;

        // A document that is broken further on was never loaded at all.
        const SRead broken = Read("<gpx><trk><trkseg>" + strBefore + "</trk></gpx>");
        EXPECT_EQ(broken.points, CTexts()) << strBad;
        EXPECT_EQ(broken.strMessage, "failed to load XML document") << strBad;
        EXPECT_FALSE(broken.bAborted) << strBad;
    }
    // Elsewhere a point needs none.
    EXPECT_EQ(Read("<gpx><wpt/><rte><rtept/></rte><trk><trkseg>" + std::string(Point) +
                   "<extensions><trkpt/></extensions></trkseg></trk></gpx>")
                  .points,
              CTexts{Bare});
}

TEST(GpxReader, PointsAreAppended)
{
    const CTemporaryFolder folder;
    const std::string strPath = folder.Write("a.gpx", InSegment(Point));
    CImportMonitor monitor;
    CObjectArray<CTrackPoint> points;
    ASSERT_EQ(ReadGpx(monitor, strPath, points), EReadEnd::Complete);
    ASSERT_EQ(ReadGpx(monitor, strPath, points), EReadEnd::Complete);
    EXPECT_EQ(ReadGpx(monitor, folder.Write("b.gpx", "<gpx>"), points), EReadEnd::Failed);
    EXPECT_EQ(points.GetCount(), 2);
}

TEST(GpxReader, EveryBrokenPrefixGivesNothing)
{
    std::string strBody;
    for (int n = 0; n < 3; ++n) {
        strBody += "<trkpt lat=\"+48.5000000000\" lon=\"-" + std::to_string(n) +
                   ".5\"> <ele>5</ele> <time>2024-06-01T12:00:0" + std::to_string(n) +
                   "Z</time> <speed>5.25</speed> <HDOP>.9</HDOP> <sat>8</sat> </trkpt>\r\n";
    }
    const std::string strWhole =
        "\xEF\xBB\xBF<?xml version=\"1.0\"?>\r\n<!-- of a \xC3\xA9v\xC3\xA9nement -->\r\n"
        "<gpx version=\"1.0\">\r\n<trk>\r\n<name>\"R&amp;D\"</name>\r\n<trkseg>\r\n" +
        strBody + "</trkseg>\r\n</trk>\r\n</gpx>\r\n";
    const std::size_t nRootEnd = strWhole.rfind('>') + 1;
    ASSERT_EQ(Read(strWhole).points.size(), 3U);
    const CTemporaryFolder folder;
    const std::string strPath = folder.Write("a.gpx", strWhole);
    for (std::size_t nLength = strWhole.size(); nLength-- > 0;) {
        std::filesystem::resize_file(strPath, nLength);
        const SRead read = ReadPath(strPath);
        if (nLength < nRootEnd)
            ExpectNotLoaded(read, "prefix of " + std::to_string(nLength));
        else
            EXPECT_EQ(read.points.size(), 3U) << nLength;
    }
}

TEST(GpxReader, NotLoaded)
{
    const std::string strGood = InSegment(std::string(Point).append(Point));
    const std::pair<std::string_view, std::string> cases[] = {
        {"text", "hello"},
        {"NMEA", "$GPRMC,1\r\n"},
        {"junk behind the root", strGood + "x"},
        {"second root", strGood + strGood},
        {"NUL", strGood + std::string(1, '\0')},
        {"declaration not first", " <?xml version='1.0'?>" + strGood},
        {"bare ampersand", InSegment(std::string(Point) + "&")},
        {"unknown entity", InSegment(std::string(Point) + "&nope;")},
        {"control character", InSegment(std::string(Point) + "\x01")},
        {"attribute twice", InSegment("<trkpt lat='1' lat='2' lon='3'/>")},
        {"wrong UTF-8", InSegment(std::string(Point) + "\xE9")},
        {"unknown encoding", "<?xml version='1.0' encoding='klingon'?>" + strGood},
        {"entity bomb", "<!DOCTYPE gpx [<!ENTITY a 'aaaaaaaaaa'><!ENTITY b '&a;&a;&a;&a;&a;&a;&a;&a;'>"
                        "<!ENTITY c '&b;&b;&b;&b;&b;&b;&b;&b;'>]>" +
                            InSegment("<trkpt lat='1' lon='2'><ele>&c;</ele></trkpt>")},
        {"external entity", "<!DOCTYPE gpx [<!ENTITY x SYSTEM 'file:///etc/passwd'>]>" +
                                InSegment("<trkpt lat='1' lon='2'><ele>&x;</ele></trkpt>")},
        {"parameter entity", "<!DOCTYPE gpx [<!ENTITY % x SYSTEM 'file:///etc/passwd'> %x;]>" + strGood},
    };
    for (const auto& [strWhat, strBytes] : cases)
        ExpectNotLoaded(Read(strBytes), strWhat);

    const CTemporaryFolder folder;
    ExpectNotLoaded(ReadPath(folder.Path("missing.gpx")), "missing file");
    ExpectNotLoaded(ReadPath(folder.Path("")), "a folder");
}

TEST(GpxReader, EncodingsAndDocumentTypes)
{
    const std::string strPoint = InSegment(Point);
    std::string strWide = "\xFF\xFE";
    for (const char c : "<?xml version='1.0' encoding='UTF-16'?>" + strPoint)
        strWide += std::string{c, '\0'};
    const std::string cases[] = {
        "\xEF\xBB\xBF" + strPoint,
        "<?xml version='1.0' encoding='UTF-8' standalone='no'?>" + strPoint,
        "<?xml version='1.0' encoding='ISO-8859-1'?><!-- \xE9 -->" + strPoint,
        "<?xml version='1.0' encoding='Windows-1252'?><!-- \x80 \x81 -->" + strPoint,
        "<?xml version='1.0' encoding='us-ascii'?>" + strPoint,
        strWide,
        "<!DOCTYPE gpx>" + strPoint,
        "<!DOCTYPE gpx SYSTEM 'http://kestrabel.invalid/gpx.dtd'>" + strPoint,
        "<?xml-stylesheet href='a.css'?>\r\n" + strPoint + "\r\n<!-- end -->\r\n",
    };
    for (const std::string& strBytes : cases) {
        const SRead read = Read(strBytes);
        EXPECT_EQ(read.points, CTexts{Bare}) << strBytes;
        EXPECT_TRUE(read.bComplete);
    }
}

} // namespace
} // namespace kestrabel::test
