#include "model/Division.h"

namespace kestrabel {

constinit const CClassRecord CDivision::Class = {
    "CDivision", 10, []() -> std::unique_ptr<CPersistent> { return std::make_unique<CDivision>(); }};

} // namespace kestrabel
