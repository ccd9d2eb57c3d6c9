#pragma once

#include "app/Desktop.h"
#include "app/DialogButtons.h"
#include "present/AboutDialog.h"
#include "present/CommandDialog.h"
#include "present/DeleteSlowPointsDialog.h"
#include "present/EditCompetitorDialog.h"
#include "present/EditDivisionDialog.h"
#include "present/ExtractTrackDialog.h"
#include "present/GridFieldsDialog.h"
#include "present/OptionsDialog.h"
#include "present/SelectCompetitorDialog.h"
#include "present/SelectDivisionDialog.h"
#include "present/SelectedPropertiesDialog.h"
#include "present/SelectWayPointDialog.h"
#include "present/SortTrackPointsDialog.h"
#include "present/SpeedDialog.h"
#include "present/TrackFilePropertiesDialog.h"
#include "present/WayPointDialog.h"
#include "support/Random.h"
#include "support/TemporaryFolder.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace kestrabel::test {

/// A user who answers whatever comes up: enters what is in range and what is not, presses OK and Cancel, and
/// chooses files of one folder, as well as ones that are not there. As a window does it, an OK is only let
/// through when the dialog finds no fault. No text that is shown may be empty.
class CRandomDesktop : public CDesktop
{
public:
    CRandomDesktop(CRandom& random, const CTemporaryFolder& folder) : m_random(random), m_folder(folder) {}

    void ShowMessage(std::string_view strText) override { EXPECT_NE(strText, ""); }
    bool AskOkCancel(std::string_view strText) override { return Note(strText), !m_random.OneIn(3); }
    bool AskYesNo(std::string_view strText) override { return Note(strText), m_random.OneIn(2); }
    bool AskYesNo(std::string_view strText, std::string_view strCheckBox, bool& bChecked) override
    {
        Note(strText);
        Note(strCheckBox);
        bChecked = m_random.OneIn(2);
        return m_random.OneIn(3);
    }
    EAnswer AskYesNoCancel(std::string_view strText) override
    {
        Note(strText);
        return m_random.OneIn(4) ? EAnswer::Cancel : m_random.OneIn(2) ? EAnswer::Yes : EAnswer::No;
    }
    std::vector<std::string> ChooseFilesToOpen(const SFileChoice&) override
    {
        std::vector<std::string> paths;
        if (m_random.OneIn(4))
            return paths;
        for (int i = m_random.OneIn(2) ? 0 : m_random.Below(3); i >= 0; --i)
            paths.push_back(AnyPath());
        return paths;
    }
    std::string ChooseFileToSave(const SFileChoice&) override
    {
        if (m_random.OneIn(4))
            return {};
        m_chosen.push_back(m_random.OneIn(3) ? AnyPath() : m_folder.Path(AnyName() + AnyExtension()));
        return m_chosen.back();
    }

