#include "CommandLine.h"

#include "formats/GpxTime.h"
#include "model/TimeText.h"
#include "platform/NumberInput.h"
#include "platform/Path.h"
#include "simulator/SessionWriter.h"

#include <CLI/CLI.hpp>

#include <cmath>
#include <iostream>
#include <map>

namespace kestrabel {

namespace {

constexpr int WrongCommandLine = 2;

/// The options that need more than a number.
struct STexts
{
    std::string strStart;
    std::string strPosition;
    double dMinutes = 0.0;
    bool bNoNoise = false;
};

void AddOptions(CLI::App& app, SSimulateCommand& command, STexts& texts)
{
    SSessionOptions& session = command.session;
    SRiderOptions& rider = session.rider;
    SReceiverOptions& receiver = session.receiver;
    static const std::map<std::string, ESentenceOrder> orders = {{"rmc-gga", ESentenceOrder::RmcFirst},
                                                                 {"gga-rmc", ESentenceOrder::GgaFirst}};

    app.add_option("OUT", command.files, "Files to write, all of the same session; the name tells the format")
        ->required();
    app.add_option("--name", command.strName, "Name of the track (default: of the first file)");
    app.add_option("--seed", session.nSeed, "Equal seeds give equal sessions")->capture_default_str();
    app.add_option("--rate", session.dRate, "Fixes a second, 1 to 10")->capture_default_str();
    CLI::Option* pFixes =
        app.add_option("--fixes", session.nFixes, "Number of fixes, the cold start included")
            ->capture_default_str();
    app.add_option("--minutes", texts.dMinutes,
                   "As many fixes as are recorded in that time without a drop-out")
        ->excludes(pFixes)
        ->check(CLI::Range(0.01, 1e7));
    app.add_option("--start", texts.strStart, "First time, UTC: YYYY-MM-DDTHH:MM:SS");
    app.add_option("--position", texts.strPosition, "Where the rider launches: LAT,LON in degrees");
    app.add_option("--wind", session.dWindDirection, "Degrees that the wind comes from")
        ->capture_default_str();

    const std::string strRider = "Rider";
    app.add_option("--speed", rider.dMeanSpeed, "Mean speed of the runs, knots")
        ->group(strRider)
        ->capture_default_str();
    app.add_option("--gusts", rider.dGusts, "Strength of the gusts, knots")
        ->group(strRider)
        ->capture_default_str();
    app.add_option("--planted-speed", rider.dPlantedSpeed, "Top speed of the planted run, knots")
        ->group(strRider)
        ->capture_default_str();
    app.add_option("--planted-length", rider.dPlantedLength, "Length of the planted run, metres")
        ->group(strRider)
        ->capture_default_str();
    app.add_option("--stopped-jibes", rider.dStoppedJibes, "Share of jibes below the stop speed, 0 to 1")
        ->group(strRider)
        ->capture_default_str();
    app.add_option("--stops", rider.dStops, "Share of jibes that end in the water, 0 to 1")
        ->group(strRider)
        ->capture_default_str();
    app.add_option("--rests", rider.dRests, "Share of runs with a rest behind them, 0 to 1")
        ->group(strRider)
        ->capture_default_str();

    const std::string strReceiver = "Receiver";
    app.add_option("--dropouts", receiver.dDropoutsPerHour, "Drop-outs an hour")
        ->group(strReceiver)
        ->capture_default_str();
    app.add_option("--spikes", receiver.dSpikesPerHour, "Spikes an hour")
        ->group(strReceiver)
        ->capture_default_str();
    app.add_option("--cold-start", receiver.nColdStartFixes, "Number of first fixes without a position")
        ->group(strReceiver)
        ->capture_default_str();
    app.add_option("--wander", receiver.dWander, "Slow position error, metres")
        ->group(strReceiver)
        ->capture_default_str();
    app.add_option("--white-noise", receiver.dWhite, "Position error of each fix by itself, metres")
        ->group(strReceiver)
        ->capture_default_str();
    app.add_option("--doppler-noise", receiver.dDopplerNoise, "Error of the Doppler speed, knots")
        ->group(strReceiver)
        ->capture_default_str();
    app.add_flag("--no-noise", texts.bNoNoise, "The same session without noise and spikes")
        ->group(strReceiver);

    const std::string strNmea = "NMEA";
    app.add_option("--nmea-order", command.nmea.order, "Order of the sentences")
        ->group(strNmea)
        ->transform(CLI::CheckedTransformer(orders));
    app.add_option("--minute-decimals", command.nmea.nMinuteDecimals, "Decimals of the minutes of a position")
        ->group(strNmea)
        ->check(CLI::Range(4, 8))
        ->capture_default_str();
}

void TakeStart(const std::string& strStart, SSessionOptions& session)
{
    session.timeStart = ParseGpxTime(strStart);
    // The reader forgives much; what it made of the text must be the text.
    if (FormatIsoSecond(session.timeStart) != strStart)
        throw CLI::ValidationError("--start", "\"" + strStart + "\" is not of the form 2024-08-17T12:00:00");
}

void TakePosition(const std::string& strPosition, SSessionOptions& session)
{
    const std::size_t nComma = strPosition.find(',');
    CPosition& position = session.position;
    if (nComma == std::string::npos || !IsDecimal(strPosition.substr(0, nComma), position.m_dLatitude) ||
        !IsDecimal(strPosition.substr(nComma + 1), position.m_dLongitude))
        throw CLI::ValidationError("--position", "\"" + strPosition + "\" is not of the form 52.8,5.27");
}

/// What CLI11 cannot know by itself. Throws CLI::ValidationError.
void Complete(SSimulateCommand& command, const STexts& texts)
{
    SSessionOptions& session = command.session;
    for (const std::string& strFile : command.files) {
        if (!IsWritableName(strFile))
            throw CLI::ValidationError("OUT", "\"" + strFile + "\" has no format that can be written");
    }
    if (command.strName.empty())
        command.strName = FileTitle(command.files.front());
    if (texts.dMinutes > 0.0)
        session.nFixes = std::llround(texts.dMinutes * 60.0 * session.dRate);
    if (!texts.strStart.empty())
        TakeStart(texts.strStart, session);
    if (!texts.strPosition.empty())
        TakePosition(texts.strPosition, session);
    session.receiver.bNoise = !texts.bNoNoise;
    const std::string strComplaint = ComplaintAbout(session);
    if (!strComplaint.empty())
        throw CLI::ValidationError(strComplaint);
}

} // namespace

std::optional<SSimulateCommand> ReadCommandLine(int nArguments, char** pArguments, int& nStatus)
{
    SSimulateCommand command;
    STexts texts;
    CLI::App app("Writes the track file of a simulated session and prints what is true about it, as JSON.",
                 "kestrabel-simulate");
    AddOptions(app, command, texts);
    try {
        app.parse(nArguments, pArguments);
        Complete(command, texts);
    } catch (const CLI::ParseError& error) {
        nStatus = app.exit(error, std::cout, std::cerr) == 0 ? 0 : WrongCommandLine;
        return std::nullopt;
    }
    return command;
}

} // namespace kestrabel
