#pragma once

#include "model/Series.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace kestrabel {

// What a SiRF-based logger tells about itself (message 253, behind the ID): a text of five fields,
//
//     identifier , serial number , log rate , firmware , program that wrote the file
//
// split at every comma, without quoting; blanks are kept.

/// Sets the device fields of the track file. A missing field is empty, further ones are dropped. The text
/// ends at a NUL byte; the program is cut at 223 bytes, the others at 31.
void SetDeviceFields(std::string_view bytes, CSeries& series);

/// The text for a file that this system writes: a blank, then the fields with the system as the program.
std::string MakeDeviceText(const CSeries& series);

/// At most the first `nLength` bytes, without splitting a UTF-8 character.
std::string_view CutText(std::string_view strUtf8, std::size_t nLength);

} // namespace kestrabel
