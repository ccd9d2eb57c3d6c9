#include "cli/ArgumentValues.h"

#include "model/WayPoint.h"
#include "platform/NumberInput.h"
#include "platform/Text.h"

#include <algorithm>
#include <cmath>

namespace kestrabel {

namespace {

constexpr double MaxLatitude = 90.0;
constexpr double MaxLongitude = 180.0;
constexpr double MaxProximity = 1000.0; // metres
constexpr double MetresToKilometres = 0.001;

/// The text before and behind the first "=".
bool SplitAtEquals(const std::string& strText, std::string& strName, std::string& strValue)
{
    const std::size_t nEquals = strText.find('=');
    if (nEquals == std::string::npos)
        return false;
    strName = strText.substr(0, nEquals);
    strValue = strText.substr(nEquals + 1);
    return true;
}

double ReadDegrees(const std::string& strText, const char* pName, double dLimit)
{
    double dDegrees = 0.0;
    if (!IsDecimal(strText, dDegrees) || std::abs(dDegrees) > dLimit)
        throw CCommandLineError(std::string(pName) + " " + strText + ": expected degrees from -" +
                                std::to_string(static_cast<int>(dLimit)) + " to " +
                                std::to_string(static_cast<int>(dLimit)));
    return dDegrees;
}

} // namespace

SEntryArgument ReadEntry(const std::string& strText)
{
    SEntryArgument entry;
    std::string strName;
    std::string strFiles;
    bool bGood = SplitAtEquals(strText, strName, strFiles);
    entry.strName = ToUtf8(strName);
    for (std::size_t nStart = 0; bGood && nStart <= strFiles.size();) {
        const std::size_t nComma = std::min(strFiles.find(',', nStart), strFiles.size());
        entry.files.push_back(strFiles.substr(nStart, nComma - nStart));
        bGood = !entry.files.back().empty();
        nStart = nComma + 1;
    }
    if (!bGood)
        throw CCommandLineError("--entry " + strText + ": expected \"NAME=FILE[,FILE]...\"");
    return entry;
}

SSettingArgument ReadSetting(const std::string& strText)
{
    SSettingArgument setting;
    if (!SplitAtEquals(strText, setting.strName, setting.strValue))
        throw CCommandLineError("--set " + strText + ": expected NAME=VALUE");
    return setting;
}

SCheckPointArgument ReadCheckPoint(const std::string& strText)
{
    std::vector<std::string> parts;
    for (std::size_t nStart = 0; nStart <= strText.size();) {
        const std::size_t nComma = std::min(strText.find(',', nStart), strText.size());
        parts.push_back(strText.substr(nStart, nComma - nStart));
        nStart = nComma + 1;
    }
    double dMetres = 0.0;
    const bool bGiven = parts.size() == 4;
    if ((parts.size() != 3 && !bGiven) || parts[0].empty() ||
        (bGiven && (!IsDecimal(parts[3], dMetres) || dMetres < 0.0 || dMetres > MaxProximity)))
        throw CCommandLineError("--checkpoint " + strText +
                                ": expected NAME,LAT,LON[,METRES] with 0 to 1000 metres");
    return {.strName = ToUtf8(parts[0]),
            .position = ReadPosition(parts[1], "--checkpoint LAT", parts[2], "--checkpoint LON"),
            .dProximity = bGiven ? dMetres * MetresToKilometres : CWayPoint().m_dProximity};
}

CPosition ReadPosition(const std::string& strLatitude, const char* pLatitudeName,
                       const std::string& strLongitude, const char* pLongitudeName)
{
    return MakePosition(ReadDegrees(strLatitude, pLatitudeName, MaxLatitude),
                        ReadDegrees(strLongitude, pLongitudeName, MaxLongitude));
}

CEllipsoid ReadEllipsoid(const std::string& strName)
{
    const std::int32_t nIndex = FindEllipsoid(strName);
    if (nIndex < 0) {
        std::string strNames;
        for (const SEllipsoidRow& row : EllipsoidTable)
            strNames.append(strNames.empty() ? "" : ", ").append(row.strName);
        throw CCommandLineError("--ellipsoid " + strName + ": expected one of " + strNames);
    }
    const SEllipsoidRow& row = EllipsoidTable[static_cast<std::size_t>(nIndex)];
    CEllipsoid ellipsoid;
    ellipsoid.SetEllipsoid(nIndex, row.dRadius, row.dInvFlattening);
    return ellipsoid;
}

} // namespace kestrabel
