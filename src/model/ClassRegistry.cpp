#include "model/ClassRegistry.h"

#include "model/Event.h"

#include <array>

namespace kestrabel {

const CClassRecord* FindClass(std::string_view strName)
{
    static constexpr std::array<const CClassRecord*, 8> classes = {
        &CEvent::Class,    &CDivision::Class,       &CPerson::Class, &CSeries::Class,
        &CWayPoint::Class, &CSeriesDivision::Class, &CResult::Class, &CTrackPoint::Class,
    };
    for (const CClassRecord* pClass : classes) {
        if (pClass->strName == strName)
            return pClass;
    }
    return nullptr;
}

std::unique_ptr<CPersistent> CreateByClassName(std::string_view strName)
{
    const CClassRecord* pClass = FindClass(strName);
    return pClass != nullptr ? pClass->pCreate() : nullptr;
}

} // namespace kestrabel
