#include "simulator/BestSpeeds.h"

#include <algorithm>
#include <optional>
#include <vector>

namespace kestrabel {

namespace {

constexpr double MetresPerSecondToKmh = 3.6;

/// A rising quantity as a function of another rising one, linear between the points.
struct SCurve
{
    std::span<const double> along;
    std::span<const double> height;

    double At(double dAlong) const
    {
        const auto next = std::lower_bound(along.begin(), along.end(), dAlong);
        const auto i = std::clamp<std::ptrdiff_t>(next - along.begin(), 1, std::ssize(along) - 1);
        const auto n = static_cast<std::size_t>(i);
        const double dShare = (dAlong - along[n - 1]) / (along[n] - along[n - 1]);
        return height[n - 1] + dShare * (height[n] - height[n - 1]);
    }
};

/// Calls `take` with what the height gains over each window of that length that begins or ends at a point:
/// the gain of a window that moves is linear in between, so the extremes are among them.
template <class TTake>
void ForEachWindow(const SCurve& curve, double dLength, TTake&& take)
{
    const double dFirst = curve.along.front();
    const double dLast = curve.along.back();
    for (std::size_t i = 0; i < curve.along.size(); ++i) {
        const double dAlong = curve.along[i];
        if (dAlong + dLength <= dLast)
            take(curve.At(dAlong + dLength) - curve.height[i]);
        if (dAlong - dLength >= dFirst)
            take(curve.height[i] - curve.At(dAlong - dLength));
    }
}

double BestOverTime(const SCurve& distanceOverTime, double dSeconds)
{
    double dMost = 0.0;
    ForEachWindow(distanceOverTime, dSeconds, [&](double dMetres) { dMost = std::max(dMost, dMetres); });
    return dMost / dSeconds * MetresPerSecondToKmh;
}

double BestOverDistance(const SCurve& timeOverDistance, double dMetres)
{
    std::optional<double> least;
    ForEachWindow(timeOverDistance, dMetres,
                  [&](double dSeconds) { least = std::min(least.value_or(dSeconds), dSeconds); });
    return least ? dMetres / *least * MetresPerSecondToKmh : 0.0;
}

} // namespace

SBestSpeeds FindBestSpeeds(std::span<const double> distances, double dStep)
{
    if (distances.size() < 2)
        return {};
    std::vector<double> times(distances.size());
    for (std::size_t i = 0; i < times.size(); ++i)
        times[i] = static_cast<double>(i) * dStep;
    const SCurve distanceOverTime{times, distances};
    const SCurve timeOverDistance{distances, times};
    return {.dSeconds2 = BestOverTime(distanceOverTime, 2.0),
            .dSeconds10 = BestOverTime(distanceOverTime, 10.0),
            .dMetres100 = BestOverDistance(timeOverDistance, 100.0),
            .dMetres250 = BestOverDistance(timeOverDistance, 250.0),
            .dMetres500 = BestOverDistance(timeOverDistance, 500.0)};
}

} // namespace kestrabel
