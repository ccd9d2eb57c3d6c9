#pragma once

#include "model/ArchiveBytes.h"
#include "model/StoredForms.h"

#include <limits>
#include <map>
#include <span>
#include <string>

namespace kestrabel::test {

/// How a test writes the value of a field.
enum class EForm
{
    Byte,
    Dword,
    Double,
    Text,
    DateText,
    Days,      ///< a date as status (valid) and day count
    Position,  ///< latitude is the value, longitude the same with the other sign
    Ellipsoid, ///< the user's own; the value is the radius
    Rectangle, ///< from the value on, each edge by one more
    Objects,   ///< as `pObjects` writes them
};

inline constexpr int AnyForm = std::numeric_limits<int>::max();

/// A line of a layout: the forms (first to last) that have the field, and how to see it in the object. Two
/// lines with the same name are the same member in forms that store it differently.
template <class T>
struct SStoredField
{
    EForm form;
    const char* pName; ///< empty when nothing keeps it
    double (*pValue)(const T& object) = nullptr;
    int nFirst = 0;
    int nLast = AnyForm;
    void (*pObjects)(CArchiveBytes& bytes) = nullptr;

    bool IsIn(int nForm) const { return nForm >= nFirst && nForm <= nLast; }
};

/// Days of 2024 as the text that the writer makes of them.
inline std::string DateTextOf(double dDays)
{
    return "2024-01-" + std::to_string(static_cast<int>(dDays) - 45291);
}

inline void WriteField(CArchiveBytes& bytes, EForm form, double dValue, void (*pObjects)(CArchiveBytes&))
{
    switch (form) {
    case EForm::Byte: bytes.Byte(static_cast<std::uint64_t>(dValue)); break;
    case EForm::Dword: bytes.Dword(static_cast<std::uint64_t>(dValue)); break;
    case EForm::Double: bytes.Double(dValue); break;
    case EForm::Text: bytes.Text(std::to_string(static_cast<int>(dValue))); break;
    case EForm::DateText: bytes.Text(DateTextOf(dValue)); break;
    case EForm::Days: bytes.Dword(0).Double(dValue); break;
    case EForm::Position: bytes.Position(dValue, -dValue); break;
    case EForm::Ellipsoid: bytes.Dword(6).Double(dValue).Double(300.0); break;
    case EForm::Rectangle:
        bytes.Double(dValue).Double(dValue + 1).Double(dValue + 2).Double(dValue + 3);
        break;
    case EForm::Objects: pObjects(bytes); break;
    }
}

/// What the field at that place of a layout is given: different for each, and a whole number where the form
/// wants one.
inline double ValueAt(EForm form, std::size_t nPlace)
{
    const double dPlace = static_cast<double>(nPlace);
    switch (form) {
    case EForm::Byte:
    case EForm::Dword:
    case EForm::Text: return 20 + dPlace;
    case EForm::DateText: return 45292 + dPlace;
    case EForm::Objects: return 1; // one element
    default: return 20.5 + dPlace;
    }
}

/// A body in that form, and what its members must then hold.
template <class T>
struct SStoredBody
{
    CArchiveBytes bytes;
    std::map<std::string, double> values;
};

template <class T>
SStoredBody<T> MakeBody(std::span<const SStoredField<T>> layout, int nForm)
{
    SStoredBody<T> body;
    for (std::size_t i = 0; i < layout.size(); ++i) {
        const SStoredField<T>& field = layout[i];
        if (!field.IsIn(nForm))
            continue;
        const double dValue = ValueAt(field.form, i);
        WriteField(body.bytes, field.form, dValue, field.pObjects);
        body.values[field.pName] = dValue;
    }
    return body;
}

/// The members that the layout knows: what `stored` gives for them, else what `before` holds.
template <class T>
std::map<std::string, double> ExpectedValues(std::span<const SStoredField<T>> layout,
                                             const std::map<std::string, double>& stored, const T& before)
{
    std::map<std::string, double> expected;
    for (const SStoredField<T>& field : layout) {
        if (field.pValue == nullptr)
            continue;
        const auto found = stored.find(field.pName);
        expected[field.pName] = found != stored.end() ? found->second : field.pValue(before);
    }
    return expected;
}

/// The same members as `object` holds them.
template <class T>
std::map<std::string, double> ActualValues(std::span<const SStoredField<T>> layout, const T& object)
{
    std::map<std::string, double> actual;
    for (const SStoredField<T>& field : layout) {
        if (field.pValue != nullptr)
            actual[field.pName] = field.pValue(object);
    }
    return actual;
}

} // namespace kestrabel::test
