#pragma once

#include "model/Persistent.h"

namespace kestrabel {

/// The record of the class of that exact name; null when there is none.
const CClassRecord* FindClass(std::string_view strName);

/// A new, empty object of the class of that exact name; null when there is none.
std::unique_ptr<CPersistent> CreateByClassName(std::string_view strName);

} // namespace kestrabel
