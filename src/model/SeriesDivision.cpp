#include "model/SeriesDivision.h"

namespace kestrabel {

constinit const CClassRecord CSeriesDivision::Class = {
    "CSeriesDivision", 3,
    []() -> std::unique_ptr<CPersistent> { return std::make_unique<CSeriesDivision>(); }};

} // namespace kestrabel
