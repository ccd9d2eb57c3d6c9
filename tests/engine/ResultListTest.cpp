#include "engine/ResultList.h"

#include "engine/RandomTrack.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <vector>

namespace kestrabel {
namespace {

constexpr double None = std::numeric_limits<double>::quiet_NaN();

CResult MakeResult(double dSpeed, double dStart)
{
    CResult result;
    result.m_dSpeed = dSpeed;
    result.m_timeStart = DATE(dStart);
    return result;
}

TEST(ResultOrder, SlowerThenEarlierStandsFirst)
{
    // Each stands before all that follow it.
    const std::vector<CResult> ordered = {MakeResult(None, 1), MakeResult(None, 2), MakeResult(-5, 9),
                                          MakeResult(0, 1),    MakeResult(0, 2),    MakeResult(30, 8),
                                          MakeResult(31, 1),   MakeResult(31, 5)};
    for (std::size_t i = 0; i < ordered.size(); ++i) {
        for (std::size_t j = 0; j < ordered.size(); ++j)
            EXPECT_EQ(IsSlower(ordered[i], ordered[j]), i < j) << i << " and " << j;
    }
}

TEST(ResultOrder, AnEqualResultGoesBehind)
{
    CObjectArray<CResult> results;
    for (int i = 0; i < 3; ++i) {
        auto pResult = std::make_unique<CResult>(MakeResult(30, 1));
        pResult->m_nRank = i;
        InsertInResultOrder(results, std::move(pResult));
    }
    InsertInResultOrder(results, std::make_unique<CResult>(MakeResult(29, 9)));
    InsertInResultOrder(results, std::make_unique<CResult>(MakeResult(30, 2)));
    std::vector<int> ranks;
    for (const CResult* pResult : results)
        ranks.push_back(pResult->m_nRank);
    EXPECT_EQ(ranks, (std::vector<int>{-1, 0, 1, 2, -1}));
    EXPECT_EQ(results[0].m_dSpeed, 29.0);
    EXPECT_EQ(results[4].m_timeStart.m_dDays, 2.0);
}

TEST(ResultList, InsertingAllIsInsertingOneAfterAnother)
{
    test::CRandom random(11);
    for (int nRound = 0; nRound < 300; ++nRound) {
        CResultList atOnce;
        CResultList oneByOne;
        std::vector<std::unique_ptr<CObjectArray<CResult>>> records;
        const int nRecords = 1 + random.Below(4);
        for (int i = 0; i < nRecords; ++i) {
            CObjectArray<CResult>& record = *records.emplace_back(std::make_unique<CObjectArray<CResult>>());
            const int nResults = random.Below(12);
            for (int j = 0; j < nResults; ++j) {
                // Few values, so that ties are common; a record of laps is in no order.
                const double dSpeed = random.Chance(0.15) ? None : random.Below(4);
                record.Add(std::make_unique<CResult>(MakeResult(dSpeed, random.Below(3))));
            }
            atOnce.InsertAllInOrder(record);
            for (CResult* pResult : record)
                oneByOne.InsertInOrder(*pResult);
        }
        ASSERT_EQ(atOnce.GetCount(), oneByOne.GetCount());
        for (int i = 0; i < atOnce.GetCount(); ++i) {
            ASSERT_EQ(&atOnce[i], &oneByOne[i]) << "round " << nRound << ", result " << i;
            ASSERT_FALSE(i > 0 && IsSlower(atOnce[i], atOnce[i - 1]));
        }
    }
}

TEST(ResultList, OwnsOnlyItsEmptyResults)
{
    CResultList list;
    EXPECT_EQ(list.Best(), nullptr);
    CResult& empty = list.MakeEmptyResult("Ann");
    EXPECT_TRUE(list.IsEmpty()) << "made, not yet in the list";
    EXPECT_EQ(empty.m_strCompetitor, "Ann");
    EXPECT_EQ(empty.m_nRank, -1);
    EXPECT_EQ(empty.m_nStartIndex, -1);
    EXPECT_EQ(empty.m_nPersonIndex, -1);
    EXPECT_EQ(empty.m_nWaypoint, -1);
    EXPECT_EQ(empty.m_dSpeed, 0.0);
    EXPECT_EQ(empty.m_strDivision, "");
    list.InsertInOrder(empty);
    CResult borrowed = MakeResult(10, 1);
    list.InsertInOrder(borrowed);
    EXPECT_EQ(list.Best(), &borrowed);

    CResultList taker;
    taker.AppendAll(std::move(list));
    ASSERT_EQ(taker.GetCount(), 2);
    EXPECT_EQ(taker[0].m_strCompetitor, "Ann") << "an empty result goes with the list it stands in";
}

} // namespace
} // namespace kestrabel
