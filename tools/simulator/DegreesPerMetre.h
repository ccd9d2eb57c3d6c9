#pragma once

namespace kestrabel {

struct SDegreesPerMetre
{
    double dLatitude;
    double dLongitude;
};

/// How many degrees a metre to the north and a metre to the east are at a latitude (degrees, not a pole), by
/// the radii of curvature of the WGS84 ellipsoid. A short step is so as long as it is measured later.
SDegreesPerMetre DegreesPerMetre(double dLatitude);

} // namespace kestrabel
