#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kestrabel {

/// What the placeholders of an external command stand for.
struct SCommandValues
{
    std::optional<std::string> fileOut = {};    ///< path of the selected track file, if there is one
    std::optional<std::string> competitor = {}; ///< name of the selected competitor, if there is one
    std::string strDataFolder;
    std::string strDate;
};

/// An external command ready to be run.
struct SExpandedCommand
{
    std::vector<std::string> arguments; ///< the program first
    std::string strFileIn;              ///< the file to import afterwards; empty: none
    std::string strProblem;             ///< what is not selected that the command needs; empty: nothing
};

/// Puts the values in place of "@FileOut", "@FileIn", "@CompDir", "@Comp" and "@Date", written so, in
/// capitals or in small letters; other spellings stay. A placeholder of `strFileIn` is only replaced when the
/// command line has it, too, or has "@FileIn". The command line is split before: a value is always part of
/// one argument, whatever it contains, and no value is searched for placeholders.
SExpandedCommand ExpandCommand(std::string_view strCommandLine, std::string_view strFileIn,
                               const SCommandValues& values);

} // namespace kestrabel
