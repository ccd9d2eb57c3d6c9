#pragma once

#include "app/Document.h"

#include <span>
#include <string>
#include <vector>

namespace kestrabel {

/// The program: its one document, how it starts, opens files and ends.
class CApplication
{
public:
    explicit CApplication(SSurroundings surroundings) : m_document(std::move(surroundings)) {}

    /// Opens the default project, or makes it where there is none, or opens the files that the command line
    /// names, as if chosen together; track files beside a project are imported into it. False: there is no
    /// document, and the program ends.
    bool InitInstance(std::span<const std::string> files);

    /// The command "Open": closes what is open, with its questions, then opens what is chosen.
    void OnFileOpen();
    /// Opens files that were chosen, dropped or named: the first as the document, track files all of them.
    bool OpenFiles(std::vector<std::string> paths);
    /// The command behind an entry of the recent files; one that is gone leaves the list.
    void OpenRecentFile(const std::string& strPath);

    /// Asks what is to be saved and keeps the last document. False: the window stays.
    bool OnClose();

    /// The command "About".
    void OnAppAbout();

    /// "Version 1.917", or what "version.txt" in the program folder says.
    std::string VersionText() const;

    CKestroDoc m_document;

private:
    bool OpenDefaultProject();
};

} // namespace kestrabel
