#pragma once

#include "geo/DistanceCalculator.h"

#include <cmath>

namespace kestrabel::test {

/// The method of `CDistanceCalculator` written down the long way: every quantity in every iteration, in the
/// order in which the method is described, nothing kept from call to call. Slow, and plain to read.
inline double PlainDistance(const CEllipsoid& ellipsoid, const CPosition& from, const CPosition& to,
                            double& dAzimuth)
{
    const double pi = 3.141592653589793;
    const double a = ellipsoid.m_dRadius;
    const double f = 1.0 / ellipsoid.m_dInvFlattening;
    const double phi1 = from.m_dLatitude * 0.017453292519943295;
    const double lambda1 = from.m_dLongitude * 0.017453292519943295;
    const double phi2 = to.m_dLatitude * 0.017453292519943295;
    const double lambda2 = to.m_dLongitude * 0.017453292519943295;
    const bool bCoincide = phi1 == phi2 && lambda1 == lambda2;

    const double b = (1.0 - f) * a;
    const double L = lambda2 - lambda1;
    const double U1 = std::atan((1.0 - f) * std::tan(phi1));
    const double U2 = std::atan((1.0 - f) * std::tan(phi2));
    const double sinU1 = std::sin(U1), cosU1 = std::cos(U1);
    const double sinU2 = std::sin(U2), cosU2 = std::cos(U2);

    double lambda = L;
    double sqrSinSigma = std::pow(sinU2 * cosU1 - sinU1 * cosU2 * std::cos(lambda), 2) +
                         std::pow(std::sin(lambda), 2) * std::pow(cosU2, 2);
    double cosSigma = sinU1 * sinU2 + cosU1 * cosU2 * std::cos(lambda);
    double sinLambda = std::sin(lambda);

    double lambdaPrevious = L;
    double lambdaNext = L;
    double s = 0.0;
    for (int nIteration = 1; nIteration <= 5; ++nIteration) {
        double sinSigma = std::sqrt(sqrSinSigma);
        double sinAlpha = sqrSinSigma == 0.0 ? 0.0 : sinLambda * cosU1 * cosU2 / sinSigma;
        double alpha = std::asin(sinAlpha);
        double sqrCosAlpha = std::pow(std::cos(alpha), 2);
        double cos2SigmaM = sqrCosAlpha == 0.0 ? 0.0 : cosSigma - 2.0 * sinU1 * sinU2 / sqrCosAlpha;
        double C = f / 16.0 * sqrCosAlpha * (4.0 + f * (4.0 - 3.0 * sqrCosAlpha));
        double sigma = std::acos(cosSigma);
        const double lambdaNew =
            L +
            (1.0 - C) * f * sinAlpha *
                (sigma + C * sinSigma * (cos2SigmaM + C * cosSigma * (2.0 * std::pow(cos2SigmaM, 2) - 1.0)));

        lambda = lambdaNew;
        sqrSinSigma = std::pow(sinU2 * cosU1 - sinU1 * cosU2 * std::cos(lambda), 2) +
                      std::pow(std::sin(lambda), 2) * std::pow(cosU2, 2);
        cosSigma = sinU1 * sinU2 + cosU1 * cosU2 * std::cos(lambda);
        sinLambda = std::sin(lambda);
        sinSigma = std::sqrt(sqrSinSigma);
        double sigmaD = std::atan(sinSigma / cosSigma);
        if (sigmaD < 0.0)
            sigmaD += pi;
        sinAlpha = sqrSinSigma == 0.0 ? 0.0 : sinLambda * cosU1 * cosU2 / sinSigma;
        alpha = std::asin(sinAlpha);
        sqrCosAlpha = std::pow(std::cos(alpha), 2);
        cos2SigmaM = cosSigma - 2.0 * sinU1 * sinU2 / sqrCosAlpha;

        const double u2 = sqrCosAlpha * (a * a - b * b) / (b * b);
        const double A = 1.0 + u2 / 16384.0 * (4096.0 + u2 * (-768.0 + u2 * (320.0 - 175.0 * u2)));
        const double B = u2 / 1024.0 * (256.0 + u2 * (-128.0 + u2 * (74.0 - 47.0 * u2)));
        C = f / 16.0 * sqrCosAlpha * (4.0 + f * (4.0 - 3.0 * sqrCosAlpha));
        sigma = std::acos(cosSigma);
        lambdaNext =
            L +
            (1.0 - C) * f * sinAlpha *
                (sigma + C * sinSigma * (cos2SigmaM + C * cosSigma * (2.0 * std::pow(cos2SigmaM, 2) - 1.0)));

        const double deltaSigma = B * sinSigma *
                                  (cos2SigmaM + B / 4.0 *
                                                    (cosSigma * (2.0 * std::pow(cos2SigmaM, 2) - 1.0) -
                                                     B / 6.0 * cos2SigmaM * (4.0 * sqrSinSigma - 3.0) *
                                                         (4.0 * std::pow(cos2SigmaM, 2) - 3.0)));
        s = bCoincide ? 0.0 : b * A * (sigmaD - deltaSigma);
        if (std::abs(lambdaPrevious - lambdaNew) <= 1e-5)
            break;
        lambdaPrevious = lambdaNew;
    }

    const double Y = sinU2 * cosU1 - sinU1 * cosU2 * std::cos(lambdaNext);
    double t = 0.0;
    if (std::abs(Y) <= 1e-6) {
        const double g = Y < 0.0 ? -1.0 : 1.0;
        t = g * std::sin(lambdaNext) * cosU2 > 0.0 ? 1.7976931348623157e308 : -1.7976931348623157e308;
    } else {
        t = std::sin(lambdaNext) * cosU2 / Y;
    }
    dAzimuth = std::atan(t);
    if (phi1 == phi2)
        dAzimuth = lambda1 < lambda2 ? pi / 2.0 : 4.71238898038469;
    else if (phi1 > phi2)
        dAzimuth += pi;
    else if (lambda1 > lambda2)
        dAzimuth += 2.0 * pi;
    return s * 0.001;
}

} // namespace kestrabel::test
