#include "formats/StringTable.h"

namespace kestrabel {

std::string_view StringTableText(EText text)
{
    switch (text) {
    case EText::None: return {};
    case EText::OpenFailure: return "%S: %S";
    case EText::UnknownLine: return "Unknown file format. Failed to read line. \n Do you wish to continue?";
    case EText::NotRecognised: return " The file type is not recognised";
    case EText::CannotSaveNmea: return "Cannot save to NMEA format";
    case EText::ReadFailure: return "Failed to read file";
    case EText::WriteFailure: return "Failed to write file";
    case EText::XmlLoadFailure: return "failed to load XML document";
    case EText::XmlWalkFailure: return "Failed to read xml file";
    case EText::NoSirfMessage: return "Failed to read header from file";
    case EText::NoBinaryLogRecord: return "Failed to read point from file";
    case EText::BadPcx5Line: return "Invalid PCX5 format found";
    case EText::BadTrackLine: return "Invalid format found";
    case EText::TrackMarksFailure: return "Failed to write track marks";
    }
    return {};
}

} // namespace kestrabel
