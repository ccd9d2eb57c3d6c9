#include "ui/dialogs/FieldBinder.h"

#include "model/Date.h"
#include "ui/QtText.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QSignalBlocker>

#include <algorithm>
#include <array>
#include <cmath>

namespace kestrabel {

namespace {

constexpr int NumberCharacters = 12; ///< a control is at least as wide as this many
constexpr int TextCharacters = 30;

constexpr double UnixEpoch = 25569.0; ///< 1970-01-01 in days of `DATE`

void SetCharacters(QWidget& widget, int nCount)
{
    widget.setMinimumWidth(widget.fontMetrics().averageCharWidth() * nCount);
}

/// The text of a field that the user is typing in stays as it is, with its cursor.
void ShowText(QLineEdit& edit, std::string_view strText)
{
    if (const QString strShown = ToQt(strText); edit.text() != strShown)
        edit.setText(strShown);
}

} // namespace

QString SpokenName(std::string_view strLabel)
{
    QString strName = ToQt(strLabel).remove('&').trimmed();
    if (strName.endsWith(':'))
        strName.chop(1);
    return strName;
}

QLineEdit* CFieldBinder::Edit(std::string& strText, std::string_view strName, std::size_t nMaxLength)
{
    auto* pEdit = new QLineEdit;
    pEdit->setAccessibleName(SpokenName(strName));
    SetCharacters(*pEdit, TextCharacters);
    if (nMaxLength > 0) // a longer text that is there already is not cut
        pEdit->setMaxLength(
            static_cast<int>(std::max(static_cast<qsizetype>(nMaxLength), ToQt(strText).size())));
    Bind(&strText, pEdit, [pEdit, &strText] { ShowText(*pEdit, strText); });
    QObject::connect(pEdit, &QLineEdit::textEdited, pEdit, [this, &strText](const QString& strEntered) {
        strText = FromQt(strEntered);
        Show();
    });
    return pEdit;
}

QLineEdit* CFieldBinder::Edit(SNumberField& field)
{
    QLineEdit* pEdit = Edit(field.strText, field.strLabel);
    SetCharacters(*pEdit, NumberCharacters);
    Bind(&field, pEdit, [pEdit, &field] { pEdit->setEnabled(field.bEnabled); });
    return pEdit;
}

QComboBox* CFieldBinder::EditableList(SNumberField& field, int nLast)
{
    auto* pList = new QComboBox;
    pList->setEditable(true);
    pList->setInsertPolicy(QComboBox::NoInsert);
    pList->setCompleter(nullptr); // it would finish "1" to "10"
    pList->setAccessibleName(SpokenName(field.strLabel));
    for (int i = 0; i <= nLast; ++i)
        pList->addItem(QString::number(i));
    Bind(&field, pList, [pList, &field] {
        const QSignalBlocker blocker(pList);
        ShowText(*pList->lineEdit(), field.strText);
        pList->setEnabled(field.bEnabled);
    });
    QObject::connect(pList, &QComboBox::editTextChanged, pList, [this, &field](const QString& strEntered) {
        field.strText = FromQt(strEntered);
        Show();
    });
    return pList;
}

QCheckBox* CFieldBinder::Check(SCheckField& field)
{
    auto* pBox = new QCheckBox(ToQt(field.strLabel));
    pBox->setAccessibleName(SpokenName(field.strLabel));
    Bind(&field, pBox, [pBox, &field] {
        pBox->setChecked(field.bChecked);
        pBox->setEnabled(field.bEnabled);
    });
    QObject::connect(pBox, &QCheckBox::clicked, pBox, [this, &field](bool bChecked) {
        field.bChecked = bChecked;
        Show();
    });
    return pBox;
}

QDateTimeEdit* CFieldBinder::DateTime(DATE& date, std::string_view strName)
{
    auto* pEdit = new QDateTimeEdit;
    pEdit->setTimeSpec(Qt::UTC);
    pEdit->setDisplayFormat("yyyy-MM-dd hh:mm:ss.zzz");
    pEdit->setCalendarPopup(true);
    pEdit->setAccessibleName(SpokenName(strName));
    Bind(&date, pEdit, [pEdit, &date] {
        const QSignalBlocker blocker(pEdit);
        const double dMilliseconds = std::round((date.m_dDays - UnixEpoch) * MillisecondsPerDay);
        pEdit->setDateTime(QDateTime::fromMSecsSinceEpoch(static_cast<qint64>(dMilliseconds), Qt::UTC));
    });
    QObject::connect(pEdit, &QDateTimeEdit::dateTimeChanged, pEdit, [this, &date](const QDateTime& entered) {
        const auto dMilliseconds = static_cast<double>(entered.toMSecsSinceEpoch());
        date = DATE(UnixEpoch + dMilliseconds / MillisecondsPerDay);
        Show();
    });
    return pEdit;
}

QComboBox* CFieldBinder::Choice(std::string& strText, std::span<const std::string_view> items,
                                std::string_view strName)
{
    return Choice(
        items, strName,
        [&strText, items] {
            return static_cast<int>(std::ranges::find(items, std::string_view(strText)) - items.begin());
        },
        [&strText, items](int nItem) { strText = items[static_cast<std::size_t>(nItem)]; });
}

QComboBox* CFieldBinder::Choice(std::span<const std::string_view> items, std::string_view strName,
                                std::function<int()> get, std::function<void(int)> set)
{
    auto* pList = new QComboBox;
    pList->setAccessibleName(SpokenName(strName));
    for (const std::string_view strItem : items)
        pList->addItem(ToQt(strItem));
    Bind(nullptr, pList, [pList, get = std::move(get)] {
        const int nItem = get();
        pList->setCurrentIndex(nItem < pList->count() ? nItem : -1);
    });
    QObject::connect(pList, &QComboBox::activated, pList, [this, set = std::move(set)](int nItem) {
        set(nItem);
        Show();
    });
    return pList;
}

std::vector<QRadioButton*> CFieldBinder::Radios(std::span<const std::string_view> labels,
                                                std::function<int()> get, std::function<void(int)> set)
{
    std::vector<QRadioButton*> buttons;
    for (const std::string_view strLabel : labels) {
        auto* pButton = new QRadioButton(ToQt(strLabel));
        pButton->setAccessibleName(SpokenName(strLabel));
        const int nValue = static_cast<int>(buttons.size());
        Bind(nullptr, pButton, [pButton, nValue, get] {
            if (get() == nValue)
                pButton->setChecked(true);
        });
        QObject::connect(pButton, &QRadioButton::clicked, pButton, [this, nValue, set] {
            set(nValue);
            Show();
        });
        buttons.push_back(pButton);
    }
    return buttons;
}

QLabel* CFieldBinder::Label(std::string_view strText, QWidget* pBuddy)
{
    auto* pLabel = new QLabel(ToQt(strText));
    pLabel->setBuddy(pBuddy);
    Bind(nullptr, pLabel, [pLabel, pBuddy] { pLabel->setEnabled(pBuddy->isEnabled()); });
    return pLabel;
}

QLineEdit* CFieldBinder::AddRow(QFormLayout& form, SNumberField& field)
{
    QLineEdit* pEdit = Edit(field);
    AddRow(form, field.strLabel, pEdit);
    return pEdit;
}

QLineEdit* CFieldBinder::AddRow(QFormLayout& form, STextField& field)
{
    QLineEdit* pEdit = Edit(field.strText, field.strLabel, field.nMaxLength);
    Bind(&field, pEdit, [] {});
    AddRow(form, field.strLabel, pEdit);
    return pEdit;
}

void CFieldBinder::AddRow(QFormLayout& form, std::string_view strLabel, QWidget* pControl)
{
    form.addRow(Label(strLabel, pControl), pControl);
}

void CFieldBinder::AddLines(QFormLayout& form, std::function<CDialogLines()> lines)
{
    std::vector<QLabel*> texts;
    for (const auto& [strLabel, strText] : lines()) {
        auto* pText = new QLabel;
        pText->setTextFormat(Qt::PlainText);
        pText->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
        pText->setFocusPolicy(Qt::ClickFocus); // Tab goes from one entry to the next
        pText->setAccessibleName(SpokenName(strLabel));
        form.addRow(ToQt(strLabel), pText);
        texts.push_back(pText);
    }
    m_shows.push_back([texts, lines = std::move(lines)] {
        const CDialogLines shown = lines();
        for (std::size_t i = 0; i < texts.size(); ++i)
            texts[i]->setText(ToQt(shown[i].second));
    });
}

void CFieldBinder::Bind(const void* pField, QWidget* pWidget, std::function<void()> show)
{
    m_controls.emplace_back(pField, pWidget);
    m_shows.push_back(std::move(show));
}

void CFieldBinder::Show()
{
    for (const std::function<void()>& show : m_shows)
        show();
}

QWidget* CFieldBinder::ControlOf(const void* pField) const
{
    const auto found = std::ranges::find(m_controls, pField, &std::pair<const void*, QWidget*>::first);
    return found == m_controls.end() ? nullptr : found->second;
}

} // namespace kestrabel
