#pragma once

#include "app/Desktop.h"

#include <deque>
#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <typeindex>
#include <utility>

namespace kestrabel::test {

/// A desktop that answers from a script, in its order. Each answer waits for a part of the text that is shown
/// with it; an unexpected text, and an answer that nobody asked for, fail the test.
class CScriptedDesktop : public CDesktop
{
public:
    ~CScriptedDesktop() override
    {
        for (const SAnswer& answer : m_answers)
            ADD_FAILURE() << "never shown: " << answer.strText;
    }

    // The script.
    CScriptedDesktop& Message(std::string strText) { return Add(std::move(strText), {"OK"}); }
    /// "OK", "Cancel", "Yes" or "No".
    CScriptedDesktop& Question(std::string strText, std::string strAnswer)
    {
        return Add(std::move(strText), {std::move(strAnswer)});
    }
    /// Paths for a file dialog whose filter has that text; none: cancelled.
    CScriptedDesktop& Files(std::string strFilter, std::vector<std::string> paths)
    {
        return Add(std::move(strFilter), std::move(paths));
    }
    /// The next dialog of a kind is filled in so, and ended with OK or not as `fill` returns.
    template <class TDialog>
    CScriptedDesktop& Dialog(std::function<bool(TDialog&)> fill)
    {
        m_fills[typeid(TDialog*)].push_back(
            [fill = std::move(fill)](void* pDialog) { return fill(*static_cast<TDialog*>(pDialog)); });
        return *this;
    }

    void ShowMessage(std::string_view strText) override { Take(strText); }
    bool AskOkCancel(std::string_view strText) override { return Take(strText) == "OK"; }
    bool AskYesNo(std::string_view strText) override { return Take(strText) == "Yes"; }
    bool AskYesNo(std::string_view strText, std::string_view, bool& bChecked) override
    {
        const std::string strAnswer = Take(strText); // "Yes" and the check mark: "Yes, checked"
        bChecked = strAnswer.ends_with("checked");
        return strAnswer.starts_with("Yes");
    }
    EAnswer AskYesNoCancel(std::string_view strText) override
    {
        const std::string strAnswer = Take(strText);
        return strAnswer == "Yes" ? EAnswer::Yes : strAnswer == "No" ? EAnswer::No : EAnswer::Cancel;
    }
    std::vector<std::string> ChooseFilesToOpen(const SFileChoice& choice) override
    {
        return TakeAll(choice.strFilter);
    }
    std::string ChooseFileToSave(const SFileChoice& choice) override
    {
        m_lastChoice = choice;
        return Take(choice.strFilter);
    }

    bool Run(SAboutDialog& dialog) override { return Fill(dialog); }
    bool Run(SCommandDialog& dialog) override { return Fill(dialog); }
    bool Run(SDeleteSlowPointsDialog& dialog) override { return Fill(dialog); }
    bool Run(SEditCompetitorDialog& dialog) override { return Fill(dialog); }
    bool Run(SEditDivisionDialog& dialog) override { return Fill(dialog); }
    bool Run(SExtractTrackDialog& dialog) override { return Fill(dialog); }
    bool Run(SGridFieldsDialog& dialog) override { return Fill(dialog); }
    bool Run(SOptionsDialog& dialog) override { return Fill(dialog); }
    bool Run(SSelectCompetitorDialog& dialog) override { return Fill(dialog); }
    bool Run(SSelectDivisionDialog& dialog) override { return Fill(dialog); }
    bool Run(SSelectedPropertiesDialog& dialog) override { return Fill(dialog); }
    bool Run(SSelectWayPointDialog& dialog) override { return Fill(dialog); }
    bool Run(SSortTrackPointsDialog& dialog) override { return Fill(dialog); }
    bool Run(SSpeedDialog& dialog) override { return Fill(dialog); }
    bool Run(STrackFilePropertiesDialog& dialog) override { return Fill(dialog); }
    bool Run(SWayPointDialog& dialog) override { return Fill(dialog); }

    SFileChoice m_lastChoice; ///< of the last file to save

private:
    struct SAnswer
    {
        std::string strText;
        std::vector<std::string> values;
    };

    CScriptedDesktop& Add(std::string strText, std::vector<std::string> values)
    {
        m_answers.push_back({std::move(strText), std::move(values)});
        return *this;
    }

    std::vector<std::string> TakeAll(std::string_view strShown)
    {
        if (m_answers.empty() || strShown.find(m_answers.front().strText) == std::string_view::npos) {
            ADD_FAILURE() << "shown: " << strShown
                          << "\nexpected: " << (m_answers.empty() ? "nothing" : m_answers.front().strText);
            return {};
        }
        std::vector<std::string> values = std::move(m_answers.front().values);
        m_answers.pop_front();
        return values;
    }
    std::string Take(std::string_view strShown)
    {
        const std::vector<std::string> values = TakeAll(strShown);
        return values.empty() ? std::string() : values.front();
    }

    template <class TDialog>
    bool Fill(TDialog& dialog)
    {
        auto& fills = m_fills[typeid(TDialog*)];
        if (fills.empty()) {
            ADD_FAILURE() << "an unexpected dialog";
            return false;
        }
        const auto fill = std::move(fills.front());
        fills.pop_front();
        return fill(&dialog);
    }

    std::deque<SAnswer> m_answers;
    std::map<std::type_index, std::deque<std::function<bool(void*)>>> m_fills;
};

} // namespace kestrabel::test
