#include "formats/BinaryLogRecord.h"

#include "formats/ByteOrder.h"
#include "formats/SirfScale.h"

#include <cassert>
#include <cmath>
#include <limits>

namespace kestrabel {

namespace {

constexpr std::size_t HdopOffset = 0;
constexpr std::size_t SatsOffset = 1;
constexpr std::size_t SecondOffset = 2;
constexpr std::size_t PackedTimeOffset = 4;
constexpr std::size_t SatMaskOffset = 8;
constexpr std::size_t LatitudeOffset = 12;
constexpr std::size_t LongitudeOffset = 16;
constexpr std::size_t AltitudeOffset = 20;
constexpr std::size_t SpeedOffset = 24;
constexpr std::size_t CourseOffset = 26;
constexpr std::size_t ClimbOffset = 28;

// Factors from a point's units to the integers of a record.
constexpr double FromDegrees = 1e7;
constexpr double FromKmh = 27.77777777777778;
constexpr double FromRadians = 5729.5779513082325;
constexpr double FromMetres = 100.0;
constexpr double FromHdop = 5.0;

constexpr std::uint32_t NoLatitude = 0xffffffff;
constexpr int FirstYear = 2000;
constexpr int MonthsInYear = 12;
constexpr int MaxYearMonth = 1023; ///< ten bits: March 2085
constexpr int HalfSecond = 500;    ///< ms

struct SBits
{
    unsigned nShift;
    unsigned nCount;
};

constexpr SBits SecondBits = {0, 6};
constexpr SBits MinuteBits = {6, 6};
constexpr SBits HourBits = {12, 5};
constexpr SBits DayBits = {17, 5};
constexpr SBits YearMonthBits = {22, 10};

int Unpack(std::uint32_t nPacked, SBits bits)
{
    return static_cast<int>(nPacked >> bits.nShift & ((1U << bits.nCount) - 1U));
}

std::uint32_t Pack(int nValue, SBits bits)
{
    return static_cast<std::uint32_t>(nValue) << bits.nShift;
}

SCalendar UnpackTime(std::uint32_t nPacked)
{
    const int nMonths = Unpack(nPacked, YearMonthBits) - 1; // since January 2000; -1 names no month
    return {.nYear = FirstYear + nMonths / MonthsInYear,
            .nMonth = nMonths % MonthsInYear + 1,
            .nDay = Unpack(nPacked, DayBits),
            .nHour = Unpack(nPacked, HourBits),
            .nMinute = Unpack(nPacked, MinuteBits),
            .nSecond = Unpack(nPacked, SecondBits)};
}

/// False, with zeros, for a time that a record cannot hold.
bool PackTime(const DATE& time, std::uint32_t& nPacked, std::uint16_t& nSecondField)
{
    nPacked = 0;
    nSecondField = 0;
    const std::optional<SCalendar> exact = time.ToCalendar();
    const std::optional<SCalendar> rounded = time.ToCalendarSecond();
    if (!exact || !rounded || rounded->nYear < FirstYear)
        return false;
    const int nYearMonth = (rounded->nYear - FirstYear) * MonthsInYear + rounded->nMonth;
    if (nYearMonth > MaxYearMonth)
        return false;
    nPacked = Pack(rounded->nSecond, SecondBits) | Pack(rounded->nMinute, MinuteBits) |
              Pack(rounded->nHour, HourBits) | Pack(rounded->nDay, DayBits) | Pack(nYearMonth, YearMonthBits);
    nSecondField = static_cast<std::uint16_t>(exact->nSecond * 1000 + exact->nMillisecond);
    return true;
}

/// Rounded half away from zero and limited to the range of the integer; 0 for not-a-number.
template <class T>
T Saturated(double dValue)
{
    if (std::isnan(dValue))
        return 0;
    const double dRounded = RoundTo(dValue, 0);
    if (dRounded <= static_cast<double>(std::numeric_limits<T>::min()))
        return std::numeric_limits<T>::min();
    if (dRounded >= static_cast<double>(std::numeric_limits<T>::max()))
        return std::numeric_limits<T>::max();
    return static_cast<T>(dRounded);
}

} // namespace

bool ParseBinaryLogRecord(std::string_view bytes, CTrackPoint& point)
{
    using namespace SirfScale;
    assert(bytes.size() == BinaryLogRecordSize);
    const auto nSats = ReadLittleEndian<std::uint8_t>(bytes, SatsOffset);
    const SCalendar calendar = UnpackTime(ReadLittleEndian<std::uint32_t>(bytes, PackedTimeOffset));
    if (ReadLittleEndian<std::uint32_t>(bytes, LatitudeOffset) == NoLatitude || nSats == 0 ||
        calendar.nSecond >= 60 || calendar.nDay > 31 || calendar.nHour > 23)
        return false;

    const int nMilliseconds = ReadLittleEndian<std::uint16_t>(bytes, SecondOffset) % 1000;
    point.m_time = DATE::FromCalendar(calendar).Plus(nMilliseconds * DaysPerMillisecond -
                                                     (nMilliseconds >= HalfSecond ? DaysPerSecond : 0.0));
    point.m_dHDOP = ReadLittleEndian<std::uint8_t>(bytes, HdopOffset) * Hdop;
    point.m_nSats = nSats;
    point.m_nSatMask = ReadLittleEndian<std::uint32_t>(bytes, SatMaskOffset);
    point.m_position = MakePosition(ReadLittleEndian<std::int32_t>(bytes, LatitudeOffset) * Degrees,
                                    ReadLittleEndian<std::int32_t>(bytes, LongitudeOffset) * Degrees);
    point.m_nAltitude = ReadLittleEndian<std::int32_t>(bytes, AltitudeOffset) / CentimetresPerMetre;
    point.m_dDoppler = ReadLittleEndian<std::uint16_t>(bytes, SpeedOffset) * Kmh;
    point.m_dDirection = ReadLittleEndian<std::uint16_t>(bytes, CourseOffset) * Radians;
    point.m_dVertSpeed = ReadLittleEndian<std::int16_t>(bytes, ClimbOffset) * Kmh;
    return true;
}

CBinaryLogRecord MakeBinaryLogRecord(const CTrackPoint& point, bool& bTimeFits)
{
    std::uint32_t nPacked = 0;
    std::uint16_t nSecondField = 0;
    bTimeFits = PackTime(point.m_time, nPacked, nSecondField);

    CBinaryLogRecord record = {};
    PutLittleEndian(record, HdopOffset, Saturated<std::uint8_t>(point.m_dHDOP * FromHdop));
    PutLittleEndian(record, SatsOffset, Saturated<std::uint8_t>(point.m_nSats));
    PutLittleEndian(record, SecondOffset, nSecondField);
    PutLittleEndian(record, PackedTimeOffset, nPacked);
    PutLittleEndian(record, SatMaskOffset, point.m_nSatMask);
    PutLittleEndian(record, LatitudeOffset,
                    Saturated<std::int32_t>(point.m_position.m_dLatitude * FromDegrees));
    PutLittleEndian(record, LongitudeOffset,
                    Saturated<std::int32_t>(point.m_position.m_dLongitude * FromDegrees));
    PutLittleEndian(record, AltitudeOffset, Saturated<std::int32_t>(point.m_nAltitude * FromMetres));
    PutLittleEndian(record, SpeedOffset, Saturated<std::uint16_t>(point.m_dDoppler * FromKmh));
    PutLittleEndian(record, CourseOffset, Saturated<std::uint16_t>(point.m_dDirection * FromRadians));
    PutLittleEndian(record, ClimbOffset, Saturated<std::int16_t>(point.m_dVertSpeed * FromKmh));
    return record;
}

} // namespace kestrabel
