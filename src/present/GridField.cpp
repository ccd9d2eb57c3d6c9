#include "present/GridField.h"

#include "platform/NumberInput.h"

#include <algorithm>
#include <string>

namespace kestrabel {

namespace {

constexpr std::string_view Root = "Grid Fields/";
constexpr std::size_t AlwaysShownFirst = 3;  // when a table is used for the first time
constexpr std::int32_t WidestColumn = 10000; // pixels; more is a damaged setting

std::string SectionOf(std::string_view strTable)
{
    return std::string(Root).append(strTable);
}

std::string SectionOf(std::string_view strTable, const CGridField& field)
{
    return SectionOf(strTable).append("/").append(field.m_strTitle);
}

bool ReadNumber(const CSettingsStore& settings, std::string_view strSection, std::string_view strEntry,
                std::int32_t& nValue)
{
    const std::string strText = settings.Read(strSection, strEntry);
    std::string_view strRest = strText;
    return TakeInteger(strRest, nValue) && strRest.empty();
}

} // namespace

CGridFields DefaultFields(std::span<const SGridColumn> columns)
{
    CGridFields fields;
    for (const SGridColumn& column : columns)
        fields.push_back({column.strTitle, column.align, column.nWidth, column.bShown});
    return fields;
}

std::vector<int> ShownFields(const CGridFields& fields)
{
    std::vector<int> shown;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (fields[i].m_bDisplay)
            shown.push_back(static_cast<int>(i));
    }
    return shown;
}

void LoadGridFields(CSettingsStore& settings, std::string_view strTable, CGridFields& fields)
{
    if (!settings.HasSection(SectionOf(strTable))) {
        for (std::size_t i = 0; i < std::min(AlwaysShownFirst, fields.size()); ++i)
            fields[i].m_bDisplay = true;
        SaveGridFields(settings, strTable, fields);
        return;
    }
    for (CGridField& field : fields) {
        const std::string strSection = SectionOf(strTable, field);
        std::int32_t nValue = 0;
        if (ReadNumber(settings, strSection, "Display", nValue))
            field.m_bDisplay = nValue != 0;
        if (ReadNumber(settings, strSection, "Width", nValue))
            field.m_nWidth = std::clamp(nValue, 0, WidestColumn);
    }
}

void SaveGridFields(CSettingsStore& settings, std::string_view strTable, const CGridFields& fields)
{
    if (strTable.empty())
        return;
    for (const CGridField& field : fields) {
        const std::string strSection = SectionOf(strTable, field);
        settings.Write(strSection, "Display", field.m_bDisplay ? "1" : "0");
        settings.Write(strSection, "Width", std::to_string(field.m_nWidth));
    }
}

} // namespace kestrabel
