#pragma once

#include "app/Desktop.h"

#include <string>
#include <utility>
#include <vector>

namespace kestrabel::test {

/// A desktop whose user cancels everything. It keeps what was shown.
class CQuietDesktop : public CDesktop
{
public:
    void ShowMessage(std::string_view strText) override { m_shown.emplace_back(strText); }
    bool AskOkCancel(std::string_view strText) override { return Cancel(strText); }
    bool AskYesNo(std::string_view strText) override { return Cancel(strText); }
    bool AskYesNo(std::string_view strText, std::string_view, bool&) override { return Cancel(strText); }
    EAnswer AskYesNoCancel(std::string_view strText) override
    {
        Cancel(strText);
        return EAnswer::Cancel;
    }
    std::vector<std::string> ChooseFilesToOpen(const SFileChoice&) override { return Files("open"); }
    std::string ChooseFileToSave(const SFileChoice&) override
    {
        Cancel("save");
        return {};
    }
    bool Run(SAboutDialog&) override { return Cancel("About"); }
    bool Run(SCommandDialog&) override { return Cancel("Command"); }
    bool Run(SDeleteSlowPointsDialog&) override { return Cancel("Delete Slow Points"); }
    bool Run(SEditCompetitorDialog&) override { return Cancel("Edit Competitor"); }
    bool Run(SEditDivisionDialog&) override { return Cancel("Edit Division"); }
    bool Run(SExtractTrackDialog&) override { return Cancel("Extract Track"); }
    bool Run(SGridFieldsDialog&) override { return Cancel("Grid Fields"); }
    bool Run(SOptionsDialog&) override { return Cancel("Options"); }
    bool Run(SSelectCompetitorDialog&) override { return Cancel("Select Competitor"); }
    bool Run(SSelectDivisionDialog&) override { return Cancel("Select Division"); }
    bool Run(SSelectedPropertiesDialog&) override { return Cancel("Selected Properties"); }
    bool Run(SSelectWayPointDialog&) override { return Cancel("Select Waypoint"); }
    bool Run(SSortTrackPointsDialog&) override { return Cancel("Sort Track Points"); }
    bool Run(SSpeedDialog&) override { return Cancel("Speed"); }
    bool Run(STrackFilePropertiesDialog&) override { return Cancel("Track File Properties"); }
    bool Run(SWayPointDialog&) override { return Cancel("Waypoint"); }

    std::vector<std::string> m_shown;
    std::vector<std::string> m_files; ///< the next choice of files to open

private:
    bool Cancel(std::string_view strText)
    {
        m_shown.emplace_back(strText);
        return false;
    }
    std::vector<std::string> Files(std::string_view strText)
    {
        m_shown.emplace_back(strText);
        return std::exchange(m_files, {});
    }
};

} // namespace kestrabel::test