    bool Run(SAboutDialog& dialog) override { return Note(dialog.strVersion), true; }
    bool Run(SCommandDialog& dialog) override
    {
        const char* commands[] = {"convert \"@FileOut\" @FileIn", "x @CompDir@Comp.sbp @Date", "\"", "", " "};
        const char* files[] = {"@CompDir@Comp.sbp", "@FileOut", "@FileIn", "", "@CompDir"};
        dialog.strName = AnyName();
        dialog.strCommand = m_random.Of(commands);
        dialog.strFileIn = m_random.Of(files);
        return !m_random.OneIn(3);
    }
    bool Run(SDeleteSlowPointsDialog& dialog) override
    {
        Enter(dialog.speed);
        dialog.bUseDoppler = m_random.OneIn(2);
        return End(dialog);
    }
    bool Run(SEditCompetitorDialog& dialog) override
    {
        Enter(dialog.name);
        Enter(dialog.number);
        if (m_random.OneIn(3))
            ChooseDivisions(*this, dialog);
        if (m_random.OneIn(3) && !dialog.divisionNames.empty())
            dialog.RemoveDivisions(
                std::vector{m_random.Below(static_cast<int>(dialog.divisionNames.size()))});
        return End(dialog);
    }
    bool Run(SEditDivisionDialog& dialog) override
    {
        if (m_random.OneIn(2))
            dialog.SetKind(static_cast<std::uint8_t>(1 + m_random.Below(6)));
        if (dialog.strName.empty() || m_random.OneIn(3))
            dialog.strName = AnyName();
        for (SNumberField* p : {&dialog.metres, &dialog.seconds, &dialog.proximity, &dialog.averageRuns})
            Enter(*p);
        for (SCheckField* p :
             {&dialog.useAltitude, &dialog.accumulation, &dialog.oneResultPerRun, &dialog.strict})
            p->bChecked = p->bEnabled ? m_random.OneIn(2) : p->bChecked;
        dialog.nCalcUsing = static_cast<std::uint8_t>(m_random.Below(3));
        if (dialog.bWayPointsEnabled)
            ChooseWayPoints(*this, dialog);
        return End(dialog);
    }
    bool Run(SExtractTrackDialog& dialog) override
    {
        dialog.SetMode(static_cast<EExtractBy>(m_random.Below(4)));
        for (SNumberField* p : {&dialog.every, &dialog.startPoint, &dialog.everySeconds,
                                &dialog.timeStartPoint, &dialog.fasterThan})
            Enter(*p);
        if (m_random.OneIn(2))
            dialog.strTrackName = AnyName();
        return End(dialog);
    }
    bool Run(SGridFieldsDialog& dialog) override
    {
        for (std::size_t i = 0; i < dialog.rows.size(); ++i) {
            if (m_random.OneIn(5))
                dialog.Toggle(i);
        }
        return End(dialog);
    }
    bool Run(SOptionsDialog& dialog) override
    {
        dialog.SetUnit(m_random.Of(SOptionsDialog::Units));
        for (SNumberField* p : {&dialog.showTopRows, &dialog.smoothing, &dialog.timezone, &dialog.zoom,
                                &dialog.speedPrecision, &dialog.timePrecision, &dialog.distancePrecision,
                                &dialog.latLongPrecision, &dialog.timeThreshold, &dialog.maxHdop,
                                &dialog.minSats, &dialog.stopRunAngle, &dialog.trackpointError})
            Enter(*p);
        for (SSpeedField* p : {&dialog.speedThreshold, &dialog.accThreshold, &dialog.stopRunSpeed,
                               &dialog.deccThreshold, &dialog.dopplerError})
            Enter(*p);
        SEventProperties& properties = dialog.properties;
        dialog.bPropertiesShown = m_random.OneIn(4);
        if (dialog.bPropertiesShown) {
            Enter(properties.description);
            Enter(properties.location);
            properties.constrainDates.bChecked = m_random.OneIn(4);
            properties.constrainRegion.bChecked = m_random.OneIn(4);
            properties.ellipsoid.SetProjection(m_random.Below(CEllipsoid::User + 1));
            Enter(properties.ellipsoid.radius);
            Enter(properties.ellipsoid.invFlattening);
            for (STextField* p : {&properties.north, &properties.west, &properties.south, &properties.east})
                p->strText = AnyNumber(SNumberField{});
        }
        return End(dialog);
    }
    bool Run(SSelectCompetitorDialog& dialog) override
    {
        dialog.nSelected = m_random.Below(static_cast<int>(dialog.names.size()) + 2) - 1;
        return End(dialog);
    }
    bool Run(SSelectDivisionDialog& dialog) override
    {
        for (std::size_t i = 0; i < dialog.rows.size(); ++i) {
            if (m_random.OneIn(4))
                dialog.Toggle(i);
        }
        return End(dialog);
    }
    bool Run(SSelectedPropertiesDialog& dialog) override { return EndShown(dialog.lines); }
    bool Run(SSelectWayPointDialog& dialog) override
    {
        for (int i = m_random.Below(4); i > 0; --i)
            AddWayPoint(*this, dialog);
        if (dialog.wayPoints.GetCount() > 0)
            dialog.Toggle(m_random.Below(dialog.wayPoints.GetCount()));
        EditWayPoint(*this, dialog);
        if (m_random.OneIn(3))
            dialog.Delete();
        return End(dialog);
    }
    bool Run(SSortTrackPointsDialog& dialog) override { return End(dialog); }
    bool Run(SSpeedDialog& dialog) override
    {
        for (SNumberField* p :
             {&dialog.start.latitude, &dialog.start.longitude, &dialog.end.latitude, &dialog.end.longitude})
            Enter(*p);
        dialog.end.time = dialog.start.time.Plus(m_random.Below(3) - 1);
        dialog.strUnit = m_random.Of(SSpeedDialog::Units);
        dialog.ellipsoid.SetProjection(m_random.Below(CEllipsoid::User + 1));
        dialog.Calculate();
        return EndShown(dialog.ResultLines());
    }
    bool Run(STrackFilePropertiesDialog& dialog) override
    {
        if (m_random.OneIn(2))
            dialog.strName = AnyName();
        Enter(dialog.windDirection);
        Enter(dialog.dopplerError);
        EndShown(dialog.statistics);
        EndShown(dialog.gpsInformation);
        return End(dialog);
    }
    bool Run(SWayPointDialog& dialog) override
    {
        if (m_random.OneIn(3))
            dialog.strName = AnyName();
        for (SNumberField* p : {&dialog.latitude, &dialog.longitude, &dialog.proximity})
            Enter(*p);
        return End(dialog);
    }

