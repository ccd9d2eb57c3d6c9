#include "engine/RunDetector.h"

#include "geo/Angle.h"

#include <gtest/gtest.h>
#include <memory>
#include <set>
#include <utility>
#include <vector>

namespace kestrabel {
namespace {

/// Points from index 1 on, as the derivation examines them.
class CSequence
{
public:
    /// `nCount` points of that speed (km/h) in that direction (degrees).
    CSequence& Go(int nCount, double dSpeed, double dDegrees = 0.0)
    {
        for (int i = 0; i < nCount; ++i) {
            m_points.Add(std::make_unique<CTrackPoint>()).m_dDirection = dDegrees * DegreesToRadians;
            m_points[m_points.GetCount() - 1].m_dSpeed = dSpeed;
        }
        return *this;
    }

    /// The indexes at which a new run begins.
    std::vector<int> Boundaries(double dStopAngle = HalfPi)
    {
        CRunDetector detector(m_points, 18.52, dStopAngle, &CTrackPoint::m_nRun);
        std::vector<int> boundaries;
        for (int i = 1; i < m_points.GetCount(); ++i) {
            const int nBefore = detector.Run();
            if (!m_skipped.contains(i))
                detector.Examine(i, m_points[i].m_dSpeed);
            m_points[i].m_nRun = detector.Run();
            EXPECT_LE(detector.Run(), nBefore + 1);
            if (detector.Run() != nBefore)
                boundaries.push_back(i);
        }
        return boundaries;
    }

    CSequence& Skip(int nIndex)
    {
        m_skipped.insert(nIndex);
        return *this;
    }

private:
    CObjectArray<CTrackPoint> m_points;
    std::set<int> m_skipped;
};

using Boundaries = std::vector<int>;

TEST(RunDetector, StopsEndRuns)
{
    struct SCase
    {
        const char* strName;
        std::vector<std::pair<int, double>> speeds; ///< count and km/h; index 0 is never examined
        Boundaries expected;
    };
    const std::vector<SCase> cases = {
        {"a stop starts the next run where it is seen", {{8, 30}, {3, 5}}, {8}},
        {"riding on after it starts no other", {{8, 30}, {3, 5}, {20, 30}}, {8}},
        {"two stops, three runs", {{8, 30}, {3, 5}, {8, 30}, {3, 5}, {5, 30}}, {8, 19}},
        {"standing from the start", {{20, 0}}, {}},
        {"the first ride after standing is still run 0", {{10, 0}, {10, 30}}, {}},
        {"the upper bound itself is no ride", {{8, 19.02}, {8, 5}}, {}},
        {"just above it is", {{8, 19.0201}, {8, 5}}, {8}},
        {"the lower bound itself is no stop", {{8, 30}, {8, 18.02}, {8, 30}}, {}},
        {"just below it is", {{8, 30}, {8, 18.0199}, {8, 30}}, {8}},
        {"in between a ride stays a ride", {{2, 30}, {8, 18.5}, {1, 5}}, {10}},
        {"in between a stop stays a stop", {{8, 30}, {1, 5}, {8, 18.5}, {1, 5}}, {8}},
        {"a stop at the fifth point starts none", {{5, 30}, {9, 5}}, {}},
        {"at the sixth it does", {{6, 30}, {9, 5}}, {6}},
        {"five behind a boundary", {{8, 30}, {2, 5}, {3, 30}, {9, 5}}, {8}},
        {"six behind a boundary", {{8, 30}, {2, 5}, {4, 30}, {9, 5}}, {8, 14}},
        {"a stop that came too early is forgotten", {{4, 30}, {3, 5}, {20, 30}}, {}},
    };
    for (const SCase& c : cases) {
        CSequence sequence;
        for (const auto& [nCount, dSpeed] : c.speeds)
            sequence.Go(nCount, dSpeed);
        EXPECT_EQ(sequence.Boundaries(), c.expected) << c.strName;
    }
}

TEST(RunDetector, TurnsEndRuns)
{
    EXPECT_EQ(CSequence().Go(13, 30, 0).Go(30, 30, 100).Boundaries(), Boundaries{13});
    EXPECT_EQ(CSequence().Go(13, 30, 0).Go(30, 30, 89).Boundaries(), Boundaries{}) << "too little";
    EXPECT_EQ(CSequence().Go(13, 30, 350).Go(30, 30, 90).Boundaries(), Boundaries{13}) << "through north";
    EXPECT_EQ(CSequence().Go(13, 30, 0).Go(30, 30, 100).Boundaries(2.0), Boundaries{}) << "another angle";
    EXPECT_EQ(CSequence().Go(13, 30, 0).Go(20, 30, 100).Go(20, 30, 0).Boundaries(), (Boundaries{13, 33}));

    // 12° a point: over nine points 108°, over five 60°. The first that can tell is nine behind the start.
    CSequence curve;
    for (int i = 0; i < 14; ++i)
        curve.Go(1, 30, 12.0 * i);
    EXPECT_EQ(curve.Boundaries(), Boundaries{10});
}

TEST(RunDetector, ATurnNeedsHalfOfItInTheLastFivePoints)
{
    // The ride starts at 8, so that 17 is the first point that looks back, to 8 and to 12. A turn at 10 or 12
    // is over by then; one at 13 is not.
    EXPECT_EQ(CSequence().Go(8, 5).Go(2, 30, 0).Go(20, 30, 100).Boundaries(), Boundaries{});
    EXPECT_EQ(CSequence().Go(8, 5).Go(4, 30, 0).Go(20, 30, 100).Boundaries(), Boundaries{});
    EXPECT_EQ(CSequence().Go(8, 5).Go(5, 30, 0).Go(20, 30, 100).Boundaries(), Boundaries{17});
}

TEST(RunDetector, ATurnLooksBackOnlyWithinTheRun)
{
    // 14° a point all the time: a boundary at the first point that can tell, the next when nine points of the
    // new run lie behind.
    CSequence circle;
    for (int i = 0; i < 25; ++i)
        circle.Go(1, 30, 14.0 * i);
    EXPECT_EQ(circle.Boundaries(), (Boundaries{10, 19}));
}

TEST(RunDetector, ASlowPointMovesTheStartOfTheRide)
{
    // The dip at 4 comes too early for a boundary of its own, and the ride goes on at 5.
    EXPECT_EQ(CSequence().Go(4, 30, 0).Go(1, 5, 0).Go(8, 30, 0).Go(1, 30, 100).Boundaries(), Boundaries{})
        << "eight behind the new start";
    EXPECT_EQ(CSequence().Go(4, 30, 0).Go(1, 5, 0).Go(9, 30, 0).Go(1, 30, 100).Boundaries(), Boundaries{14})
        << "nine behind it";
}

TEST(RunDetector, APointThatIsNotExaminedChangesNothing)
{
    EXPECT_EQ(CSequence().Go(8, 30).Go(1, 5).Go(8, 30).Skip(8).Boundaries(), Boundaries{});
    EXPECT_EQ(CSequence().Go(8, 30).Go(2, 5).Go(8, 30).Skip(8).Boundaries(), Boundaries{9});
}

} // namespace
} // namespace kestrabel
