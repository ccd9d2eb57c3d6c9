#pragma once

#include "cli/Arguments.h"

#include <string>

namespace kestrabel {

// The texts of single arguments turned into what they stand for. Each throws CCommandLineError with what was
// expected.

/// "NAME=FILE[,FILE]...": the first "=" separates, the name may be empty, no file name may.
SEntryArgument ReadEntry(const std::string& strText);

/// "NAME=VALUE": the first "=" separates; neither part is looked at.
SSettingArgument ReadSetting(const std::string& strText);

/// "NAME,LAT,LON[,METRES]": a name that is not empty, degrees, and 0 to 1000 metres (5 when not given).
SCheckPointArgument ReadCheckPoint(const std::string& strText);

/// Latitude and longitude in degrees, -90 to 90 and -180 to 180. The names are those of the arguments.
CPosition ReadPosition(const std::string& strLatitude, const char* pLatitudeName,
                       const std::string& strLongitude, const char* pLongitudeName);

/// An ellipsoid by its name, without regard to case; "User" has the values that the user's own start from.
CEllipsoid ReadEllipsoid(const std::string& strName);

} // namespace kestrabel
