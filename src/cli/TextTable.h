#pragma once

#include "cli/Output.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace kestrabel {

/// A table for a terminal: titles in one line or two, then rows in groups, each under a title of its own and
/// behind an empty line. Columns are two blanks apart; no line ends in blanks or is longer than the table's
/// width, as long as the columns that may be cut leave room.
class CTextTable
{
public:
    enum class EColumn
    {
        Name,   ///< to the left; cut with "…" when the table is too wide
        Left,   ///< to the left
        Right,  ///< to the right
        Number, ///< on the decimal point, also of texts without one ("-" included)
    };

    static constexpr std::size_t Width = 100; ///< characters

    /// `strUnit`, or the rest of the title, stands below it.
    void AddColumn(std::string_view strTitle, std::string_view strUnit, EColumn column);
    /// Begins a group; the title is cut to the width.
    void AddGroup(std::string_view strTitle);
    /// One cell per column, UTF-8.
    void AddRow(std::vector<std::string> cells);

    void Write(COutput& output) const;

private:
    struct SColumn
    {
        std::string strTitle;
        std::string strUnit;
        EColumn column;
    };
    struct SRow
    {
        std::string strGroup; ///< the title of a group that begins here, then there are no cells
        std::vector<std::string> cells;
    };
    struct SWidth
    {
        std::size_t nTotal = 0;
        std::size_t nLeast = 0;  ///< of EColumn::Name: it is not cut further
        std::size_t nBehind = 0; ///< of EColumn::Number: the point and what follows it
    };

    std::vector<SWidth> MeasureColumns() const;
    void CutNames(std::vector<SWidth>& widths) const;
    std::string Line(const std::vector<std::string>& cells, const std::vector<SWidth>& widths) const;

    std::vector<SColumn> m_columns;
    std::vector<SRow> m_rows;
};

} // namespace kestrabel
