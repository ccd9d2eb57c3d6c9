#pragma once

namespace kestrabel {

struct SSineCosine
{
    double dSine;
    double dCosine;
};

/// Sine and cosine of an angle in radians, within 1e-13 for angles up to a thousand turns. Made of exact
/// operations only: the C library's own differ in the last bit between processors, and a rider who turns a
/// fix earlier makes another file.
SSineCosine SineCosine(double dAngle);

} // namespace kestrabel
