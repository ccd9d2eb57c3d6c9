#pragma once

#include "platform/SettingsStore.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace kestrabel {

enum class EAlign : std::int32_t
{
    Left = 0,
    Right = 1
};

/// A column of a grid as its table lists it.
struct SGridColumn
{
    std::string_view strTitle; ///< also the key under which the user's choice is kept
    EAlign align;
    std::int32_t nWidth; ///< pixels
    bool bShown;         ///< by default
};

/// A column as the user has it.
struct CGridField
{
    std::string_view m_strTitle;
    EAlign m_nFormat;
    std::int32_t m_nWidth; ///< pixels
    bool m_bDisplay;
    bool m_bSortAscending = true; ///< direction of the next click on the header
};

/// All columns of a table, in its order.
using CGridFields = std::vector<CGridField>;

/// The fields of a table with their defaults.
CGridFields DefaultFields(std::span<const SGridColumn> columns);

/// Whether a field is shown; its enumeration counts in the order of the table.
template <class TField>
bool IsShown(const CGridFields& fields, TField field)
{
    return fields[static_cast<std::size_t>(field)].m_bDisplay;
}

/// The indices of the fields that are shown.
std::vector<int> ShownFields(const CGridFields& fields);

/// Takes the stored choice and widths over; what is missing or no number stays as it is. Where nothing is
/// stored for the table (`strTable`: "Results", "Trackpoints", "Map1", "Graph1"), its first three fields are
/// shown as well and the whole is stored at once.
void LoadGridFields(CSettingsStore& settings, std::string_view strTable, CGridFields& fields);

/// Stores choice and width of every field; nothing for an empty table name.
void SaveGridFields(CSettingsStore& settings, std::string_view strTable, const CGridFields& fields);

} // namespace kestrabel
