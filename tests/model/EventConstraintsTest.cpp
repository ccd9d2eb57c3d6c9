#include "model/Event.h"

#include "support/Track.h"

#include <gtest/gtest.h>

namespace kestrabel::test {
namespace {

class EventConstraints : public testing::Test
{
protected:
    bool IsWithin() const { return m_event.IsWithinConstraints(m_pPrevious.get(), *m_pPoint); }

    CEvent m_event{DATE(45444.0)};
    std::unique_ptr<CTrackPoint> m_pPrevious = MakePoint(0.0, 45.0, 7.0);
    std::unique_ptr<CTrackPoint> m_pPoint = MakePoint(1.0, 45.0, 7.0);
};

TEST_F(EventConstraints, TheRegionsBoundsBelongToIt)
{
    m_event.m_posNorthWest = MakePosition(46.0, 7.0);
    m_event.m_posSouthEast = MakePosition(45.0, 8.0);
    const struct
    {
        double dLatitude;
        double dLongitude;
        bool bWithin;
    } cases[] = {{45.5, 7.5, true},    {45.0, 7.0, true},    {46.0, 8.0, true},   {44.999, 7.5, false},
                 {46.001, 7.5, false}, {45.5, 6.999, false}, {45.5, 8.001, false}};
    for (const auto& test : cases) {
        m_pPoint->m_position = MakePosition(test.dLatitude, test.dLongitude);
        m_event.m_bConstrainRegion = 1;
        EXPECT_EQ(IsWithin(), test.bWithin) << test.dLatitude << ' ' << test.dLongitude;
        m_event.m_bConstrainRegion = 0;
        EXPECT_TRUE(IsWithin());
    }
}

TEST_F(EventConstraints, TheFirstAndTheLastMomentBelongToTheDates)
{
    const double dTime = m_pPoint->m_time.m_dDays;
    const struct
    {
        double dStart;
        double dEnd;
        bool bWithin;
    } cases[] = {{dTime - 1, dTime + 1, true},
                 {dTime, dTime, true},
                 {dTime + 1e-6, dTime + 1, false},
                 {dTime - 1, dTime - 1e-6, false}};
    for (const auto& test : cases) {
        m_event.m_dateStart = DATE(test.dStart);
        m_event.m_dateEnd = DATE(test.dEnd);
        m_event.m_bConstrainDates = 1;
        EXPECT_EQ(IsWithin(), test.bWithin) << test.dStart - dTime << ' ' << test.dEnd - dTime;
        m_event.m_bConstrainDates = 0;
        EXPECT_TRUE(IsWithin());
    }
}

TEST_F(EventConstraints, APointThatStartsAGapIsBeyondThem)
{
    m_pPoint->m_time = m_pPrevious->m_time.Plus(199.999 * DaysPerSecond);
    EXPECT_TRUE(IsWithin());
    m_pPoint->m_time = m_pPrevious->m_time.Plus(200.0 * DaysPerSecond);
    EXPECT_FALSE(IsWithin());
    m_pPrevious = nullptr;
    EXPECT_TRUE(IsWithin()) << "the first point of a file";
}

} // namespace
} // namespace kestrabel::test
