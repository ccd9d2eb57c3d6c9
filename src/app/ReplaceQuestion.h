#pragma once

#include "app/Desktop.h"
#include "model/Person.h"

#include <optional>
#include <string_view>

namespace kestrabel {

/// Asks what becomes of the competitor's track file that has the name of the one to import. The index of the
/// file to replace; -1 when there is none, or both are to stay; nothing when the import is to stop.
std::optional<int> AskToReplace(CDesktop& desktop, const CPerson& person, std::string_view strPath);

} // namespace kestrabel
