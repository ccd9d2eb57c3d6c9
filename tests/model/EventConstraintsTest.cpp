#include "model/Event.h"

#include "support/Track.h"

#include <gtest/gtest.h>
#include <tuple>

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

TEST_F(EventConstraints, TheBoundsBelongToRegionAndDates)
{
    const double dTime = m_pPoint->m_time.m_dDays;
    m_event.m_posNorthWest = MakePosition(46.0, 7.0);
    m_event.m_posSouthEast = MakePosition(45.0, 8.0);
    m_event.m_dateStart = m_event.m_dateEnd = m_pPoint->m_time;
    const std::tuple<double, double, double, bool, bool> cases[] = {
        {45.0, 7.0, 0, true, true},     {46.0, 8.0, 0, true, true},     {44.999, 7.5, 0, false, true},
        {46.001, 7.5, 0, false, true},  {45.5, 6.999, 0, false, true},  {45.5, 8.001, 0, false, true},
        {45.5, 7.5, 1e-6, true, false}, {45.5, 7.5, -1e-6, true, false}};
    for (const auto& [dLatitude, dLongitude, dDays, bInRegion, bInDates] : cases) {
        m_pPoint->m_position = MakePosition(dLatitude, dLongitude);
        m_pPoint->m_time = DATE(dTime + dDays);
        for (int i = 0; i < 4; ++i) {
            m_event.m_bConstrainRegion = i & 1;
            m_event.m_bConstrainDates = i >> 1;
            EXPECT_EQ(IsWithin(), (bInRegion || i % 2 == 0) && (bInDates || i < 2))
                << dLatitude << dLongitude;
        }
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
