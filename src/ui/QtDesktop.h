#pragma once

#include "app/Desktop.h"

class QWidget;

namespace kestrabel {

class CSettingsStore;

/// The desktop by Qt: message boxes, file dialogs and parameter dialogs over the main window. File dialogs
/// begin in the folder where the last one of their kind ended.
class CQtDesktop : public CDesktop
{
public:
    /// Both outlive it.
    CQtDesktop(QWidget& parent, CSettingsStore& settings) : m_parent(parent), m_settings(settings) {}

    void ShowMessage(std::string_view strText) override;
    bool AskOkCancel(std::string_view strText) override;
    EAnswer AskYesNoCancel(std::string_view strText) override;
    bool AskYesNo(std::string_view strText) override;
    bool AskYesNo(std::string_view strText, std::string_view strCheckBox, bool& bChecked) override;
    std::vector<std::string> ChooseFilesToOpen(const SFileChoice& choice) override;
    std::string ChooseFileToSave(const SFileChoice& choice) override;

    bool Run(SAboutDialog& dialog) override;
    bool Run(SCommandDialog& dialog) override;
    bool Run(SDeleteSlowPointsDialog& dialog) override;
    bool Run(SEditCompetitorDialog& dialog) override;
    bool Run(SEditDivisionDialog& dialog) override;
    bool Run(SExtractTrackDialog& dialog) override;
    bool Run(SGridFieldsDialog& dialog) override;
    bool Run(SOptionsDialog& dialog) override;
    bool Run(SSelectCompetitorDialog& dialog) override;
    bool Run(SSelectDivisionDialog& dialog) override;
    bool Run(SSelectedPropertiesDialog& dialog) override;
    bool Run(SSelectWayPointDialog& dialog) override;
    bool Run(SSortTrackPointsDialog& dialog) override;
    bool Run(SSpeedDialog& dialog) override;
    bool Run(STrackFilePropertiesDialog& dialog) override;
    bool Run(SWayPointDialog& dialog) override;

private:
    QWidget* Parent() const;
    std::string StartOf(const SFileChoice& choice, std::string_view strKind) const;
    void RememberFolder(std::string_view strKind, std::string_view strPath);

    QWidget& m_parent;
    CSettingsStore& m_settings;
};

} // namespace kestrabel
