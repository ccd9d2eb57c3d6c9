#include "formats/FieldSplitter.h"

namespace kestrabel {

namespace {

constexpr std::size_t MaxFieldLength = 2048;

/// Offset of the quote that closes the field whose opening quote stands at `nOpen`; npos when there is none.
std::size_t ClosingQuote(std::string_view strText, std::size_t nOpen)
{
    std::size_t nQuote = strText.find('"', nOpen + 1);
    while (nQuote != std::string_view::npos && nQuote + 1 < strText.size() && strText[nQuote + 1] != ',')
        nQuote = strText.find('"', nQuote + 1);
    return nQuote;
}

} // namespace

void SplitFields(std::string_view strText, std::vector<std::string_view>& fields)
{
    fields.clear();
    if (strText.empty())
        return;
    std::size_t nStart = 0;
    while (true) {
        std::size_t nContent = nStart;
        std::size_t nEnd = std::string_view::npos;
        std::size_t nComma = std::string_view::npos;
        if (nStart < strText.size() && strText[nStart] == '"') {
            ++nContent;
            nEnd = ClosingQuote(strText, nStart);
            if (nEnd != std::string_view::npos && nEnd + 1 < strText.size())
                nComma = nEnd + 1;
        } else {
            nEnd = nComma = strText.find(',', nStart);
        }
        if (nEnd == std::string_view::npos)
            nEnd = strText.size();
        fields.push_back(strText.substr(nContent, nEnd - nContent).substr(0, MaxFieldLength));
        if (nComma == std::string_view::npos)
            return;
        nStart = nComma + 1;
    }
}

} // namespace kestrabel
