#pragma once

#include "model/ArchiveBytes.h"
#include "model/StoredForms.h"

#include <functional>
#include <limits>
#include <string>
#include <type_traits>
#include <vector>

namespace kestrabel::test {

// The layouts of every class, with the forms from which on (up to which) a field stands in the file. They are
// kept apart from the readers, so that a mistake in one of the two shows.

enum class EForm
{
    Byte,
    Dword,
    Double,
    Days, ///< a date as status (valid) and day count
    Own,  ///< the only one of the member's type
};

inline constexpr int AnyForm = std::numeric_limits<int>::max();

/// Writes a field and gives it to the object that is expected: a value different at each place of a layout,
/// and a whole number where the form wants one.
template <class V>
void PutField(CArchiveBytes& bytes, V& member, EForm form, int nPlace)
{
    const int nValue = 20 + nPlace;
    const double dValue = nValue + 0.5;
    if constexpr (std::is_same_v<V, std::string>) {
        bytes.Text(member = std::to_string(nValue));
    } else if constexpr (std::is_same_v<V, CPosition>) {
        member = MakePosition(dValue, -dValue);
        bytes.Position(dValue, -dValue);
    } else if constexpr (std::is_same_v<V, CEllipsoid>) {
        member.SetEllipsoid(6, dValue, 300.0);
        bytes.Dword(6).Double(dValue).Double(300.0);
    } else if constexpr (std::is_same_v<V, CGeoRect>) {
        member = {dValue, dValue + 1, dValue + 2, dValue + 3};
        bytes.Double(dValue).Double(dValue + 1).Double(dValue + 2).Double(dValue + 3);
    } else if constexpr (std::is_same_v<V, DATE>) {
        member = form == EForm::Own ? DATE(45292.0 + nPlace) : DATE(dValue);
        if (form == EForm::Own)
            bytes.Text("2024-01-" + std::to_string(1 + nPlace));
        else
            (form == EForm::Days ? bytes.Dword(0) : bytes).Double(dValue);
    } else {
        member = form == EForm::Double ? static_cast<V>(dValue) : static_cast<V>(nValue);
        if (form == EForm::Double)
            bytes.Double(dValue);
        else
            form == EForm::Byte ? bytes.Byte(static_cast<std::uint64_t>(nValue))
                                : bytes.Dword(static_cast<std::uint64_t>(nValue));
    }
}

/// The fields of a class in the order of the file, as made by the functions behind it.
template <class T>
class CLayout
{
public:
    template <class... TParts>
    explicit CLayout(const TParts&... parts)
    {
        (parts(*this), ...);
    }

    template <class TMember>
    void Add(EForm form, TMember pMember)
    {
        AddField([=](CArchiveBytes& bytes, T& object,
                     int nPlace) { PutField(bytes, object.*pMember, form, nPlace); },
                 [=](const T& one, const T& other) { return one.*pMember == other.*pMember; });
    }

    void AddUnused(int nBytes)
    {
        AddField([=](CArchiveBytes& bytes, T&,
                     int) { bytes.Raw(std::string(static_cast<std::size_t>(nBytes), 'u')); },
                 [](const T&, const T&) { return true; });
    }

    template <class U>
    void AddObjects(CObjectArray<U> T::*pMember, const CLayout<U>& layout, int nSchema)
    {
        AddField(
            [=](CArchiveBytes& bytes, T& object, int) {
                (object.*pMember).RemoveAll();
                (object.*pMember).Add(std::make_unique<U>());
                layout.PutOne(bytes, nSchema);
            },
            [=](const T& one, const T& other) {
                return (one.*pMember).GetCount() == (other.*pMember).GetCount();
            });
    }

    /// The body in that form; `object` gets what its members must then hold.
    std::string Body(int nForm, T& object) const
    {
        CArchiveBytes bytes;
        for (std::size_t i = 0; i < m_fields.size(); ++i) {
            if (nForm >= m_fields[i].nFirst && nForm <= m_fields[i].nLast)
                m_fields[i].put(bytes, object, static_cast<int>(i));
        }
        return bytes.Get();
    }
    std::string Body(int nForm) const
    {
        if constexpr (std::is_default_constructible_v<T>) {
            T object;
            return Body(nForm, object);
        } else {
            T object(DATE(1.0));
            return Body(nForm, object);
        }
    }

    /// An array of one object of the class.
    void PutOne(CArchiveBytes& bytes, int nSchema) const
    {
        bytes.Word(1).NewClass(T::Class.strName, nSchema).Raw(Body(nSchema));
    }

