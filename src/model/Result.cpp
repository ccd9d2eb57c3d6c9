#include "model/Result.h"

namespace kestrabel {

constinit const CClassRecord CResult::Class = {
    "CResult", 14, []() -> std::unique_ptr<CPersistent> { return std::make_unique<CResult>(); }};

} // namespace kestrabel
