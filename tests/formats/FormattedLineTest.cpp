#include "formats/FormattedLine.h"

#include <gtest/gtest.h>

namespace kestrabel::test {
namespace {

TEST(FormattedLine, Directives)
{
    const DATE noon = DATE::FromCalendar({.nYear = 2007, .nMonth = 5, .nDay = 4, .nHour = 12});
    const std::string_view a = "a";
    const struct
    {
        const char* pWhat;
        std::string strLine;
        const char* pExpected;
    } cases[] = {
        {"nothing", FormatLine("", ',', {}), ""},
        {"one", FormatLine("%S", ',', {a}), "a"},
        {"text outside is not copied", FormatLine("x%Sy,%Sz", ',', {a, a}), "a,a"},
        {"no separator behind the last", FormatLine("%S%I", ' ', {a, 1L}), "a 1"},
        {"empty items", FormatLine("%S%S%S", ',', {std::string_view(), a, std::string_view()}), ",a,"},
        {"quotes for a blank", FormatLine("%S%D", ',', {"a b", "a\tb"}), "\"a b\",a\tb"},
        {"quotes for the separator", FormatLine("%S%S", ',', {"a,b", "a;b"}), "\"a,b\",a;b"},
        {"a double quote is text", FormatLine("%S", ',', {"a\"b"}), "a\"b"},
        {"characters", FormatLine("%C%C%C%C", ',', {'T', ' ', ',', '"'}), "T,\" \",\",\",\"\"\""},
        {"three decimals", FormatLine("%N%N%N", ',', {1.23456, 2.0, 0.0}), "1.235,2,0"},
        {"decimals as told", FormatLine("%N1%N0%N10", ',', {1.26, 2.4, 0.5}), "1.3,2,.5"},
        {"integers", FormatLine("%I%L", ',', {-7L, 8L}), "-7,8"},
        {"truth", FormatLine("%B%B", ',', {0L, -1L}), "FALSE,TRUE"},
        {"date and time", FormatLine("%T%T", ',', {noon, DATE(37773.0)}),
         "\"2007-05-04 12:00:00\",2003-06-01"},
        {"unknown directives are dropped", FormatLine("%X%S%%%", ',', {a}), "a"},
        {"missing and wrong items are empty", FormatLine("%S%N%I", ',', {1L, a}), ",,"},
    };
    for (const auto& test : cases)
        EXPECT_EQ(test.strLine, test.pExpected) << test.pWhat;
}

} // namespace
} // namespace kestrabel::test
