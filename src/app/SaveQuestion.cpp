#include "app/SaveQuestion.h"

#include "app/Document.h"
#include "app/FailureText.h"
#include "formats/TrackFileDispatcher.h"
#include "formats/TrackFormat.h"

namespace kestrabel {

bool SaveSeries(CKestroDoc& document, CSeries& series)
{
    CDesktop& desktop = document.m_surroundings.desktop;
    if (const std::string_view strRefusal = SaveRefusal(series.m_strFileName); !strRefusal.empty()) {
        desktop.ShowMessage(strRefusal);
        return false;
    }
    CImportMonitor monitor;
    if (!SaveTrackFile(monitor, series)) {
        desktop.ShowMessage(FileFailureText(monitor, series.m_strFileName));
        return false;
    }
    series.m_bModified = 0;
    document.m_history.NoteSaved(&series);
    return true;
}

bool AskToSaveTrackFile(CKestroDoc& document, CSeries& series)
{
    if (series.m_bModified == 0)
        return true;
    const std::string strQuestion =
        "The file " + series.m_strFileName + " has changed.Do you wish to save it?";
    switch (document.m_surroundings.desktop.AskYesNoCancel(strQuestion)) {
    case CUserPrompt::EAnswer::Yes:
        if (!SaveSeries(document, series))
            return false;
        document.ShowNewTree(); // nothing may be closed after all, and the file has no "*" any more
        return true;
    case CUserPrompt::EAnswer::No: return true;
    case CUserPrompt::EAnswer::Cancel: break;
    }
    return false;
}

} // namespace kestrabel
