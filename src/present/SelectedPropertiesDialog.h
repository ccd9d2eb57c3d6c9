#pragma once

#include "model/Event.h"
#include "present/DialogField.h"

#include <span>

namespace kestrabel {

/// "Selected Properties": statistics of chosen track points. Those that are invalid for InvalidMask::Fix do
/// not count.
struct SSelectedPropertiesDialog
{
    static constexpr std::string_view Title = "Selected Properties";

    /// Without a point that counts the altitudes are empty and the rest is 0.
    static SSelectedPropertiesDialog From(const CEvent& event, std::span<const CTrackPoint* const> points);

    CDialogLines lines;
};

} // namespace kestrabel
