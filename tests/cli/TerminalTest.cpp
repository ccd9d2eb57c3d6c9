#include "cli/TerminalProgress.h"
#include "cli/TerminalPrompt.h"
#include "platform/Text.h"

#include <gtest/gtest.h>
#include <sstream>

namespace kestrabel {
namespace {

constexpr auto AtOnce = std::chrono::milliseconds(-1);

/// What a terminal line shows after these characters: a carriage return goes back to its start.
std::string LineShown(const std::string& strWritten)
{
    std::string strLine;
    std::size_t nColumn = 0;
    for (const char c : strWritten) {
        if (c == '\r') {
            nColumn = 0;
            continue;
        }
        strLine.resize(std::max(strLine.size(), nColumn + 1), ' ');
        strLine[nColumn++] = c;
    }
    strLine.erase(strLine.find_last_not_of(' ') + 1);
    return strLine;
}

TEST(TerminalProgress, DrawsAndWipes)
{
    std::ostringstream terminal;
    CTerminalProgress progress(terminal, AtOnce);
    progress.Begin("Calculating track points");
    EXPECT_EQ(terminal.str(), "");
    progress.Show(0.5);
    EXPECT_EQ(LineShown(terminal.str()), "Calculating track points [###############...............]");
    progress.Show(1.0);
    EXPECT_EQ(LineShown(terminal.str()), "Calculating track points [##############################]");
    progress.End();
    EXPECT_EQ(LineShown(terminal.str()), "");
}

TEST(TerminalProgress, AShorterInnerOperationLeavesNothingOfTheOuterOne)
{
    std::ostringstream terminal;
    CTerminalProgress progress(terminal, AtOnce);
    progress.Begin("Exporting all divisions");
    progress.Show(0.0);
    progress.Begin("In");
    progress.Show(0.0);
    EXPECT_EQ(LineShown(terminal.str()), "In [..............................]");
    progress.End();
    progress.Show(2.0);
    EXPECT_EQ(LineShown(terminal.str()), "Exporting all divisions [##############################]");
    progress.End();
    EXPECT_EQ(LineShown(terminal.str()), "");
}

TEST(TerminalProgress, AShortOperationShowsNothing)
{
    std::ostringstream terminal;
    {
        CTerminalProgress progress(terminal, std::chrono::hours(1));
        CProgress shown(progress, "Calculating track points", 10);
        for (int i = 0; i < 10; ++i)
            shown.Step();
    }
    EXPECT_EQ(terminal.str(), "");
}

TEST(TerminalPrompt, AnswersOkAndCountsUnlessStrict)
{
    CTerminalPrompt prompt(false);
    EXPECT_TRUE(prompt.AskOkCancel("continue?"));
    EXPECT_EQ(prompt.AskYesNoCancel("replace?"), CUserPrompt::EAnswer::Yes);
    EXPECT_EQ(prompt.AnsweredOk(), 2);

    CTerminalPrompt strict(true);
    EXPECT_FALSE(strict.AskOkCancel("continue?"));
    EXPECT_EQ(strict.AskYesNoCancel("replace?"), CUserPrompt::EAnswer::Cancel);
    EXPECT_EQ(strict.AnsweredOk(), 0);
}

} // namespace
} // namespace kestrabel
