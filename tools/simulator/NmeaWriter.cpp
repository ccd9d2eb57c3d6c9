#include "simulator/NmeaWriter.h"

#include "formats/LineFile.h"
#include "geo/Angle.h"
#include "model/NumberText.h"
#include "model/TimeText.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace kestrabel {

namespace {

constexpr double KmhToKnots = 1.0 / 1.852;

/// "$" + body + "*" + the exclusive or of the body's bytes in two hexadecimal digits.
std::string Sentence(std::string_view strBody)
{
    constexpr std::string_view strDigits = "0123456789ABCDEF";
    unsigned nSum = 0;
    for (const char c : strBody)
        nSum ^= static_cast<unsigned char>(c);
    std::string strSentence = "$";
    strSentence += strBody;
    strSentence += '*';
    strSentence += strDigits[nSum >> 4U];
    strSentence += strDigits[nSum & 0xfU];
    return strSentence;
}

/// A whole number with leading zeros.
void AppendDigits(std::string& strText, std::int64_t nNumber, std::size_t nDigits)
{
    const std::string strNumber = std::to_string(nNumber);
    strText.append(nDigits - std::min(nDigits, strNumber.size()), '0');
    strText += strNumber;
}

/// Degrees and minutes and, as the next field, the hemisphere. Counted in units of the last decimal, so that
/// 59.99999999 minutes become a degree and never "60.0".
void AppendAngle(std::string& strText, double dDegrees, std::size_t nDegreeDigits, std::int32_t nDecimals,
                 std::string_view strHemispheres)
{
    const std::int32_t nLimited = std::clamp(nDecimals, 4, 8);
    std::int64_t nUnitsPerMinute = 1;
    for (std::int32_t i = 0; i < nLimited; ++i)
        nUnitsPerMinute *= 10;
    const std::int64_t nUnits =
        std::llround(std::abs(dDegrees) * 60.0 * static_cast<double>(nUnitsPerMinute));
    const std::int64_t nMinutes = nUnits / nUnitsPerMinute;
    AppendDigits(strText, nMinutes / 60, nDegreeDigits);
    AppendDigits(strText, nMinutes % 60, 2);
    strText += '.';
    AppendDigits(strText, nUnits % nUnitsPerMinute, static_cast<std::size_t>(nLimited));
    strText += ',';
    strText += strHemispheres[dDegrees < 0.0 ? 1 : 0];
}

void AppendPosition(std::string& strText, const CTrackPoint& point, std::int32_t nDecimals)
{
    if (!point.HasPosition()) {
        strText += ",,,";
        return;
    }
    AppendAngle(strText, point.m_position.m_dLatitude, 2, nDecimals, "NS");
    strText += ',';
    AppendAngle(strText, point.m_position.m_dLongitude, 3, nDecimals, "EW");
}

void AppendTimeOfDay(std::string& strText, const SCalendar& calendar)
{
    AppendDigits(strText, calendar.nHour, 2);
    AppendDigits(strText, calendar.nMinute, 2);
    AppendDigits(strText, calendar.nSecond, 2);
    strText += '.';
    AppendDigits(strText, calendar.nMillisecond, 3);
}

void AppendDecimal(std::string& strText, double dValue, std::int32_t nDecimals)
{
    strText += FormatPadded(dValue, nDecimals + 2, nDecimals); // "0.5": receivers write the zero
}

} // namespace

std::string RmcSentence(const CTrackPoint& point, std::int32_t nMinuteDecimals)
{
    const SCalendar calendar = point.m_time.ToCalendar().value_or(SCalendar{});
    const bool bFix = point.HasPosition();
    std::string strBody = "GPRMC,";
    AppendTimeOfDay(strBody, calendar);
    strBody += bFix ? ",A," : ",V,";
    AppendPosition(strBody, point, nMinuteDecimals);
    strBody += ',';
    if (bFix)
        AppendDecimal(strBody, point.m_dDoppler * KmhToKnots, 3);
    strBody += ',';
    if (bFix)
        AppendDecimal(strBody, point.m_dDirection * RadiansToDegrees, 2);
    strBody += ',';
    AppendDigits(strBody, calendar.nDay, 2);
    AppendDigits(strBody, calendar.nMonth, 2);
    AppendDigits(strBody, calendar.nYear % 100, 2);
    strBody += bFix ? ",,,A" : ",,,N";
    return Sentence(strBody);
}

std::string GgaSentence(const CTrackPoint& point, std::int32_t nMinuteDecimals)
{
    const SCalendar calendar = point.m_time.ToCalendar().value_or(SCalendar{});
    std::string strBody = "GPGGA,";
    AppendTimeOfDay(strBody, calendar);
    strBody += ',';
    AppendPosition(strBody, point, nMinuteDecimals);
    if (!point.HasPosition()) {
        strBody += ",0,00,,,M,,M,,";
        return Sentence(strBody);
    }
    strBody += ',';
    strBody += std::to_string(point.m_nRxStatus);
    strBody += ',';
    AppendDigits(strBody, point.m_nSats, 2);
    strBody += ',';
    AppendDecimal(strBody, point.m_dHDOP, 1);
    strBody += ',';
    AppendDecimal(strBody, static_cast<double>(point.m_nAltitude), 1);
    strBody += ",M,0.0,M,,";
    return Sentence(strBody);
}

bool WriteNmea(CImportMonitor& monitor, std::string_view strPath, const CObjectArray<CTrackPoint>& points,
               const SNmeaOptions& options)
{
    CLineFile file;
    if (!file.OpenForWriting(strPath, CFile::EMode::Replace)) {
        monitor.Report(file.ErrorText(), false);
        return false;
    }
    try {
        const bool bRmcFirst = options.order == ESentenceOrder::RmcFirst;
        for (const CTrackPoint* pPoint : points) {
            const std::string strRmc = RmcSentence(*pPoint, options.nMinuteDecimals);
            const std::string strGga = GgaSentence(*pPoint, options.nMinuteDecimals);
            file.WriteLine(bRmcFirst ? strRmc : strGga);
            file.WriteLine(bRmcFirst ? strGga : strRmc);
        }
        file.Commit();
    } catch (const CFileException& exception) {
        monitor.Report(exception.what(), false);
        return false;
    }
    return true;
}

} // namespace kestrabel
