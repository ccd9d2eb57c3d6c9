#include "present/DialogField.h"

#include "platform/NumberInput.h"

#include <array>
#include <charconv>
#include <cmath>

namespace kestrabel {

namespace {

std::string ShortestText(double dValue)
{
    std::array<char, 32> text{};
    const auto [pEnd, error] = std::to_chars(text.begin(), text.end(), dValue);
    return {text.begin(), pEnd};
}

/// The label as a sentence has it.
std::string PlainLabel(std::string_view strLabel)
{
    std::string strPlain;
    for (const char c : strLabel) {
        if (c != '&' && c != ':')
            strPlain += c;
    }
    return strPlain;
}

} // namespace

void SNumberField::Set(double dValue)
{
    strText = ShortestText(bWhole ? std::trunc(dValue) : dValue);
}

double SNumberField::Value() const
{
    double dValue = 0.0;
    return IsDecimal(strText, dValue) ? dValue : 0.0;
}

std::string SNumberField::Complaint() const
{
    double dValue = 0.0;
    const bool bNumber = IsDecimal(strText, dValue) && (!bWhole || std::trunc(dValue) == dValue);
    if (bNumber && dValue >= dMin && dValue <= dMax)
        return {};
    return PlainLabel(strLabel) + ": please enter a " + (bWhole ? "whole number" : "number") + " from " +
           ShortestText(dMin) + " to " + ShortestText(dMax) + ".";
}

std::optional<SFieldProblem> FirstProblem(const std::vector<const SNumberField*>& fields)
{
    for (const SNumberField* pField : fields) {
        if (!pField->bEnabled)
            continue;
        if (std::string strComplaint = pField->Complaint(); !strComplaint.empty())
            return SFieldProblem{pField, std::move(strComplaint)};
    }
    return std::nullopt;
}

} // namespace kestrabel
