#include "formats/ReportFormat.h"

#include "formats/ScriptedPrompt.h"

#include <gtest/gtest.h>

namespace kestrabel::test {
namespace {

TEST(ReportFormat, Directives)
{
    struct SCase
    {
        std::string_view strFormat;
        std::initializer_list<CReportArgument> arguments;
        std::string_view strMessage;
    };
    const SCase cases[] = {
        {"plain", {}, "plain"},
        {"%B %B %B", {1L, 0L, -7L}, "TRUE FALSE TRUE"},
        {"<%C>", {'x'}, "<x>"},
        {"%D|%S", {std::string_view("day"), std::string_view("100% %S")}, "day|100% %S"},
        {"%I %L", {-2147483648L, 9000000000L}, "-2147483648 9000000000"},
        {"%N %N %N %N", {2.5, 0.0, 12.0, -0.25}, "2.5 0 12 -.25"},
        {"%N", {1.23456789}, "1.234568"},
        {"%T.", {EText::CannotSaveNmea}, "Cannot save to NMEA format."},
        {"a%xb%%c%", {}, "abc"}, // unknown directives vanish and take no argument
        {"%x%I", {5L}, "5"},
        {"%s%i%I", {5L}, "5"},                        // lower case is no directive
        {"%I%I!", {5L}, "5!"},                        // one argument too few
        {"%I %S", {std::string_view("no"), 3L}, " "}, // arguments of another kind
    };
    for (const SCase& one : cases)
        EXPECT_EQ(FormatReport(one.strFormat, one.arguments), one.strMessage) << one.strFormat;
}

TEST(ReportFormat, ReportsWithContinueAndTellsWhetherToGoOn)
{
    CImportMonitor monitor;
    EXPECT_TRUE(ReportFormat(monitor, EText::ReadFailure, {}));
    EXPECT_EQ(monitor.Message(), "Failed to read file");
    monitor.Abort();
    EXPECT_FALSE(ReportFormat(monitor, EText::WriteFailure, {}));
    EXPECT_EQ(monitor.Message(), "Failed to write file");
}

TEST(ImportMonitor, LifeOfTheAbortFlag)
{
    CScriptedPrompt prompt;
    CImportMonitor monitor;
    EXPECT_EQ(monitor.Window(), nullptr);
    EXPECT_EQ(monitor.Context(), 0);
    EXPECT_FALSE(monitor.IsAborted());
    EXPECT_EQ(monitor.Message(), "");

    EXPECT_TRUE(monitor.Report("going on", true));
    EXPECT_FALSE(monitor.Report("no further", false));
    EXPECT_TRUE(monitor.IsAborted());
    EXPECT_FALSE(monitor.Report("still aborted", true));
    monitor.Init(&prompt, 10000);
    EXPECT_FALSE(monitor.IsAborted());
    EXPECT_EQ(monitor.Window(), &prompt);
    EXPECT_EQ(monitor.Context(), 10000);
    monitor.ShowMessage();
    EXPECT_EQ(prompt.m_shown, std::vector<std::string>{"still aborted"});
}

TEST(ImportMonitor, CountsMoreIssuesThanItKeeps)
{
    CImportMonitor monitor;
    for (int i = 0; i < 250; ++i)
        monitor.NoteIssue(i + 1, "bad");
    EXPECT_EQ(monitor.IssueCount(), 250);
    ASSERT_EQ(monitor.Issues().size(), CImportMonitor::MaxKeptIssues);
    EXPECT_EQ(monitor.Issues().back().nLine, 100);
}

} // namespace
} // namespace kestrabel::test
