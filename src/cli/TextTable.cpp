#include "cli/TextTable.h"

#include "cli/DisplayText.h"
#include "platform/Text.h"

#include <algorithm>
#include <cassert>

namespace kestrabel {

namespace {

constexpr std::size_t Gap = 2;
constexpr std::size_t NarrowestName = 6;

/// The length of the decimal point and the digits behind it; 0 for a text without one.
std::size_t LengthBehind(std::string_view strNumber)
{
    const std::size_t nPoint = strNumber.find('.');
    return nPoint == std::string_view::npos ? 0 : strNumber.size() - nPoint;
}

} // namespace

void CTextTable::AddColumn(std::string_view strTitle, std::string_view strUnit, EColumn column)
{
    m_columns.push_back({std::string(strTitle), std::string(strUnit), column});
}

void CTextTable::AddGroup(std::string_view strTitle)
{
    m_rows.push_back({std::string(strTitle), {}});
}

void CTextTable::AddRow(std::vector<std::string> cells)
{
    assert(cells.size() == m_columns.size());
    m_rows.push_back({{}, std::move(cells)});
}

std::vector<CTextTable::SWidth> CTextTable::MeasureColumns() const
{
    std::vector<SWidth> widths(m_columns.size());
    for (std::size_t i = 0; i < m_columns.size(); ++i) {
        SWidth& width = widths[i];
        std::size_t nBefore = 0;
        for (const SRow& row : m_rows) {
            if (row.cells.empty())
                continue;
            const bool bNumber = m_columns[i].column == EColumn::Number;
            const std::size_t nBehind = bNumber ? LengthBehind(row.cells[i]) : 0;
            width.nBehind = std::max(width.nBehind, nBehind);
            nBefore = std::max(nBefore, CountCharacters(row.cells[i]) - nBehind);
        }
        const std::size_t nTitle =
            std::max(CountCharacters(m_columns[i].strTitle), CountCharacters(m_columns[i].strUnit));
        width.nLeast = std::max(nTitle, NarrowestName);
        width.nTotal = std::max(nTitle, nBefore + width.nBehind);
    }
    return widths;
}

/// Takes from the widest column of names until the table fits, so that short names stay whole.
void CTextTable::CutNames(std::vector<SWidth>& widths) const
{
    std::size_t nTable = Gap * (std::max<std::size_t>(widths.size(), 1) - 1);
    for (const SWidth& width : widths)
        nTable += width.nTotal;
    for (; nTable > Width; --nTable) {
        SWidth* pWidest = nullptr;
        for (std::size_t i = 0; i < widths.size(); ++i) {
            if (m_columns[i].column == EColumn::Name && widths[i].nTotal > widths[i].nLeast &&
                (pWidest == nullptr || widths[i].nTotal > pWidest->nTotal))
                pWidest = &widths[i];
        }
        if (pWidest == nullptr)
            break;
        --pWidest->nTotal;
    }
}

std::string CTextTable::Line(const std::vector<std::string>& cells, const std::vector<SWidth>& widths) const
{
    std::string strLine;
    for (std::size_t i = 0; i < m_columns.size(); ++i) {
        const EColumn column = m_columns[i].column;
        const std::string strCell = CutEnd(cells[i], widths[i].nTotal);
        const std::string strPad(widths[i].nTotal - CountCharacters(strCell), ' ');
        const bool bLeft = column == EColumn::Name || column == EColumn::Left;
        strLine.append(i == 0 ? 0 : Gap, ' ');
        strLine += bLeft ? strCell + strPad : strPad + strCell;
    }
    strLine.erase(strLine.find_last_not_of(' ') + 1);
    return strLine;
}

void CTextTable::Write(COutput& output) const
{
    std::vector<SWidth> widths = MeasureColumns();
    CutNames(widths);
    std::vector<std::string> titles;
    std::vector<std::string> units;
    for (const SColumn& column : m_columns) {
        titles.push_back(column.strTitle);
        units.push_back(column.strUnit);
    }
    output.WriteLine(Line(titles, widths));
    const std::string strUnits = Line(units, widths);
    if (!strUnits.empty())
        output.WriteLine(strUnits);
    for (const SRow& row : m_rows) {
        if (row.cells.empty()) {
            output.WriteLine("");
            output.WriteLine(CutEnd(row.strGroup, Width));
            continue;
        }
        std::vector<std::string> cells = row.cells;
        for (std::size_t i = 0; i < cells.size(); ++i) {
            if (m_columns[i].column == EColumn::Number)
                cells[i].append(widths[i].nBehind - LengthBehind(cells[i]), ' ');
        }
        output.WriteLine(Line(cells, widths));
    }
}

} // namespace kestrabel
