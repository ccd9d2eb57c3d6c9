#include "formats/DeviceText.h"

#include <gtest/gtest.h>

namespace kestrabel::test {
namespace {

std::string Fields(std::string_view bytes)
{
    CSeries series;
    series.m_strIdentifier = series.m_strSerialNo = series.m_strFirmware = series.m_strInfo = "before";
    series.m_nLogRate = 77;
    SetDeviceFields(bytes, series);
    return series.m_strIdentifier + "|" + series.m_strSerialNo + "|" + std::to_string(series.m_nLogRate) +
           "|" + series.m_strFirmware + "|" + series.m_strInfo;
}

TEST(DeviceText, Fields)
{
    const std::string strLong(300, 'x');
    const std::string strCut(31, 'x');
    const struct
    {
        std::string bytes;
        std::string fields;
    } cases[] = {
        {"a,b,5,c,d", "a|b|5|c|d"},
        {" a, b, 5, c, d", " a| b|5| c| d"},
        {"a,b,5,c,d,e", "a|b|5|c|d"},
        {"\"a,b\",5,c", "\"a|b\"|5|c|"},
        {"a,b,fast,c,d", "a|b|0|c|d"},
        {"a,b,99999999999,c,d", "a|b|2147483647|c|d"},
        {std::string("a,b\0c,5", 7), "a|b|0||"},
        {"J\xF6rg,b,1", "J\xC3\xB6rg|b|1||"}, // Windows-1252
        {"J\xC3\xB6rg,b,1", "J\xC3\xB6rg|b|1||"},
        {strLong + "," + strLong + ",1," + strLong + "," + strLong,
         strCut + "|" + strCut + "|1|" + strCut + "|" + std::string(223, 'x')},
    };
    for (const auto& test : cases)
        EXPECT_EQ(Fields(test.bytes), test.fields) << test.bytes;
}

TEST(DeviceText, IsCutBetweenCharacters)
{
    EXPECT_EQ(CutText("a\xC3\xB6z", 2), "a");
    EXPECT_EQ(CutText("a\xC3\xB6z", 3), "a\xC3\xB6");
    EXPECT_EQ(CutText("\xE2\x82\xAC", 2), "");
}

} // namespace
} // namespace kestrabel::test
