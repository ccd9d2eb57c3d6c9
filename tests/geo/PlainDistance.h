#pragma once

#include "geo/DistanceCalculator.h"

#include <cmath>

namespace kestrabel::test {

/// The method of `CDistanceCalculator` written down the long way: every quantity in every iteration, in the
/// order in which the method is described, nothing kept from call to call. Slow, and plain to read.
inline double PlainDistance(const CEllipsoid& ellipsoid, const CPosition& from, const CPosition& to,
                            double& dAzimuth)
{
    const double pi = 3.141592653589793, degree = 0.017453292519943295;
    const double a = ellipsoid.m_dRadius, f = 1.0 / ellipsoid.m_dInvFlattening, b = (1.0 - f) * a;
    const double phi1 = from.m_dLatitude * degree, lambda1 = from.m_dLongitude * degree;
    const double phi2 = to.m_dLatitude * degree, lambda2 = to.m_dLongitude * degree;
    const double L = lambda2 - lambda1;
    const double U1 = std::atan((1.0 - f) * std::tan(phi1)), U2 = std::atan((1.0 - f) * std::tan(phi2));
    const double sinU1 = std::sin(U1), cosU1 = std::cos(U1);
    const double sinU2 = std::sin(U2), cosU2 = std::cos(U2);

    struct SState
    {
        double sqrSinSigma, sinSigma, cosSigma, sinAlpha, sqrCosAlpha, cos2SigmaM, C;
    };
    const auto At = [&](double lambda) {
        SState at = {};
        at.sqrSinSigma = std::pow(sinU2 * cosU1 - sinU1 * cosU2 * std::cos(lambda), 2) +
                         std::pow(std::sin(lambda), 2) * std::pow(cosU2, 2);
        at.sinSigma = std::sqrt(at.sqrSinSigma);
        at.cosSigma = sinU1 * sinU2 + cosU1 * cosU2 * std::cos(lambda);
        at.sinAlpha = at.sqrSinSigma == 0.0 ? 0.0 : std::sin(lambda) * cosU1 * cosU2 / at.sinSigma;
        at.sqrCosAlpha = std::pow(std::cos(std::asin(at.sinAlpha)), 2);
        at.cos2SigmaM = at.cosSigma - 2.0 * sinU1 * sinU2 / at.sqrCosAlpha;
        at.C = f / 16.0 * at.sqrCosAlpha * (4.0 + f * (4.0 - 3.0 * at.sqrCosAlpha));
        return at;
    };
    const auto Longitude = [&](const SState& at) {
        const double inner = at.cos2SigmaM + at.C * at.cosSigma * (2.0 * std::pow(at.cos2SigmaM, 2) - 1.0);
        return L + (1.0 - at.C) * f * at.sinAlpha * (std::acos(at.cosSigma) + at.C * at.sinSigma * inner);
    };

    double lambda = L, lambdaNext = L, s = 0.0;
    for (int nIteration = 1; nIteration <= 5; ++nIteration) {
        const double lambdaPrevious = lambda;
        lambda = Longitude(At(lambdaPrevious));
        const SState at = At(lambda);
        lambdaNext = Longitude(at);
        double sigma = std::atan(at.sinSigma / at.cosSigma);
        if (sigma < 0.0)
            sigma += pi;
        const double u2 = at.sqrCosAlpha * (a * a - b * b) / (b * b);
        const double A = 1.0 + u2 / 16384.0 * (4096.0 + u2 * (-768.0 + u2 * (320.0 - 175.0 * u2)));
        const double B = u2 / 1024.0 * (256.0 + u2 * (-128.0 + u2 * (74.0 - 47.0 * u2)));
        const double sqrCos2 = std::pow(at.cos2SigmaM, 2);
        const double third = B / 6.0 * at.cos2SigmaM * (4.0 * at.sqrSinSigma - 3.0) * (4.0 * sqrCos2 - 3.0);
        const double second = B / 4.0 * (at.cosSigma * (2.0 * sqrCos2 - 1.0) - third);
        s = phi1 == phi2 && lambda1 == lambda2 ? 0.0
                                               : b * A * (sigma - B * at.sinSigma * (at.cos2SigmaM + second));
        if (std::abs(lambdaPrevious - lambda) <= 1e-5)
            break;
    }

    const double Y = sinU2 * cosU1 - sinU1 * cosU2 * std::cos(lambdaNext);
    const double east = std::sin(lambdaNext) * cosU2;
    dAzimuth = std::abs(Y) > 1e-6               ? std::atan(east / Y)
               : (Y < 0.0 ? -east : east) > 0.0 ? pi / 2.0
                                                : -pi / 2.0;
    if (phi1 == phi2)
        dAzimuth = lambda1 < lambda2 ? pi / 2.0 : 4.71238898038469;
    else if (phi1 > phi2)
        dAzimuth += pi;
    else if (lambda1 > lambda2)
        dAzimuth += 2.0 * pi;
    return s * 0.001;
}

} // namespace kestrabel::test
