#pragma once

#include <string_view>

namespace kestrabel {

// What the file dialogs offer: text and patterns in turn, ended by two bars.

inline constexpr std::string_view OpenFilter =
    "Kestrabel files|*.gpx;*.nmea;*.txt;*.trk;*.sbn;*.rsp|GPX files (*.gpx)|*.gpx|PCX5 files (*.trk)|*.trk|"
    "NMEA files (*.NMEA;*.txt)|*.NMEA;*.txt|Gardown files (*.gtr;*.gd)|*.gtr;*.gd|"
    "SIRF binary files (*.sbn;*.sbp;*.bin)|*.sbn;*.sbp;*.bin|Kestrabel Settings (*.rsp)|*.rsp|"
    "All Files (*.*)|*.*||";

inline constexpr std::string_view OpenPattern = "*.gpx;*.nmea;*.txt;*.trk;*.sbn;*.sbp;*.bin;*.gtr;*.gd;*.rsp";

inline constexpr std::string_view SaveFilter =
    "Kestrabel files (*.gpx,*.trk,*.rsp)|*.gpx,*.trk;*.rsp|Sirf binary files (*.sbp)|*.sbp|"
    "GPX files (*.gpx)|*.gpx|PCX5 files (*.trk)|*.trk|Kestrabel Settings (*.rsp)|*.rsp|All Files (*.*)|*.*||";

inline constexpr std::string_view ProjectFilter = "Kestrabel Settings (*.rsp)|*.rsp||";

inline constexpr std::string_view PointExportFilter =
    "GPX files (*.gpx)|*.gpx|Sirf binary files (*.sbp)|*.sbp|Garmin PCX files (*.trk)|*.trk|"
    "Excel files (*.csv)|*.csv|All Files (*.*)|*.*||";

} // namespace kestrabel
