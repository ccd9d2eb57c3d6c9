#include "simulator/SirfWriter.h"

#include "formats/ByteOrder.h"
#include "formats/DeviceText.h"
#include "formats/SirfMessage.h"
#include "platform/File.h"

#include <array>
#include <cmath>

namespace kestrabel {

namespace {

constexpr std::size_t NavigationLength = 91;
constexpr std::size_t NavigationLengthWithSecondSpeed = 95;
constexpr int ValidFix = 0; ///< navigation valid
constexpr int NoFix = 1;
constexpr int NoFixType = 0; ///< navigation type
constexpr int FourOrMoreSatellites = 4;
constexpr double KmhToCentimetres = 1.0 / 0.036; ///< per second
constexpr double RadiansToHundredths = 5729.5779513082325;

template <class T>
void Put(std::span<char> payload, std::size_t nOffset, double dValue)
{
    PutBigEndian(payload, nOffset, static_cast<T>(std::llround(dValue)));
}

template <class T>
void Append(std::string& bytes, T nValue)
{
    std::array<char, sizeof(T)> value = {};
    PutBigEndian(value, 0, nValue);
    bytes.append(value.data(), value.size());
}

} // namespace

std::string SirfFrame(std::string_view payload)
{
    unsigned nSum = 0;
    for (const char c : payload)
        nSum += static_cast<unsigned char>(c);
    std::string frame = "\xA0\xA2";
    Append(frame, static_cast<std::uint16_t>(payload.size()));
    frame += payload;
    Append(frame, static_cast<std::uint16_t>(nSum & 0x7fffU));
    frame += "\xB0\xB3";
    return frame;
}

std::string SirfNavigation(const CTrackPoint& point)
{
    const SCalendar calendar = point.m_time.ToCalendar().value_or(SCalendar{});
    const bool bFix = point.HasPosition();
    std::string payload(bFix ? NavigationLengthWithSecondSpeed : NavigationLength, '\0');
    Put<std::uint8_t>(payload, 0, SirfId::GeodeticNavigation);
    Put<std::uint16_t>(payload, 1, bFix ? ValidFix : NoFix);
    Put<std::uint16_t>(payload, 3, bFix ? FourOrMoreSatellites : NoFixType);
    Put<std::uint16_t>(payload, 11, calendar.nYear);
    Put<std::uint8_t>(payload, 13, calendar.nMonth);
    Put<std::uint8_t>(payload, 14, calendar.nDay);
    Put<std::uint8_t>(payload, 15, calendar.nHour);
    Put<std::uint8_t>(payload, 16, calendar.nMinute);
    Put<std::uint16_t>(payload, 17, calendar.nSecond * 1000 + calendar.nMillisecond);
    Put<std::int32_t>(payload, 23, point.m_position.m_dLatitude * 1e7);
    Put<std::int32_t>(payload, 27, point.m_position.m_dLongitude * 1e7);
    Put<std::int32_t>(payload, 35, point.m_nAltitude * 100.0);
    Put<std::uint16_t>(payload, 40, point.m_dDoppler * KmhToCentimetres);
    Put<std::uint16_t>(payload, 42, point.m_dDirection * RadiansToHundredths);
    Put<std::int16_t>(payload, 46, point.m_dVertSpeed * KmhToCentimetres);
    Put<std::uint32_t>(payload, 50, point.m_dPosError * 1e5);
    Put<std::uint16_t>(payload, 62, point.m_dDopplerError * 1e2);
    Put<std::uint8_t>(payload, 88, point.m_nSats);
    Put<std::uint8_t>(payload, 89, point.m_dHDOP * 5.0);
    if (bFix) {
        Put<std::uint16_t>(payload, 91, point.m_dDoppler * KmhToCentimetres);
        Put<std::uint16_t>(payload, 93, point.m_dDirection * RadiansToHundredths);
    }
    return payload;
}

bool WriteSirf(CImportMonitor& monitor, std::string_view strPath, const CSeries& series)
{
    CFile file;
    const EFileCause cause = file.Open(strPath, CFile::EMode::Replace);
    if (cause != EFileCause::None) {
        monitor.Report(FileCauseText(cause), false);
        return false;
    }
    try {
        std::string device(1, static_cast<char>(SirfId::DeviceInformation));
        file.Write(SirfFrame(device += MakeDeviceText(series)));
        for (const CTrackPoint* pPoint : series.m_points)
            file.Write(SirfFrame(SirfNavigation(*pPoint)));
        file.Commit();
    } catch (const CFileException& exception) {
        monitor.Report(exception.what(), false);
        return false;
    }
    return true;
}

} // namespace kestrabel
