#pragma once

#include "geo/Ellipsoid.h"
#include "present/DialogField.h"

namespace kestrabel {

/// The choice of an ellipsoid: a list of `EllipsoidTable`, and two fields that only "User" opens.
struct SEllipsoidFields
{
    static constexpr std::string_view ProjectionLabel = "Projection:";

    void Show(const CEllipsoid& ellipsoid)
    {
        nProjection = ellipsoid.m_nEllipsoid;
        radius.Set(ellipsoid.m_dRadius);
        invFlattening.Set(ellipsoid.m_dInvFlattening);
        radius.bEnabled = invFlattening.bEnabled = nProjection == CEllipsoid::User;
    }
    /// Another row of the list was chosen. "User" starts from the figures that are shown.
    void SetProjection(std::int32_t nIndex)
    {
        nProjection = nIndex;
        Show(Chosen());
    }
    CEllipsoid Chosen() const
    {
        CEllipsoid ellipsoid;
        ellipsoid.SetEllipsoid(nProjection, radius.Value(), invFlattening.Value());
        return ellipsoid;
    }

    std::int32_t nProjection = CEllipsoid::Wgs84; ///< index in `EllipsoidTable`
    SNumberField radius{"Radius:"};               ///< metres
    SNumberField invFlattening{"Flattening:"};    ///< whatever the label says, 1/f
};

} // namespace kestrabel