    /// One that may serve as a name of anything, or may not.
    std::string AnyName()
    {
        const char* names[] = {"Anna", "Zoë Öberg", "a/b", "10 sec", "=1+1", " ", "", "Anna", "x.y", "CON"};
        return m_random.OneIn(40) ? std::string(300, 'n') : m_random.Of(names);
    }
    std::string AnyExtension()
    {
        const char* extensions[] = {".gpx", ".GPX", ".sbp",  ".sbn", ".trk", ".nmea", ".txt", ".csv",
                                    ".rsp", ".rsp", ".json", ".gtr", ".gd",  ".gdm",  ".bin", ""};
        return m_random.Of(extensions);
    }
    /// Of a file in the folder, with the folder itself and names that nothing has.
    std::string AnyPath()
    {
        namespace fs = std::filesystem;
        std::vector<std::string> paths;
        for (const auto& entry : fs::recursive_directory_iterator(m_folder.Path("")))
            paths.push_back(entry.path().string());
        std::ranges::sort(paths); // else the disk's order decided what a seed does
        paths.push_back(m_folder.Path("missing.gpx"));
        paths.push_back(m_folder.Path("nowhere/missing.rsp"));
        return m_random.Of(paths);
    }

    std::vector<std::string> m_asked;  ///< the questions
    std::vector<std::string> m_chosen; ///< paths to be written

private:
    void Note(std::string_view strText)
    {
        EXPECT_NE(strText, "");
        m_asked.emplace_back(strText);
    }
    std::string AnyNumber(const SNumberField& field)
    {
        const char* odd[] = {"", "abc", "nan", "inf", "-1", "1e308", "-1e308", "1e-308", "1,5", " 7 ", "0"};
        if (m_bCareless && m_random.OneIn(3))
            return m_random.Of(odd);
        const double dMin = std::isfinite(field.dMin) ? field.dMin : -400.0;
        const double dMax = std::isfinite(field.dMax) ? field.dMax : 400.0;
        if (m_bCareless && m_random.OneIn(3))
            return std::to_string(m_random.OneIn(2) ? dMin - 1.0 : dMax + 1.0);
        const double dWidth = m_random.OneIn(6) ? dMax - dMin : std::min(dMax - dMin, 30.0);
        const double dFrom = std::max(dMin, std::min(0.0, dMax - dWidth));
        double dValue = dFrom + dWidth * m_random.Fraction();
        if (m_random.OneIn(8))
            dValue = m_random.OneIn(2) ? dMin : dMax;
        return std::to_string(field.bWhole ? std::floor(dValue) : dValue);
    }
    void Enter(SNumberField& field)
    {
        if (!field.bEnabled || !m_random.OneIn(3))
            return;
        field.strText = AnyNumber(field);
        if (const std::size_t nPoint = field.strText.find(".000000");
            field.bWhole && nPoint != std::string::npos)
            field.strText.resize(nPoint);
    }
    void Enter(STextField& field)
    {
        if (m_random.OneIn(3))
            field.strText = AnyName();
    }
    /// OK, where the dialog lets it through, or Cancel.
    template <class TDialog>
    bool End(TDialog& dialog)
    {
        m_bCareless = m_random.OneIn(4); // of the next dialog
        if constexpr (requires { dialog.Validate(); }) {
            if (const auto problem = dialog.Validate()) {
                EXPECT_NE(problem->strMessage, "");
                EXPECT_NE(problem->pField, nullptr);
                return false;
            }
        }
        return !m_random.OneIn(4);
    }
    bool EndShown(const CDialogLines& lines)
    {
        for (const auto& [strLabel, strText] : lines)
            EXPECT_NE(strLabel, "");
        return !m_random.OneIn(4);
    }

    CRandom& m_random;
    const CTemporaryFolder& m_folder;
    bool m_bCareless = false;
};

} // namespace kestrabel::test
