#pragma once

#include "platform/UserPrompt.h"

#include <string>
#include <string_view>
#include <vector>

namespace kestrabel {

struct SAboutDialog;
struct SCommandDialog;
struct SDeleteSlowPointsDialog;
struct SEditCompetitorDialog;
struct SEditDivisionDialog;
struct SExtractTrackDialog;
struct SGridFieldsDialog;
struct SOptionsDialog;
struct SSelectCompetitorDialog;
struct SSelectDivisionDialog;
struct SSelectedPropertiesDialog;
struct SSelectWayPointDialog;
struct SSortTrackPointsDialog;
struct SSpeedDialog;
struct STrackFilePropertiesDialog;
struct SWayPointDialog;

/// A choice of files as the platform's own dialogs offer it.
struct SFileChoice
{
    std::string strTitle;            ///< empty: the platform's own
    std::string strInitialPath;      ///< folder and proposed name
    std::string strFilter;           ///< "text|patterns|text|patterns||"
    std::string strDefaultExtension; ///< without the dot
    bool bConfirmOverwrite = true;
};

/// The desktop as the document sees it: questions, file dialogs and parameter dialogs, one at a time. The
/// window implements it; tests answer from a script.
class CDesktop : public CUserPrompt
{
public:
    virtual bool AskYesNo(std::string_view strText) = 0;
    /// Yes or No beside a check box, whose state goes in and comes out.
    virtual bool AskYesNo(std::string_view strText, std::string_view strCheckBox, bool& bChecked) = 0;

    /// Files to open, in the dialog's order; none when cancelled.
    virtual std::vector<std::string> ChooseFilesToOpen(const SFileChoice& choice) = 0;
    /// One file to write; empty when cancelled.
    virtual std::string ChooseFileToSave(const SFileChoice& choice) = 0;

    // Parameter dialogs. True for OK; then the struct holds valid values. Cancelled, its values do not count.
    virtual bool Run(SAboutDialog& dialog) = 0;
    virtual bool Run(SCommandDialog& dialog) = 0;
    virtual bool Run(SDeleteSlowPointsDialog& dialog) = 0;
    virtual bool Run(SEditCompetitorDialog& dialog) = 0;
    virtual bool Run(SEditDivisionDialog& dialog) = 0;
    virtual bool Run(SExtractTrackDialog& dialog) = 0;
    virtual bool Run(SGridFieldsDialog& dialog) = 0;
    virtual bool Run(SOptionsDialog& dialog) = 0;
    virtual bool Run(SSelectCompetitorDialog& dialog) = 0;
    virtual bool Run(SSelectDivisionDialog& dialog) = 0;
    virtual bool Run(SSelectedPropertiesDialog& dialog) = 0;
    virtual bool Run(SSelectWayPointDialog& dialog) = 0;
    virtual bool Run(SSortTrackPointsDialog& dialog) = 0;
    virtual bool Run(SSpeedDialog& dialog) = 0;
    virtual bool Run(STrackFilePropertiesDialog& dialog) = 0;
    virtual bool Run(SWayPointDialog& dialog) = 0;
};

} // namespace kestrabel
