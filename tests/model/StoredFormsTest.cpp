#include "model/StoredForms.h"

#include "model/OldForms.h"

#include <gtest/gtest.h>

namespace kestrabel::test {
namespace {

/// Reads a body in one form; every byte of it must be used.
template <class T>
std::unique_ptr<T> ReadAll(std::string_view bytes, int nSchema)
{
    CArchiveReader reader(bytes);
    auto pObject = std::make_unique<T>();
    ReadBody(reader, *pObject, nSchema);
    EXPECT_EQ(reader.Remaining(), 0U);
    return pObject;
}

/// Every form up to the current one, and two of the future. `adjust` changes what is expected by the rules
/// that the layout alone does not show.
template <class T>
void CheckEveryForm(
    const CLayout<T>& layout, void (*adjust)(T&, int) = [](T&, int) {})
{
    for (int nSchema = 0; nSchema <= T::Class.nSchema + 2; ++nSchema) {
        const int nForm = nSchema > T::Class.nSchema + 1 ? 0xFFFF : nSchema;
        T expected;
        const std::string bytes = layout.Body(nForm, expected);
        adjust(expected, nForm);
        EXPECT_EQ(layout.Differences(expected, *ReadAll<T>(bytes, nForm)), "")
            << T::Class.strName << " schema " << nForm;
    }
}

TEST(StoredForms, EveryClassInEveryForm)
{
    CheckEveryForm(WayPointLayout());
    CheckEveryForm<CDivision>(DivisionLayout(), [](CDivision& division, int nSchema) {
        if (nSchema < 3)
            division.m_nAverageRuns = 1;
        if (nSchema < 10)
            division.m_bStrict = division.m_bOneResultPerRun;
        if (nSchema == 9)
            division.m_dProximity *= 0.001;
        division.m_waypoints.RemoveAll(); // the kind of the layout is none that has any
    });
    // Stored in seconds, held in days.
    CheckEveryForm<CTrackPoint>(PointLayout(),
                                [](CTrackPoint& point, int) { point.m_dDeltaTime *= DaysPerSecond; });
    CheckEveryForm(ResultLayout());
    CheckEveryForm<CSeriesDivision>(RecordLayout(), [](CSeriesDivision& record, int nSchema) {
        if (nSchema < 3)
            record.m_bFlag = 0;
    });
    CheckEveryForm(SeriesLayout());
}

TEST(StoredForms, OldDivisionsForgetWhatTheObjectHeld)
{
    for (const int nSchema : {2, 3}) {
        CDivision division;
        division.m_nKind = DivisionKind::Splits;
        division.m_nSeconds = 77;
        const std::string bytes = DivisionLayout().Body(nSchema);
        CArchiveReader reader(bytes);
        ReadBody(reader, division, nSchema);
        EXPECT_EQ(division.m_nKind == DivisionKind::Distance, nSchema < 3);
        EXPECT_EQ(division.m_nSeconds, nSchema < 3 ? 10 : 77);
    }
}

TEST(StoredForms, OnlyLapRacingKeepsWaypoints)
{
    for (int nKind = 0; nKind <= 7; ++nKind) {
        CDivision division;
        division.m_nKind = static_cast<std::uint8_t>(nKind);
        division.m_waypoints.Add(std::make_unique<CWayPoint>()).m_strName = "one";
        division.m_waypoints.Add(std::make_unique<CWayPoint>()).m_strName = "two";
        const bool bKept = nKind == DivisionKind::LapRacing;

        CArchiveWriter writer;
        WriteBody(writer, division);
        EXPECT_EQ(writer.Bytes().find("two") != std::string::npos, bKept) << nKind;
        EXPECT_EQ(ReadAll<CDivision>(writer.Bytes(), 10)->m_waypoints.GetCount(), bKept ? 2 : 0) << nKind;

        // A file of another program may have them in spite of the kind.
        CArchiveBytes bytes;
        bytes.Text("").Double(0).Double(0).Double(0).Byte(1).Byte(0).Text("").Text("").Byte(
            static_cast<std::uint64_t>(nKind));
        bytes.Raw(std::string(3 + 16 + 32, '\0'));
        WayPointLayout().PutOne(bytes, 2);
        EXPECT_EQ(ReadAll<CDivision>(bytes, 10)->m_waypoints.GetCount(), bKept ? 1 : 0) << nKind;
    }
}

TEST(StoredForms, PointsOfOldFiles)
{
    CArchiveBytes bytes;
    bytes.Position(1, 2).Text("no date").Byte(9).Dword(0x00010041).Dword(0xFFFFFFFB).Dword(0xFFFFFFFF);
    bytes.Double(1.0004999).Double(0).Double(0);
    const std::unique_ptr<CTrackPoint> pPoint = ReadAll<CTrackPoint>(bytes, 2);
    EXPECT_EQ(pPoint->m_dDeltaTime, DaysPerSecond) << "rounded to milliseconds";
    EXPECT_FALSE(pPoint->m_time.IsValid());
    EXPECT_EQ(pPoint->m_nInvalidFlags, 0x41U);
    EXPECT_EQ(pPoint->m_nAltitude, -5);
    EXPECT_EQ(pPoint->m_dHDOP, -1.0);
}

TEST(StoredForms, CompetitorsOfOldFiles)
{
    CArchiveBytes bytes;
    SeriesLayout().PutOne(bytes, 5);
    bytes.Word(2).Text("10 sec").Text("500 m").Text("Ann").Text("ann@x").Text("123").Text("AUS 7");
    for (const int nSchema : {1, 2}) {
        const std::unique_ptr<CPerson> pPerson = ReadAll<CPerson>(bytes, nSchema);
        ASSERT_EQ(pPerson->m_series.GetCount(), 1);
        EXPECT_EQ(pPerson->m_series[0].m_points.GetCount(), 1);
        EXPECT_EQ(pPerson->m_series[0].m_divisions[0].m_results[0].m_nRank, 22);
        EXPECT_EQ(pPerson->m_divisionNames, (std::vector<std::string>{"10 sec", "500 m"}));
        EXPECT_EQ(pPerson->m_strName + pPerson->m_strEmail + pPerson->m_strPhone + pPerson->m_strNumber,
                  "Annann@x123AUS 7");
    }
}

/// Every member that may be left out by a file holds something else than in a new event.
void FillWithOthers(CEvent& event)
{
    event.m_strDataFolder = "7/";
    event.m_dMaxHDOP = event.m_dDeccThreshold = event.m_dSpeedThreshold = event.m_dZoom = 7;
    event.m_dStopRunSpeed = event.m_dStopRunAngle = event.m_dTimezone = 7;
    event.m_dDopplerError = event.m_dTrackpointError = 7;
    event.m_nMinSats = event.m_bCaptureFocus = event.m_nSmoothing = 9;
    event.m_nSpeedPrecision = event.m_nTimePrecision = event.m_nDistancePrecision = 9;
    event.m_nLatLongPrecision = 9;
    for (int i = 0; i < 3; ++i)
        event.m_waypoints.Add(std::make_unique<CWayPoint>());
}

TEST(StoredForms, EventsOfEveryVersion)
{
    for (int nVersion = 3; nVersion <= 11; ++nVersion) {
        SCOPED_TRACE("version " + std::to_string(nVersion));
        CEvent event(DATE(1.0));
        CEvent expected(DATE(1.0));
        FillWithOthers(event);
        FillWithOthers(expected);
        const std::string bytes = EventOf(nVersion, expected);
        if (nVersion < 8)
            expected.m_dZoom = 1.3;
        if (nVersion <= 8) {
            expected.m_nSpeedPrecision = 3;
            expected.m_nTimePrecision = 0;
            expected.m_nDistancePrecision = 2;
            expected.m_nLatLongPrecision = 7;
        }
        CArchiveReader reader(bytes);
        EXPECT_EQ(ReadEvent(reader, event), static_cast<std::uint32_t>(nVersion));
        EXPECT_EQ(reader.Remaining(), 0U);
        EXPECT_EQ(EventHeadLayout().Differences(event, expected) +
                      EventTailLayout().Differences(event, expected),
                  "");
        EXPECT_EQ(event.m_divisions.GetCount(), 1);
        EXPECT_EQ(event.m_ellipsoid.m_nEllipsoid, 5);
        EXPECT_EQ(event.m_ellipsoid.m_dRadius, 6371000.0) << "the table's, not the file's";
    }
}

TEST(StoredForms, StoredNothingHasAMeaning)
{
    CEvent event(DATE(1.0));
    event.m_dStopRunSpeed = event.m_dStopRunAngle = 0.0;
    CArchiveWriter writer;
    WriteEvent(writer, event);
    CArchiveReader reader(writer.Bytes());
    ReadEvent(reader, event);
    EXPECT_EQ(event.m_dStopRunSpeed, 10.0);
    EXPECT_EQ(event.m_dStopRunAngle, 1.5707963267948966);

    for (const auto& [nWritten, nRead] : {std::pair{0, 1}, {-5, 1}, {1, 1}, {20, 20}}) {
        event.m_nSmoothing = nWritten;
        CArchiveWriter once;
        WriteEvent(once, event);
        CArchiveReader again(once.Bytes());
        ReadEvent(again, event);
        EXPECT_EQ(event.m_nSmoothing, nRead) << "never written below 1";
    }
    // What an older program wrote.
    event.m_nSmoothing = 0x01020304;
    CArchiveWriter marked;
    WriteEvent(marked, event);
    for (const char cByte : {'\0', '\xFF'}) {
        std::string bytes = marked.Bytes();
        bytes.replace(bytes.find("\x04\x03\x02\x01"), 4, std::string(4, cByte));
        CArchiveReader old(bytes);
        ReadEvent(old, event);
        EXPECT_EQ(event.m_nSmoothing, 3) << "0 and -1";
    }
}

TEST(StoredForms, TheVersionFollowsTheFormOfAnyDivision)
{
    // An old division and a newer one in one file, in both orders.
    for (const bool bNewFirst : {true, false}) {
        const int nFirst = bNewFirst ? 6 : 5;
        const int nSecond = bNewFirst ? 5 : 6;
        CArchiveBytes bytes;
        bytes.Raw(EventHeadLayout().Body(4)).Word(0).Word(2);
        bytes.NewClass("CDivision", nFirst).Raw(DivisionLayout().Body(nFirst));
        bytes.NewClass("CDivision", nSecond).Raw(DivisionLayout().Body(nSecond));
        bytes.Dword(1).Double(0).Double(0).Dword(4).Text("d/");
        CArchiveReader reader(bytes);
        CEvent event(DATE(1.0));
        EXPECT_EQ(ReadEvent(reader, event), 4U);
        EXPECT_EQ(event.m_divisions.GetCount(), 2);
        EXPECT_EQ(event.m_strDataFolder, "d/");
    }
}

TEST(StoredForms, WithoutDivisionsTheVersionIsRecognised)
{
    const struct
    {
        std::uint32_t nWord;
        bool bIsVersion;
    } cases[] = {{0, false}, {1, false}, {3, false}, {4, true}, {10, true}, {11, false}, {0xFFFFFFFF, false}};
    for (const auto& test : cases) {
        const int nVersion = test.bIsVersion ? static_cast<int>(test.nWord) : 3;
        CArchiveBytes bytes;
        bytes.Raw(EventHeadLayout().Body(nVersion)).Word(0).Word(1).Word(0); // a null element
        bytes.Dword(1).Double(0).Double(0).Dword(test.nWord);
        bytes.Raw(EventTailLayout().Body(nVersion));
        CArchiveReader reader(bytes);
        CEvent event(DATE(1.0));
        EXPECT_EQ(ReadEvent(reader, event), static_cast<std::uint32_t>(nVersion)) << test.nWord;
        EXPECT_EQ(reader.Remaining(), test.bIsVersion ? 0U : 4U) << test.nWord;
    }
}

} // namespace
} // namespace kestrabel::test