    /// The places of the fields in which two objects differ.
    std::string Differences(const T& one, const T& other) const
    {
        std::string strPlaces;
        for (std::size_t i = 0; i < m_fields.size(); ++i)
            strPlaces += m_fields[i].isSame(one, other) ? "" : std::to_string(i) + " ";
        return strPlaces;
    }

    /// The fields from now on are in these forms.
    int m_nFirst = 0;
    int m_nLast = AnyForm;

private:
    struct SField
    {
        int nFirst;
        int nLast;
        std::function<void(CArchiveBytes&, T&, int nPlace)> put;
        std::function<bool(const T&, const T&)> isSame;
    };

    template <class TPut, class TIsSame>
    void AddField(TPut put, TIsSame isSame)
    {
        m_fields.push_back({m_nFirst, m_nLast, put, isSame});
    }

    std::vector<SField> m_fields;
};

/// The fields that follow are only in these forms.
inline auto In(int nFirst, int nLast = AnyForm)
{
    return [=](auto& layout) {
        layout.m_nFirst = nFirst;
        layout.m_nLast = nLast;
    };
}

template <EForm form>
constexpr auto Fields =
    [](auto... pMembers) { return [=](auto& layout) { (layout.Add(form, pMembers), ...); }; };
inline constexpr auto Bytes = Fields<EForm::Byte>;
inline constexpr auto Dwords = Fields<EForm::Dword>;
inline constexpr auto Doubles = Fields<EForm::Double>;
inline constexpr auto Days = Fields<EForm::Days>;
inline constexpr auto Own = Fields<EForm::Own>;

/// Bytes that nothing keeps.
inline auto Unused(int nBytes)
{
    return [=](auto& layout) { layout.AddUnused(nBytes); };
}

/// An array of one object in that form.
template <class U, class T>
auto Objects(CObjectArray<U> T::*pMember, const CLayout<U>& elements, int nSchema)
{
    return [=](auto& layout) { layout.AddObjects(pMember, elements, nSchema); };
}

inline CLayout<CWayPoint> WayPointLayout()
{
    using C = CWayPoint;
    return CLayout<C>(Own(&C::m_strName), Unused(4), In(2), Doubles(&C::m_dProximity), In(0),
                      Own(&C::m_position));
}

inline CLayout<CDivision> DivisionLayout()
{
    using C = CDivision;
    return CLayout<C>(Own(&C::m_strName), Doubles(&C::m_dMetres, &C::m_dFurther1, &C::m_dFurther2),
                      Bytes(&C::m_nAverageRuns, &C::m_nCalcUsing), Own(&C::m_dateFrom, &C::m_dateTo), In(3),
                      Bytes(&C::m_nKind), In(4), Bytes(&C::m_bAccumulation), In(5),
                      Bytes(&C::m_bOneResultPerRun), In(7), Bytes(&C::m_bUseAltitude),
                      Dwords(&C::m_nSeconds, &C::m_nStartAt, &C::m_bStrict), Unused(4), In(9),
                      Doubles(&C::m_dMinCalcInterval, &C::m_dProximity), Unused(8), Unused(8), In(10),
                      Objects(&C::m_waypoints, WayPointLayout(), 2));
}

inline CLayout<CTrackPoint> PointLayout()
{
    using C = CTrackPoint;
    return CLayout<C>(Own(&C::m_position, &C::m_time), Unused(1),
                      Dwords(&C::m_nInvalidFlags, &C::m_nAltitude), In(0, 6), Dwords(&C::m_dHDOP), In(7),
                      Doubles(&C::m_dHDOP), In(0), Doubles(&C::m_dDeltaTime, &C::m_dVertSpeed, &C::m_dSpeed),
                      In(3), Doubles(&C::m_dDistance), In(4), Doubles(&C::m_dWindAngle), In(5),
                      Dwords(&C::m_nRun), In(6), Dwords(&C::m_nTrack), In(7), Doubles(&C::m_dDoppler), In(8),
                      Dwords(&C::m_nSats), In(9), Dwords(&C::m_nRxStatus), In(10),
                      Doubles(&C::m_dPosError, &C::m_dDopplerError));
}

inline CLayout<CResult> ResultLayout()
{
    using C = CResult;
    return CLayout<C>(
        Own(&C::m_posStart, &C::m_posEnd), Dwords(&C::m_nRank), Own(&C::m_strCompetitor, &C::m_strDivision),
        In(3), Own(&C::m_strSeries), In(0),
        Doubles(&C::m_timeStart, &C::m_timeEnd, &C::m_dDistance, &C::m_dSpeed, &C::m_dSeconds),
        Dwords(&C::m_nRun), In(4), Doubles(&C::m_dDirection), In(5), Doubles(&C::m_dWindAngle), In(6),
        Doubles(&C::m_dAltitude), In(7), Doubles(&C::m_dAltChange), In(8), Dwords(&C::m_nStartIndex), In(9),
        Doubles(&C::m_dHDOPMax), In(10), Doubles(&C::m_dClaimed), In(11), Dwords(&C::m_nSatsMin), In(12),
        Doubles(&C::m_dMinSpeed, &C::m_dMaxSpeed), In(13), Doubles(&C::m_dPosError, &C::m_dDopplerError),
        In(14), Dwords(&C::m_nEndIndex, &C::m_nSeriesIndex));
}

inline CLayout<CSeriesDivision> RecordLayout()
{
    using C = CSeriesDivision;
    return CLayout<C>(Own(&C::m_strDivision), In(3), Bytes(&C::m_bFlag), In(0),
                      Objects(&C::m_results, ResultLayout(), 14));
}

inline CLayout<CSeries> SeriesLayout()
{
    using C = CSeries;
    return CLayout<C>(
        In(0, 5), Objects(&C::m_points, PointLayout(), 9), In(0),
        Own(&C::m_date, &C::m_strName, &C::m_strFileName), In(4), Dwords(&C::m_bManaged), In(5),
        Bytes(&C::m_cReserved), Doubles(&C::m_dWindDirection), In(8), Unused(4), In(9),
        Doubles(&C::m_dTotalDistance, &C::m_dTravelTime), In(7), Own(&C::m_ellipsoid), In(10),
        Doubles(&C::m_dMaxSpeed, &C::m_dMinAltitude, &C::m_dMaxAltitude, &C::m_dMaxResultHDOP,
                &C::m_dMinResultSats),
        Own(&C::m_rcBounds), Days(&C::m_timeStart, &C::m_timeEnd), In(11),
        Doubles(&C::m_dTrackError, &C::m_dDopplerError, &C::m_dTotalDopplerDistance, &C::m_dMaxDoppler),
        In(0), Objects(&C::m_divisions, RecordLayout(), 3));
}

/// The event by format version. The divisions stand between the two; version and data folder are in the file
/// from version 4 on.
inline CLayout<CEvent> EventHeadLayout()
{
    using C = CEvent;
    return CLayout<C>(Own(&C::m_strDescription, &C::m_strLocation, &C::m_dateStart, &C::m_dateEnd),
                      Dwords(&C::m_nShowTopRows, &C::m_nSpeedUnits, &C::m_bConstrainRegion,
                             &C::m_bConstrainDates, &C::m_nReserved),
                      Doubles(&C::m_dAccThreshold), Dwords(&C::m_nTimeThreshold),
                      Own(&C::m_posNorthWest, &C::m_posSouthEast));
}

inline CLayout<CEvent> EventTailLayout()
{
    using C = CEvent;
    return CLayout<C>(In(4), Own(&C::m_strDataFolder), In(5), Doubles(&C::m_dMaxHDOP), Dwords(&C::m_nMinSats),
                      In(6), Doubles(&C::m_dDeccThreshold, &C::m_dSpeedThreshold), In(7),
                      Dwords(&C::m_bCaptureFocus), In(8),
                      Doubles(&C::m_dZoom, &C::m_dStopRunSpeed, &C::m_dStopRunAngle, &C::m_dTimezone,
                              &C::m_dDopplerError, &C::m_dTrackpointError),
                      Unused(8),
                      Dwords(&C::m_nSmoothing, &C::m_nSpeedPrecision, &C::m_nTimePrecision,
                             &C::m_nDistancePrecision, &C::m_nLatLongPrecision),
                      Unused(4), In(10), Objects(&C::m_waypoints, WayPointLayout(), 2));
}

/// An event file of that version up to the trailing double word. Its division is of the schema that tells
/// that a version follows, or of the one before.
inline std::string EventOf(int nVersion, CEvent& expected)
{
    CArchiveBytes bytes;
    bytes.Raw(EventHeadLayout().Body(nVersion, expected)).Word(0);
    DivisionLayout().PutOne(bytes, nVersion >= 4 ? 6 : 5);
    bytes.Dword(5).Double(1).Double(2);
    if (nVersion >= 4)
        bytes.Dword(static_cast<std::uint64_t>(nVersion)).Raw(EventTailLayout().Body(nVersion, expected));
    return bytes.Get();
}

} // namespace kestrabel::test
