#pragma once

#include "present/DialogField.h"

#include <QString>

#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

class QCheckBox;
class QComboBox;
class QDateTimeEdit;
class QFormLayout;
class QLabel;
class QLineEdit;
class QRadioButton;
class QWidget;

namespace kestrabel {

class DATE;

/// Binds the controls of a dialog to the fields of its struct. What is entered goes into the field at once;
/// then every control shows its field anew, for an entry may enable, check or convert others. Controls are
/// made without a parent: the layout that takes them gives them one. The struct outlives the binder.
class CFieldBinder
{
public:
    QLineEdit* Edit(std::string& strText, std::string_view strName, std::size_t nMaxLength = 0);
    QLineEdit* Edit(SNumberField& field);
    /// A list of the whole numbers from 0; others may be typed.
    QComboBox* EditableList(SNumberField& field, int nLast);
    QCheckBox* Check(SCheckField& field);
    QDateTimeEdit* DateTime(DATE& date, std::string_view strName);
    /// One of a list of texts.
    QComboBox* Choice(std::string& strText, std::span<const std::string_view> items,
                      std::string_view strName);
    QComboBox* Choice(std::span<const std::string_view> items, std::string_view strName,
                      std::function<int()> get, std::function<void(int)> set);
    /// Each is checked when the value is its index.
    std::vector<QRadioButton*> Radios(std::span<const std::string_view> labels, std::function<int()> get,
                                      std::function<void(int)> set);
    /// Names a control that was bound before, and is enabled with it.
    QLabel* Label(std::string_view strText, QWidget* pBuddy);
    /// Names and bound controls below each other.
    QLineEdit* AddRow(QFormLayout& form, SNumberField& field);
    QLineEdit* AddRow(QFormLayout& form, STextField& field);
    void AddRow(QFormLayout& form, std::string_view strLabel, QWidget* pControl);
    /// Lines that are only shown. They can be selected and copied.
    void AddLines(QFormLayout& form, std::function<CDialogLines()> lines);

    /// A control of another sort: `show` brings it up to date with the struct.
    void Bind(const void* pField, QWidget* pWidget, std::function<void()> show);
    /// All fields go to their controls.
    void Show();
    /// The control that shows a field; null when there is none.
    QWidget* ControlOf(const void* pField) const;

private:
    std::vector<std::pair<const void*, QWidget*>> m_controls;
    std::vector<std::function<void()>> m_shows;
};

/// A label without its "&" and colon, as assistive programs are to read it.
QString SpokenName(std::string_view strLabel);

} // namespace kestrabel
