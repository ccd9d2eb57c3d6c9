#include "formats/FieldSplitter.h"

#include <gtest/gtest.h>

#include <string>

namespace kestrabel::test {
namespace {

TEST(SplitFields, Table)
{
    struct SCase
    {
        std::string strLine;
        std::vector<std::string_view> fields;
    };
    const SCase cases[] = {
        {"", {}},
        {"a", {"a"}},
        {",", {"", ""}},
        {",,,", {"", "", "", ""}},
        {"a,b,,c,", {"a", "b", "", "c", ""}},
        {" a , b", {" a ", " b"}},
        {"\"x,y\",z", {"x,y", "z"}},
        {"z,\"x,y\"", {"z", "x,y"}},
        {"\"x,y\",", {"x,y", ""}},
        {"\"\"", {""}},
        {"\"\",a", {"", "a"}},
        {"a,\"\"", {"a", ""}},
        {"\"a\"b\",c", {"a\"b", "c"}}, // only a quote before a comma or the end closes
        {"\"a\"\",c", {"a\"", "c"}},
        {"\"a\",\"b\",\"\"", {"a", "b", ""}},
        {"a\"b,c\"", {"a\"b", "c\""}}, // a quote inside a field is data
        {" \"a,b\"", {" \"a", "b\""}}, // the quote has to be the first character
        {"\"a,b", {"a,b"}},            // never closed: to the end of the line
        {"\"", {""}},
        {"a,\"", {"a", ""}},
        {"\",", {","}},
        {"\"\"\"", {"\""}},
        {"\"a,b\"c", {"a,b\"c"}},
    };
    for (const SCase& one : cases) {
        std::vector<std::string_view> fields = {"left", "over"};
        SplitFields(one.strLine, fields);
        EXPECT_EQ(fields, one.fields) << one.strLine;
    }
}

TEST(SplitFields, LineOfCommasGivesOneFieldMore)
{
    std::vector<std::string_view> fields;
    for (std::size_t n = 1; n < 9000; n = n * 3 + 1) {
        const std::string strLine(n, ',');
        SplitFields(strLine, fields);
        EXPECT_EQ(fields.size(), n + 1);
    }
}

TEST(SplitFields, LongFieldIsCut)
{
    std::vector<std::string_view> fields;
    for (const std::size_t nLength : {2047U, 2048U, 2049U, 8000U}) {
        const std::string strField(nLength, 'x');
        for (const std::string& strFirst : {strField, "\"" + strField + "\""}) {
            const std::string strLine = strFirst + ",next";
            SplitFields(strLine, fields);
            ASSERT_EQ(fields.size(), 2U);
            EXPECT_EQ(fields[0], strField.substr(0, 2048));
            EXPECT_EQ(fields[1], "next");
        }
    }
}

} // namespace
} // namespace kestrabel::test
