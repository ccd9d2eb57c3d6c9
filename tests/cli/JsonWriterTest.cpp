#include "cli/JsonWriter.h"

#include "cli/PrintedText.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <gtest/gtest.h>
#include <limits>
#include <nlohmann/json.hpp>
#include <random>
#include <vector>

namespace kestrabel {
namespace {

using test::PrintedText;

/// The document {"value": …} that `write(json)` makes.
template <class TWrite>
std::string Document(TWrite&& write)
{
    return PrintedText([&](COutput& output) {
        CJsonWriter json(output);
        json.BeginObject();
        write(json);
        json.EndObject();
    });
}

std::string NumberText(double dValue)
{
    const std::string strText = Document([&](CJsonWriter& json) { json.Number("v", dValue); });
    constexpr std::size_t nBefore = 5; // {"v":
    return strText.substr(nBefore, strText.size() - nBefore - 2);
}

TEST(JsonWriter, NumbersAreTheShortestThatReadBack)
{
    const std::pair<double, const char*> cases[] = {
        {0.1, "0.1"},
        {0.30000000000000004, "0.30000000000000004"},
        {-37.65, "-37.65"},
        {45444.416666666664, "45444.416666666664"},
        {5e-324, "5e-324"},
        {9007199254740993.0, "9007199254740992"},
        {1.7976931348623157e308, "1.7976931348623157e+308"},
        {2e23, "2e+23"}, // a usual fault: 1.9999999999999998e+23 reads back too
        {0.0, "0"},
        {-0.0, "-0"},
    };
    for (const auto& [dValue, pText] : cases)
        EXPECT_EQ(NumberText(dValue), pText);
}

TEST(JsonWriter, RandomDoublesReadBackToTheBit)
{
    std::mt19937_64 random(7);
    std::vector<double> values;
    while (values.size() < 5000) {
        const double dValue = std::bit_cast<double>(random());
        if (std::isfinite(dValue))
            values.push_back(dValue);
    }
    const nlohmann::json read = nlohmann::json::parse(Document([&](CJsonWriter& json) {
        for (std::size_t i = 0; i < values.size(); ++i)
            json.Number(std::to_string(i), values[i]);
    }));
    for (std::size_t i = 0; i < values.size(); ++i) {
        const auto dRead = read[std::to_string(i)].get<double>();
        EXPECT_EQ(std::bit_cast<std::uint64_t>(dRead), std::bit_cast<std::uint64_t>(values[i])) << values[i];
    }
}

TEST(JsonWriter, WhatIsNotFiniteIsNull)
{
    using CLimits = std::numeric_limits<double>;
    for (const double dValue : {CLimits::quiet_NaN(), CLimits::infinity(), -CLimits::infinity()})
        EXPECT_EQ(NumberText(dValue), "null");
}

TEST(JsonWriter, EveryByteSequenceBecomesAValidText)
{
    const std::pair<std::string, std::string> cases[] = {
        {"plain", "plain"},
        {"quote \" and \\", "quote \" and \\"},
        {std::string("\0\x01\x1f\x7f", 4), std::string("\0\x01\x1f\x7f", 4)},
        {"a\r\n\tb", "a\r\n\tb"},
        {"Zoë 船", "Zoë 船"},
        {"Zo\xeb", "Zoë"},            // Windows-1252
        {"\xed\xa0\x80", "í\u00a0€"}, // a surrogate is no UTF-8
        {"\xf0\x9f\x8f\x84", "\U0001F3C4"},
    };
    for (const auto& [strGiven, strRead] : cases) {
        const std::string strText = Document([&](CJsonWriter& json) { json.Text("v", strGiven); });
        EXPECT_EQ(nlohmann::json::parse(strText)["v"].get<std::string>(), strRead) << strText;
    }
}

TEST(JsonWriter, NestingPlacesCommasAndLines)
{
    const std::string strText = Document([](CJsonWriter& json) {
        json.BeginArray("empty");
        json.EndArray();
        json.BeginArray("points");
        for (int i = 0; i < 2; ++i) {
            json.BeginObject();
            json.Integer("i", i);
            json.Boolean("b", i == 0);
            json.EndObject();
        }
        json.EndArray();
        json.BeginObject("in");
        json.Null("n");
        json.EndObject();
        json.Integer("max", std::numeric_limits<std::uint32_t>::max());
    });
    EXPECT_EQ(strText, "{\"empty\":[],\"points\":[\n{\"i\":0,\"b\":true},\n{\"i\":1,\"b\":false}\n],"
                       "\"in\":{\"n\":null},\"max\":4294967295}\n");
}

TEST(Output, AFullDiskIsTold)
{
    const int nFull = ::open("/dev/full", O_WRONLY);
    ASSERT_GE(nFull, 0);
    COutput output(nFull);
    output.Write("kept until there is enough");
    EXPECT_THROW(output.Finish(), COutputError);
    EXPECT_NO_THROW(output.Finish()) << "what failed is not tried again";
    EXPECT_THROW(output.Write(std::string(1 << 20, 'x')), COutputError);
    ::close(nFull);
}

} // namespace
} // namespace kestrabel
