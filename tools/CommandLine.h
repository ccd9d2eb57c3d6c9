#pragma once

#include "simulator/NmeaWriter.h"
#include "simulator/SessionOptions.h"

#include <optional>
#include <string>
#include <vector>

namespace kestrabel {

/// What the command line of `kestrabel-simulate` asks for.
struct SSimulateCommand
{
    std::vector<std::string> files;
    std::string strName; ///< of the track
    SSessionOptions session;
    SNmeaOptions nmea;
};

/// Reads the command line. Empty when there is nothing to simulate: help was asked for, or the line is wrong,
/// which has been told on the standard error; `nStatus` is then the exit status, 0 or 2.
std::optional<SSimulateCommand> ReadCommandLine(int nArguments, char** pArguments, int& nStatus);

} // namespace kestrabel
