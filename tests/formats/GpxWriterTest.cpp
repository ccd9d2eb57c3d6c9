#include "formats/GpxWriter.h"

#include "formats/GpxReader.h"
#include "formats/PointText.h"
#include "support/TemporaryFolder.h"
#include "support/Track.h"

#include <gtest/gtest.h>

#include <random>
#include <tuple>

namespace kestrabel::test {
namespace {

CTrackPoint& AddPoint(CSeries& series, double dSecond, double dLatitude, double dLongitude, double dDoppler)
{
    CTrackPoint& point = series.m_points.Add(MakePoint(dSecond, dLatitude, dLongitude));
    point.m_nAltitude = -3;
    point.m_dDoppler = dDoppler;
    point.m_dHDOP = 0.9;
    point.m_nSats = 8;
    return point;
}

CSeries& AddSeries(CEvent& event, std::string_view strName)
{
    CSeries& series =
        event.m_persons.Add(std::make_unique<CPerson>()).m_series.Add(std::make_unique<CSeries>());
    series.m_strName = strName;
    return series;
}

/// The file of the whole event or that of its first series.
std::string Written(const CEvent& event, bool bWhole)
{
    const CTemporaryFolder folder;
    CImportMonitor monitor;
    const std::string strPath = folder.Path("run.1.gpx");
    EXPECT_TRUE(bWhole ? WriteEventGpx(monitor, event, -1, -1, strPath)
                       : WriteGpx(monitor, strPath, event.m_persons[0].m_series[0].m_points));
    return CTemporaryFolder::Read(strPath);
}

std::size_t Count(const std::string& strText, std::string_view strPart)
{
    std::size_t nCount = 0;
    for (std::size_t n = 0; (n = strText.find(strPart, n)) != std::string::npos; ++n)
        ++nCount;
    return nCount;
}

TEST(GpxWriter, Text)
{
    CEvent event;
    CSeries& first = AddSeries(event, "run");
    AddPoint(first, 0.0, 0.5, -33.8, 1.8);
    AddPoint(first, 2.5, 48.12345678912, 0.05, 0.0);
    // The time of writing is taken out, and the CR of every line.
    std::string strExpected = R"(<?xml version="1.0"?>
<gpx version="1.0" creator="Kestrabel V1.917 - https://kestrabel.example/"
  xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance"
  xmlns="http://www.topografix.com/GPX/1/0"
  xsi:schemaLocation="http://www.topografix.com/GPX/1/0 http://www.topografix.com/GPX/1/0/gpx.xsd">
  <time>:00Z</time>
<trk>
<name>"run"</name>
<trkseg>
<trkpt lat="+.5000000000" lon="-33.8000000000"> <ele>-3</ele> <time>2024-06-01T10:00:00Z</time> <speed>.50</speed> <HDOP>.9</HDOP> <sat>8</sat> </trkpt>
<trkpt lat="+48.1234567891" lon="+.05"> <ele>-3</ele> <time>2024-06-01T10:00:03Z</time> <speed>0</speed> <HDOP>.9</HDOP> <sat>8</sat> </trkpt>
</trkseg>
</trk>
</gpx>
)";
    for (const bool bWhole : {false, true}) {
        std::string strText = Written(event, bWhole);
        EXPECT_EQ(Count(strText, "\r\n"), Count(strText, "\n"));
        std::erase(strText, '\r');
        const std::size_t nTime = strText.find("<time>") + 6;
        if (bWhole) // its times are to the millisecond
            strExpected.replace(strExpected.find("03Z"), 3, "02.500Z").erase(nTime, 3);
        EXPECT_LE(strText.substr(nTime, 19), FormatIsoSecond(DATE::Now()));
        EXPECT_EQ(strText.erase(nTime, 19), strExpected);
    }
    // Persons and series that are not wanted.
    AddSeries(event, "Bo").m_points.Add(std::make_unique<CTrackPoint>()).m_time = DATE::MakeInvalid();
    const CTemporaryFolder folder;
    const std::string strPath = folder.Path("a");
    const std::tuple<int, int, std::size_t> parts[] = {{1, -1, 1}, {-1, 0, 2}, {1, 1, 0}};
    for (const auto& [nPerson, nSeries, nTracks] : parts) {
        CImportMonitor monitor;
        EXPECT_TRUE(WriteEventGpx(monitor, event, nPerson, nSeries, strPath));
        EXPECT_EQ(Count(CTemporaryFolder::Read(strPath), "<trk>"), nTracks) << nPerson << nSeries;
    }
}

// A saved track file asks its first 1000 points for a Doppler speed, the event's document all of them.
TEST(GpxWriter, WhichPointsDecideAboutDoppler)
{
    for (const int nAt : {0, 999, 1000}) {
        CEvent event;
        CSeries& series = AddSeries(event, "a");
        for (int n = 0; n < 1002; ++n)
            AddPoint(series, n, 1.0, 2.0, n == nAt ? 0.001 : n == 5 ? -1.0 : 0.0);
        AddPoint(AddSeries(event, "decides for itself"), 0, 1, 2, -5.0);
        EXPECT_EQ(Count(Written(event, false), "<speed>"), nAt < 1000 ? 1002U : 0U) << nAt;
        EXPECT_EQ(Count(Written(event, true), "<speed>"), 1002U) << nAt;
    }
}

TEST(GpxWriter, AnyNameAndEveryValueCanBeReadBack)
{
    const std::pair<std::string, std::string> names[] = {
        {"a & b < c > d \" ' ]]>", "a &amp; b &lt; c &gt; d \" ' ]]&gt;"},
        {"Zo\xE9 \x80", "Zo\xC3\xA9 \xE2\x82\xAC"}, // not UTF-8: taken as Windows-1252
        {std::string("a\x01\x1F\r\n\0\tb", 8), "a\tb"},
        {"\xEF\xBF\xBE\xEF\xBF\xBF", ""}, // well-formed UTF-8, but no characters of XML
    };
    CEvent event;
    std::mt19937 random(7);
    const auto Below = [&](unsigned nLimit) { return static_cast<int>(random() % nLimit); };
    std::vector<std::string> texts;
    for (const auto& [strName, strExpected] : names) {
        CSeries& series = AddSeries(event, strName);
        for (int n = 0; n < 1000; ++n) { // every millisecond; all in steps of what is written
            CTrackPoint& point = AddPoint(series, n * 7 + n * 0.001, Below(180'000'000) * 1e-6 - 90.0,
                                          Below(360'000'000) * 1e-6 - 180.0, Below(3000) * 0.036);
            point.m_nAltitude = Below(9500) - 500;
            point.m_dHDOP = Below(600) * 0.1;
            point.m_nSats = Below(30);
            texts.push_back(PointText(point));
        }
    }
    const std::string strText = Written(event, true);
    for (const auto& [strName, strExpected] : names)
        EXPECT_EQ(Count(strText, "<name>\"" + strExpected + "\"</name>\r\n"), 1U) << strExpected;
    const CTemporaryFolder folder;
    CImportMonitor monitor;
    CObjectArray<CTrackPoint> back;
    ASSERT_EQ(ReadGpx(monitor, folder.Write("a", strText), back), EReadEnd::Complete);
    EXPECT_TRUE(PointTexts(back) == texts);
}

} // namespace
} // namespace kestrabel::test
