#include "formats/NmeaSentence.h"

#include "geo/Angle.h"
#include "platform/NumberInput.h"

#include <algorithm>

namespace kestrabel {

namespace {

constexpr double KnotsToKmh = 1.852;
constexpr double MinutesToDegrees = 0.016666666666666666;

std::string_view Field(CNmeaFields fields, std::size_t nIndex)
{
    return nIndex < fields.size() ? fields[nIndex] : std::string_view();
}

std::string_view Behind(std::string_view strText, std::size_t nCount)
{
    return strText.size() > nCount ? strText.substr(nCount) : std::string_view();
}

bool IsHemisphere(std::string_view strField, char cUpper)
{
    return !strField.empty() && (strField.front() == cUpper || strField.front() == cUpper - 'A' + 'a');
}

/// Digits behind the decimal point; a field without a point counts its length plus 1.
std::size_t DecimalDigits(std::string_view strField)
{
    const std::size_t nPoint = strField.find('.');
    return nPoint == std::string_view::npos ? strField.size() + 1 : strField.size() - nPoint;
}

/// "hhmmss.sss" put on a calendar day.
DATE WithTimeOfDay(SCalendar calendar, std::string_view strTime)
{
    calendar.nHour = ReadInteger(strTime.substr(0, 2));
    calendar.nMinute = ReadInteger(Behind(strTime, 2).substr(0, 2));
    double dSeconds = ReadDecimal(Behind(strTime, 4));
    if (dSeconds >= 60.0) {
        dSeconds -= 60.0;
        ++calendar.nMinute;
    }
    if (calendar.nMinute >= 60) {
        calendar.nMinute = 0;
        ++calendar.nHour;
    }
    if (calendar.nHour >= 24)
        calendar.nHour = 0; // the date does not change
    calendar.nSecond = TruncateToInt(dSeconds);
    // Cut after the third decimal of the text: 1.001 s is 1 ms although its double × 1000 is
    // 1000.9999999999999. And 56.999999999999 s, cut to 56, is 999 ms and not 0.
    constexpr double dTextDigits = 1e-6;
    const int nMilliseconds =
        std::min(TruncateToInt((dSeconds - calendar.nSecond) * 1000.0 + dTextDigits), 999);
    return DATE::FromCalendar(calendar).Plus(nMilliseconds * DaysPerMillisecond);
}

SCalendar ParseNmeaDate(std::string_view strDate)
{
    SCalendar day{.nYear = 2000, .nMonth = 1, .nDay = 1};
    if (!strDate.empty())
        day.nDay = ReadInteger(strDate.substr(0, 2));
    if (strDate.size() > 2)
        day.nMonth = ReadInteger(strDate.substr(2, 2));
    if (strDate.size() > 4) {
        const int nYear = ReadInteger(strDate.substr(4));
        day.nYear = nYear < 50 ? 2000 + nYear : nYear < 100 ? 1900 + nYear : nYear;
    }
    return day;
}

} // namespace

void SNmeaFix::ApplyTo(CTrackPoint& point) const
{
    point.m_time = time;
    if (kind == EKind::ZDA)
        return;
    point.ClearDerived();
    point.m_position = position;
    if (kind == EKind::GGA) {
        point.m_nAltitude = TruncateToInt(dAltitude);
        point.m_dHDOP = dHdop;
        point.m_nSats = nSats;
        if (nSats != 0)
            point.m_nRxStatus = nQuality;
    } else if (kind == EKind::RMC) {
        point.m_dDoppler = dSpeed;
        point.m_dDirection = dCourse;
    }
}

SNmeaFix ParseGga(CNmeaFields fields, std::string_view strDate)
{
    return {.kind = SNmeaFix::EKind::GGA,
            .time = ParseNmeaTime(strDate, Field(fields, 1)),
            .position = MakePosition(ParseNmeaLatitude(Field(fields, 2), Field(fields, 3)),
                                     ParseNmeaLongitude(Field(fields, 4), Field(fields, 5))),
            .dAltitude = ReadDecimal(Field(fields, 9)),
            .dHdop = ReadDecimal(Field(fields, 8)),
            .nSats = ReadInteger(Field(fields, 7)),
            .nQuality = ReadInteger(Field(fields, 6))};
}

SNmeaFix ParseGll(CNmeaFields fields, std::string_view strDate)
{
    SNmeaFix fix;
    fix.kind = SNmeaFix::EKind::GLL;
    fix.time = ParseNmeaTime(strDate, Field(fields, 5));
    fix.position = MakePosition(ParseNmeaLatitude(Field(fields, 1), Field(fields, 2)),
                                ParseNmeaLongitude(Field(fields, 3), Field(fields, 4)));
    return fix;
}

SNmeaFix ParseRmc(CNmeaFields fields)
{
    SNmeaFix fix;
    fix.kind = SNmeaFix::EKind::RMC;
    fix.time = ParseNmeaTime(Field(fields, 9), Field(fields, 1));
    fix.position = MakePosition(ParseNmeaLatitude(Field(fields, 3), Field(fields, 4)),
                                ParseNmeaLongitude(Field(fields, 5), Field(fields, 6)));
    fix.dSpeed = ReadDecimal(Field(fields, 7)) * KnotsToKmh;
    fix.dCourse = ReadDecimal(Field(fields, 8)) * DegreesToRadians;
    return fix;
}

SNmeaFix ParseZda(CNmeaFields fields)
{
    SNmeaFix fix;
    fix.kind = SNmeaFix::EKind::ZDA;
    fix.time = WithTimeOfDay({.nYear = ReadInteger(Field(fields, 4)),
                              .nMonth = ReadInteger(Field(fields, 3)),
                              .nDay = ReadInteger(Field(fields, 2))},
                             Field(fields, 1));
    return fix;
}

double ParseVtgSpeed(CNmeaFields fields)
{
    const std::string_view strKnots = Field(fields, 5);
    const std::string_view strKmh = Field(fields, 7);
    return DecimalDigits(strKnots) > DecimalDigits(strKmh) ? ReadDecimal(strKnots) * KnotsToKmh
                                                           : ReadDecimal(strKmh);
}

double ParseGsaHdop(CNmeaFields fields)
{
    return ReadDecimal(Field(fields, 16));
}

double ParseNmeaLatitude(std::string_view strText, std::string_view strHemisphere)
{
    const double dDegrees = ReadInteger(strText.substr(0, 2));
    const double dLatitude = dDegrees + ReadDecimal(Behind(strText, 2)) * MinutesToDegrees;
    return IsHemisphere(strHemisphere, 'S') ? -dLatitude : dLatitude;
}

double ParseNmeaLongitude(std::string_view strText, std::string_view strHemisphere)
{
    const double dDegrees = ReadDecimal(strText.substr(0, 3));
    const double dLongitude = dDegrees + ReadDecimal(Behind(strText, 3)) * MinutesToDegrees;
    return IsHemisphere(strHemisphere, 'W') ? -dLongitude : dLongitude;
}

DATE ParseNmeaTime(std::string_view strDate, std::string_view strTime)
{
    return WithTimeOfDay(ParseNmeaDate(strDate), strTime);
}

} // namespace kestrabel
