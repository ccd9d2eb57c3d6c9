#include "present/SpeedDialog.h"

#include "support/Track.h"

#include <gtest/gtest.h>

namespace kestrabel {
namespace {

TEST(SpeedDialog, TheFirstPositionsInEveryUnit)
{
    const CEvent event;
    SSpeedDialog dialog = SSpeedDialog::From(event, DATE(45444.5));
    ASSERT_FALSE(dialog.Calculate());
    EXPECT_EQ(dialog.result.dSpeed, 0.0) << "equal times";
    dialog.end.time = dialog.start.time.Plus(120.0 * DaysPerSecond);
    const struct
    {
        const char* pUnit;
        double dDistance;
        double dSpeed;
    } cases[] = {
        {"k", 54.97227, 1649.17}, {"n", 29.68265, 890.48}, {"m", 34.15819, 1024.75}, {"", 29.68265, 890.48}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.pUnit);
        dialog.strUnit = c.pUnit;
        dialog.Calculate();
        EXPECT_NEAR(dialog.result.dDistance, c.dDistance, 6e-6);
        EXPECT_NEAR(dialog.result.dSpeed, c.dSpeed, 6e-3);
        EXPECT_NEAR(dialog.result.dDirection, 306.8682, 6e-5);
        EXPECT_NEAR(dialog.result.dReverse, 127.1736, 6e-5);
    }
    std::swap(dialog.start.time, dialog.end.time);
    dialog.Calculate();
    EXPECT_GT(dialog.result.dSpeed, 0.0) << "backwards";
    EXPECT_EQ(dialog.ResultLines()[0].second.substr(0, 8), "29.68265");
}

TEST(SpeedDialog, OddInput)
{
    SSpeedDialog dialog = SSpeedDialog::From(CEvent(), DATE(45444.5));
    dialog.start.latitude.strText = dialog.end.latitude.strText = "95";
    dialog.start.longitude.strText = dialog.end.longitude.strText = "1";
    dialog.end.time = dialog.start.time.Plus(1.0);
    const auto problem = dialog.Calculate();
    ASSERT_TRUE(problem);
    EXPECT_EQ(problem->pField, &dialog.start.latitude);
    EXPECT_EQ(dialog.result.dDistance, 0.0) << "calculated all the same";
    EXPECT_NEAR(dialog.result.dDirection, 270.0, 1e-9);

    // The azimuth of a metre due north is -90 degrees.
    dialog.start.latitude.strText = "50";
    dialog.end.latitude.strText = "50.00001";
    dialog.Calculate();
    EXPECT_GE(dialog.result.dDirection, 0.0);
}

TEST(SpeedDialog, OnlyTheUsersEllipsoidIsTyped)
{
    CEvent event;
    SSpeedDialog dialog = SSpeedDialog::From(event, DATE(45444.5));
    EXPECT_FALSE(dialog.ellipsoid.radius.bEnabled || dialog.ellipsoid.invFlattening.bEnabled);
    dialog.Calculate();
    const double dWgs84 = dialog.result.dDistance;
    dialog.ellipsoid.SetProjection(CEllipsoid::User);
    EXPECT_TRUE(dialog.ellipsoid.radius.bEnabled && dialog.ellipsoid.invFlattening.bEnabled);
    EXPECT_EQ(dialog.ellipsoid.radius.strText, "6378137");
    dialog.ellipsoid.radius.Set(2.0 * 6378137.0);
    dialog.Calculate();
    EXPECT_NEAR(dialog.result.dDistance, 2.0 * dWgs84, 1e-9) << "typed after the choice";
    dialog.ellipsoid.SetProjection(1);
    dialog.Calculate();
    EXPECT_EQ(dialog.result.dDistance, dWgs84);
    EXPECT_EQ(dialog.ellipsoid.radius.strText, "6378137");
}

} // namespace
} // namespace kestrabel
