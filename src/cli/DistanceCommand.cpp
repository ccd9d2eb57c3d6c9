#include "cli/DistanceCommand.h"

#include "cli/JsonWriter.h"
#include "geo/Angle.h"
#include "geo/DistanceCalculator.h"
#include "model/NumberText.h"

#include <cmath>
#include <string>

namespace kestrabel {

namespace {

constexpr std::int32_t DistanceDecimals = 5;
constexpr std::int32_t AzimuthDecimals = 4;

std::string UnitText(char cUnit)
{
    switch (cUnit) {
    case 'm': return "mi";
    case 'n': return "nm";
    default: return "km";
    }
}

std::string NumberText(double dValue, std::int32_t nDecimals)
{
    return std::isfinite(dValue) ? FormatPadded(dValue, 0, nDecimals) : "-";
}

} // namespace

void PrintDistance(const SDistanceArguments& arguments, EFormat format, COutput& output)
{
    CDistanceCalculator calculator(arguments.ellipsoid, arguments.cUnit);
    const double dDistance = calculator.Distance(arguments.from, arguments.to);
    const double dAzimuth = calculator.m_dAzimuth * RadiansToDegrees;
    if (format == EFormat::Table) {
        output.WriteLine(NumberText(dDistance, DistanceDecimals) + " " + UnitText(arguments.cUnit) + "  " +
                         NumberText(dAzimuth, AzimuthDecimals) + "°");
        return;
    }
    CJsonWriter json(output);
    json.BeginObject();
    json.Number("distance", dDistance);
    json.Text("unit", std::string(1, arguments.cUnit));
    json.Number("azimuthDeg", dAzimuth);
    json.Text("ellipsoid",
              EllipsoidTable[static_cast<std::size_t>(arguments.ellipsoid.m_nEllipsoid)].strName);
    json.EndObject();
}

} // namespace kestrabel
