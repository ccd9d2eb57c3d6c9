#pragma once

#include <cstdint>
#include <string_view>

namespace kestrabel {

enum class EAlign : std::int32_t
{
    Left = 0,
    Right = 1
};

/// A column of a grid as its table lists it.
struct SGridColumn
{
    std::string_view strTitle; ///< also the key under which the user's choice is kept
    EAlign align;
    std::int32_t nWidth; ///< pixels
    bool bShown;         ///< by default
};

} // namespace kestrabel
