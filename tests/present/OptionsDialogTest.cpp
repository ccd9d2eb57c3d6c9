#include "present/OptionsDialog.h"

#include "model/EventSettings.h"

#include <gtest/gtest.h>

namespace kestrabel {
namespace {

std::vector<std::string> Speeds(const SOptionsDialog& d)
{
    return {d.speedThreshold.strText, d.accThreshold.strText, d.deccThreshold.strText, d.stopRunSpeed.strText,
            d.dopplerError.strText};
}

TEST(OptionsDialog, SpeedsAreShownInTheUnitAndComeBackFromWhatIsShown)
{
    const CEvent defaults(DATE(45444.0));
    SOptionsDialog dialog = SOptionsDialog::From(defaults);
    EXPECT_EQ(dialog.strUnit, "nm");
    EXPECT_EQ(Speeds(dialog), (std::vector<std::string>{"50", "5", "10", "10", "0"}));
    EXPECT_EQ(dialog.stopRunAngle.strText, "90");

    const struct
    {
        std::string_view strUnit;
        std::string strShown;
        int nUnit;
        double dStored; ///< km/h
    } cases[] = {
        {"mph", "57.54", 3, 92.60165376},
        {"kmh", "92.6", 1, 92.6}, // from the exact value, not from
                                  // the 57.54 before
        {"ms", "25.72", 2, 92.592},
        {"furlongs", "25.72", 2, 92.592},
        {"nm", "50", 0, 92.6},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.strUnit);
        dialog.SetUnit(c.strUnit);
        EXPECT_EQ(dialog.speedThreshold.strText, c.strShown);
        CEvent event(DATE(45444.0));
        dialog.ApplyTo(event);
        EXPECT_EQ(event.m_nSpeedUnits, c.nUnit);
        EXPECT_DOUBLE_EQ(event.m_dSpeedThreshold, c.dStored);
    }
    dialog.speedThreshold.strText = "60";
    dialog.dopplerError.strText = "-0.5";
    dialog.SetUnit("kmh");
    EXPECT_EQ(dialog.speedThreshold.strText, "111.12") << "what was entered counts";
    EXPECT_EQ(dialog.dopplerError.strText, "-0.926");
}

TEST(OptionsDialog, OtherUnitsOfTheDialogThanOfTheEvent)
{
    CEvent event(DATE(45444.0));
    event.m_nSpeedUnits = 7;
    event.m_dDopplerError = -1.0;
    event.m_dTrackpointError = 0.0051;
    event.m_strDescription = "longer than fifteen characters";
    const SEventProperties hidden = SEventProperties::From(event);
    SOptionsDialog dialog = SOptionsDialog::From(event);
    EXPECT_EQ(dialog.strUnit, "ms");
    EXPECT_EQ(dialog.dopplerError.strText, "-0.28") << "halves away from zero";
    EXPECT_EQ(dialog.trackpointError.strText, "5.1") << "no noise of the conversion";
    EXPECT_EQ(dialog.Validate(), std::nullopt) << "the description is hidden";

    dialog.stopRunAngle.strText = "180";
    dialog.trackpointError.strText = "2";
    dialog.captureFocus.bChecked = true;
    dialog.latLongPrecision.strText = "12";
    dialog.properties.north.strText = "1";
    dialog.ApplyTo(event);
    EXPECT_DOUBLE_EQ(event.m_dStopRunAngle, 3.141592653589793);
    EXPECT_DOUBLE_EQ(event.m_dTrackpointError, 0.002);
    EXPECT_EQ(event.m_bCaptureFocus, 1);
    EXPECT_EQ(event.m_nLatLongPrecision, 12) << "more than the list offers";
    EXPECT_EQ(event.m_posNorthWest, CEvent().m_posNorthWest) << "hidden";
}

TEST(OptionsDialog, RangesAndTheFieldAtFault)
{
    SOptionsDialog d = SOptionsDialog::From(CEvent());
    const struct
    {
        SNumberField& field;
        const char* pLowest; ///< one below is refused
        const char* pBelow;
        const char* pHighest;
        const char* pAbove;
    } cases[] = {
        {d.showTopRows, "1", "0", "65535", "65536"},     {d.smoothing, "1", "0", "20", "2.5"},
        {d.timezone, "-24", "-24.1", "24", "24.1"},      {d.zoom, "0.2", "0.19", "3", "3.01"},
        {d.timeThreshold, "10", "9", "65535", "65536"},  {d.speedThreshold, "0", "-0.01", "1000", "1000.1"},
        {d.accThreshold, "0", "-0.01", "1000", "1001"},  {d.deccThreshold, "0", "-0.01", "1000", "1000.1"},
        {d.stopRunSpeed, "-5", "", "99999", "fast"},     {d.maxHdop, "0", "-1", "1000", "1001"},
        {d.minSats, "0", "-1", "1000", "1001"},          {d.stopRunAngle, "1", "0.9", "180", "180.1"},
        {d.trackpointError, "-5", "inf", "99999", "5m"}, {d.speedPrecision, "-1", "0.5", "33", "1e10"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.field.strLabel);
        const std::string strBefore = c.field.strText;
        for (const auto& [pText, bRefused] :
             {std::pair(c.pLowest, false), {c.pHighest, false}, {c.pBelow, true}, {c.pAbove, true}})
        {
            c.field.strText = pText;
            const auto problem = d.Validate();
            EXPECT_EQ(problem ? problem->pField : nullptr, bRefused ? &c.field : nullptr) << pText;
        }
        c.field.strText = strBefore;
    }
}

TEST(EventProperties, EdgesAndDaysAreReadAsThePlatformDoes)
{
    CEvent event(DATE::FromCalendar({.nYear = 2024, .nMonth = 3, .nDay = 12, .nHour = 17}));
    event.m_ellipsoid.SetEllipsoid(6, 6400000.0, 300.0);
    SEventProperties properties = SEventProperties::From(event);
    EXPECT_EQ(properties.north.strText, "-38.830000");
    EXPECT_EQ(properties.west.strText, "+146.155000");
    properties.north.strText = "abc";
    properties.south.strText = "-1.5e1south";
    properties.ApplyTo(event);
    EXPECT_EQ(event.m_posNorthWest, MakePosition(0.0, 146.155));
    EXPECT_EQ(event.m_posSouthEast, MakePosition(-15.0, 146.175));
    EXPECT_EQ(event.m_dateStart, DATE::FromCalendar({.nYear = 2024, .nMonth = 3, .nDay = 12}));
    EXPECT_EQ(event.m_dateEnd,
              DATE::FromCalendar(
                  {.nYear = 2024, .nMonth = 3, .nDay = 12, .nHour = 23, .nMinute = 59, .nSecond = 59}));
    EXPECT_EQ(event.m_ellipsoid.m_dRadius, 6400000.0);
    properties.description.strText = "fünfzehn Zeichen"; // 16 characters
    ASSERT_TRUE(properties.Validate());
    EXPECT_EQ(properties.Validate()->pField, &properties.description);
    properties.description.strText = "fünfzehn Zeiche"; // 15 in 16 bytes
    EXPECT_FALSE(properties.Validate());
}

TEST(OptionsDialog, WhatAChangeReaches)
{
    using enum EOptionsEffect;
    const struct
    {
        const char* pSetting;
        const char* pValue;
        EOptionsEffect effect;
    } cases[] = {
        {"Zoom", "1.3", Nothing},         {"Zoom", "2", Views},
        {"SpeedUnits", "1", Views},       {"Timezone", "2", Views},
        {"DateEnd", "1", Views},          {"ShowTopRows", "20", Results},
        {"DopplerError", "1", Results},   {"TrackpointError", "1", Results},
        {"Ellipsoid", "6,1,300", Points}, {"ConstrainDates", "1", Points},
        {"ConstrainRegion", "1", Points}, {"AccThreshold", "1", Points},
        {"DeccThreshold", "1", Points},   {"SpeedThreshold", "1", Points},
        {"MaxHDOP", "1", Points},         {"MinSats", "1", Points},
        {"TimeThreshold", "1", Points},   {"StopRunAngle", "1", Points},
        {"StopRunSpeed", "1", Points},
    };
    for (const auto& c : cases) {
        const CEvent before(DATE(45444.0));
        CEvent after(DATE(45444.0));
        ASSERT_EQ(SetEventSetting(after, c.pSetting, c.pValue), "");
        EXPECT_EQ(EffectOfOptions(before, after), c.effect) << c.pSetting;
    }
}

} // namespace
} // namespace kestrabel
