#include "app/TrackFileImport.h"

#include "app/NewProject.h"
#include "support/TemporaryFolder.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace kestrabel {
namespace {

using test::CTemporaryFolder;

constexpr std::string_view TwoPoints =
    "<?xml version=\"1.0\"?><gpx><trk><trkseg>"
    "<trkpt lat=\"50.1\" lon=\"-1.1\"><time>2024-06-01T10:00:00Z</time></trkpt>"
    "<trkpt lat=\"50.1001\" lon=\"-1.1\"><time>2024-06-01T10:00:01Z</time></trkpt>"
    "</trkseg></trk></gpx>";
constexpr std::string_view OnePoint = "<gpx><trk><trkseg><trkpt lat=\"50.1\" lon=\"-1.1\">"
                                      "<time>2024-06-01T10:00:00Z</time></trkpt></trkseg></trk></gpx>";

TEST(TrackFileImport, FilesAreNamedAfterTheirFile)
{
    const struct
    {
        const char* pWhat;
        std::vector<const char*> files;
        const char *pChosen, *pName, *pStored;
    } cases[] = {
        {"lower-cased", {"Run.GPX"}, "Run.GPX", "Run", "run.gpx"},
        {"up to the first dot", {"a.b.gpx"}, "a.b.gpx", "a", "a.b.gpx"},
        {"another file has that name", {"Run.GPX", "run.gpx"}, "Run.GPX", "Run", "Run.GPX"},
    };
    for (const auto& test : cases) {
        const CTemporaryFolder folder;
        for (const char* pFile : test.files)
            folder.Write(pFile, TwoPoints);
        CEvent event(DATE(1.0));
        event.m_ellipsoid.SetEllipsoid(5, 0.0, 0.0);
        CPerson& person = AddCompetitor(event, "Sam");
        CImportMonitor monitor;
        EImportEnd end{};
        const CSeries* pSeries =
            AddTrackFile(event, person, folder.Path(test.pChosen), monitor, end, NoProgress());
        ASSERT_NE(pSeries, nullptr) << test.pWhat;
        EXPECT_EQ(end, EImportEnd::Complete);
        EXPECT_EQ(pSeries, person.m_series.Last());
        EXPECT_EQ(pSeries->m_strName, test.pName) << test.pWhat;
        EXPECT_EQ(pSeries->m_strFileName, folder.Path(test.pStored)) << test.pWhat;
        EXPECT_EQ(pSeries->m_bManaged, 0);
        EXPECT_EQ(pSeries->m_ellipsoid, event.m_ellipsoid);
        EXPECT_EQ(pSeries->m_points.GetCount(), 2);
        EXPECT_NEAR(pSeries->m_points[1].m_dDistance, 0.0001 * 6371.0 * 3.14159265 / 180.0, 1e-9)
            << "derived";
        EXPECT_EQ(pSeries->m_nPersonIndex, 0);
    }
}

TEST(TrackFileImport, AFileWithoutATrackLeavesTheCompetitorAsItWas)
{
    const CTemporaryFolder folder;
    const struct
    {
        const char* pName;
        std::string_view bytes;
        EImportEnd end;
    } cases[] = {
        {"one.gpx", OnePoint, EImportEnd::Complete},
        {"empty.gpx", "", EImportEnd::Failed},
        {"notes.doc", "x", EImportEnd::Unrecognised},
        {"missing.gpx", {}, EImportEnd::Failed},
    };
    for (const auto& test : cases) {
        if (test.bytes.data() != nullptr)
            folder.Write(test.pName, test.bytes);
        CEvent event(DATE(1.0));
        CPerson& person = AddCompetitor(event, "Sam");
        CImportMonitor monitor;
        EImportEnd end{};
        EXPECT_EQ(AddTrackFile(event, person, folder.Path(test.pName), monitor, end, NoProgress()), nullptr)
            << test.pName;
        EXPECT_EQ(end, test.end) << test.pName;
        EXPECT_TRUE(person.m_series.IsEmpty());
    }
}

} // namespace
} // namespace kestrabel
