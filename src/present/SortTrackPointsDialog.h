#pragma once

#include "model/Series.h"

namespace kestrabel {

/// "Sort TrackPoints Dialog": nothing but a question.
struct SSortTrackPointsDialog
{
    static constexpr std::string_view Title = "Sort TrackPoints Dialog";
    static constexpr std::string_view Text = "Kestrabel will sort the trackpoints for the selected file "
                                             "based on the time stamp of each point. The "
                                             "file will need to be saved to retain the new trackpoint order.";
    static constexpr std::string_view Question = " Do you wish to continue?";

    static SSortTrackPointsDialog From(const CSeries& series) { return {series.m_strName}; }

    std::string strFileName; ///< the track file's name
};

} // namespace kestrabel
