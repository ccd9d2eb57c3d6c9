#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kestrabel {

// Dialogs as data: each is a struct of texts, numbers as texts, choices and check marks. The window binds a
// control to each, in both directions, asks the struct what is enabled, and on OK where the first fault is.

/// A number as it stands in an entry field, with what may be entered.
struct SNumberField
{
    std::string_view strLabel; ///< as shown beside the field, "&" before the mnemonic
    double dMin;
    double dMax;
    bool bWhole = false;
    bool bEnabled = true;
    std::string strText = {};

    /// Shows a number: the shortest text that reads back as the same.
    void Set(double dValue);
    /// What is entered; 0 when it is no number.
    double Value() const;
    std::int32_t Whole() const { return static_cast<std::int32_t>(Value()); }
    /// What is wrong with the text, as a sentence that names the field and its range; empty: nothing.
    std::string Complaint() const;
};

/// A fault that keeps a dialog open.
struct SFieldProblem
{
    const void* pField = nullptr; ///< the member that is at fault, where the cursor goes
    std::string strMessage;
};

/// The first enabled field that has a fault.
std::optional<SFieldProblem> FirstProblem(const std::vector<const SNumberField*>& fields);

} // namespace kestrabel
