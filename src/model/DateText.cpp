#include "model/DateText.h"

#include "model/TimeText.h"

#include <array>
#include <cassert>
#include <cstddef>
#include <utility>

namespace kestrabel {

namespace {

constexpr std::array<std::string_view, 12> MonthNames = {"january",   "february", "march",    "april",
                                                         "may",       "june",     "july",     "august",
                                                         "september", "october",  "november", "december"};
constexpr std::array<std::string_view, 12> MonthAbbreviations = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                                 "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
constexpr std::size_t ShortestMonthName = 3;
constexpr std::size_t MostDigits = 4;
constexpr int LongestMonth = 31;
constexpr int MonthsInYear = 12;
constexpr int FirstYearOfLastCentury = 50; ///< two digits
constexpr int HoursOfHalfDay = 12;
constexpr SCalendar DayZero = {.nYear = 1899, .nMonth = 12, .nDay = 30};
constexpr std::string_view DayZeroText = "1899-12-30";

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

char LowerLetter(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool IsLetter(char c)
{
    return LowerLetter(c) >= 'a' && LowerLetter(c) <= 'z';
}

struct SNumber
{
    int nValue = 0;
    std::size_t nDigits = 0;

    /// More digits or a greater value than a day or month has.
    bool IsOnlyYear() const { return nDigits > 2 || nValue > LongestMonth; }
    int AsYear() const
    {
        if (nDigits > 2)
            return nValue;
        return nValue < FirstYearOfLastCentury ? 2000 + nValue : 1900 + nValue;
    }
};

/// Collects what the text says, item by item.
class CDateScanner
{
public:
    explicit CDateScanner(std::string_view strText) : m_strRest(strText) {}

    /// False when the text holds something that is no part of a date or time.
    bool Scan();
    DATE Value() const;

private:
    enum class EHalf
    {
        Unknown,
        Morning,
        Afternoon
    };

    bool TakeItem();
    bool TakeMonth();
    bool TakeTime(const SNumber& hour, char cSeparator);
    bool TakeMinutes(int& nValue);
    bool TakeHalfOfDay();
    bool SetHour(const SNumber& hour);
    SNumber TakeNumber();
    std::string TakeWord();
    bool TakeCharacter(char c);
    void SkipBlanks();
    void SkipSeparator();
    void SetDay(SCalendar& calendar) const;
    std::size_t DateItems() const { return m_nNumbers + (m_nMonth != 0 ? 1 : 0); }

    std::string_view m_strRest;
    std::array<SNumber, 3> m_numbers;
    std::size_t m_nNumbers = 0;
    int m_nMonth = 0; ///< given by its name
    bool m_bHasTime = false;
    SCalendar m_time; ///< hour, minute and second only
    EHalf m_half = EHalf::Unknown;
};

void CDateScanner::SkipBlanks()
{
    while (!m_strRest.empty() && (m_strRest.front() == ' ' || m_strRest.front() == '\t'))
        m_strRest.remove_prefix(1);
}

void CDateScanner::SkipSeparator()
{
    SkipBlanks();
    if (!m_strRest.empty() && std::string_view("/-.,").find(m_strRest.front()) != std::string_view::npos)
        m_strRest.remove_prefix(1);
    SkipBlanks();
}

bool CDateScanner::TakeCharacter(char c)
{
    if (!m_strRest.starts_with(c))
        return false;
    m_strRest.remove_prefix(1);
    return true;
}

/// A number of more than `MostDigits` digits comes back without any.
SNumber CDateScanner::TakeNumber()
{
    SNumber number;
    while (!m_strRest.empty() && IsDigit(m_strRest.front())) {
        if (++number.nDigits > MostDigits)
            return {};
        number.nValue = number.nValue * 10 + (m_strRest.front() - '0');
        m_strRest.remove_prefix(1);
    }
    return number;
}

std::string CDateScanner::TakeWord()
{
    std::string strWord;
    while (!m_strRest.empty() && IsLetter(m_strRest.front())) {
        strWord += LowerLetter(m_strRest.front());
        m_strRest.remove_prefix(1);
    }
    return strWord;
}

bool CDateScanner::TakeMonth()
{
    const std::string strWord = TakeWord();
    if (m_nMonth != 0 || strWord.size() < ShortestMonthName)
        return false;
    for (std::size_t i = 0; i < MonthNames.size(); ++i) {
        if (MonthNames[i].starts_with(strWord))
            m_nMonth = static_cast<int>(i) + 1;
    }
    return m_nMonth != 0;
}

/// "am" or "pm", with or without dots, when that is the next word.
bool CDateScanner::TakeHalfOfDay()
{
    const std::string_view strBefore = m_strRest;
    SkipBlanks();
    std::string strWord = TakeWord();
    if (strWord.size() == 1 && TakeCharacter('.')) {
        SkipBlanks();
        strWord += TakeWord();
        TakeCharacter('.');
    }
    if (strWord != "am" && strWord != "pm") {
        m_strRest = strBefore;
        return false;
    }
    m_half = strWord == "am" ? EHalf::Morning : EHalf::Afternoon;
    return true;
}

bool CDateScanner::SetHour(const SNumber& hour)
{
    if (m_bHasTime || hour.nDigits > 2)
        return false;
    m_bHasTime = true;
    m_time.nHour = hour.nValue;
    if (m_half == EHalf::Unknown)
        return true;
    m_time.nHour = hour.nValue % HoursOfHalfDay + (m_half == EHalf::Afternoon ? HoursOfHalfDay : 0);
    return hour.nValue <= HoursOfHalfDay;
}

bool CDateScanner::TakeMinutes(int& nValue)
{
    const SNumber number = TakeNumber();
    nValue = number.nValue;
    return number.nDigits == 1 || number.nDigits == 2;
}

/// What follows the separator behind the hour.
bool CDateScanner::TakeTime(const SNumber& hour, char cSeparator)
{
    if (!TakeMinutes(m_time.nMinute))
        return false;
    if (TakeCharacter(cSeparator)) {
        if (!TakeMinutes(m_time.nSecond))
            return false;
        if (m_strRest.size() > 1 && m_strRest.front() == '.' && IsDigit(m_strRest[1])) {
            m_strRest.remove_prefix(1);
            while (!m_strRest.empty() && IsDigit(m_strRest.front()))
                m_strRest.remove_prefix(1);
        }
    }
    TakeHalfOfDay();
    return SetHour(hour);
}

bool CDateScanner::TakeItem()
{
    if (!IsDigit(m_strRest.front()))
        return TakeMonth();
    const SNumber number = TakeNumber();
    if (number.nDigits == 0)
        return false;
    if (TakeCharacter(':'))
        return TakeTime(number, ':');
    // Italian and Finnish machines put dots into the time too; it is no date once that is complete.
    if (DateItems() == m_numbers.size() && TakeCharacter('.'))
        return TakeTime(number, '.');
    if (TakeHalfOfDay())
        return SetHour(number);
    if (m_nNumbers == m_numbers.size())
        return false;
    m_numbers[m_nNumbers++] = number;
    return true;
}

bool CDateScanner::Scan()
{
    SkipBlanks();
    while (!m_strRest.empty()) {
        if (!TakeItem())
            return false;
        SkipSeparator();
    }
    return DateItems() == m_numbers.size() || (DateItems() == 0 && m_bHasTime);
}

void CDateScanner::SetDay(SCalendar& calendar) const
{
    SNumber year = m_numbers[m_nNumbers - 1];
    SNumber day = m_numbers[0];
    if (m_nMonth != 0) {
        if (day.IsOnlyYear())
            std::swap(year, day);
        calendar.nMonth = m_nMonth;
    } else if (day.IsOnlyYear()) {
        std::swap(year, day);
        calendar.nMonth = m_numbers[1].nValue;
    } else {
        SNumber month = m_numbers[1];
        if (month.nValue > MonthsInYear)
            std::swap(day, month);
        calendar.nMonth = month.nValue;
    }
    calendar.nDay = day.nValue;
    calendar.nYear = year.AsYear();
}

DATE CDateScanner::Value() const
{
    SCalendar calendar = m_time;
    calendar.nYear = DayZero.nYear;
    calendar.nMonth = DayZero.nMonth;
    calendar.nDay = DayZero.nDay;
    if (m_nNumbers != 0)
        SetDay(calendar);
    return DATE::FromCalendar(calendar);
}

} // namespace

DATE ParseDateText(std::string_view strText)
{
    CDateScanner scanner(strText);
    return scanner.Scan() ? scanner.Value() : DATE::MakeInvalid();
}

std::string FormatDateText(const DATE& date)
{
    std::string strText = FormatIsoSecond(date); // "YYYY-MM-DDTHH:MM:SS"
    const std::size_t nSeparator = strText.find('T');
    if (nSeparator == std::string::npos)
        return {};
    if (strText.starts_with(DayZeroText))
        return strText.substr(nSeparator + 1);
    if (strText.ends_with("T00:00:00"))
        return strText.substr(0, nSeparator);
    strText[nSeparator] = ' ';
    return strText;
}

std::string_view MonthAbbreviation(int nMonth)
{
    assert(nMonth >= 1 && nMonth <= MonthsInYear);
    return MonthAbbreviations[static_cast<std::size_t>(nMonth) - 1];
}

} // namespace kestrabel
