#include "app/SaveQuestion.h"

#include "app/Document.h"
#include "formats/TrackFileDispatcher.h"

namespace kestrabel {

bool SaveSeries(CKestroDoc& document, CSeries& series)
{
    CImportMonitor monitor(&document.m_surroundings.desktop);
    if (!SaveTrackFile(monitor, series))
        return false;
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
    case CUserPrompt::EAnswer::Yes: return SaveSeries(document, series);
    case CUserPrompt::EAnswer::No: return true;
    case CUserPrompt::EAnswer::Cancel: break;
    }
    return false;
}

} // namespace kestrabel
