#pragma once

#include "model/ObjectArray.h"
#include "model/Series.h"

#include <string>
#include <string_view>
#include <vector>

namespace kestrabel {

/// One competitor with the track files of his or her loggers.
class CPerson : public CPersistent
{
public:
    static const CClassRecord Class;
    const CClassRecord& ClassRecord() const override { return Class; }

    /// True when the competitor is entered in the division of exactly that name.
    bool TakesPartIn(std::string_view strDivision) const;
    /// Enters the competitor in a division; nothing happens when that is so already.
    void Enter(std::string_view strDivision);

    /// Clears `m_results` and the results of the combined file and of every track file; the records stay.
    void ClearResults();
    /// The same, but of the track files only the given one.
    void ClearResultsOf(CSeries& series);

    std::string m_strName;
    std::string m_strEmail;
    std::string m_strPhone;
    std::string m_strNumber; ///< sail or race number
    std::vector<std::string> m_divisionNames;
    CObjectArray<CSeries> m_series;
    CObjectArray<CResult> m_results{CObjectArray<CResult>::EOwnership::Borrows}; ///< collected by the ranking
    CSeries m_combined;
};

} // namespace kestrabel
