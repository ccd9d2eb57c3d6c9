#pragma once

#include "geo/Position.h"
#include "model/Date.h"
#include "model/Persistent.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace kestrabel {

/// Why a fix is invalid; bits of `CTrackPoint::m_nInvalidFlags`.
namespace InvalidFlag {
inline constexpr std::uint8_t User = 0x01;         ///< P: the user marked the point; survives a recalculation
inline constexpr std::uint8_t SpeedSpike = 0x02;   ///< S: the speed breaks a threshold
inline constexpr std::uint8_t DopplerSpike = 0x04; ///< D: the Doppler speed breaks a threshold
inline constexpr std::uint8_t NoPosition = 0x08;   ///< L: latitude or longitude 0, or no distance
inline constexpr std::uint8_t Hdop = 0x10;         ///< H: HDOP above the event's maximum
inline constexpr std::uint8_t Satellites = 0x20;   ///< A: fewer satellites than the event's minimum
inline constexpr std::uint8_t Time = 0x40;         ///< T: step below 1 ms, or a year before 2000
} // namespace InvalidFlag

/// Which flags make a fix invalid for a purpose.
namespace InvalidMask {
inline constexpr std::uint8_t Trackpoint = 0x7b; ///< calculations from position-derived speed (all but D)
inline constexpr std::uint8_t Doppler = 0x75;    ///< calculations from Doppler speed (P, D, H, A, T)
inline constexpr std::uint8_t Fix = 0x79;        ///< box, altitudes, "Delete Invalid" (P, L, H, A, T)
inline constexpr std::uint8_t Any = 0x7f;
} // namespace InvalidMask

/// One GPS fix and what was derived from it. All values are zero after construction. Readers fill what the
/// logger measured; the derivation fills the rest.
///
/// A track may have a million of these, and the calculators run over all of them once per division. What they
/// look at for every point therefore stands together at the front, in one cache line of the three that a
/// point takes; small members fill the tail of the time.
class CTrackPoint : public CPersistent
{
public:
    static const CClassRecord Class;
    const CClassRecord& ClassRecord() const override { return Class; }

    // Fixes come in hundreds of thousands and live in a pool of their own.
    static void* operator new(std::size_t nSize);
    static void operator delete(void* pPoint, std::size_t nSize) noexcept;

    /// True when none of the flags of the mask is set.
    bool IsValidFor(std::uint8_t nMask) const { return (m_nInvalidFlags & nMask) == 0; }
    bool HasPosition() const { return m_position.m_dLatitude != 0.0 && m_position.m_dLongitude != 0.0; }

    /// The stored time step from the previous fix in seconds, rounded to milliseconds.
    double StepSeconds() const { return RoundTo(m_dDeltaTime * SecondsPerDay, 3); }

    /// Sets every value that the derivation fills to 0, the direction included.
    void ClearDerived();

    [[no_unique_address]] DATE m_time; ///< UTC as read from the file
    std::uint8_t m_nInvalidFlags = 0;  ///< InvalidFlag bits; derived but for InvalidFlag::User
    std::uint16_t m_nSeriesIndex = 0;  ///< derived: index of the file within its competitor
    std::int32_t m_nRun = 0;           ///< derived: run by position-derived speed
    std::int32_t m_nDopplerRun = 0;    ///< derived: run by Doppler speed
    std::int32_t m_nTrack = 0;         ///< derived: index in the file, from 0
    double m_dSpeed = 0.0;             ///< derived: km/h from the previous fix
    double m_dTotalDistance = 0.0;     ///< derived: km from the start of the file
    double m_dDeltaTime = 0.0;         ///< derived: days since the previous fix, whole milliseconds
    double m_dSumStepSquares = 0.0;    ///< derived: s², running sum of the squared time steps

    double m_dDoppler = 0.0;              ///< km/h, the receiver's Doppler speed; 0 when the format has none
    double m_dTotalDopplerDistance = 0.0; ///< derived: km, sum of the Doppler steps
    CPosition m_position;                 ///< degrees
    double m_dDistance = 0.0;             ///< derived: km from the previous fix
    double m_dDopplerStep = 0.0;          ///< derived: km by the mean Doppler speed over the step
    double m_dDirection = 0.0;            ///< radians; the receiver's course, else derived
    double m_dWindAngle = 0.0;            ///< derived: radians in [0, π]
    double m_dHDOP = 0.0;
    std::int32_t m_nSats = 0;
    std::int32_t m_nAltitude = 0; ///< metres
    std::int32_t m_nRxStatus = 0; ///< fix quality of an NMEA GGA sentence
    std::uint32_t m_nSatMask = 0; ///< satellite IDs of a binary log record
    double m_dVertSpeed = 0.0;    ///< km/h
    double m_dPosError = 0.0;     ///< km
    double m_dDopplerError = 0.0; ///< as read; SiRF readers store m/s
    double m_dUSOG = 0.0;         ///< km/h, a second speed of the receiver
    double m_dUCOG = 0.0;         ///< radians, a second course of the receiver
};

/// The set flags as letters, in the order D, S, T, P, L, A, H; empty for a valid point.
std::string InvalidLetters(std::uint8_t nFlags);

/// True when `point` starts a new stretch of the track: its stored time step, or the real time since its
/// predecessor, reaches the threshold (seconds). The stored step of a fresh gap point stays 0, so the stored
/// one alone would never tell. The first point of a file, without a predecessor, starts none.
bool StartsGap(const CTrackPoint* pPrevious, const CTrackPoint& point, std::int32_t nTimeThreshold);

} // namespace kestrabel
