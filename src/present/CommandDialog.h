#pragma once

#include <array>
#include <string>
#include <string_view>

namespace kestrabel {

/// "Command Dialog": an external command of the menu. Unlike other dialogs its texts count whether it ends
/// with "Run", which is its OK, or with "Close".
struct SCommandDialog
{
    struct SReplacement
    {
        std::string_view strPlaceholder;
        std::string_view strMeaning;
    };

    static constexpr std::string_view Title = "Command Dialog";
    static constexpr std::string_view NameLabel = "Name displayed in the menu:";
    static constexpr std::string_view CommandLabel = "Command line string to run";
    static constexpr std::string_view FileInLabel = "File to load after command is run (optional)";
    static constexpr std::string_view RunLabel = "Run";
    static constexpr std::string_view CloseLabel = "Close";

    // The example shown below the fields, and what is replaced in them.
    static constexpr std::string_view CommandExample = "convert \"@FileOut\" \"@FileIn\"";
    static constexpr std::string_view FileInExample = "@CompDir@Comp.sbp";
    static constexpr std::array<SReplacement, 5> Replacements = {{
        {"@FileOut", "the selected track file"},
        {"@FileIn", "the file to load"},
        {"@CompDir", "the data folder"},
        {"@Comp", "the competitor's name"},
        {"@Date", "the current date and time"},
    }};

    std::string strName;
    std::string strCommand;
    std::string strFileIn;
};

} // namespace kestrabel
