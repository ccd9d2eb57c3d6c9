#pragma once

#include "cli/Arguments.h"

#include <span>
#include <string>
#include <string_view>

namespace kestrabel {

/// A command of the tool, as help and messages speak of it.
struct SCommandRow
{
    ECommand command;
    std::string_view strName; ///< "project show" is the command "show" of the group "project"
    std::string_view strDescription;
    std::string_view strPositionals;
    std::string_view strOptions; ///< for the message about a wrong command line
    std::string_view strExample; ///< its arguments
};

/// All commands, in the order of help.
std::span<const SCommandRow> CommandTable();

/// The row of a command's name; null when it is none.
const SCommandRow* FindCommand(std::string_view strName);

/// "results, leaderboard, …".
std::string CommandNames();

/// "kestrabel-cli results [FILE...]", without the options.
std::string CommandStart(const SCommandRow& row);

/// Examples of these commands and what the exit status means: the end of a help text.
std::string HelpFooter(std::span<const SCommandRow> rows);

/// Throws CCommandLineError; the message ends with how the command is used.
[[noreturn]] void RefuseCommandLine(const SCommandRow& row, const std::string& strReason);

} // namespace kestrabel
