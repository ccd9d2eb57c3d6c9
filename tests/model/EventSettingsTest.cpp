#include "model/EventSettings.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <set>

namespace kestrabel {
namespace {

/// A value of each type of setting that is no setting's default, as text and as the field has to hold it.
struct SSample
{
    const char* pText;
    SEventSetting::Field type;
};

bool HoldsSample(const std::string& strField)
{
    return strField == "a, b";
}
bool HoldsSample(std::int32_t nField)
{
    return nField == 17;
}
bool HoldsSample(double dField)
{
    return dField == 0.75;
}
bool HoldsSample(const DATE& date)
{
    return date == DATE(45444.25);
}
bool HoldsSample(const CPosition& position)
{
    return position == MakePosition(-38.5, 146.25);
}
bool HoldsSample(const CEllipsoid& ellipsoid)
{
    return ellipsoid.m_nEllipsoid == 6 && ellipsoid.m_dRadius == 6377000.5 &&
           ellipsoid.m_dInvFlattening == 300.25 && ellipsoid.m_dFlattening == 1.0 / 300.25;
}

TEST(EventSettings, EverySettingCanBeSetByName)
{
    const SSample samples[] = {
        {"a, b", &CEvent::m_strDescription},
        {"17", &CEvent::m_nMinSats},
        {"0.75", &CEvent::m_dZoom},
        {"45444.25", &CEvent::m_dateStart},
        {"-38.5,146.25", &CEvent::m_posNorthWest},
        {"6, 6377000.5, 300.25", &CEvent::m_ellipsoid},
    };
    EXPECT_EQ(EventSettings().size(), 31U);
    std::set<std::string_view> names;
    for (const SEventSetting& setting : EventSettings()) {
        EXPECT_TRUE(names.insert(setting.strName).second) << setting.strName;
        const auto* pSample =
            std::find_if(std::begin(samples), std::end(samples),
                         [&](const SSample& sample) { return sample.type.index() == setting.field.index(); });
        ASSERT_NE(pSample, std::end(samples)) << setting.strName;
        CEvent event(DATE(1.0));
        EXPECT_EQ(SetEventSetting(event, setting.strName, pSample->pText), "") << setting.strName;
        EXPECT_TRUE(std::visit([&](auto pField) { return HoldsSample(event.*pField); }, setting.field))
            << setting.strName;
    }
    CEvent event(DATE(1.0));
    EXPECT_EQ(SetEventSetting(event, "timeTHRESHOLD", "30"), "");
    EXPECT_EQ(event.m_nTimeThreshold, 30);
    EXPECT_EQ(SetEventSetting(event, "Description", ""), "");
}

TEST(EventSettings, WhatDoesNotFitChangesNothing)
{
    const std::string strWhole = "a whole number", strNumber = "a number";
    const std::string strDate = "a date as a count of days since 30 December 1899";
    const std::string strPosition = "LATITUDE,LONGITUDE in degrees";
    const std::string strEllipsoid = "an ellipsoid's index, 0 to 5, or 6,RADIUS,INVERSE FLATTENING";
    const struct
    {
        const char *pName, *pValue;
        std::string strExpected;
    } cases[] = {
        {"TimeThreshold", "", strWhole},           {"TimeThreshold", "1.5", strWhole},
        {"TimeThreshold", "12s", strWhole},        {"TimeThreshold", "1,2", strWhole},
        {"TimeThreshold", "2147483648", strWhole}, {"TimeThreshold", "nan", strWhole},
        {"SpeedThreshold", "fast", strNumber},     {"SpeedThreshold", "1,5", strNumber},
        {"SpeedThreshold", "inf", strNumber},      {"SpeedThreshold", "1e999", strNumber},
        {"DateStart", "2024-06-01", strDate},      {"DateEnd", "1,2", strDate},
        {"NorthWest", "-38.5", strPosition},       {"NorthWest", "1,2,3", strPosition},
        {"SouthEast", "1,", strPosition},          {"SouthEast", ",1", strPosition},
        {"Ellipsoid", "6", strEllipsoid},          {"Ellipsoid", "7", strEllipsoid},
        {"Ellipsoid", "-1", strEllipsoid},         {"Ellipsoid", "1.5", strEllipsoid},
        {"Ellipsoid", "1,2,3", strEllipsoid},      {"Ellipsoid", "6,1", strEllipsoid},
        {"Ellipsoid", "WGS84", strEllipsoid},
    };
    for (const auto& test : cases) {
        CEvent event(DATE(1.0));
        EXPECT_EQ(SetEventSetting(event, test.pName, test.pValue), test.strExpected)
            << test.pName << "=" << test.pValue;
        const CEvent fresh(DATE(1.0));
        for (const SEventSetting& setting : EventSettings())
            std::visit([&](auto pField) { EXPECT_TRUE(event.*pField == fresh.*pField); }, setting.field);
    }
    CEvent event(DATE(1.0));
    for (const char* pName : {"", "Persons", "m_nTimeThreshold", "TimeThreshold "}) {
        const std::string strNames = SetEventSetting(event, pName, "1");
        EXPECT_TRUE(strNames.starts_with("one of Description, Location, ")) << strNames;
        EXPECT_TRUE(strNames.ends_with(", DopplerError, TrackpointError")) << strNames;
    }
}

} // namespace
} // namespace kestrabel
