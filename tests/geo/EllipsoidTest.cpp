#include "geo/Ellipsoid.h"

#include <gtest/gtest.h>

namespace kestrabel {
namespace {

TEST(Ellipsoid, TheTableAndWhatStandsOutsideIt)
{
    const struct
    {
        std::int32_t nAsked, nStored;
        double dRadius, dInvFlattening;
    } cases[] = {
        {0, 0, 6378137.0, 298.2572221},
        {1, 1, 6378137.0, 298.2572236},
        {2, 2, 6378160.0, 298.25},
        {3, 3, 6378135.0, 298.26},
        {4, 4, 6378293.645, 294.26},
        {5, 5, 6371000.0, 9999999999999990.0},
        {6, 6, 1234.5, 99.0},
        {7, 1, 6378137.0, 298.2572236},
        {9, 1, 6378137.0, 298.2572236},
        {-1, 1, 6378137.0, 298.2572236},
        {-2147483647, 1, 6378137.0, 298.2572236},
    };
    for (const auto& test : cases) {
        CEllipsoid ellipsoid;
        ellipsoid.SetEllipsoid(test.nAsked, 1234.5, 99.0);
        EXPECT_EQ(ellipsoid.m_nEllipsoid, test.nStored) << test.nAsked;
        EXPECT_EQ(ellipsoid.m_dRadius, test.dRadius) << test.nAsked;
        EXPECT_EQ(ellipsoid.m_dInvFlattening, test.dInvFlattening) << test.nAsked;
        EXPECT_EQ(ellipsoid.m_dFlattening, 1.0 / test.dInvFlattening) << test.nAsked;
    }
    EXPECT_EQ(CEllipsoid().m_nEllipsoid, 1);
    CEllipsoid flat;
    flat.SetEllipsoid(CEllipsoid::User, 6378137.0, 0.0);
    EXPECT_EQ(flat.m_dInvFlattening, 0.0) << "taken as it is";
}

TEST(Ellipsoid, NamesInListOrder)
{
    const char* const names[] = {"GRS80", "WGS84", "ANS", "WGS72", "Clarke 1858", "Sphere", "User"};
    for (std::int32_t i = 0; i < 7; ++i) {
        EXPECT_EQ(EllipsoidTable[static_cast<std::size_t>(i)].strName, names[i]);
        EXPECT_EQ(FindEllipsoid(names[i]), i);
    }
    EXPECT_EQ(EllipsoidTable[6].dRadius, 6378160.0) << "the user's own start from ANS";
    EXPECT_EQ(EllipsoidTable[6].dInvFlattening, 298.25);
    EXPECT_EQ(FindEllipsoid("clarke 1858"), 4);
    EXPECT_EQ(FindEllipsoid("WGS 84"), -1);
    EXPECT_EQ(FindEllipsoid(""), -1);
}

} // namespace
} // namespace kestrabel
