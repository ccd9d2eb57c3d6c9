#include "simulator/TruthText.h"

#include "geo/Rounding.h"
#include "model/TimeText.h"

#include <nlohmann/json.hpp>

namespace kestrabel {

namespace {

using CJson = nlohmann::ordered_json;

constexpr double KmhToKnots = 1.0 / 1.852;

double Knots(double dKmh)
{
    return RoundTo(dKmh * KmhToKnots, 4);
}

double Metres(double dMetres)
{
    return RoundTo(dMetres, 2);
}

std::string Time(const DATE& time)
{
    return FormatIsoMillisecond(time) + "Z";
}

CJson PlantedRun(const SPlantedRun& planted)
{
    CJson best;
    best["2s"] = Knots(planted.best.dSeconds2);
    best["10s"] = Knots(planted.best.dSeconds10);
    best["100m"] = Knots(planted.best.dMetres100);
    best["250m"] = Knots(planted.best.dMetres250);
    best["500m"] = Knots(planted.best.dMetres500);

    CJson run;
    run["firstFix"] = planted.nFirstFix;
    run["lastFix"] = planted.nLastFix;
    run["firstTime"] = Time(planted.timeFirst);
    run["lastTime"] = Time(planted.timeLast);
    run["metres"] = Metres(planted.dLength);
    run["seconds"] = SecondsBetween(planted.timeFirst, planted.timeLast);
    run["bestKnots"] = best;
    return run;
}

} // namespace

std::string TruthAsJson(const SSessionOptions& options, std::string_view strName, const STruth& truth)
{
    CJson json;
    json["name"] = strName;
    json["seed"] = options.nSeed;
    json["fixesPerSecond"] = options.dRate;
    json["fixes"] = truth.nFixes;
    json["coldStartFixes"] = truth.faults.nColdStartFixes;
    json["firstTime"] = Time(truth.timeFirst);
    json["lastTime"] = Time(truth.timeLast);
    json["latitude"] = options.position.m_dLatitude;
    json["longitude"] = options.position.m_dLongitude;
    json["windDirection"] = options.dWindDirection;
    json["metres"] = Metres(truth.dDistance);
    json["runs"] = truth.motion.nRuns;
    json["jibes"] = truth.motion.nJibes;
    json["stops"] = truth.motion.nStops;
    json["rests"] = truth.motion.nRests;
    json["dropouts"] = truth.faults.nDropouts;
    json["longDropouts"] = truth.faults.nLongDropouts;
    json["spikes"] = truth.faults.nSpikes;
    json["fastestElsewhereKnots"] = Knots(truth.dFastestElsewhere);
    json["plantedRun"] = truth.planted ? PlantedRun(*truth.planted) : CJson(nullptr);
    constexpr int nIndent = 2;
    // A name that is not UTF-8 must not end the program.
    return json.dump(nIndent, ' ', false, CJson::error_handler_t::replace);
}

} // namespace kestrabel
