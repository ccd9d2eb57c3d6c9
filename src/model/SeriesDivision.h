#pragma once

#include "model/ObjectArray.h"
#include "model/Persistent.h"
#include "model/Result.h"

#include <cstdint>
#include <string>

namespace kestrabel {

/// The cached results of one track file in one division, found by the division's name.
class CSeriesDivision : public CPersistent
{
public:
    static const CClassRecord Class;
    const CClassRecord& ClassRecord() const override { return Class; }

    std::string m_strDivision;
    std::uint8_t m_bFlag = 1;        ///< stored and loaded unchanged
    CObjectArray<CResult> m_results; ///< in the order in which the calculation ranked them
};

} // namespace kestrabel
