#include "CommandLine.h"
#include "simulator/SessionSimulator.h"
#include "simulator/SessionWriter.h"
#include "simulator/TruthText.h"

#include <exception>
#include <iostream>

namespace {

constexpr int Success = 0;
constexpr int Failure = 1;

int Simulate(const kestrabel::SSimulateCommand& command)
{
    kestrabel::CSeries series;
    series.m_strName = command.strName;
    const kestrabel::STruth truth = SimulateSession(command.session, series);
    for (const std::string& strFile : command.files) {
        kestrabel::CImportMonitor monitor;
        if (!WriteSession(monitor, strFile, series, command.nmea)) {
            std::cerr << strFile << ": " << monitor.Message() << '\n';
            return Failure;
        }
    }
    std::cout << TruthAsJson(command.session, command.strName, truth) << '\n';
    std::cout.flush();
    return std::cout ? Success : Failure;
}

} // namespace

int main(int nArguments, char** pArguments)
{
    try {
        int nStatus = Success;
        const auto command = kestrabel::ReadCommandLine(nArguments, pArguments, nStatus);
        return command ? Simulate(*command) : nStatus;
    } catch (const std::exception& exception) {
        std::cerr << "kestrabel-simulate: " << exception.what() << '\n';
        return Failure;
    }
}
