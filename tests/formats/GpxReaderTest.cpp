#include "formats/GpxReader.h"

#include "formats/GpxTime.h"
#include "formats/PointText.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace kestrabel::test {
namespace {

using CTexts = std::vector<std::string>;

const std::string Bare = "1899-12-30T00:00:00 1 2"; // a point without a time
const std::string Point = "<trkpt lat='1' lon='2'/>";

std::string InSegment(const std::string& strPoints)
{
    return "<gpx><trk><trkseg>" + strPoints + "</trkseg></trk></gpx>";
}

/// The points of a document and the message of its reader, if there is one.
CTexts Read(const std::string& strBytes)
{
    const CTemporaryFolder folder;
    CImportMonitor monitor;
    CObjectArray<CTrackPoint> points;
    const EReadEnd end = ReadGpx(monitor, folder.Write("a.gpx", strBytes), points);
    CTexts texts = PointTexts(points);
    if (!monitor.Message().empty())
        texts.push_back(monitor.Message());
    EXPECT_EQ(end, monitor.Message().empty() ? EReadEnd::Complete : EReadEnd::Failed);
    EXPECT_EQ(monitor.Issues().empty(), monitor.Message().empty()) << "why is kept";
    return texts;
}

TEST(GpxTime, Table)
{
    const std::pair<std::string_view, std::string_view> cases[] = {
        {"2007-05-01T10:20:30.4565Z", "2007-05-01T10:20:30.457"},
        {"2007-05-01T10:20:30.5-07:00", "2007-05-01T10:20:30.500"}, // the zone is not interpreted
        // What is not reached is 0.
        {"2007-05-01 10:20:30Z", "2007-05-01T00:00:00.000"},
        {"2007-05", "invalid"}, // no day
        // Blanks before a number are skipped.
        {" \r\n2007- 05- 01T 10: 20: 30Z\n", "2007-05-01T10:20:30.000"},
        // Seconds that carry.
        {"2007-12-31T23:59:59.9996Z", "2008-01-01T00:00:00.000"},
        {"2007-05-01T10:20:60.9996Z", "2007-05-01T10:21:01.000"},
        {"2007-05-01T10:20:61Z", "invalid"},
        // Fields that name no date.
        {"2007-05-01T-1:20:00Z", "invalid"},
        // No number at all: the time 0.0.
        {"", "1899-12-30T00:00:00.000"},
    };
    for (const auto& [strText, strExpected] : cases) {
        const DATE time = ParseGpxTime(strText);
        EXPECT_EQ(time.IsValid() ? FormatIsoMillisecond(time) : "invalid", strExpected) << strText;
    }
}

TEST(GpxReader, ValuesOfAPoint)
{
    const std::pair<std::string, std::string> cases[] = {
        {"<speed>5.0</speed><ele>-12.9</ele><sats>8.9</sats><HDOP>1.25</HDOP>",
         " dop=18 alt=-12 hdop=1.25 sats=8"},
        {"<dplr>5</dplr><sat>7</sat>", " dop=18 sats=7"},
        {"<hdop>1</hdop><Speed>5</Speed><x:speed>5</x:speed><speeds>5</speeds>", ""},
        // A later element of the same kind overwrites an earlier one, with nothing, too.
        {"<sat>7</sat><sats>8</sats><speed>5</speed><dplr>abc</dplr>", " sats=8"},
        // The text of an element, however it is put.
        {"<ele>\r\n  1<![CDATA[2]]><!-- a comment -->&#51;<b>4</b><speed>2</speed> \n</ele>text 9",
         " alt=12342"},
        // Extensions are not looked into.
        {"<extensions><speed>5</speed><trkpt lat='3' lon='4'/></extensions>", ""},
    };
    for (const auto& [strChildren, strValues] : cases)
        EXPECT_EQ(Read(InSegment("<trkpt lat='1' lon='2'>" + strChildren + "</trkpt>")),
                  CTexts{Bare + strValues});
    EXPECT_EQ(Read(InSegment("<trkpt lat='+.5' lon=' -33.8000'><time>2007-05-01T10:20:30.4567Z</time></trkpt>"
                             "<trkpt lon='1.5x' lat='' x:lat='9'><time>2007-13-01T10:20:30Z</time></trkpt>")),
              (CTexts{"2007-05-01T10:20:30.457 .5 -33.8", "invalid 0 1.5"}));
}

TEST(GpxReader, PointsAreTakenAtOnePlaceOnly)
{
    const std::pair<std::string, std::size_t> cases[] = {
        {"<anything><child><trkseg>P</trkseg></child></anything>", 1}, // their names are not asked
        {"<gpx><trk><trkseg>PP</trkseg><x/><trkseg>P</trkseg></trk><rte><trkseg>P</trkseg></rte></gpx>", 4},
        {"<gpx><trk><trkseg>text<x/>P<x>P</x><!--P-->P</trkseg>P<seg>P</seg></trk></gpx>", 2},
        {"<gpx><trk><Trkseg>P</Trkseg><x:trkseg>P</x:trkseg></trk><trkseg>P</trkseg></gpx>", 0},
        {"<gpx><trk><trkseg><x:trkpt/><extensions><trkpt/></extensions></trkseg></trk></gpx>", 0},
        {"<x:gpx xmlns:x='u' xmlns='v'><trk><trkseg>P</trkseg></trk></x:gpx>", 1},
    };
    for (const auto& [strShape, nPoints] : cases) {
        std::string strBytes = strShape;
        for (std::size_t n = 0; (n = strBytes.find('P', n)) != std::string::npos;)
            strBytes.replace(n, 1, Point);
        EXPECT_EQ(Read(strBytes), CTexts(nPoints, Bare)) << strShape;
    }
}

TEST(GpxReader, MissingPositionEndsReading)
{
    for (const std::string strBad : {"<trkpt lon='2'/>", "<trkpt lat='2'/>", "<trkpt Lat='1' lon='2'/>"}) {
        EXPECT_EQ(Read(InSegment(Point + strBad + Point)), (CTexts{Bare, "Failed to read xml file"}));
        // A document that is broken further on was never loaded at all.
        EXPECT_EQ(Read("<gpx><trk><trkseg>" + Point + strBad + "</trk></gpx>").size(), 1U);
    }
}

TEST(GpxReader, ABrokenDocumentGivesNothing)
{
    const std::string strGood = InSegment(Point);
    const std::string strWhole =
        "\xEF\xBB\xBF<?xml version=\"1.0\"?>\r\n<!DOCTYPE gpx SYSTEM 'x'>" +
        InSegment(Point + "<trkpt lat='1' lon='2'> <ele>5</ele></trkpt><!-- \xC3\xA9 -->");
    std::vector<std::string> cases = {
        "$GPRMC,1\r\n",
        strGood + strGood,
        InSegment(Point + "\xE9"),
        "<!DOCTYPE gpx [<!ENTITY x SYSTEM '/etc/passwd'>]>" + InSegment("<trkpt>&x;</trkpt>"),
    };
    for (std::size_t nLength = 0; nLength < strWhole.size(); ++nLength)
        cases.push_back(strWhole.substr(0, nLength));
    for (const std::string& strBytes : cases)
        EXPECT_EQ(Read(strBytes), CTexts{"failed to load XML document"}) << strBytes;
    EXPECT_EQ(Read(strWhole).size(), 2U);
}

} // namespace
} // namespace kestrabel::test
