// How far distances and azimuths are from exact geodesics, by length of the line. Prints a Markdown table.
//
// The lines start anywhere between 85° south and north, run in any direction and are as often a few
// centimetres long as hundreds of kilometres; their ends are laid out by GeographicLib (C. F. F. Karney,
// "Algorithms for geodesics", J. Geodesy 87, 2013), whose own error of some nanometres is far below what is
// measured here. So is what the ends lose as decimal degrees in double precision, about a nanometre.

#include "geo/Angle.h"
#include "geo/DistanceCalculator.h"

#include <GeographicLib/Geodesic.hpp>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <iomanip>
#include <iostream>
#include <random>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace kestrabel;

constexpr int Pairs = 1'000'000;
constexpr std::uint32_t Seed = 20240601;
constexpr double MaxLatitude = 85.0; // degrees
constexpr double ShortestLog10 = -2; // of metres: 1 cm
constexpr double LongestLog10 = 6;   // 1000 km
constexpr int BandCount = 8;         // one per power of ten

constexpr std::array<std::string_view, BandCount> BandNames = {
    "1-10 cm", "10 cm-1 m", "1-10 m", "10-100 m", "100 m-1 km", "1-10 km", "10-100 km", "100-1000 km"};

/// The errors of the lines of one band.
struct SBand
{
    int nCount = 0;
    int nNotANumber = 0;
    std::vector<double> millimetres;
    std::vector<double> relative;
    std::vector<double> degrees;
};

/// The value that `dShare` of the values do not exceed; the values are put in another order.
double Quantile(std::vector<double>& values, double dShare)
{
    if (values.empty())
        return std::nan("");
    const auto nIndex = static_cast<std::ptrdiff_t>(dShare * static_cast<double>(values.size() - 1));
    std::nth_element(values.begin(), values.begin() + nIndex, values.end());
    return values[static_cast<std::size_t>(nIndex)];
}

/// Uniform in [0, 1) and the same on every machine, which the library's own distributions are not.
double Uniform(std::mt19937_64& random)
{
    return static_cast<double>(random() >> 11) * 0x1p-53;
}

void Measure(std::array<SBand, BandCount>& bands)
{
    std::mt19937_64 random(Seed);
    for (int i = 0; i < Pairs; ++i) {
        CEllipsoid ellipsoid;
        const SEllipsoidRow& user = EllipsoidTable[CEllipsoid::User];
        ellipsoid.SetEllipsoid(i % static_cast<int>(EllipsoidTable.size()), user.dRadius,
                               user.dInvFlattening);
        const GeographicLib::Geodesic exact(ellipsoid.m_dRadius, ellipsoid.m_dFlattening);

        const double dLatitude = (2.0 * Uniform(random) - 1.0) * MaxLatitude;
        const double dLongitude = (2.0 * Uniform(random) - 1.0) * 180.0;
        const double dDirection = Uniform(random) * 360.0;
        const double dLog10 = ShortestLog10 + Uniform(random) * (LongestLog10 - ShortestLog10);
        double dEndLatitude = 0.0, dEndLongitude = 0.0, dUnused = 0.0;
        // Unrolled, so that a line across the date line is one line here too: the calculator takes longitudes
        // as they are.
        exact.GenDirect(dLatitude, dLongitude, dDirection, false, std::pow(10.0, dLog10),
                        GeographicLib::Geodesic::LATITUDE | GeographicLib::Geodesic::LONGITUDE |
                            GeographicLib::Geodesic::LONG_UNROLL,
                        dEndLatitude, dEndLongitude, dUnused, dUnused, dUnused, dUnused, dUnused, dUnused);
        // The ends as rounded to doubles are what both are asked about.
        double dMetres = 0.0, dStartDirection = 0.0;
        exact.Inverse(dLatitude, dLongitude, dEndLatitude, dEndLongitude, dMetres, dStartDirection, dUnused);

        CDistanceCalculator calculator(ellipsoid);
        const double dCalculated = calculator.Distance(MakePosition(dLatitude, dLongitude),
                                                       MakePosition(dEndLatitude, dEndLongitude)) *
                                   1000.0;
        SBand& band = bands[static_cast<std::size_t>(dLog10 - ShortestLog10)];
        ++band.nCount;
        if (!std::isfinite(dCalculated)) {
            ++band.nNotANumber;
            continue;
        }
        const double dError = std::abs(dCalculated - dMetres);
        band.millimetres.push_back(dError * 1000.0);
        band.relative.push_back(dError / dMetres);
        band.degrees.push_back(
            std::abs(std::remainder(calculator.m_dAzimuth * RadiansToDegrees - dStartDirection, 360.0)));
    }
}

/// Two significant digits, but whole numbers from 10 on.
std::string Figure(double dValue)
{
    std::ostringstream text;
    if (dValue >= 10.0)
        text << std::fixed << std::setprecision(0) << dValue;
    else
        text << std::setprecision(2) << dValue;
    return text.str();
}

std::string Percent(double dPart, double dWhole)
{
    std::ostringstream text;
    text << std::fixed << std::setprecision(2) << 100.0 * dPart / dWhole << " %";
    return text.str();
}

void Print(std::array<SBand, BandCount>& bands)
{
    std::cout
        << "| Length | Lines | Not a number | Error, median (mm) | 99.9 % (mm) | Largest (mm) "
           "| Relative, median | 99.9 % | Largest | Azimuth, median (°) | Largest (°) | More than 1° off |\n"
           "|---|--:|--:|--:|--:|--:|--:|--:|--:|--:|--:|--:|\n";
    for (std::size_t i = 0; i < bands.size(); ++i) {
        SBand& band = bands[i];
        std::cout << "| " << BandNames[i] << " | " << band.nCount << " | "
                  << Percent(band.nNotANumber, band.nCount);
        for (std::vector<double>* pErrors : {&band.millimetres, &band.relative}) {
            for (const double dShare : {0.5, 0.999, 1.0})
                std::cout << " | " << Figure(Quantile(*pErrors, dShare));
        }
        const auto nTurned =
            std::count_if(band.degrees.begin(), band.degrees.end(), [](double d) { return d > 1.0; });
        std::cout << " | " << Figure(Quantile(band.degrees, 0.5)) << " | "
                  << Figure(Quantile(band.degrees, 1.0)) << " | "
                  << Percent(static_cast<double>(nTurned), static_cast<double>(band.degrees.size()))
                  << " |\n";
    }
}

} // namespace

int main()
{
    std::array<SBand, BandCount> bands;
    Measure(bands);
    Print(bands);
    return EXIT_SUCCESS;
}
