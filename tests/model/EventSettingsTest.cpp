#include "model/EventSettings.h"

#include <gtest/gtest.h>

namespace kestrabel {
namespace {

/// How many settings differ between the events.
int CountDifferences(const CEvent& one, const CEvent& other)
{
    int nDifferent = 0;
    for (const SEventSetting& setting : EventSettings())
        std::visit([&](auto pField) { nDifferent += one.*pField == other.*pField ? 0 : 1; }, setting.field);
    return nDifferent;
}

TEST(EventSettings, EverySettingCanBeSetByNameAndChangesOneField)
{
    CEllipsoid ellipsoid;
    ellipsoid.SetEllipsoid(6, 6377000.5, 300.25);
    using CValue = std::variant<std::int32_t, double, std::string, DATE, CPosition, CEllipsoid>;
    // A value of each type that is no setting's default, in the order of SEventSetting::Field.
    const char* texts[] = {"17", "0.75", "a, b", "45444.25", "-38.5,146.25", "6, 6377000.5, 300.25"};
    const CValue values[] = {17, 0.75, "a, b", DATE(45444.25), MakePosition(-38.5, 146.25), ellipsoid};
    EXPECT_EQ(EventSettings().size(), 31U);
    for (const SEventSetting& setting : EventSettings()) {
        const std::size_t nType = setting.field.index();
        CEvent event(DATE(1.0));
        EXPECT_EQ(SetEventSetting(event, setting.strName, texts[nType]), "") << setting.strName;
        EXPECT_TRUE(
            std::visit([&](auto pField) { return CValue(event.*pField) == values[nType]; }, setting.field));
        EXPECT_EQ(CountDifferences(event, CEvent(DATE(1.0))), 1) << setting.strName << " has its own field";
    }
    CEvent event(DATE(1.0));
    EXPECT_EQ(SetEventSetting(event, "accTHRESHOLD", "30") + SetEventSetting(event, "Location", ""), "");
    EXPECT_EQ(event.m_dAccThreshold, 30.0);
}

TEST(EventSettings, WhatDoesNotFitChangesNothing)
{
    const char* pEllipsoid = "an ellipsoid's index, 0 to 5, or 6,RADIUS,INVERSE FLATTENING";
    const std::tuple<const char*, const char*, std::vector<const char*>> cases[] = {
        {"TimeThreshold", "a whole number", {"", "1.5", "12s", "1,2", "2147483648", "nan"}},
        {"SpeedThreshold", "a number", {"fast", "1,5", "inf", "1e999"}},
        {"DateStart", "a date as a count of days since 30 December 1899", {"2024-06-01", "1,2"}},
        {"NorthWest", "LATITUDE,LONGITUDE in degrees", {"-38.5", "1,2,3", "1,", ",1"}},
        {"Ellipsoid", pEllipsoid, {"6", "7", "-1", "1.5", "1,2,3", "6,1", "WGS84"}},
    };
    CEvent event(DATE(1.0));
    for (const auto& [pName, pExpected, values] : cases) {
        for (const char* pValue : values)
            EXPECT_EQ(SetEventSetting(event, pName, pValue), pExpected) << pName << "=" << pValue;
    }
    EXPECT_EQ(CountDifferences(event, CEvent(DATE(1.0))), 0);
    for (const char* pName : {"", "Persons", "m_nTimeThreshold", "TimeThreshold "})
        EXPECT_TRUE(SetEventSetting(event, pName, "1").starts_with("one of Description, Location, "));
}

} // namespace
} // namespace kestrabel
