#include "model/Event.h"

#include "platform/Path.h"

namespace kestrabel {

constinit const CClassRecord CEvent::Class = {
    "CEvent", 10, []() -> std::unique_ptr<CPersistent> { return std::make_unique<CEvent>(); }};

CDivision* CEvent::FindDivision(std::string_view strName) const
{
    for (CDivision* pDivision : m_divisions) {
        if (EqualNoCase(pDivision->m_strName, strName))
            return pDivision;
    }
    return nullptr;
}

} // namespace kestrabel
