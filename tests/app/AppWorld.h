#pragma once

#include "app/Application.h"
#include "app/NewProject.h"
#include "engine/TrackPointDerivation.h"
#include "platform/FileSettings.h"
#include "support/ScriptedDesktop.h"
#include "support/TemporaryFolder.h"

namespace kestrabel::test {

/// Starts nothing, and keeps what it should have started.
class CNoProcesses : public CProcessStarter
{
public:
    EStart Start(std::span<const std::string> arguments) override
    {
        m_started.assign(arguments.begin(), arguments.end());
        return EStart::Started;
    }
    bool WaitUntilReady() override { return true; }

    std::vector<std::string> m_started;
};

/// The application in a folder of its own, with a desktop that answers from a script.
struct SAppWorld
{
    CTemporaryFolder folder;
    CScriptedDesktop desktop;
    CMemorySettings settings;
    CNoProcesses processes;
    CApplication application{{desktop, NoProgress(), settings, processes, folder.Path("")}};
    CKestroDoc& document = application.m_document;
    CEvent& event = document.m_event;
    CViewSelection& selection = document.m_selection;

    /// Writes a straight track of so many fixes, one a second, as NMEA; returns its path.
    std::string WriteTrack(const std::string& strName, int nFixes, double dMinutesPerFix = 0.006)
    {
        std::string strLog;
        for (int i = 0; i < nFixes; ++i) {
            strLog += "$GPRMC," + std::to_string(100000 + i / 60 * 100 + i % 60) + ",A,50" +
                      (i * dMinutesPerFix < 10.0 ? "0" : "") + std::to_string(i * dMinutesPerFix) +
                      ",N,00100.000000,W,20.0,0.0,010624\n";
        }
        return folder.Write(strName, strLog);
    }
    CPerson& Person() { return event.m_persons[0]; }
    CSeries& Series(int nSeries) { return Person().m_series[nSeries]; }
};

} // namespace kestrabel::test
