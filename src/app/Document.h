#pragma once

#include "app/EditHistory.h"
#include "app/Surroundings.h"
#include "model/Event.h"
#include "present/UpdateHub.h"
#include "present/ViewSelection.h"

#include <string>
#include <string_view>
#include <vector>

namespace kestrabel {

/// The one document of the application: the event, what is selected in it, what can be undone, and the files
/// it was read from. A project (".rsp") holds settings, divisions and waypoints; a track file holds one
/// recording; opening, saving and closing mean something else for each.
///
/// Commands are free functions in TrackEditing.h, DivisionCommands.h and their like; they share this state.
class CKestroDoc
{
public:
    explicit CKestroDoc(SSurroundings surroundings);

    /// A new event with the default divisions, written as the default project, and the default competitor.
    bool OnNewDocument();
    /// Opens a project, or track files into the default competitor: `strPath`, or every one of
    /// `m_openFiles` when it holds two or more. A file that cannot be read is told with its name and the
    /// reason, and its path is not taken: a later save can never overwrite it with half of it.
    bool OnOpenDocument(std::string_view strPath);
    /// Saves the project, or the current track file, as the extension says.
    bool OnSaveDocument(std::string_view strPath);
    /// Saves under the path it has, or asks.
    bool OnFileSave();
    bool OnFileSaveAs();
    /// Asks for every modified track file, then for the document. False stops the close.
    bool CanCloseFrame();

    /// The default competitor instead of all others.
    void CreateDefaultCompetitor();

    /// A path ending in "rsp" becomes the project's; another one the document's, whose title it gives.
    void SetPathName(std::string_view strPath, bool bAddToRecentFiles = true);
    void SetModifiedFlag(bool bModified = true);

    bool IsModified() const { return m_bModified; }
    const std::string& PathName() const { return m_strPathName; }
    /// The window's title, "*" behind it while the document is modified.
    std::string Title() const;

    SSurroundings m_surroundings;
    CEvent m_event;
    std::string m_strProjectPath;         ///< of the project last opened or saved
    std::vector<std::string> m_openFiles; ///< chosen together in the last "Open" dialog
    CUpdateHub m_hub;
    CViewSelection m_selection;
    CEditHistory m_history;

private:
    std::string m_strPathName;
    std::string m_strTitle;
    bool m_bModified = false;
};

} // namespace kestrabel
