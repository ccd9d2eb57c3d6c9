#include "present/DialogField.h"

#include "platform/NumberInput.h"
#include "platform/Text.h"

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

constexpr int ConvertedDigits = 15;

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

void SNumberField::SetConverted(double dValue)
{
    std::array<char, 32> text{};
    const auto [pEnd, error] =
        std::to_chars(text.begin(), text.end(), dValue, std::chars_format::general, ConvertedDigits);
    strText = std::string(text.begin(), pEnd);
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
    const std::string strWish =
        PlainLabel(strLabel) + ": please enter a " + (bWhole ? "whole number" : "number");
    if (dMin == -Unlimited && dMax == Unlimited)
        return strWish + ".";
    return strWish + " from " + ShortestText(dMin) + " to " + ShortestText(dMax) + ".";
}

std::string STextField::Complaint() const
{
    if (nMaxLength == 0 || CountCharacters(strText) <= nMaxLength)
        return {};
    return PlainLabel(strLabel) + ": please enter at most " + std::to_string(nMaxLength) + " characters.";
}

std::optional<SFieldProblem> FirstTextProblem(const std::vector<const STextField*>& fields)
{
    for (const STextField* pField : fields) {
        if (std::string strComplaint = pField->Complaint(); !strComplaint.empty())
            return SFieldProblem{pField, std::move(strComplaint)};
    }
    return std::nullopt;
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
