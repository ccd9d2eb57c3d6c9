#include "app/TrackFileImport.h"

#include "app/NewProject.h"
#include "geo/Angle.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace kestrabel {
namespace {

TEST(TrackFileImport, TracksAreNamedAfterTheirFile)
{
    constexpr std::string_view TwoPoints =
        "<gpx><trk><trkseg><trkpt lat='50.1' lon='-1.1'><time>2024-06-01T10:00:00Z</time></trkpt>"
        "<trkpt lat='50.1001' lon='-1.1'><time>2024-06-01T10:00:01Z</time></trkpt></trkseg></trk></gpx>";
    const test::CTemporaryFolder folder;
    for (const char* pFile : {"Run.GPX", "Two.GPX", "two.gpx", "a.b.gpx"})
        folder.Write(pFile, TwoPoints);
    folder.Write("empty.nmea", "");
    CEvent event(DATE(1.0));
    event.m_ellipsoid.SetEllipsoid(5, 0.0, 0.0);
    CPerson& person = AddCompetitor(event, "Sam");
    CImportMonitor monitor;
    EImportEnd end{};
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"Run.GPX", "Run", "run.gpx"},
        {"Two.GPX", "Two", "Two.GPX"}, // the lower-cased name is another file's
        {"a.b.gpx", "a", "a.b.gpx"},
    };
    for (const auto& [pFile, pName, pStored] : cases) {
        const CSeries* pSeries = AddTrackFile(event, person, folder.Path(pFile), monitor, end, NoProgress());
        EXPECT_FALSE(AddTrackFile(event, person, folder.Path("empty.nmea"), monitor, end, NoProgress()));
        ASSERT_TRUE(pSeries != nullptr && pSeries == person.m_series.Last()) << pFile;
        EXPECT_EQ(pSeries->m_strName, pName);
        EXPECT_EQ(pSeries->m_strFileName, folder.Path(pStored));
        EXPECT_EQ(pSeries->m_ellipsoid, event.m_ellipsoid);
        EXPECT_NEAR(pSeries->m_points[1].m_dDistance, 6371e-4 * Pi / 180.0, 1e-9) << "derived";
    }
}

} // namespace
} // namespace kestrabel
