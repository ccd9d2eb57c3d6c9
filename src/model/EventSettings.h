#pragma once

#include "model/Event.h"

#include <span>
#include <string>
#include <string_view>
#include <variant>

namespace kestrabel {

/// One setting of the event under the name by which scripts and documents speak of it: the field without its
/// mark ("TimeThreshold" for `m_nTimeThreshold`).
struct SEventSetting
{
    using Field = std::variant<std::int32_t CEvent::*, double CEvent::*, std::string CEvent::*,
                               DATE CEvent::*, CPosition CEvent::*, CEllipsoid CEvent::*>;
    std::string_view strName;
    Field field;
};

/// All settings in the order in which the event declares them.
std::span<const SEventSetting> EventSettings();

/// Sets the setting of that name (without regard to case) from a text in internal units: a number, a text, a
/// day count for a date, "LATITUDE,LONGITUDE" for a corner, and for the ellipsoid its index,
/// "6,RADIUS,INVERSE FLATTENING" for the user's own. Returns an empty text, or what was expected instead.
std::string SetEventSetting(CEvent& event, std::string_view strName, std::string_view strValue);

} // namespace kestrabel
