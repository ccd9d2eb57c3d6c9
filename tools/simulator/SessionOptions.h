#pragma once

#include "geo/Position.h"
#include "model/Date.h"

#include <cstdint>
#include <string>

namespace kestrabel {

/// How the rider sails. Speeds are in knots.
struct SRiderOptions
{
    double dMeanSpeed = 24.0;      ///< of the reaches, 16 to 30
    double dGusts = 2.2;           ///< standard deviation of the gusts, 0 to 6
    double dPlantedSpeed = 40.0;   ///< in the middle of the planted run, 34 to 49
    double dPlantedLength = 720.0; ///< metres, 100 to 5000
    double dStoppedJibes = 0.35;   ///< share of the jibes that fall below the stop speed
    double dStops = 0.1;           ///< share of the jibes that end in the water for some seconds
    double dRests = 0.06;          ///< share of the reaches after which the rider rests for some minutes
};

/// What the receiver and the logger do to the truth.
struct SReceiverOptions
{
    double dDropoutsPerHour = 6.0;
    double dSpikesPerHour = 4.0;
    std::int64_t nColdStartFixes = 5; ///< first fixes, with a time but without a position
    /// Off: the same session, fix by fix, without noise and without spikes.
    bool bNoise = true;
    double dWander = 0.8; ///< standard deviation of the slow part of the position error per axis, metres
    double dWhite = 0.01; ///< of the part that is new for every fix, metres, up to 5 fixes a second
    double dDopplerNoise = 0.15; ///< standard deviation, knots
};

/// Noon of 17 August 2024.
DATE DefaultStart();

/// A session to be simulated. Equal options give equal sessions, to the bit, on every machine.
struct SSessionOptions
{
    std::uint64_t nSeed = 1;
    double dRate = 5.0;         ///< fixes a second, 1 to 10, with a step of whole milliseconds
    std::int64_t nFixes = 9000; ///< written fixes, the cold start included; 1 to 2147483647
    DATE timeStart = DefaultStart();
    CPosition position = MakePosition(52.8, 5.27); ///< where the rider launches; within ±80°, ±179°
    double dWindDirection = 240.0;                 ///< degrees that the wind comes from, 0 to 360
    SRiderOptions rider;
    SReceiverOptions receiver;

    /// The time from one fix to the next.
    std::int64_t StepMilliseconds() const;
    double StepSeconds() const { return static_cast<double>(StepMilliseconds()) * 0.001; }
};

/// What is wrong with the options, as a sentence; empty when they can be simulated.
std::string ComplaintAbout(const SSessionOptions& options);

} // namespace kestrabel
