#include "simulator/Trigonometry.h"

#include "geo/Angle.h"

#include <cmath>

namespace kestrabel {

SSineCosine SineCosine(double dAngle)
{
    const double dReduced = dAngle - TwoPi * std::floor(dAngle / TwoPi + 0.5);
    // The series of an eighth of the angle, at most 0.4 radians, and three doublings.
    const double x = dReduced * 0.125;
    const double x2 = x * x;
    double dSine =
        x * (1.0 - x2 / 6.0 * (1.0 - x2 / 20.0 * (1.0 - x2 / 42.0 * (1.0 - x2 / 72.0 * (1.0 - x2 / 110.0)))));
    double dCosine =
        1.0 - x2 / 2.0 *
                  (1.0 - x2 / 12.0 *
                             (1.0 - x2 / 30.0 * (1.0 - x2 / 56.0 * (1.0 - x2 / 90.0 * (1.0 - x2 / 132.0)))));
    for (int i = 0; i < 3; ++i) {
        const double dDoubled = 2.0 * dSine * dCosine;
        dCosine = dCosine * dCosine - dSine * dSine;
        dSine = dDoubled;
    }
    return {dSine, dCosine};
}

} // namespace kestrabel
