#include "formats/SirfMessage.h"

#include "formats/ByteOrder.h"
#include "formats/SirfScale.h"

#include <cassert>

namespace kestrabel {

namespace {

constexpr std::string_view StartSequence = "\xA0\xA2";
constexpr std::string_view EndSequence = "\xB0\xB3";
constexpr std::size_t BeforePayload = 4;
constexpr std::size_t ShortestRead = 6; ///< start, length and two bytes of payload
constexpr std::size_t ShortestPayload = 2;

std::size_t PayloadLength(std::string_view frame)
{
    const auto nLength = ReadLittleEndian<std::uint16_t>(frame, StartSequence.size());
    return nLength < 256 ? nLength : ReadBigEndian<std::uint16_t>(frame, StartSequence.size());
}

/// Moves to the next start sequence. False when there is none up to the end of the file.
bool ScanToStart(CBinaryInput& input)
{
    constexpr std::size_t nBlock = 4096;
    while (true) {
        const std::string_view bytes = input.Peek(nBlock);
        if (bytes.size() < StartSequence.size())
            return false;
        const std::size_t nFound = bytes.find(StartSequence[0]);
        if (nFound == std::string_view::npos) {
            input.Skip(bytes.size());
        } else if (nFound + 1 == bytes.size()) {
            input.Skip(nFound); // what follows it comes with the next block
        } else if (bytes[nFound + 1] == StartSequence[1]) {
            input.Skip(nFound);
            return true;
        } else {
            input.Skip(nFound + 2);
        }
    }
}

} // namespace

ESirfFrame ParseSirfFrame(std::string_view bytes, std::size_t nMaxLength, std::string_view& payload)
{
    if (bytes.size() < ShortestRead)
        return ESirfFrame::CutOff;
    if (!bytes.starts_with(StartSequence))
        return ESirfFrame::NoStart;
    const std::size_t nLength = PayloadLength(bytes);
    if (nLength < ShortestPayload || nLength > nMaxLength)
        return ESirfFrame::BadLength;
    if (bytes.size() < BeforePayload + nLength)
        return ESirfFrame::CutOff;
    const std::string_view frame = bytes.substr(0, nLength + SirfFrameOverhead);
    if (frame.size() < nLength + SirfFrameOverhead || !frame.ends_with(EndSequence))
        return ESirfFrame::NoEnd;
    payload = frame.substr(BeforePayload, nLength);
    return ESirfFrame::Message;
}

ESirfFrame ReadSirfMessage(CBinaryInput& input, std::size_t nMaxLength, std::string_view& payload)
{
    assert(nMaxLength + SirfFrameOverhead <= CBinaryInput::MaxPeek);
    while (true) {
        const ESirfFrame frame =
            ParseSirfFrame(input.Peek(nMaxLength + SirfFrameOverhead), nMaxLength, payload);
        switch (frame) {
        case ESirfFrame::Message: input.Skip(payload.size() + SirfFrameOverhead); return frame;
        case ESirfFrame::NoStart:
            if (!ScanToStart(input))
                return ESirfFrame::CutOff;
            break;
        case ESirfFrame::NoEnd: input.Skip(BeforePayload); break;
        case ESirfFrame::BadLength:
        case ESirfFrame::CutOff: return frame;
        }
    }
}

// Offsets of message 41; all fields are big-endian.
//
//   1 U2 navigation valid  17 U2 UTC second x 1000    40 U2 speed, cm/s          80 U4 distance
//   3 U2 navigation type   19 U4 satellite IDs        42 U2 course, 0.01 deg     84 U2 distance error
//   5 U2 extended week     23 I4 latitude, 1e-7 deg   44 I2 magnetic variation   86 U2 heading error
//   7 U4 time of week      27 I4 longitude, 1e-7 deg  46 I2 climb rate, cm/s     88 U1 satellites used
//  11 U2 UTC year          31 I4 ellipsoid altitude   48 I2 heading rate         89 U1 HDOP x 5
//  13 U1 UTC month         35 I4 sea-level alt., cm   50 U4 position error, cm   90 U1 mode
//  14 U1 UTC day           39 U1 map datum            54 U4 vertical error       91 U2 second speed
//  15 U1 UTC hour                                     58 U4 time error           93 U2 second course
//  16 U1 UTC minute                                   62 U2 speed error, cm/s
//                                                     64 to 79 clock
namespace {

constexpr std::size_t NavigationLength = 91;
constexpr std::size_t NavigationLengthWithSecondSpeed = 95;

DATE NavigationTime(std::string_view payload)
{
    const int nMilliseconds = ReadBigEndian<std::uint16_t>(payload, 17);
    const DATE second = DATE::FromCalendar({.nYear = ReadBigEndian<std::uint16_t>(payload, 11),
                                            .nMonth = ReadBigEndian<std::uint8_t>(payload, 13),
                                            .nDay = ReadBigEndian<std::uint8_t>(payload, 14),
                                            .nHour = ReadBigEndian<std::uint8_t>(payload, 15),
                                            .nMinute = ReadBigEndian<std::uint8_t>(payload, 16),
                                            .nSecond = nMilliseconds / 1000});
    return second.Plus(nMilliseconds % 1000 * DaysPerMillisecond);
}

} // namespace

bool ParseGeodeticNavigation(std::string_view payload, CTrackPoint& point)
{
    using namespace SirfScale;
    if (payload.size() < NavigationLength)
        return false;
    point.ClearDerived();
    point.m_time = NavigationTime(payload);
    point.m_position = MakePosition(ReadBigEndian<std::int32_t>(payload, 23) * Degrees,
                                    ReadBigEndian<std::int32_t>(payload, 27) * Degrees);
    point.m_nAltitude = ReadBigEndian<std::int32_t>(payload, 35) / CentimetresPerMetre;
    point.m_dDoppler = ReadBigEndian<std::uint16_t>(payload, 40) * Kmh;
    point.m_dDirection = ReadBigEndian<std::uint16_t>(payload, 42) * Radians;
    point.m_dVertSpeed = ReadBigEndian<std::int16_t>(payload, 46) * Kmh;
    point.m_dPosError = ReadBigEndian<std::uint32_t>(payload, 50) * Kilometres;
    point.m_dDopplerError = ReadBigEndian<std::uint16_t>(payload, 62) * MetresPerSecond;
    point.m_nSats = ReadBigEndian<std::uint8_t>(payload, 88);
    point.m_dHDOP = ReadBigEndian<std::uint8_t>(payload, 89) * Hdop;
    if (payload.size() == NavigationLengthWithSecondSpeed) {
        point.m_dUSOG = ReadBigEndian<std::uint16_t>(payload, 91) * Kmh;
        point.m_dUCOG = ReadBigEndian<std::uint16_t>(payload, 93) * Radians;
    }
    return true;
}

} // namespace kestrabel
