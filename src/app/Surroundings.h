#pragma once

#include "app/Desktop.h"
#include "platform/ProcessStarter.h"
#include "platform/Progress.h"
#include "platform/SettingsStore.h"

#include <string>

namespace kestrabel {

/// What the application stands on. All of it outlives the document.
struct SSurroundings
{
    CDesktop& desktop;
    CProgressDisplay& progress;
    CSettingsStore& settings;
    CProcessStarter& processes;
    std::string strProgramFolder; ///< ends in a separator; "Default.rsp" and the data folder lie there
    /// Command line of the text editor that the user prefers ($VISUAL); empty: the desktop's own choice.
    std::string strTextEditor = {};
};

} // namespace kestrabel
