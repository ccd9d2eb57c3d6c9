#include "geo/Ellipsoid.h"

#include <gtest/gtest.h>
#include <tuple>

namespace kestrabel {
namespace {

TEST(Ellipsoid, TheTableAndWhatStandsOutsideIt)
{
    const std::tuple<const char*, double, double> rows[] = {{"GRS80", 6378137.0, 298.2572221},
                                                            {"WGS84", 6378137.0, 298.2572236},
                                                            {"ANS", 6378160.0, 298.25},
                                                            {"WGS72", 6378135.0, 298.26},
                                                            {"clarke 1858", 6378293.645, 294.26},
                                                            {"Sphere", 6371000.0, 9999999999999990.0},
                                                            {"User", 1234.5, 99.0}};
    for (int i = -1; i <= 7; ++i) {
        const auto& [pName, dRadius, dInvFlattening] = rows[i < 0 || i == 7 ? 1 : i];
        CEllipsoid ellipsoid;
        ellipsoid.SetEllipsoid(i, 1234.5, 99.0);
        EXPECT_EQ(ellipsoid.m_dRadius, dRadius) << i;
        EXPECT_EQ(ellipsoid.m_dInvFlattening, dInvFlattening) << i;
        EXPECT_EQ(ellipsoid.m_nEllipsoid, FindEllipsoid(pName)) << i;
    }
    EXPECT_TRUE(FindEllipsoid("WGS 84") == -1 && EllipsoidTable[6].dRadius == 6378160.0);
}

} // namespace
} // namespace kestrabel
