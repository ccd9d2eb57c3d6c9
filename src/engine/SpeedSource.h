#pragma once

#include "model/Event.h"

namespace kestrabel {

/// Which of a fix's two speeds a calculation judges, with the run number and the path that belong to it.
class CSpeedSource
{
public:
    /// "Doppler if Available" is decided by the track file.
    CSpeedSource(const CDivision& division, const CSeries& series)
        : m_bDoppler(division.m_nCalcUsing == CalcUsing::Doppler ||
                     (division.m_nCalcUsing == CalcUsing::DopplerIfAvailable && series.m_bHasDoppler != 0))
    {
    }

    bool UsesDoppler() const { return m_bDoppler; }

    /// km/h
    double Speed(const CTrackPoint& point) const { return m_bDoppler ? point.m_dDoppler : point.m_dSpeed; }
    double CTrackPoint::*SpeedField() const
    {
        return m_bDoppler ? &CTrackPoint::m_dDoppler : &CTrackPoint::m_dSpeed;
    }
    std::int32_t Run(const CTrackPoint& point) const
    {
        return m_bDoppler ? point.m_nDopplerRun : point.m_nRun;
    }

    /// km from the start of the file
    double Path(const CTrackPoint& point) const
    {
        return m_bDoppler ? point.m_dTotalDopplerDistance : point.m_dTotalDistance;
    }

    /// The error of one value: Doppler in km/h, positions in km. The track file's own when it has one (its
    /// track error is in metres), else the event's; 0 when neither is known.
    double Error(const CEvent& event, const CSeries& series) const
    {
        constexpr double dMetresToKilometres = 0.001;
        if (m_bDoppler)
            return series.m_dDopplerError != 0.0 ? series.m_dDopplerError : event.m_dDopplerError;
        return series.m_dTrackError != 0.0 ? series.m_dTrackError * dMetresToKilometres
                                           : event.m_dTrackpointError;
    }

private:
    bool m_bDoppler;
};

} // namespace kestrabel
