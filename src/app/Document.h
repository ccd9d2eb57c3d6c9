#pragma once

#include "app/EditHistory.h"
#include "app/ImportLog.h"
#include "app/Surroundings.h"
#include "model/Event.h"
#include "present/UpdateHub.h"
#include "present/ViewSelection.h"

#include <string>
#include <string_view>
#include <vector>

namespace kestrabel {

/// True for a path whose last three characters are "rsp", whatever their case.
bool IsProjectPath(std::string_view strPath);

/// The one document of the application: the event, what is selected in it, what can be undone, and the files
/// it was read from. A project (".rsp") holds settings, divisions and waypoints; a track file holds one
/// recording; opening, saving and closing mean something else for each.
///
/// Commands on tracks, divisions and files are free functions in the headers beside this one, which share
/// this state. Nothing here throws but for lack of memory: failures are told through the desktop.
class CKestroDoc
{
public:
    explicit CKestroDoc(SSurroundings surroundings);
    CKestroDoc(const CKestroDoc&) = delete;
    CKestroDoc& operator=(const CKestroDoc&) = delete;

    /// A new event with the default divisions, written as the default project, and the default competitor.
    bool OnNewDocument();
    /// Opens a project, or track files instead of all competitors: `strPath`, or every one of `m_openFiles`
    /// when it holds two or more. False, and everything as it was, for a project that cannot be read and for
    /// track files none of which gives a point; the message names file and reason.
    bool OnOpenDocument(std::string_view strPath);
    /// Saves the project, or the current track file in the format of the extension. False when nothing was
    /// written; the message says why.
    bool OnSaveDocument(std::string_view strPath);
    /// Saves the current track file under its own path, or asks for one when it has none.
    bool OnFileSave();
    bool OnFileSaveAs();
    /// Asks for every modified track file, then for the project. False: it is not to be closed.
    bool CanCloseFrame();

    /// One nameless competitor, entered in every division, with one empty track file, instead of all others.
    void CreateDefaultCompetitor();

    /// A path that ends in "rsp" becomes the project's, any other the document's.
    void SetPathName(std::string_view strPath, bool bAddToRecentFiles = true);
    void SetModifiedFlag(bool bModified = true) { m_bModified = bModified; }
    bool IsModified() const { return m_bModified; }
    /// Of the track file last opened or saved; empty when there is none.
    const std::string& PathName() const { return m_strPathName; }
    /// The track file's title, else the project's, "*" behind it while something is modified.
    std::string Title() const;
    /// Tells every pane, the tree among them, that files or divisions are others than before.
    void ShowNewTree() { m_hub.UpdateAllViews(nullptr, HINT_TRACKFILE_CHANGED); }

    SSurroundings m_surroundings;
    CEvent m_event;
    std::string m_strProjectPath;         ///< of the project last opened or saved
    std::vector<std::string> m_openFiles; ///< chosen together in the last "Open" dialog
    CUpdateHub m_hub;
    CViewSelection m_selection;
    CEditHistory m_history;
    CImportLog m_importLog; ///< of the last command that read track files

private:
    bool OpenProject(std::string_view strPath);
    bool OpenTrackFiles(std::vector<std::string> paths);
    bool SaveFirstProject();
    bool SaveUnder(const std::string& strPath, bool bAddToRecentFiles);
    bool SaveProject(std::string_view strPath);
    bool SaveCurrentTrackFile(std::string_view strPath);

    std::string m_strPathName;
    bool m_bModified = false;
};

} // namespace kestrabel
