#pragma once

#include <string>
#include <string_view>

namespace kestrabel {

// File names as the organiser sees them. Both '\' and '/' separate: projects and track files travel between
// systems. Lower case means ASCII letters only, so that a name in any encoding keeps its other bytes.

/// The text after the last separator up to, not including, the first '.' after it: "a" for "x/a.b.gpx".
std::string FileTitle(std::string_view strPath);

/// The text from the last '.' after the last separator, dot included; empty when there is none.
std::string FileExtension(std::string_view strPath);

/// The path up to and including the last separator; empty when there is none.
std::string FolderOf(std::string_view strPath);

/// The first of folder + name + extension, folder + name + " 1" + extension, … " 199" that does not exist;
/// empty when all 200 exist. `strFolder` ends in a separator or is empty.
std::string UniqueFileName(std::string_view strFolder, std::string_view strName,
                           std::string_view strExtension);

std::string ToLower(std::string_view strText);
std::string ToUpper(std::string_view strText);

/// Equal without regard to the case of ASCII letters.
bool EqualNoCase(std::string_view strOne, std::string_view strOther);

/// The path under which the system finds `strPath`: the path itself when it exists (with '\' turned to '/'
/// when only that exists), else a match of each path element without regard to case, else `strPath`.
/// Among several matches of an element the first in byte order is taken.
std::string FindFile(std::string_view strPath);

/// The name that a track file keeps for a file the user chose: lower-cased, unless that name leads to
/// another existing file or to none; then the name as chosen. A later save or delete by the stored name
/// so never touches a file that was not chosen.
std::string StoredFileName(std::string_view strPath);

} // namespace kestrabel
