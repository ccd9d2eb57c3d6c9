#include "app/CommandPlaceholders.h"

#include "app/CommandWords.h"
#include "platform/Path.h"

#include <algorithm>
#include <array>

namespace kestrabel {

namespace {

enum EPlaceholder : std::size_t
{
    FileOut,
    FileIn,
    CompDir,
    Comp,
    Date,
    PlaceholderCount
};

/// In the order in which they are tried: "@CompDir" begins like "@Comp".
constexpr std::array<std::string_view, PlaceholderCount> Placeholders = {"@FileOut", "@FileIn", "@CompDir",
                                                                         "@Comp", "@Date"};

/// What each stands for; those without a value stay in the text.
using CValues = std::array<std::optional<std::string>, PlaceholderCount>;
using CFound = std::array<bool, PlaceholderCount>;

/// The placeholder with which the text begins; PlaceholderCount: none.
std::size_t PlaceholderAt(std::string_view strText)
{
    const auto begins = [&](std::string_view strName) {
        return strText.starts_with(strName) || strText.starts_with(ToUpper(strName)) ||
               strText.starts_with(ToLower(strName));
    };
    return static_cast<std::size_t>(std::ranges::find_if(Placeholders, begins) - Placeholders.begin());
}

CFound Find(std::string_view strText)
{
    CFound found = {};
    for (std::size_t i = strText.find('@'); i != std::string_view::npos; i = strText.find('@', i + 1)) {
        if (const std::size_t nPlaceholder = PlaceholderAt(strText.substr(i));
            nPlaceholder != PlaceholderCount)
            found[nPlaceholder] = true;
    }
    return found;
}

std::string Replace(std::string_view strText, const CValues& values)
{
    std::string strReplaced;
    for (std::size_t i = 0; i < strText.size();) {
        const std::size_t nPlaceholder =
            strText[i] == '@' ? PlaceholderAt(strText.substr(i)) : PlaceholderCount;
        if (nPlaceholder == PlaceholderCount || !values[nPlaceholder].has_value()) {
            strReplaced += strText[i++];
            continue;
        }
        strReplaced += *values[nPlaceholder];
        i += Placeholders[nPlaceholder].size();
    }
    return strReplaced;
}

} // namespace

SExpandedCommand ExpandCommand(std::string_view strCommandLine, std::string_view strFileIn,
                               const SCommandValues& values)
{
    CFound used = Find(strCommandLine);
    if (used[FileIn]) {
        const CFound usedByFile = Find(strFileIn);
        std::ranges::transform(used, usedByFile, used.begin(), std::logical_or());
    }
    SExpandedCommand command;
    if (used[FileOut] && !values.fileOut.has_value())
        command.strProblem = "Please select a file to apply this command";
    else if ((used[Comp] || used[CompDir]) && !values.competitor.has_value())
        command.strProblem = "Please select a competitor to import the file to";
    if (!command.strProblem.empty())
        return command;

    CValues inFileName;
    const auto use = [&](EPlaceholder placeholder, const std::optional<std::string>& value) {
        if (used[placeholder])
            inFileName[placeholder] = value;
    };
    use(FileOut, values.fileOut);
    use(CompDir, values.strDataFolder);
    use(Comp, values.competitor);
    use(Date, values.strDate);
    command.strFileIn = Replace(strFileIn, inFileName);

    CValues inCommandLine = inFileName;
    if (!strFileIn.empty())
        inCommandLine[FileIn] = command.strFileIn;
    command.arguments = CommandWords(strCommandLine);
    for (std::string& strArgument : command.arguments)
        strArgument = Replace(strArgument, inCommandLine);
    return command;
}

} // namespace kestrabel
