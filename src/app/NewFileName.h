#pragma once

#include <string>
#include <string_view>

namespace kestrabel {

/// A name that the user chose for a file to write, lower-cased where that leads to no other folder or file.
std::string LowerCasedName(std::string_view strPath);

/// A name for a file that is yet to be written, such as "folder/ride 1.gpx": unused on disk, and lower-cased
/// where that leads to no other folder or file.
std::string NewFileName(std::string_view strFolder, std::string_view strName, std::string_view strExtension);

} // namespace kestrabel
