#include "simulator/SessionOptions.h"

#include <array>
#include <cmath>
#include <limits>
#include <string_view>

namespace kestrabel {

namespace {

struct SRange
{
    std::string_view strWhat;
    double dValue;
    double dLowest;
    double dHighest;
};

std::string Number(double dValue)
{
    return dValue == std::floor(dValue) ? std::to_string(static_cast<std::int64_t>(dValue))
                                        : std::to_string(dValue);
}

} // namespace

DATE DefaultStart()
{
    return DATE::FromCalendar({.nYear = 2024, .nMonth = 8, .nDay = 17, .nHour = 12});
}

std::int64_t SSessionOptions::StepMilliseconds() const
{
    return std::llround(1000.0 / dRate);
}

std::string ComplaintAbout(const SSessionOptions& options)
{
    constexpr double dMostFixes = std::numeric_limits<std::int32_t>::max();
    const SRiderOptions& rider = options.rider;
    const SReceiverOptions& receiver = options.receiver;
    const auto nFixes = static_cast<double>(options.nFixes);
    const std::array<SRange, 18> ranges = {{
        {"The number of fixes a second", options.dRate, 1.0, 10.0},
        {"The number of fixes", nFixes, 1.0, dMostFixes},
        {"The latitude", options.position.m_dLatitude, -80.0, 80.0},
        {"The longitude", options.position.m_dLongitude, -179.0, 179.0},
        {"The wind direction", options.dWindDirection, 0.0, 360.0},
        {"The mean speed", rider.dMeanSpeed, 16.0, 30.0},
        {"The strength of the gusts", rider.dGusts, 0.0, 6.0},
        {"The speed of the planted run", rider.dPlantedSpeed, 34.0, 49.0},
        {"The length of the planted run", rider.dPlantedLength, 100.0, 5000.0},
        {"The share of stopped jibes", rider.dStoppedJibes, 0.0, 1.0},
        {"The share of stops", rider.dStops, 0.0, 1.0},
        {"The share of rests", rider.dRests, 0.0, 1.0},
        {"The number of drop-outs", receiver.dDropoutsPerHour, 0.0, 360.0},
        {"The number of spikes", receiver.dSpikesPerHour, 0.0, 360.0},
        {"The number of cold-start fixes", static_cast<double>(receiver.nColdStartFixes), 0.0, nFixes},
        {"The slow position error", receiver.dWander, 0.0, 20.0},
        {"The white position error", receiver.dWhite, 0.0, 1.0},
        {"The Doppler error", receiver.dDopplerNoise, 0.0, 5.0},
    }};
    for (const SRange& range : ranges) {
        // Written so that not-a-number is refused.
        if (!(range.dValue >= range.dLowest && range.dValue <= range.dHighest)) {
            return std::string(range.strWhat) + " must be from " + Number(range.dLowest) + " to " +
                   Number(range.dHighest);
        }
    }
    constexpr double dTolerance = 1e-9;
    if (std::abs(static_cast<double>(options.StepMilliseconds()) - 1000.0 / options.dRate) > dTolerance)
        return "The time from one fix to the next must be a whole number of milliseconds";
    if (!options.timeStart.ToCalendar())
        return "The start is not a date and time";
    return {};
}

} // namespace kestrabel
