#include "app/CommandWords.h"

#include <algorithm>

namespace kestrabel {

std::vector<std::string> CommandWords(std::string_view strCommandLine)
{
    std::vector<std::string> words;
    bool bInWord = false;
    bool bQuoted = false;
    for (std::size_t i = 0; i < strCommandLine.size(); ++i) {
        const char c = strCommandLine[i];
        if (!bQuoted && (c == ' ' || c == '\t')) {
            bInWord = false;
            continue;
        }
        if (!bInWord)
            words.emplace_back();
        bInWord = true;
        std::string& strWord = words.back();
        if (c == '"') {
            const bool bDoubled = bQuoted && strCommandLine.substr(i + 1).starts_with('"');
            if (bDoubled) {
                strWord += c;
                ++i;
            } else {
                bQuoted = !bQuoted;
            }
            continue;
        }
        if (c != '\\') {
            strWord += c;
            continue;
        }
        const std::size_t nEnd = std::min(strCommandLine.find_first_not_of('\\', i), strCommandLine.size());
        const std::size_t nCount = nEnd - i;
        const bool bBeforeQuote = nEnd < strCommandLine.size() && strCommandLine[nEnd] == '"';
        strWord.append(bBeforeQuote ? nCount / 2 : nCount, c);
        i = nEnd - 1;
        if (bBeforeQuote && nCount % 2 == 1) {
            strWord += '"';
            i = nEnd;
        }
    }
    return words;
}

} // namespace kestrabel
