#pragma once

#include "platform/NumberInput.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kestrabel {

// Dialogs as data: each is a struct of texts, numbers as texts, choices and check marks. The window binds a
// control to each, in both directions, asks the struct what is enabled, and on OK where the first fault is.

/// A number as it stands in an entry field, with what may be entered.
struct SNumberField
{
    static constexpr double Unlimited = std::numeric_limits<double>::infinity();

    std::string_view strLabel; ///< as shown beside the field, "&" before the mnemonic
    double dMin = -Unlimited;
    double dMax = Unlimited;
    bool bWhole = false;
    bool bEnabled = true;
    std::string strText = {};

    /// Shows a number: the shortest text that reads back as the same.
    void Set(double dValue);
    /// The same for a number that comes out of a conversion, whose last bits are noise: 15 digits.
    void SetConverted(double dValue);
    /// What is entered; 0 when it is no number.
    double Value() const;
    /// The same without its fraction; what is beyond an integer, in a field that was disabled since, is cut.
    std::int32_t Whole() const { return TruncateToInt(Value()); }
    /// What is wrong with the text, as a sentence that names the field and its range; empty: nothing.
    std::string Complaint() const;
};

/// A text as it stands in an entry field.
struct STextField
{
    std::string_view strLabel;
    std::size_t nMaxLength = 0; ///< in characters; 0: as long as one likes
    std::string strText = {};

    /// What is wrong with the text, as a sentence that names the field; empty: nothing.
    std::string Complaint() const;
};

/// A check mark that may be out of reach.
struct SCheckField
{
    std::string_view strLabel;
    bool bChecked = false;
    bool bEnabled = true;
};

/// A fault that keeps a dialog open.
struct SFieldProblem
{
    const void* pField = nullptr; ///< the member that is at fault, where the cursor goes
    std::string strMessage;
};

/// The first enabled field that has a fault.
std::optional<SFieldProblem> FirstProblem(const std::vector<const SNumberField*>& fields);
/// The first text that has one.
std::optional<SFieldProblem> FirstTextProblem(const std::vector<const STextField*>& fields);

/// Rows of a dialog that only shows: label and text.
using CDialogLines = std::vector<std::pair<std::string_view, std::string>>;

} // namespace kestrabel
