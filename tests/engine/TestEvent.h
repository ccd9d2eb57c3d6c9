#pragma once

#include "geo/DistanceCalculator.h"
#include "model/Event.h"
#include "platform/Progress.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kestrabel::test {

inline constexpr std::array EveryFlag = {
    InvalidFlag::User, InvalidFlag::SpeedSpike, InvalidFlag::DopplerSpike, InvalidFlag::NoPosition,
    InvalidFlag::Hdop, InvalidFlag::Satellites, InvalidFlag::Time};

/// Remembers what was begun.
class CProgressRecord final : public CProgressDisplay
{
public:
    void Begin(std::string_view strText) override { m_begun.emplace_back(strText); }
    void Show(double /*dFraction*/) override {}
    void End() override { ++m_nEnded; }

    int Count(std::string_view strText) const
    {
        return static_cast<int>(std::count(m_begun.begin(), m_begun.end(), strText));
    }

    std::vector<std::string> m_begun;
    int m_nEnded = 0;
};

inline CPerson& AddPerson(CEvent& event, std::string_view strName)
{
    CPerson& person = event.m_persons.Add(std::make_unique<CPerson>());
    person.m_strName = strName;
    return person;
}

inline CSeries& AddSeries(CPerson& person, std::string_view strName)
{
    CSeries& series = person.m_series.Add(std::make_unique<CSeries>());
    series.m_strName = strName;
    return series;
}

/// A division that every competitor already in the event takes part in.
inline CDivision& AddDivision(CEvent& event, std::string_view strName,
                              std::uint8_t nKind = DivisionKind::Distance)
{
    CDivision& division = event.m_divisions.Add(std::make_unique<CDivision>());
    division.m_strName = strName;
    division.m_nKind = nKind;
    for (CPerson* pPerson : event.m_persons)
        pPerson->Enter(strName);
    return division;
}

/// Puts a result into the record of a track file, as if a calculator had found it there.
inline CResult& AddFound(CSeries& series, std::string_view strDivision, double dSpeed, double dStartSecond,
                         double dEndSecond)
{
    const auto IsRecord = [&](const CSeriesDivision* p) { return p->m_strDivision == strDivision; };
    if (std::none_of(series.m_divisions.begin(), series.m_divisions.end(), IsRecord))
        series.m_divisions.Add(std::make_unique<CSeriesDivision>()).m_strDivision = strDivision;
    CSeriesDivision& record = **std::find_if(series.m_divisions.begin(), series.m_divisions.end(), IsRecord);
    CResult& result = record.m_results.Add(std::make_unique<CResult>());
    result.m_dSpeed = dSpeed;
    result.m_timeStart = DATE(45444.0 + dStartSecond / SecondsPerDay);
    result.m_timeEnd = DATE(45444.0 + dEndSecond / SecondsPerDay);
    result.m_strSeries = series.m_strName;
    return result;
}

/// Two positions a few millimetres apart whose distance is not a number: there are such pairs, about one in a
/// hundred and fifty, where rounding lifts the cosine of their angle above 1.
inline std::pair<CPosition, CPosition> FindLostPair()
{
    CDistanceCalculator calculator;
    for (int i = 1;; ++i) {
        const CPosition from = MakePosition(-38.85 + 1e-6 * i, 146.16);
        const CPosition to = MakePosition(from.m_dLatitude + 2e-8, from.m_dLongitude);
        if (i == 100000 || std::isnan(calculator.Distance(from, to)))
            return {from, to};
    }
}

} // namespace kestrabel::test
